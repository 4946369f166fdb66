#include "Script/ScriptProvider.h"

#include "HostSupport/YString.h"
#include "Script/ScriptObject.h"
#include "Script/ScriptValues.h"

#include <cmath>

namespace {

QJSValueList argumentsOf(QJSEngine* engine, const Service& service,
                         const std::vector<ScriptVector>& arguments) {
  QJSValueList values;
  for (const ScriptVector& vector : arguments)
    values.append(service.answer == Service::Answer::List ? vectorToArray(engine, vector)
                                                          : vectorToScript(engine, vector));
  if (service.kind != Service::Kind::Function)
    return values;
  QJSValue list = engine->newArray(static_cast<uint>(values.size()));
  for (int i = 0; i < values.size(); ++i)
    list.setProperty(static_cast<quint32>(i), values.at(i));
  return {list};
}

bool isInteger(const QJSValue& value) {
  const double number = value.isNumber() ? value.toNumber() : 0.5;
  return number >= INT32_MIN && number <= INT32_MAX && number == std::floor(number);
}

/// Elements of a list are texts, whatever a script writes.
void makeTexts(CallResult* list) {
  if (list->type != CallResult::Type::Real)
    return;
  list->type = CallResult::Type::String;
  for (double number : list->reals)
    list->strings.emplace_back(YString(number).c_str());
}

CallResult answerOf(const QJSValue& value, const Service& service) {
  const QString name = QLatin1String(service.name);
  const auto require = [&](bool isGiven, const char* expected) {
    if (!isGiven)
      throw CallError(QStringLiteral("%1: the script must give %2, it gave %3")
                          .arg(name, QLatin1String(expected), describeValue(value)));
  };
  switch (service.answer) {
  case Service::Answer::Nothing:
    return {};
  case Service::Answer::Number:
    require(value.isNumber(), "a number");
    break;
  case Service::Answer::Integer:
    require(isInteger(value), "a whole number");
    break;
  case Service::Answer::Code:
    require(isInteger(value) || value.isNull(), "a whole number or null");
    break;
  case Service::Answer::Text:
    require(value.isString(), "a text");
    break;
  case Service::Answer::List:
    require(value.isArray() || value.isNull(), "an array or null");
    break;
  case Service::Answer::Curve:
    require(value.isNull() ||
                (value.isObject() && !value.isArray() && value.hasProperty(QStringLiteral("x")) &&
                 value.hasProperty(QStringLiteral("y"))),
            "{x, y} or null");
    break;
  case Service::Answer::Any:
    break;
  }
  const QString what = service.kind == Service::Kind::Function
                           ? QStringLiteral("%1: the result").arg(name)
                           : QStringLiteral("%1: the answer").arg(name);
  CallResult answer = resultFromScript(value, what);
  if (service.answer == Service::Answer::List)
    makeTexts(&answer);
  if (service.answer == Service::Answer::Curve)
    require(answer.reals.size() == answer.references.size(), "{x, y} or null");
  return answer;
}

} // namespace

Provider scriptProvider(ScriptRunner* runner, const QJSValue& function, const Service& service) {
  return [runner, function, service](const std::vector<ScriptVector>& arguments) {
    const ScriptOutcome outcome =
        runner->call(function, argumentsOf(runner->engine(), service, arguments));
    if (!outcome.ok)
      throw CallError(runner->describe(outcome.value).message);
    return answerOf(outcome.value, service);
  };
}
