#pragma once

#include <QJSValue>
#include <QStringList>

#include <cstdint>
#include <vector>

/// What `value` is, for a message: "null", "a function", "a number".
QString describeValue(const QJSValue& value);

/// Reads the members of an object that a script has written, and the host has taken over
/// (`ScriptRunner::takeRecord`). All raise `CallError`, naming the
/// member, what it must be and what it is; the constructor for what is no object, or has members
/// of other names. A member that is missing, or undefined, has the value given as `none`.
class ScriptObject {
public:
  ScriptObject(const QJSValue& object, const QString& what, const QStringList& members);

  bool has(const char* member) const;
  QString text(const char* member, const QString& none = QString()) const;
  double number(const char* member, double none = 0) const;
  std::int32_t integer(const char* member, std::int32_t none = 0) const; ///< of 32 bits
  bool flag(const char* member, bool none = false) const;
  QStringList texts(const char* member) const;
  std::vector<QJSValue> array(const char* member) const;
  /// "WHAT: MEMBER", for messages about what is inside of it.
  QString nameOf(const char* member) const;
  [[noreturn]] void refuse(const char* member, const QString& expected) const;

private:
  QJSValue value(const char* member) const;

  QJSValue m_object;
  QString m_what;
};

/// The elements of an array. Raises `CallError` for what is none.
std::vector<QJSValue> elementsOf(const QJSValue& array, const QString& what);
