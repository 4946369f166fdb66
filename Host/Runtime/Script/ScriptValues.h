#pragma once

#include "Call/FunctionTable.h"

#include <QJSEngine>
#include <QJSValue>

// Values on their way between script and call.
//
// A number is a real vector of one, a text a string vector of one, true and false are 1 and 0; an
// array of numbers is a real vector, any other array a string vector, in which numbers are written
// plainly and true and false are "1" and "0". `{y, x, divisions}` is a real vector with a
// reference. An empty array, and `undefined`, take the declared type; where any type is declared,
// real. An analysis block is an opaque value.

/// Raises `CallError`, "WHAT must be EXPECTED, null was given.", for what has no vector form.
ScriptVector vectorFromScript(const QJSValue& value, ArgType declared, const QString& what,
                              const QString& expected);

/// The arguments of a call out of a script array; trailing `undefined` ones are not passed. Raises
/// `CallError` for a wrong number or for what has no vector form; types are not checked.
std::vector<ScriptVector> argumentsFromScript(const QJSValue& array, const FunctionInfo& function);

/// What a script function gave for a host function: any vector; none for null and `undefined`.
CallResult resultFromScript(const QJSValue& value, const QString& what);

/// Always an array, of numbers, texts or booleans.
QJSValue resultToScript(QJSEngine* engine, const CallResult& result);

/// A number, a text, an array, or `{y, x}`.
QJSValue vectorToScript(QJSEngine* engine, const ScriptVector& vector);

/// Always an array, however few elements there are.
QJSValue vectorToArray(QJSEngine* engine, const ScriptVector& vector);

/// The arguments as a script writes them, "[4.7, \"a\", [1, 2]]": JSON, but for NaN and Infinity.
QString argumentsToJson(const std::vector<ScriptVector>& arguments);
