#pragma once

#include "Call/ScriptVector.h"

/// The value of a script expression: a number, a text in single quotes, or a call of one of the
/// host's expression functions, whose arguments are such expressions in turn.
///
/// Strict, since people's texts are put between the quotes as they are: there is no other notation,
/// no way to write a quote in a text, and no function with a number of arguments of its own
/// choosing. Nothing is called before the whole has been read. What is wrong is a `CallError`.
ScriptVector evaluateScriptExpression(const QByteArray& expression);
