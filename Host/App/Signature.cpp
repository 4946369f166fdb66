#include "Signature.h"

#include <QStringList>

QString argTypeName(ArgType type) {
  switch (type) {
  case StringArg:
    return QStringLiteral("string");
  case RealArg:
    return QStringLiteral("real");
  case AnyArg:
    break;
  }
  return QStringLiteral("any");
}

QString resultTypeWords(ResultType result) {
  switch (result) {
  case BoolVectorResult:
    return QStringLiteral("boolean[]");
  case NumberResult:
    return QStringLiteral("number");
  case IntVectorResult:
    return QStringLiteral("integer[]");
  case RealVectorResult:
    return QStringLiteral("real[]");
  case StatusResult:
    return QStringLiteral("status");
  case OptionalStringResult:
    return QStringLiteral("string?");
  case StringVectorResult:
    return QStringLiteral("string[]");
  case NoResult:
    break;
  }
  return QStringLiteral("nothing");
}

QString signatureText(const FunctionInfo& function) {
  if (function.kind == FunctionInfo::Kind::Command)
    return QStringLiteral("command(\"%1 …\")").arg(function.name);
  QStringList arguments;
  for (int i = 0; i < function.maxArgs && i < function.argTypes.size(); ++i)
    arguments << argTypeName(function.argTypes[i]) +
                     (i < function.minArgs ? QStringLiteral("[]") : QStringLiteral("[]?"));
  return QStringLiteral("%1(%2) → %3")
      .arg(function.name, arguments.join(QStringLiteral(", ")),
           resultTypeWords(function.resultType));
}
