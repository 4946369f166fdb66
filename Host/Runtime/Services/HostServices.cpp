#include "Services/HostServices.h"

#include "Call/HostCall.h"
#include "HostSupport/Registry.h"
#include "HostSupportQt/Paste.h"
#include "HostSupportQt/Text.h"
#include "Script/ScriptValues.h"
#include "Services/Commands.h"
#include "Services/Digitiser/Digitise.h"
#include "Services/NumericFunctions.h"
#include "frontend_dynexport.h"
#include "graphimagecapture_dynexport.h"
#include "schematic_dynexport.h"
#include "vecdll_dynexport.h"

#include <QApplication>
#include <QHash>

namespace {

// ---- the host's own -----------------------------------------------------------------------------

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

/// Modules know one exception type, so an entry raises no other.
template <class Action> auto asEntry(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (...) {
    throw KelvarinException(Tocs(describeException()));
  }
}

/// Whose commands modules run.
struct Commands {
  const HostServices* owner = nullptr;
  const FunctionTable* table = nullptr;
};
Commands commands;

void checkHash(const YString& command, std::uint32_t hash) {
  if (hash != command.hashValue())
    throw CallError(QStringLiteral("%1: the hash is not that of the command")
                        .arg(QLatin1String(dyn_RunCommand.name)));
}

void runHostCommand(const YString& command, std::uint32_t hash) {
  asEntry([&] {
    checkHash(command, hash);
    if (!commands.table)
      throw CallError(
          QStringLiteral("%1: there are no commands").arg(QLatin1String(dyn_RunCommand.name)));
    runCommand(*commands.table, toQs(command));
  });
}

bool captureGraph(const GraphImageCaptureRecord& input, GraphImageCaptureRecord* output,
                  KvVector<double>* x, KvVector<double>* y) {
  QWidget* const modal = QApplication::activeModalWidget();
  std::vector<double> xValues, yValues;
  if (!digitise(modal ? modal : QApplication::activeWindow(), toQs(input.picture), &xValues,
                &yValues))
    return false;
  *output = input;
  *x = KvVector<double>(std::move(xValues));
  *y = KvVector<double>(std::move(yValues));
  return true;
}

void registerOwnEntries() {
  static const RegisterDynFuncDef commandEntry(dyn_RunCommand.name,
                                               reinterpret_cast<void*>(&runHostCommand),
                                               dyn_RunCommand.file, dyn_RunCommand.line);
  static const RegisterDynFuncDef schematicEntry(
      dyn_GetGlobalSchematicInterface.name, reinterpret_cast<void*>(&globalSchematicInterface),
      dyn_GetGlobalSchematicInterface.file, dyn_GetGlobalSchematicInterface.line);
  static const RegisterDynFuncDef captureEntry(
      dyn_GraphImageCapture.name, reinterpret_cast<void*>(&captureGraph),
      dyn_GraphImageCapture.file, dyn_GraphImageCapture.line);
}

// ---- entries that scripts serve -----------------------------------------------------------------

struct Provider {
  ScriptRunner* runner = nullptr;
  QJSValue function;
};

QHash<QString, Provider>& providers() {
  static QHash<QString, Provider> all;
  return all;
}

/// What the script's function gives; what it throws is raised as `CallError`.
QJSValue askScript(const QString& name, const QJSValueList& arguments) {
  const Provider provider = providers().value(name);
  if (!provider.runner)
    throw CallError(QStringLiteral("%1: nobody serves it").arg(name));
  const ScriptOutcome outcome = provider.runner->call(provider.function, arguments);
  if (!outcome.ok)
    throw CallError(describeFault(outcome.value).message);
  return outcome.value;
}

CallError wrongAnswer(const QString& name, const char* expected, const QJSValue& given) {
  return CallError(QStringLiteral("%1: the script must give %2, it gave %3")
                       .arg(name, QLatin1String(expected), describeValue(given)));
}

double evaluateExpression(const YString& expression) {
  return asEntry([&] {
    const QString name = QLatin1String(dyn_EvaluateExpression.name);
    const QJSValue answer = askScript(name, {toQs(expression)});
    if (!answer.isNumber())
      throw wrongAnswer(name, "a number", answer);
    return answer.toNumber();
  });
}

YString evaluateStringExpression(const YString& expression) {
  return asEntry([&] {
    const QString name = QLatin1String(dyn_EvaluateStringExpression.name);
    const QJSValue answer = askScript(name, {toQs(expression)});
    if (!answer.isString())
      throw wrongAnswer(name, "a text", answer);
    return toYs(answer.toString());
  });
}

void runCommandByScript(const YString& command, std::uint32_t hash) {
  asEntry([&] {
    checkHash(command, hash);
    askScript(QLatin1String(dyn_RunCommand.name), {toQs(command)});
  });
}

bool graphImageCapture(const GraphImageCaptureRecord& input, GraphImageCaptureRecord*,
                       KvVector<double>* x, KvVector<double>* y) {
  return asEntry([&] {
    const QString name = QLatin1String(dyn_GraphImageCapture.name);
    const QJSValue answer = askScript(name, {toQs(input.picture)});
    if (answer.isUndefined() || answer.isNull())
      return false;
    CallResult points = resultFromScript(answer, QStringLiteral("%1: the answer").arg(name));
    if (points.reals.size() != points.references.size())
      throw wrongAnswer(name, "{x, y} or null", answer);
    *x = KvVector<double>(std::move(points.references));
    *y = KvVector<double>(std::move(points.reals));
    return true;
  });
}

CallResult hostFunctionByScript(const QString& name, const std::vector<ScriptVector>& arguments) {
  const ScriptRunner* runner = providers().value(name).runner;
  if (!runner)
    throw CallError(QStringLiteral("nobody serves it"));
  QJSValue list = runner->engine()->newArray(static_cast<uint>(arguments.size()));
  for (std::size_t i = 0; i < arguments.size(); ++i)
    list.setProperty(static_cast<quint32>(i), vectorToScript(runner->engine(), arguments[i]));
  return resultFromScript(askScript(name, {list}), QStringLiteral("%1: the result").arg(name));
}

// ---- the table ----------------------------------------------------------------------------------

enum class Way {
  Entry,        ///< a cross-module entry; `trampoline` calls the script
  HostFunction, ///< a function that modules call through the argument block
  Own,          ///< an entry that is steered otherwise; it can be withdrawn and brought back
  LaterEntry,   ///< an entry without a trampoline so far
  LaterService, ///< no entry, and not served so far
};

struct Service {
  const char* name;
  Way way;
  void* trampoline;
};

template <class Function> void* address(Function* function) {
  return reinterpret_cast<void*>(function);
}

const Service services[] = {
    {dyn_EvaluateExpression.name, Way::Entry, address(&evaluateExpression)},
    {dyn_EvaluateStringExpression.name, Way::Entry, address(&evaluateStringExpression)},
    {dyn_GetGlobalSchematicInterface.name, Way::Own, nullptr},
    {dyn_RunCommand.name, Way::Entry, address(&runCommandByScript)},
    {dyn_GraphImageCapture.name, Way::Entry, address(&graphImageCapture)},
    {"dyn_OpenListDialog", Way::LaterEntry, nullptr},
    {"interp", Way::HostFunction, nullptr},
    {"YFromX", Way::HostFunction, nullptr},
    {"integ", Way::HostFunction, nullptr},
    {"PWLCurveFit", Way::HostFunction, nullptr},
    {"sp_ParseLaplaceExpression", Way::LaterService, nullptr},
    {"laplace_CheckLaplaceExpression", Way::LaterService, nullptr},
    {"sp_EstimateFourierCalculationTime", Way::LaterService, nullptr},
};

const Service& serviceOf(const QString& name) {
  QStringList known;
  for (const Service& service : services) {
    if (name == QLatin1String(service.name))
      return service;
    known.append(QLatin1String(service.name));
  }
  throw CallError(QStringLiteral("host.provide: there is no service \"%1\"; there are: %2")
                      .arg(name, known.join(QStringLiteral(", "))));
}

bool isEntry(const Service& service) {
  return service.way == Way::Entry || service.way == Way::Own || service.way == Way::LaterEntry;
}

void serveByScript(const Service& service, const QString& name) {
  switch (service.way) {
  case Way::Entry:
    sp_OverrideDynFunc(service.name, service.trampoline);
    return;
  case Way::HostFunction:
    setHostFunction(name, [name](const std::vector<ScriptVector>& arguments) {
      return hostFunctionByScript(name, arguments);
    });
    return;
  case Way::Own:
    throw CallError(QStringLiteral("host.provide: %1 is steered through host.schematic; it can "
                                   "only be withdrawn and brought back")
                        .arg(name));
  case Way::LaterEntry:
  case Way::LaterService:
    break;
  }
  throw CallError(QStringLiteral("host.provide: %1 is not served by this host yet").arg(name));
}

void withdraw(const Service& service, const QString& name) {
  if (isEntry(service))
    sp_OverrideDynFunc(service.name, nullptr);
  else if (service.way == Way::HostFunction)
    setHostFunction(name, {});
  else
    serveByScript(service, name); // refuses: there is nothing to withdraw
}

void bringBack(const Service& service, const QString& name) {
  if (isEntry(service))
    sp_RestoreDynFunc(service.name);
  else
    setHostFunction(name, numericFunction(name));
}

/// Once: what another script has replaced or withdrawn meanwhile stays so.
void registerOwnFunctions() {
  static const bool once = [] {
    for (const Service& service : services)
      if (service.way == Way::HostFunction)
        bringBack(service, QLatin1String(service.name));
    return true;
  }();
  Q_UNUSED(once)
}

} // namespace

HostServices::HostServices(ScriptRunner* runner, const FunctionTable* table) : m_runner(runner) {
  commands = {this, table};
  registerOwnEntries();
  registerOwnFunctions();
}

HostServices::~HostServices() {
  if (commands.owner == this)
    commands = {};
  for (const QString& name : qAsConst(m_provided)) {
    if (providers().value(name).runner != m_runner)
      continue;
    bringBack(serviceOf(name), name);
    providers().remove(name);
  }
}

void HostServices::provide(const QString& name, const QJSValue& function) {
  const Service& service = serviceOf(name);
  if (function.isCallable())
    serveByScript(service, name);
  else if (function.isNull())
    withdraw(service, name);
  else if (function.isUndefined())
    bringBack(service, name);
  else
    throw CallError(QStringLiteral("host.provide: %1 takes a function, null or undefined, %2 was "
                                   "given")
                        .arg(name, describeValue(function)));
  // Even what is withdrawn is this script's doing, and ends with it.
  providers().insert(name, {m_runner, function});
  m_provided.append(name);
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
