#include "Script/ScriptAnalysis.h"

#include "HostSupportQt/Text.h"
#include "Script/ScriptObject.h"

#include <QJSEngine>

namespace {

struct Flag {
  const char* name;
  std::uint8_t BrennixAnalysisData::*place;
};
constexpr Flag flags[] = {
    {"tranSelected", &BrennixAnalysisData::tranSelected},
    {"acSelected", &BrennixAnalysisData::acSelected},
    {"popSelected", &BrennixAnalysisData::popSelected},
    {"tranDefined", &BrennixAnalysisData::tranDefined},
    {"acDefined", &BrennixAnalysisData::acDefined},
    {"popDefined", &BrennixAnalysisData::popDefined},
};
constexpr const char* action = "action";

QStringList fieldNames() {
  QStringList names{QLatin1String(action)};
  for (const Flag& flag : flags)
    names.append(QLatin1String(flag.name));
  return names;
}

bool isFlag(AnalysisParameterType type) {
  return type == AnalysisFlag || type == AnalysisSwitch;
}

AnalysisParameterType typeOf(const ScriptObject& object) {
  const std::int32_t type = object.integer("type", -1);
  if (type < AnalysisReal || type > AnalysisIndex)
    object.refuse("type", QStringLiteral("0 (real), 1 (integer), 2 or 3 (true or false), 4 (text) "
                                         "or 5 (index)"));
  return static_cast<AnalysisParameterType>(type);
}

AnalysisParameter parameterOf(const QJSValue& value, const QString& what) {
  const ScriptObject object(value, what,
                            {QStringLiteral("name"), QStringLiteral("type"),
                             QStringLiteral("value"), QStringLiteral("text"),
                             QStringLiteral("isSet")});
  AnalysisParameter parameter{};
  parameter.name = toYs(object.text("name"));
  parameter.type = typeOf(object);
  parameter.text = toYs(object.text("text"));
  if (parameter.type == AnalysisReal)
    parameter.value.real = object.number("value");
  else if (isFlag(parameter.type))
    parameter.value.byte = object.flag("value");
  else if (parameter.type != AnalysisText)
    parameter.value.integer = object.integer("value");
  else if (object.has("value"))
    object.refuse("value", QStringLiteral("left out: the value of type 4 is its text"));
  parameter.isSet = object.flag("isSet", object.has("value") || object.has("text"));
  return parameter;
}

QJSValue valueOf(const AnalysisParameter& parameter) {
  switch (parameter.type) {
  case AnalysisReal:
    return parameter.value.real;
  case AnalysisFlag:
  case AnalysisSwitch:
    return parameter.value.byte != 0;
  case AnalysisText:
    return QJSValue();
  case AnalysisInteger:
  case AnalysisIndex:
    break;
  }
  return parameter.value.integer;
}

} // namespace

ScriptAnalysis::ScriptAnalysis(const QJSValue& parameters, const QJSValue& fields) {
  const QString list = QStringLiteral("host.analysis: parameters");
  for (const QJSValue& parameter : elementsOf(parameters, list))
    m_block->parameters.push_back(
        parameterOf(parameter, QStringLiteral("%1[%2]").arg(list).arg(m_block->parameters.size())));
  m_block->data.parameters = m_block->parameters.data();
  m_block->data.parameterCount = static_cast<std::int32_t>(m_block->parameters.size());
  if (fields.isUndefined())
    return;
  const ScriptObject object(fields, QStringLiteral("host.analysis: fields"), fieldNames());
  m_block->data.action = static_cast<BrennixAction>(object.integer(action));
  for (const Flag& flag : flags)
    m_block->data.*flag.place = object.flag(flag.name);
}

ScriptAnalysis* ScriptAnalysis::of(const QJSValue& value) {
  return qobject_cast<ScriptAnalysis*>(value.toQObject());
}

QJSValue ScriptAnalysis::parameters() const {
  QJSEngine* engine = qjsEngine(this);
  QJSValue list = engine->newArray(static_cast<uint>(m_block->parameters.size()));
  quint32 index = 0;
  for (const AnalysisParameter& parameter : m_block->parameters) {
    QJSValue object = engine->newObject();
    object.setProperty(QStringLiteral("name"), toQs(parameter.name));
    object.setProperty(QStringLiteral("type"), static_cast<int>(parameter.type));
    object.setProperty(QStringLiteral("value"), valueOf(parameter));
    object.setProperty(QStringLiteral("text"), toQs(parameter.text));
    object.setProperty(QStringLiteral("isSet"), parameter.isSet != 0);
    list.setProperty(index++, object);
  }
  return list;
}

QJSValue ScriptAnalysis::fields() const {
  QJSValue object = qjsEngine(this)->newObject();
  object.setProperty(QLatin1String(action), static_cast<int>(m_block->data.action));
  for (const Flag& flag : flags)
    object.setProperty(QLatin1String(flag.name), m_block->data.*flag.place != 0);
  return object;
}
