#include "Services/Expressions/SimExpression.h"
#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

#include <QList>

namespace {

constexpr const char* dialect = "spice";

/// Names of functions, and what is written for each.
using Replacements = std::vector<std::pair<std::string, std::string>>;

Replacements replacementsOf(const FunctionArguments& arguments) {
  const QByteArray& text = arguments.text(1, "replacements");
  if (text.isEmpty())
    return {};
  const QList<QByteArray> names = text.split(',');
  if (names.size() % 2 != 0)
    throw FunctionArguments::refusal(1, "replacements", "pairs \"from,to\"",
                                     QString::fromUtf8('"' + text + '"'));
  Replacements replacements;
  for (int i = 0; i < names.size(); i += 2)
    replacements.emplace_back(names[i].trimmed().toStdString(), names[i + 1].toStdString());
  return replacements;
}

void replace(const Replacements& replacements, std::vector<SimToken>* tokens) {
  for (SimToken& token : *tokens)
    if (token.kind == SimToken::Kind::Function)
      for (const auto& [from, to] : replacements)
        if (isSimName(token.text, from)) {
          token.text = to;
          break;
        }
}

void checkDialect(const FunctionArguments& arguments) {
  const QByteArray& asked = arguments.text(3, "dialect");
  if (asked.compare(dialect, Qt::CaseInsensitive) != 0)
    throw FunctionArguments::refusal(3, "dialect", "\"spice\"",
                                     QString::fromUtf8('"' + asked + '"'));
}

} // namespace

CallResult parseSimExpression(const std::vector<ScriptVector>& vectors) {
  const FunctionArguments arguments(vectors, parseSimExpressionFunction.arguments);
  const Replacements replacements = replacementsOf(arguments);
  arguments.text(2, "list");
  checkDialect(arguments);
  CallResult result;
  result.type = CallResult::Type::String;
  if (auto tokens = readSimExpression(arguments.text(0, "expression").toStdString())) {
    replace(replacements, &*tokens);
    result.strings = {QByteArray::fromStdString(writeSimExpression(*tokens))};
  }
  return result;
}
