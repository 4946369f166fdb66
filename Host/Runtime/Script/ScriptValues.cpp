#include "Script/ScriptValues.h"

#include "Call/HostCall.h"
#include "Script/ScriptAnalysis.h"
#include "Script/ScriptObject.h"

#include <QJsonDocument>

#include <algorithm>
#include <cmath>

namespace {

/// A length is what the script says; memory is taken only for elements that are there.
constexpr std::uint32_t firstReserve = 1u << 16;

ScriptVector emptyVector(ArgType declared) {
  return declared == StringArg ? ScriptVector::ofStrings({}) : ScriptVector();
}

QByteArray plainNumber(double value) {
  return QByteArray(YString(value).c_str());
}

[[noreturn]] void refuse(const QString& what, const QString& expected, const QJSValue& given) {
  throw CallError(
      QStringLiteral("%1 must be %2, %3 was given.").arg(what, expected, describeValue(given)));
}

QByteArray elementText(const QJSValue& value, const QString& what, std::uint32_t index) {
  if (value.isString())
    return value.toString().toUtf8();
  if (value.isNumber())
    return plainNumber(value.toNumber());
  if (value.isBool())
    return value.toBool() ? QByteArrayLiteral("1") : QByteArrayLiteral("0");
  refuse(QStringLiteral("%1: element [%2]").arg(what).arg(index),
         QStringLiteral("a number or a text"), value);
}

ScriptVector vectorFromArray(const QJSValue& array, ArgType declared, const QString& what) {
  const std::uint32_t length = array.property(QStringLiteral("length")).toUInt();
  if (length == 0)
    return emptyVector(declared);
  std::vector<double> reals;
  reals.reserve(std::min(length, firstReserve));
  std::uint32_t index = 0;
  QJSValue element = array.property(0);
  while (element.isNumber()) {
    reals.push_back(element.toNumber());
    if (++index == length)
      return ScriptVector::ofReals(std::move(reals));
    element = array.property(index);
  }
  std::vector<QByteArray> texts;
  texts.reserve(std::max<std::size_t>(reals.size(), std::min(length, firstReserve)));
  for (double number : reals)
    texts.push_back(plainNumber(number));
  texts.push_back(elementText(element, what, index));
  while (++index < length)
    texts.push_back(elementText(array.property(index), what, index));
  return ScriptVector::ofStrings(std::move(texts));
}

std::vector<double> realsOf(const QJSValue& object, const QString& member, const QString& what) {
  const QString which = QStringLiteral("%1: %2").arg(what, member);
  const QString expected = QStringLiteral("an array of numbers");
  const QJSValue value = object.property(member);
  if (!value.isArray())
    refuse(which, expected, value);
  ScriptVector vector = vectorFromArray(value, RealArg, which);
  if (vector.type != UserReal)
    throw CallError(
        QStringLiteral("%1 must be %2, one with texts was given.").arg(which, expected));
  return std::move(vector.reals);
}

ScriptVector vectorFromCurve(const QJSValue& object, const QString& what) {
  ScriptVector vector = ScriptVector::ofReals(realsOf(object, QStringLiteral("y"), what));
  if (!object.property(QStringLiteral("x")).isUndefined()) {
    vector.references = realsOf(object, QStringLiteral("x"), what);
    if (vector.references.size() != vector.reals.size())
      throw CallError(QStringLiteral("%1: y has %2 elements but x has %3.")
                          .arg(what)
                          .arg(vector.reals.size())
                          .arg(vector.references.size()));
  }
  const QJSValue divisions = object.property(QStringLiteral("divisions"));
  if (!divisions.isUndefined()) {
    const double number = divisions.isNumber() ? divisions.toNumber() : 0;
    const double count = static_cast<double>(vector.reals.size());
    if (!(number >= 1) || number != std::floor(number) || std::fmod(count, number) != 0 ||
        number > std::max(count, 1.0))
      throw CallError(QStringLiteral("%1: divisions must be a whole number that divides the %2 "
                                     "elements of y.")
                          .arg(what)
                          .arg(vector.reals.size()));
    vector.divisions = static_cast<int>(number);
  }
  return vector;
}

QString expectedFor(ArgType declared) {
  return declared == StringArg ? QStringLiteral("a string vector")
         : declared == RealArg ? QStringLiteral("a real vector")
                               : QStringLiteral("a number, a text or an array of them");
}

QString jsonNumber(double value) {
  if (std::isnan(value))
    return QStringLiteral("NaN");
  if (std::isinf(value))
    return value > 0 ? QStringLiteral("Infinity") : QStringLiteral("-Infinity");
  return QString::fromLatin1(plainNumber(value));
}

QString jsonText(const QByteArray& text) {
  const QByteArray array =
      QJsonDocument(QJsonArray{QString::fromUtf8(text)}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(array.mid(1, array.size() - 2));
}

template <class Elements, class Write> QString jsonElements(const Elements& elements, Write write) {
  if (elements.size() == 1)
    return write(elements.front());
  QString text(QLatin1Char('['));
  for (const auto& element : elements) {
    if (text.size() > 1)
      text += QStringLiteral(", ");
    text += write(element);
  }
  return text + QLatin1Char(']');
}

QString jsonArray(const std::vector<double>& values) {
  const QString text = jsonElements(values, jsonNumber);
  return values.size() == 1 ? QLatin1Char('[') + text + QLatin1Char(']') : text;
}

QString jsonVector(const ScriptVector& vector) {
  switch (vector.type) {
  case UserOpaque:
    break;
  case UserString:
    return jsonElements(vector.strings, jsonText);
  case UserReal:
    if (vector.references.empty() && vector.divisions == 1)
      return jsonElements(vector.reals, jsonNumber);
    QString text = QStringLiteral("{\"y\": ") + jsonArray(vector.reals);
    if (!vector.references.empty())
      text += QStringLiteral(", \"x\": ") + jsonArray(vector.references);
    if (vector.divisions != 1)
      text += QStringLiteral(", \"divisions\": %1").arg(vector.divisions);
    return text + QLatin1Char('}');
  }
  return QStringLiteral("null");
}

/// One conversion of a list is five times as fast as setting element by element.
template <class Elements, class Convert>
QJSValue scriptArray(QJSEngine* engine, const Elements& elements, Convert convert) {
  QVariantList list;
  list.reserve(static_cast<int>(elements.size()));
  for (const auto& element : elements)
    list.append(convert(element));
  return engine->toScriptValue(list);
}

QVariant variantOf(double value) {
  return value;
}
QVariant variantOfText(const QByteArray& text) {
  return QString::fromUtf8(text);
}

} // namespace

ScriptVector vectorFromScript(const QJSValue& value, ArgType declared, const QString& what,
                              const QString& expected) {
  if (value.isUndefined())
    return emptyVector(declared);
  if (value.isNumber())
    return ScriptVector::ofReals({value.toNumber()});
  if (value.isBool())
    return ScriptVector::ofReals({value.toBool() ? 1.0 : 0.0});
  if (value.isString())
    return ScriptVector::ofStrings({value.toString().toUtf8()});
  if (value.isArray())
    return vectorFromArray(value, declared, what);
  if (ScriptAnalysis* const block = ScriptAnalysis::of(value))
    return ScriptVector::ofOpaque(block->data().get(), block->data());
  if (value.isObject() && !value.isCallable() && value.hasProperty(QStringLiteral("y")))
    return vectorFromCurve(value, what);
  refuse(what, expected, value);
}

std::vector<ScriptVector> argumentsFromScript(const QJSValue& array, const FunctionInfo& function) {
  std::uint32_t count = array.property(QStringLiteral("length")).toUInt();
  while (count > 0 && array.property(count - 1).isUndefined())
    --count;
  checkArgumentCount(function, count);
  std::vector<ScriptVector> arguments;
  for (std::uint32_t i = 0; i < count; ++i) {
    const ArgType declared = function.argTypes.value(static_cast<int>(i), AnyArg);
    arguments.push_back(vectorFromScript(
        array.property(i), declared,
        QStringLiteral("%1: argument %2").arg(function.name).arg(i + 1), expectedFor(declared)));
  }
  return arguments;
}

CallResult resultFromScript(const QJSValue& value, const QString& what) {
  CallResult result;
  if (value.isUndefined() || value.isNull())
    return result;
  ScriptVector vector = vectorFromScript(value, RealArg, what,
                                         QStringLiteral("a number, a text, an array or {y, x}"));
  if (vector.type == UserOpaque)
    throw CallError(QStringLiteral("%1 must be no analysis block").arg(what));
  result.type = vector.type == UserString ? CallResult::Type::String : CallResult::Type::Real;
  result.reals = std::move(vector.reals);
  result.references = std::move(vector.references);
  result.strings = std::move(vector.strings);
  return result;
}

QJSValue resultToScript(QJSEngine* engine, const CallResult& result) {
  switch (result.type) {
  case CallResult::Type::None:
    break;
  case CallResult::Type::Real:
    return scriptArray(engine, result.reals, variantOf);
  case CallResult::Type::String:
    return scriptArray(engine, result.strings, variantOfText);
  case CallResult::Type::Int:
    return scriptArray(engine, result.ints, [](std::int32_t value) { return QVariant(value); });
  case CallResult::Type::Bool:
    return scriptArray(engine, result.bools, [](bool value) { return QVariant(value); });
  }
  return engine->newArray();
}

QJSValue vectorToScript(QJSEngine* engine, const ScriptVector& vector) {
  switch (vector.type) {
  case UserOpaque:
    break;
  case UserString:
    return vector.strings.size() == 1 ? QJSValue(QString::fromUtf8(vector.strings.front()))
                                      : scriptArray(engine, vector.strings, variantOfText);
  case UserReal:
    if (vector.references.empty())
      return vector.reals.size() == 1 ? QJSValue(vector.reals.front())
                                      : scriptArray(engine, vector.reals, variantOf);
    QJSValue curve = engine->newObject();
    curve.setProperty(QStringLiteral("y"), scriptArray(engine, vector.reals, variantOf));
    curve.setProperty(QStringLiteral("x"), scriptArray(engine, vector.references, variantOf));
    return curve;
  }
  return QJSValue(QJSValue::NullValue);
}

QJSValue vectorToArray(QJSEngine* engine, const ScriptVector& vector) {
  return vector.type == UserString ? scriptArray(engine, vector.strings, variantOfText)
                                   : scriptArray(engine, vector.reals, variantOf);
}

QString argumentsToJson(const std::vector<ScriptVector>& arguments) {
  QStringList texts;
  for (const ScriptVector& vector : arguments)
    texts.append(jsonVector(vector));
  return QLatin1Char('[') + texts.join(QStringLiteral(", ")) + QLatin1Char(']');
}
