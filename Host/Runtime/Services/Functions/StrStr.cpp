#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

CallResult strStr(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, strStrFunction.arguments);
  const QString text = QString::fromUtf8(arguments.text(0, "text"));
  return resultOf(text.indexOf(QString::fromUtf8(arguments.text(1, "part"))));
}
