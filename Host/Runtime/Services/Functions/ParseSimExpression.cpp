#include "Services/Expressions/SimExpression.h"
#include "Services/Functions/FunctionArguments.h"
#include "Services/Functions/Functions.h"

#include <QList>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr const char* dialect = "spice";
const QRegularExpression letter(QStringLiteral("\\w"));

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

/// A replacement without a letter is a mark that the caller looks for in what is written: names of
/// nodes and texts that contain it are not to be taken for it.
void breakUp(const std::string& replacement, SimToken* token) {
  if (replacement.empty() || QString::fromStdString(replacement).contains(letter))
    return;
  for (std::size_t at = 0; (at = token->text.find(replacement, at)) != std::string::npos; at += 2)
    token->text.insert(at + 1, " ");
}

void replace(const Replacements& replacements, SimToken* token) {
  const auto found = std::find_if(replacements.begin(), replacements.end(), [&](const auto& each) {
    return token->kind == SimToken::Kind::Function && isSimName(token->text, each.first);
  });
  if (found != replacements.end()) {
    token->text = found->second;
    return;
  }
  for (const auto& each : replacements)
    breakUp(each.second, token);
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
    for (SimToken& token : *tokens)
      replace(replacements, &token);
    result.strings = {QByteArray::fromStdString(writeSimExpression(*tokens))};
  }
  return result;
}
