#pragma once

#include <QString>

// What the host is asked about the expression of an arbitrary source: script expressions, with the
// text between single quotes as it stands.

/// How many elements the parser makes of it: 0 where it does not parse.
QString syntaxScript(const QString& expression);
/// Where it calls the function log; -1 where it does not.
QString usesLogScript(const QString& expression);
/// Not 0 where it uses the parameter M.
QString usesMScript(const QString& expression);

/// Whether it has as many ( as ), in whatever order.
bool hasMatchingParentheses(const QString& expression);
