#include "Services/Entries/EntryCall.h"

#include <QHash>

#include <cmath>

namespace {

QHash<QString, Provider>& providers() {
  static QHash<QString, Provider> all;
  return all;
}

void require(bool isGiven, const char* entry, const char* expected) {
  if (!isGiven)
    throw CallError(QStringLiteral("%1: its provider must give %2")
                        .arg(QLatin1String(entry), QLatin1String(expected)));
}

} // namespace

void setEntryProvider(const QString& name, Provider provider) {
  providers().insert(name, std::move(provider));
}

bool hasProvider(const char* entry) {
  return static_cast<bool>(providers().value(QLatin1String(entry)));
}

CallResult askProvider(const char* entry, const std::vector<ScriptVector>& arguments) {
  const QString name = QLatin1String(entry);
  const Provider provider = providers().value(name); // a copy: it may replace itself
  if (!provider)
    throw CallError(QStringLiteral("%1: nobody serves it").arg(name));
  return provider(arguments);
}

double numberOf(const char* entry, const CallResult& answer) {
  require(answer.reals.size() == 1, entry, "a number");
  return answer.reals.front();
}

std::int32_t integerOf(const char* entry, const CallResult& answer) {
  const double number = numberOf(entry, answer);
  require(number >= INT32_MIN && number <= INT32_MAX && number == std::floor(number), entry,
          "a whole number");
  return static_cast<std::int32_t>(number);
}

double askForNumber(const char* entry, const std::vector<ScriptVector>& arguments) {
  return numberOf(entry, askProvider(entry, arguments));
}

std::int32_t askForInteger(const char* entry, const std::vector<ScriptVector>& arguments) {
  return integerOf(entry, askProvider(entry, arguments));
}

YString askForText(const char* entry, const std::vector<ScriptVector>& arguments) {
  const CallResult answer = askProvider(entry, arguments);
  require(answer.strings.size() == 1, entry, "a text");
  return toYs(QString::fromUtf8(answer.strings.front()));
}

CallResult askForCurve(const char* entry, const std::vector<ScriptVector>& arguments) {
  CallResult answer = askProvider(entry, arguments);
  require(answer.reals.size() == answer.references.size(), entry, "y and x, as many of both");
  return answer;
}

std::vector<ScriptVector> textArgument(const YString& text) {
  return {ScriptVector::ofStrings({toQs(text).toUtf8()})};
}

QString textOf(const std::vector<ScriptVector>& arguments) {
  return QString::fromUtf8(arguments.at(0).strings.at(0));
}
