#include "Services/HostFacts.h"

#include "Call/ScriptVector.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/System.h"
#include "HostSupportQt/Text.h"

#include <cmath>

namespace {

enum class FactKind { Number, Flag, Version };
struct Fact {
  const char* key;
  FactKind kind;
};
const Fact facts[] = {{"memory", FactKind::Number},
                      {"cores", FactKind::Number},
                      {"version", FactKind::Version},
                      {"caseSensitiveFiles", FactKind::Flag},
                      {"hasHelp", FactKind::Flag}};

const Fact& factOf(const QString& key) {
  QStringList known;
  for (const Fact& fact : facts) {
    if (key == QLatin1String(fact.key))
      return fact;
    known.append(QLatin1String(fact.key));
  }
  throw CallError(QStringLiteral("host.system: there is no \"%1\"; there are: %2")
                      .arg(key, known.join(QStringLiteral(", "))));
}

bool isNumber(const QVariant& value) {
  return value.type() == QVariant::Double || value.type() == QVariant::Int ||
         value.type() == QVariant::UInt;
}

bool isVersionPart(const QVariant& value) {
  const double number = value.toDouble();
  return isNumber(value) && number >= 0 && number < 1e6 && number == std::floor(number);
}

[[noreturn]] void refuse(const Fact& fact, const char* expected) {
  throw CallError(QStringLiteral("host.system: \"%1\" must be %2")
                      .arg(QLatin1String(fact.key), QLatin1String(expected)));
}

QString factText(const Fact& fact, const QVariant& value) {
  switch (fact.kind) {
  case FactKind::Number:
    if (!isNumber(value) || !(value.toDouble() >= 0) || !std::isfinite(value.toDouble()))
      refuse(fact, "a number from 0 up");
    return toQs(YString(value.toDouble()));
  case FactKind::Flag:
    if (value.type() != QVariant::Bool)
      refuse(fact, "true or false");
    return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
  case FactKind::Version:
    break;
  }
  const QVariantList parts = value.toList();
  if (parts.size() != 2 || !isVersionPart(parts.at(0)) || !isVersionPart(parts.at(1)))
    refuse(fact, "[major, minor], two whole numbers");
  return QStringLiteral("%1.%2").arg(parts.at(0).toInt()).arg(parts.at(1).toInt());
}

QStringList& requests() {
  static QStringList list;
  return list;
}

HelpViewer helpWindow = nullptr;

void recordHelp(const HelpRequest& request) {
  requests().append(toQs(request.asked));
  if (helpWindow)
    helpWindow(request);
}

} // namespace

QVariant hostFact(const QString& key) {
  const Fact& fact = factOf(key);
  bool isKnown = false;
  const QString text = toQs(sp_GetSystemValue(YString(fact.key), &isKnown));
  if (!isKnown && fact.kind == FactKind::Flag)
    return sp_HasHelp(); // untold, it is whether somebody shows the pages
  switch (fact.kind) {
  case FactKind::Number:
    return sp_ConvertEngToReal(text);
  case FactKind::Flag:
    return text == QLatin1String("1");
  case FactKind::Version:
    break;
  }
  QVariantList parts;
  for (const QString& part : text.split(QLatin1Char('.')))
    parts.append(part.toInt());
  return parts;
}

void setHostFact(const QString& key, const QVariant& value) {
  const Fact& fact = factOf(key);
  if (!value.isValid())
    sp_SetSystemValue(YString(fact.key), nullptr);
  else
    sp_SetSystemValue(YString(fact.key), Tocs(factText(fact, value)));
}

void recordHelpRequests() {
  sp_SetHelpViewer(recordHelp);
}

void setHelpWindow(HelpViewer viewer) {
  helpWindow = viewer;
  recordHelpRequests();
}

QStringList helpRequests() {
  return requests();
}
