#include "Workbench/CallRecord.h"

#include "Script/ScriptValues.h"

namespace {

QString withoutBrackets(const QString& array) {
  return array.mid(1, array.size() - 2);
}

/// A vector as one argument of a call; one of a single element stands without brackets.
QString asArgument(ScriptVector vector) {
  return withoutBrackets(argumentsToJson({std::move(vector)}));
}

QString asArray(ScriptVector vector) {
  const bool isSingle = vector.count() == 1;
  const QString text = argumentsToJson({std::move(vector)});
  return isSingle ? text : withoutBrackets(text);
}

} // namespace

QString scriptText(const QString& text) {
  return asArgument(ScriptVector::ofStrings({text.toUtf8()}));
}

QString scriptNumber(double value) {
  return asArgument(ScriptVector::ofReals({value}));
}

QString scriptArray(const CallResult& result) {
  switch (result.type) {
  case CallResult::Type::Real:
    return asArray(ScriptVector::ofReals(result.reals));
  case CallResult::Type::String:
    return asArray(ScriptVector::ofStrings(result.strings));
  case CallResult::Type::Int:
    return asArray(ScriptVector::ofReals({result.ints.begin(), result.ints.end()}));
  case CallResult::Type::Bool: {
    QStringList words;
    for (bool value : result.bools)
      words << (value ? QStringLiteral("true") : QStringLiteral("false"));
    return QLatin1Char('[') + words.join(QStringLiteral(", ")) + QLatin1Char(']');
  }
  case CallResult::Type::None:
    break;
  }
  return QStringLiteral("[]");
}

QString CallRecord::callText() const {
  // The arguments come as one array.
  return function + QLatin1Char('(') + withoutBrackets(arguments) + QLatin1Char(')');
}

QString CallRecord::toScript() const {
  const QString call = callText();
  if (!error.isEmpty())
    return answers + call + QStringLiteral(";\n");
  return answers +
         QStringLiteral("equal(%1,\n      %2, %3);\n").arg(call, result, scriptText(function));
}
