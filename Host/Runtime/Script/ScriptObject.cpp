#include "Script/ScriptObject.h"

#include "Call/ScriptVector.h"

#include <QJSValueIterator>

#include <cmath>

namespace {

constexpr std::uint32_t mostElements = 1'000'000;

[[noreturn]] void refuseValue(const QString& what, const QString& expected, const QJSValue& given) {
  throw CallError(
      QStringLiteral("%1 must be %2, %3 was given").arg(what, expected, describeValue(given)));
}

} // namespace

QString describeValue(const QJSValue& value) {
  if (value.isUndefined())
    return QStringLiteral("nothing");
  if (value.isNull())
    return QStringLiteral("null");
  if (value.isBool())
    return QStringLiteral("true or false");
  if (value.isNumber())
    return QStringLiteral("a number");
  if (value.isString())
    return QStringLiteral("a text");
  if (value.isCallable())
    return QStringLiteral("a function");
  if (value.isArray())
    return QStringLiteral("an array");
  if (value.isDate())
    return QStringLiteral("a date");
  return value.isObject() ? QStringLiteral("an object") : QStringLiteral("a symbol");
}

ScriptObject::ScriptObject(const QJSValue& object, const QString& what, const QStringList& members)
    : m_object(object), m_what(what) {
  if (!object.isObject() || object.isArray() || object.isCallable())
    refuseValue(what, QStringLiteral("an object"), object);
  QJSValueIterator member(object);
  while (member.next())
    if (!members.contains(member.name()))
      throw CallError(QStringLiteral("%1 has no \"%2\"; it has: %3")
                          .arg(what, member.name(), members.join(QStringLiteral(", "))));
}

QJSValue ScriptObject::value(const char* member) const {
  return m_object.property(QLatin1String(member));
}

bool ScriptObject::has(const char* member) const {
  return !value(member).isUndefined();
}

QString ScriptObject::nameOf(const char* member) const {
  return QStringLiteral("%1: %2").arg(m_what, QLatin1String(member));
}

void ScriptObject::refuse(const char* member, const QString& expected) const {
  refuseValue(nameOf(member), expected, value(member));
}

QString ScriptObject::text(const char* member, const QString& none) const {
  if (!has(member))
    return none;
  if (!value(member).isString())
    refuse(member, QStringLiteral("a text"));
  return value(member).toString();
}

double ScriptObject::number(const char* member, double none) const {
  if (!has(member))
    return none;
  if (!value(member).isNumber())
    refuse(member, QStringLiteral("a number"));
  return value(member).toNumber();
}

std::int32_t ScriptObject::integer(const char* member, std::int32_t none) const {
  const double given = number(member, none);
  if (!(given >= INT32_MIN && given <= INT32_MAX) || given != std::floor(given))
    refuse(member, QStringLiteral("a whole number of 32 bits"));
  return static_cast<std::int32_t>(given);
}

bool ScriptObject::flag(const char* member, bool none) const {
  if (!has(member))
    return none;
  if (!value(member).isBool())
    refuse(member, QStringLiteral("true or false"));
  return value(member).toBool();
}

QStringList ScriptObject::texts(const char* member) const {
  QStringList list;
  for (const QJSValue& element : array(member)) {
    if (!element.isString())
      refuseValue(nameOf(member), QStringLiteral("an array of texts"), element);
    list.append(element.toString());
  }
  return list;
}

std::vector<QJSValue> ScriptObject::array(const char* member) const {
  return has(member) ? elementsOf(value(member), nameOf(member)) : std::vector<QJSValue>();
}

std::vector<QJSValue> elementsOf(const QJSValue& array, const QString& what) {
  if (!array.isArray())
    refuseValue(what, QStringLiteral("an array"), array);
  const std::uint32_t length = array.property(QStringLiteral("length")).toUInt();
  if (length > mostElements)
    throw CallError(QStringLiteral("%1 has more than %2 elements").arg(what).arg(mostElements));
  std::vector<QJSValue> elements;
  for (std::uint32_t i = 0; i < length; ++i)
    elements.push_back(array.property(i));
  return elements;
}
