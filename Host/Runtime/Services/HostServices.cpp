#include "Services/HostServices.h"

#include "Call/HostFunctions.h"
#include "HostSupport/Registry.h"
#include "HostSupportQt/Paste.h"
#include "Services/Commands.h"
#include "Services/Digitiser/Digitise.h"
#include "Services/EntryCall.h"
#include "Services/NumericFunctions.h"
#include "frontend_dynexport.h"
#include "graphimagecapture_dynexport.h"
#include "schematic_dynexport.h"
#include "vecdll_dynexport.h"

#include <QApplication>
#include <QHash>

#include <deque>

namespace {

// ---- the schematic ------------------------------------------------------------------------------

class Schematic final : public GlobalSchematicInterface {
public:
  void reserved1() override {}
  void reserved2() override {}
  void setPicking(int on) override { picking.append(on); }
  bool hasCurrentSchematic() override { return hasCurrent; }

  bool hasCurrent = false;
  QVector<int> picking;
};

Schematic& schematic() {
  static Schematic instance;
  return instance;
}

GlobalSchematicInterface* globalSchematicInterface() {
  return &schematic();
}

// ---- entries ------------------------------------------------------------------------------------

double evaluateExpression(const YString& expression) {
  return asEntry(
      [&] { return askForNumber(dyn_EvaluateExpression.name, {textVector(expression)}); });
}

YString evaluateStringExpression(const YString& expression) {
  return asEntry(
      [&] { return askForText(dyn_EvaluateStringExpression.name, {textVector(expression)}); });
}

const FunctionTable* commands = nullptr; ///< those that modules run
const HostServices* commandsOwner = nullptr;

CallResult runOwnCommand(const std::vector<ScriptVector>& arguments) {
  if (!commands)
    throw CallError(
        QStringLiteral("%1: there are no commands").arg(QLatin1String(dyn_RunCommand.name)));
  runCommand(*commands, QString::fromUtf8(arguments.at(0).strings.at(0)));
  return {};
}

void runCommandEntry(const YString& command, std::uint32_t hash) {
  asEntry([&] {
    if (hash != command.hashValue())
      throw CallError(QStringLiteral("%1: the hash is not that of the command")
                          .arg(QLatin1String(dyn_RunCommand.name)));
    askProvider(dyn_RunCommand.name, {textVector(command)});
  });
}

CallResult digitisePicture(const std::vector<ScriptVector>& arguments) {
  QWidget* const modal = QApplication::activeModalWidget();
  CallResult curve;
  if (digitise(modal ? modal : QApplication::activeWindow(),
               QString::fromUtf8(arguments.at(0).strings.at(0)), &curve.references, &curve.reals))
    curve.type = CallResult::Type::Real;
  return curve;
}

bool captureGraph(const GraphImageCaptureRecord& input, GraphImageCaptureRecord* output,
                  KvVector<double>* x, KvVector<double>* y) {
  return asEntry([&] {
    CallResult curve = askForCurve(dyn_GraphImageCapture.name, {textVector(input.picture)});
    if (!curve.made())
      return false;
    *output = input;
    *x = KvVector<double>(std::move(curve.references));
    *y = KvVector<double>(std::move(curve.reals));
    return true;
  });
}

// ---- the table ----------------------------------------------------------------------------------

const std::vector<Service>& services() {
  using Answer = Service::Answer;
  static const std::vector<Service> all = {
      Service::ofEntry(dyn_EvaluateExpression, evaluateExpression, Answer::Number),
      Service::ofEntry(dyn_EvaluateStringExpression, evaluateStringExpression, Answer::Text),
      Service::ofSteeredEntry(dyn_GetGlobalSchematicInterface, globalSchematicInterface),
      Service::ofEntry(dyn_RunCommand, runCommandEntry, Answer::Nothing, runOwnCommand),
      Service::ofEntry(dyn_GraphImageCapture, captureGraph, Answer::Curve, digitisePicture),
      Service::later("dyn_OpenListDialog", Service::Kind::Entry),
      Service::ofFunction("interp", numericFunction(QStringLiteral("interp"))),
      Service::ofFunction("YFromX", numericFunction(QStringLiteral("YFromX"))),
      Service::ofFunction("integ", numericFunction(QStringLiteral("integ"))),
      Service::ofFunction("PWLCurveFit", numericFunction(QStringLiteral("PWLCurveFit"))),
      Service::later("sp_ParseLaplaceExpression"),
      Service::later("laplace_CheckLaplaceExpression"),
      Service::later("sp_EstimateFourierCalculationTime"),
  };
  return all;
}

[[noreturn]] void refuse(const Service& service) {
  const QString reason =
      service.kind == Service::Kind::SteeredEntry
          ? QStringLiteral("is steered through host.schematic; it can only be withdrawn and "
                           "brought back")
          : QStringLiteral("is not served by this host yet");
  throw CallError(QStringLiteral("host.provide: %1 %2").arg(QLatin1String(service.name), reason));
}

void setProvider(const Service& service, Provider provider) {
  const QString name = QLatin1String(service.name);
  if (service.isEntry())
    setEntryProvider(name, std::move(provider));
  else
    setHostFunction(name, std::move(provider));
}

/// Once: what another script has replaced or withdrawn meanwhile stays so.
bool registerOwn() {
  static std::deque<RegisterDynFuncDef> entries;
  for (const Service& service : services()) {
    setProvider(service, service.own);
    if (service.entry && (service.own || service.kind == Service::Kind::SteeredEntry))
      entries.emplace_back(service.name, service.entry, service.file, service.line);
  }
  return true;
}

/// Whose change of a service is the latest, and ends with it.
QHash<QString, const HostServices*>& changers() {
  static QHash<QString, const HostServices*> all;
  return all;
}

} // namespace

HostServices::HostServices(const FunctionTable* table) {
  commands = table;
  commandsOwner = this;
  static const bool once = registerOwn();
  Q_UNUSED(once)
}

HostServices::~HostServices() {
  if (commandsOwner == this) {
    commands = nullptr;
    commandsOwner = nullptr;
  }
  for (const QString& name : changers().keys(this)) {
    restore(name);
    changers().remove(name);
  }
}

const Service& HostServices::service(const QString& name) {
  QStringList known;
  for (const Service& service : services()) {
    if (name == QLatin1String(service.name))
      return service;
    known.append(QLatin1String(service.name));
  }
  throw CallError(QStringLiteral("host.provide: there is no service \"%1\"; there are: %2")
                      .arg(name, known.join(QStringLiteral(", "))));
}

void HostServices::provide(const QString& name, Provider provider) {
  const Service& changed = service(name);
  if (changed.kind == Service::Kind::SteeredEntry || !changed.isServed())
    refuse(changed);
  setProvider(changed, std::move(provider));
  if (changed.isEntry())
    sp_OverrideDynFunc(changed.name, changed.entry);
  changers().insert(name, this);
}

void HostServices::withdraw(const QString& name) {
  const Service& changed = service(name);
  if (!changed.isEntry() && !changed.isServed())
    refuse(changed);
  setProvider(changed, {});
  if (changed.isEntry())
    sp_OverrideDynFunc(changed.name, nullptr);
  changers().insert(name, this);
}

void HostServices::restore(const QString& name) {
  const Service& changed = service(name);
  setProvider(changed, changed.own);
  if (changed.isEntry())
    sp_RestoreDynFunc(changed.name);
  changers().insert(name, this);
}

bool HostServices::hasSchematic() const {
  return schematic().hasCurrent;
}

void HostServices::setHasSchematic(bool on) {
  schematic().hasCurrent = on;
}

QVector<int> HostServices::picking() const {
  return schematic().picking;
}

bool HostServices::paste(const QString& text) {
  const YRef<PasteTextObject> object = sp_InstalledPasteTextObject();
  if (!object)
    return false;
  object->paste(Tocs(text));
  return true;
}
