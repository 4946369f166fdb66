#include "Services/HostServices.h"

#include "Call/HostFunctions.h"
#include "HostSupport/Registry.h"
#include "Services/Entries/Entries.h"
#include "Services/Entries/EntryCall.h"
#include "Services/Entries/Graphs.h"
#include "Services/Entries/ProgressBox.h"
#include "Services/Entries/RunCommand.h"
#include "Services/Functions/Functions.h"
#include "Services/Operations/Operations.h"

#include <QHash>

#include <deque>

namespace {

/// Every service, by name: how it is called, what it is answered, who answers for the host.
const std::vector<Service>& services() {
  using Answer = Service::Answer;
  static const std::vector<Service> all = {
      Service::ofEntry(dyn_EvaluateExpression, evaluateExpressionEntry, Answer::Number,
                       ownEvaluateExpression),
      Service::ofEntry(dyn_EvaluateStringExpression, evaluateStringExpressionEntry, Answer::Text,
                       ownEvaluateStringExpression),
      Service::ofSteeredEntry(dyn_GetGlobalSchematicInterface, globalSchematicInterfaceEntry,
                              "host.schematic"),
      Service::ofSteeredEntry(dyn_GetGraphEditData, graphEditDataEntry, "host.graphs"),
      Service::ofEntry(dyn_RunCommand, runCommandEntry, Answer::Nothing, ownRunCommand),
      Service::ofEntry(dyn_GraphImageCapture, graphImageCaptureEntry, Answer::Curve,
                       ownGraphImageCapture),
      Service::ofEntry(dyn_OpenListDialog, openListDialogEntry, Answer::List, ownOpenListDialog),
      Service::ofEntry(dyn_ShowProgressBox, showProgressBoxEntry, Answer::Nothing,
                       ownShowProgressBox),
      Service::ofFunction("interp", interp),
      Service::ofFunction("YFromX", yFromX),
      Service::ofFunction("integ", integ),
      Service::ofFunction("PWLCurveFit", pwlCurveFit),
      Service::ofFunction(lengthFunction.name, length),
      Service::ofFunction(strStrFunction.name, strStr),
      Service::ofFunction(parseSimExpressionFunction.name, parseSimExpression),
      Service::ofFunction(testExpressionUsesMFunction.name, testExpressionUsesM),
      Service::ofOperation(parseLaplaceName, Answer::Integer, ownLaplaceCode),
      Service::ofOperation(checkLaplaceName, Answer::Code, ownLaplaceCode),
      Service::ofOperation(fourierTimeName, Answer::Number, ownFourierTime),
  };
  return all;
}

const HostServices* lastMade = nullptr;

void setProvider(const Service& service, Provider provider) {
  const QString name = QLatin1String(service.name);
  if (service.kind == Service::Kind::Function)
    setHostFunction(name, std::move(provider));
  else
    setEntryProvider(name, std::move(provider));
}

/// Once: what another script has replaced or withdrawn meanwhile stays so.
bool registerOwn() {
  static std::deque<RegisterDynFuncDef> entries;
  serveOperations();
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
  setModuleCommands(table);
  lastMade = this;
  static const bool once = registerOwn();
  Q_UNUSED(once)
}

HostServices::~HostServices() {
  if (lastMade == this) {
    setModuleCommands(nullptr);
    setGraphFacts({});
    hideProgressBox();
    lastMade = nullptr;
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
  if (changed.kind == Service::Kind::SteeredEntry)
    throw CallError(QStringLiteral("host.provide: %1 is steered through %2; it can only be "
                                   "withdrawn and brought back")
                        .arg(name, QLatin1String(changed.steering)));
  setProvider(changed, std::move(provider));
  if (changed.isEntry())
    sp_OverrideDynFunc(changed.name, changed.entry);
  changers().insert(name, this);
}

void HostServices::withdraw(const QString& name) {
  const Service& changed = service(name);
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
