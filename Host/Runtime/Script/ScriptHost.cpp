#include "Script/ScriptHost.h"

#include "Call/HostCall.h"
#include "Drive/DialogDriver.h"
#include "HostSupport/Files.h"
#include "HostSupport/Options.h"
#include "HostSupportQt/Text.h"
#include "Script/HostScript.h"
#include "Script/ScriptAnalysis.h"
#include "Script/ScriptDialog.h"
#include "Script/ScriptObject.h"
#include "Script/ScriptProvider.h"
#include "Script/ScriptValues.h"
#include "Services/Commands.h"
#include "Services/Entries/Graphs.h"
#include "Services/Entries/Schematic.h"
#include "Services/HostFacts.h"
#include "Services/ModuleEntries.h"
#include "SymbolFile.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QQmlEngine>
#include <QTimer>

#include <cmath>
#include <ctime>

namespace {

constexpr int deepestInclude = 64;
constexpr int longestWait = 24 * 60 * 60 * 1000; // ms
constexpr int interruptPoll = 50;                // ms
constexpr int largestText = 256 << 20;           // bytes
constexpr int readAtOnce = 1 << 20;              // bytes

QVariant factFromScript(const QJSValue& value) {
  if (value.isNull())
    return QVariant();
  if (!value.isArray())
    return value.isObject() ? QVariant(describeValue(value)) : value.toVariant();
  QVariantList parts;
  const quint32 length = qMin(value.property(QStringLiteral("length")).toUInt(), 3u);
  for (quint32 i = 0; i < length; ++i)
    parts.append(factFromScript(value.property(i).isArray() ? QJSValue() : value.property(i)));
  return parts;
}

/// A value as options and settings keep it.
YString storedText(const QJSValue& value, const QString& call) {
  if (value.isString())
    return toYs(value.toString());
  if (value.isBool())
    return OptionValue(value.toBool()).toText();
  if (value.isNumber())
    return OptionValue(value.toNumber()).toText();
  throw CallError(QStringLiteral("%1: the value must be a text, a number, true or false, %2 was "
                                 "given")
                      .arg(call, describeValue(value)));
}

/// A list of texts would reach the script as an object of its own kind; this is an array.
QJSValue textArray(QJSEngine* engine, const QStringList& texts) {
  QVariantList list;
  for (const QString& text : texts)
    list.append(text);
  return engine->toScriptValue(list);
}

QJSValue textOrNull(bool isSet, const YString& text) {
  return isSet ? QJSValue(toQs(text)) : QJSValue(QJSValue::NullValue);
}

GraphVectorFacts vectorFacts(const QJSValue& value, const QString& what) {
  const ScriptObject object(value, what,
                            {QStringLiteral("name"), QStringLiteral("physicalType"),
                             QStringLiteral("vectorKind"), QStringLiteral("isPlottable")});
  return {object.text("name"), object.integer("physicalType"), object.integer("vectorKind"),
          object.flag("isPlottable", true)};
}

GraphFacts factsOf(const QJSValue& value) {
  const ScriptObject object(value, QStringLiteral("host.graphs: the argument"),
                            {QStringLiteral("vectors"), QStringLiteral("graphCount")});
  GraphFacts facts;
  for (const QJSValue& vector : object.array("vectors"))
    facts.vectors.push_back(
        vectorFacts(vector, QStringLiteral("host.graphs: vectors[%1]").arg(facts.vectors.size())));
  facts.graphCount = object.integer("graphCount");
  return facts;
}

SymbolFileRequest requestOf(const QJSValue& value) {
  const ScriptObject object(value, QStringLiteral("host.symbolFileDialog: the argument"),
                            {QStringLiteral("fileMode"), QStringLiteral("filter"),
                             QStringLiteral("filters"), QStringLiteral("startDir")});
  SymbolFileRequest request;
  request.fileMode = object.integer("fileMode");
  request.filter = toYs(object.text("filter"));
  for (const QString& filter : object.texts("filters"))
    request.filters.append(toYs(filter));
  request.startDir = toYs(object.text("startDir"));
  request.parent = QApplication::activeWindow();
  return request;
}

} // namespace

/// No C++ exception may pass through the script engine.
template <class Action> auto ScriptHost::guarded(Action action) -> decltype(action()) {
  try {
    return action();
  } catch (...) {
    m_runner->engine()->throwError(describeException());
  }
  return decltype(action())();
}

ScriptHost::ScriptHost(ScriptRunner* runner, FunctionTable* table, DialogDriver* driver,
                       QObject* parent)
    : QObject(parent), m_runner(runner), m_table(table), m_driver(driver), m_services(table) {
  m_clock.start();
  QJSEngine* engine = runner->engine();
  QQmlEngine::setObjectOwnership(this, QQmlEngine::CppOwnership);
  m_define = runHostScript(engine, QStringLiteral("ScriptHost"), engine->newQObject(this));
  defineFunctions();
}

ScriptHost::~ScriptHost() = default;

void ScriptHost::defineFunctions() {
  for (const FunctionInfo& function : m_table->functions()) {
    if (function.kind == FunctionInfo::Kind::Command || m_defined.contains(function.name))
      continue;
    m_define.call({function.name});
    m_defined.append(function.name);
  }
}

const FunctionInfo& ScriptHost::function(const QString& name) const {
  const FunctionInfo* found = m_table->find(name);
  if (!found || found->kind == FunctionInfo::Kind::Command)
    throw CallError(QStringLiteral("%1: there is no such function").arg(name));
  return *found;
}

CallResult ScriptHost::callFunction(FunctionInfo function,
                                    const std::vector<ScriptVector>& arguments) {
  emit moved();
  try {
    checkArguments(function, arguments);
    const CallResult result = callHandler(function, arguments);
    emit moved();
    emit called(function.name, arguments, result, QString());
    return result;
  } catch (const std::exception& error) {
    emit moved();
    emit called(function.name, arguments, CallResult(), QString::fromUtf8(error.what()));
    throw;
  }
}

CallResult ScriptHost::callByName(const QString& name, const QJSValue& arguments) {
  const FunctionInfo& info = function(name);
  return callFunction(info, argumentsFromScript(arguments, info));
}

QJSValue ScriptHost::call(const QString& name, const QJSValue& arguments) {
  return guarded([&] { return resultToScript(m_runner->engine(), callByName(name, arguments)); });
}

QJSValue ScriptHost::callDetailed(const QString& name, const QJSValue& arguments) {
  return guarded([&] {
    const CallResult result = callByName(name, arguments);
    QJSEngine* engine = m_runner->engine();
    QJSValue object = engine->newObject();
    object.setProperty(QStringLiteral("made"), result.made());
    object.setProperty(QStringLiteral("type"), result.made() ? QJSValue(resultTypeName(result.type))
                                                             : QJSValue(QJSValue::NullValue));
    object.setProperty(QStringLiteral("values"), resultToScript(engine, result));
    return object;
  });
}

void ScriptHost::command(const QString& line) {
  guarded([&] {
    emit moved();
    runCommand(*m_table, line);
    emit moved();
  });
}

void ScriptHost::print(const QString& line) {
  emit moved();
  emit printed(line);
}

QJSValue ScriptHost::toText(const QJSValue& value) {
  return m_runner->toText(value, true);
}

QString ScriptHost::readText(const QString& path) {
  std::string bytes;
  YString fault;
  if (!sp_ReadPlainFile(Tocs(path), &bytes, &fault))
    throw CallError(QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), toQs(fault)));
  return QString::fromStdString(bytes);
}

QString ScriptHost::readProgram(const QString& path) {
  QFile file(path);
  const auto fault = [&] {
    return CallError(
        QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), file.errorString()));
  };
  if (QFileInfo(path).isDir())
    throw CallError(QStringLiteral("%1: it is a folder").arg(QDir::toNativeSeparators(path)));
  if (!file.open(QIODevice::ReadOnly))
    throw fault();
  QByteArray bytes;
  for (QByteArray part; bytes.size() <= largestText; bytes += part) { // a device has no size
    part = file.read(readAtOnce);
    if (part.isEmpty())
      break;
  }
  if (file.error() != QFileDevice::NoError)
    throw fault();
  if (bytes.size() > largestText)
    throw CallError(QStringLiteral("%1: it has more than %2 MB")
                        .arg(QDir::toNativeSeparators(path))
                        .arg(largestText >> 20));
  return QString::fromUtf8(bytes);
}

QJSValue ScriptHost::include(const QString& file, const QString& stack) {
  return guarded([&]() -> QJSValue {
    if (m_includes >= deepestInclude)
      throw CallError(QStringLiteral("include: files include one another more than %1 deep")
                          .arg(deepestInclude));
    const QFileInfo including(callerPlace(stack).file);
    const QDir folder = including.isFile() ? including.absoluteDir() : QDir::current();
    const QString path = QDir::cleanPath(folder.absoluteFilePath(file));
    const QString program = readText(path);
    ++m_includes;
    const ScriptOutcome outcome = m_runner->run(program, path);
    --m_includes;
    QJSValue object = m_runner->engine()->newObject();
    object.setProperty(QStringLiteral("ok"), outcome.ok);
    object.setProperty(QStringLiteral("value"), outcome.value);
    return object;
  });
}

QJSValue ScriptHost::option(const QString& key, const QJSValue& value) {
  return guarded([&] {
    const Tocs name(key);
    const auto store = [&](bool isStored) {
      if (!isStored)
        throw CallError(QStringLiteral("host.option: %1 could not be stored").arg(key));
    };
    bool isSet = false;
    if (value.isNull()) {
      sp_GetBoolOption(name, &isSet);
      store(!isSet || sp_RemoveOption(YString(name)));
    } else if (!value.isUndefined()) {
      store(sp_WriteOption(YString(name), storedText(value, QStringLiteral("host.option"))));
    }
    sp_GetBoolOption(name, &isSet);
    return textOrNull(isSet, sp_GetStringOption(name));
  });
}

QJSValue ScriptHost::config(const QString& section, const QString& key, const QJSValue& value) {
  return guarded([&] {
    const Tocs sectionName(section);
    const Tocs keyName(key);
    YString text;
    bool isSet = cfgman_GetConfigSetting(sectionName, keyName, &text) != 0;
    if (!value.isUndefined() && !(value.isNull() && !isSet)) {
      const YString stored =
          value.isNull() ? YString() : storedText(value, QStringLiteral("host.config"));
      const char* raw = value.isNull() ? nullptr : stored.c_str();
      if (cfgman_WriteConfigSetting(sectionName, keyName, raw) == 0)
        throw CallError(QStringLiteral("host.config: %1/%2 could not be stored").arg(section, key));
      isSet = cfgman_GetConfigSetting(sectionName, keyName, &text) != 0;
    }
    return textOrNull(isSet, text);
  });
}

QJSValue ScriptHost::readFile(const QString& path) {
  return guarded([&] {
    return QFileInfo::exists(path) ? QJSValue(readText(path)) : QJSValue(QJSValue::NullValue);
  });
}

void ScriptHost::writeFile(const QString& path, const QString& text) {
  guarded([&] {
    const QFileInfo present(path);
    if (present.exists() && !present.isFile()) // a pipe would wait for its reader
      throw CallError(QStringLiteral("host.writeFile: %1: it is not a plain file")
                          .arg(QDir::toNativeSeparators(path)));
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    // Every step is checked: a full disk shows only in one of them.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(bytes) != bytes.size() || !file.flush())
      throw CallError(QStringLiteral("host.writeFile: %1: %2")
                          .arg(QDir::toNativeSeparators(path), file.errorString()));
  });
}

bool ScriptHost::exists(const QString& path) const {
  return QFileInfo::exists(path);
}

QString ScriptHost::clipboard() const {
  return QApplication::clipboard()->text();
}

void ScriptHost::setClipboard(const QString& text) {
  QApplication::clipboard()->setText(text);
}

void ScriptHost::wait(double milliseconds) {
  guarded([&] {
    if (!(milliseconds >= 0) || milliseconds > longestWait)
      throw CallError(QStringLiteral("host.wait: the time must be a number of milliseconds from 0 "
                                     "to a day"));
    QEventLoop loop;
    QTimer end;
    end.setSingleShot(true);
    end.setTimerType(Qt::PreciseTimer);
    connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    QTimer poll;
    connect(&poll, &QTimer::timeout, &loop, [&] {
      if (m_runner->engine()->isInterrupted())
        loop.quit();
    });
    end.start(static_cast<int>(std::ceil(milliseconds)));
    poll.start(interruptPoll);
    loop.exec();
  });
}

double ScriptHost::now() const {
  return static_cast<double>(m_clock.nsecsElapsed()) / 1e6;
}

double ScriptHost::processTime() const {
  return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

QString ScriptHost::tempDir() {
  return guarded([&] {
    if (!m_tempDir)
      m_tempDir = std::make_unique<QTemporaryDir>();
    const QString path = m_tempDir->filePath(QString::number(++m_tempDirs));
    if (!m_tempDir->isValid() || !QDir().mkpath(path))
      throw CallError(QStringLiteral("host.tempDir: %1").arg(m_tempDir->errorString()));
    return path;
  });
}

QJSValue ScriptHost::functions() const {
  return m_runner->engine()->toScriptValue(m_table->toJson().toVariantList());
}

QJSValue ScriptHost::args() const {
  return textArray(m_runner->engine(), m_arguments);
}

QJSValue ScriptHost::helpRequests() const {
  return textArray(m_runner->engine(), ::helpRequests());
}

QJSValue ScriptHost::system(const QString& key) {
  return guarded([&] { return m_runner->engine()->toScriptValue(hostFact(key)); });
}

void ScriptHost::setSystem(const QString& key, const QJSValue& value) {
  guarded([&] { setHostFact(key, factFromScript(value)); });
}

DialogDriver* ScriptHost::neededDriver() const {
  if (!m_driver)
    throw CallError(QStringLiteral("no dialog can be driven here"));
  return m_driver;
}

/// The script owns the wrapper, so that it lives exactly as long as somebody can use it; the
/// wrapper itself notices when its dialog is gone.
QJSValue ScriptHost::wrap(QWidget* dialog) {
  auto* wrapper = new ScriptDialog(dialog, m_runner);
  QQmlEngine::setObjectOwnership(wrapper, QQmlEngine::JavaScriptOwnership);
  return m_runner->engine()->newQObject(wrapper);
}

void ScriptHost::onDialog(const QJSValue& handler) {
  guarded([&] {
    neededDriver()->onDialog([host = QPointer<ScriptHost>(this), handler](QWidget* dialog) {
      if (!host)
        throw CallError(QStringLiteral("the script that queued the handler has ended"));
      const ScriptOutcome outcome = host->m_runner->call(handler, {host->wrap(dialog)});
      if (!outcome.ok)
        throw CallError(host->m_runner->describe(outcome.value).headline);
    });
  });
}

QJSValue ScriptHost::windows() {
  return guarded([&] {
    const QVector<QWidget*> open = neededDriver()->detachedWindows();
    QJSValue array = m_runner->engine()->newArray(static_cast<uint>(open.size()));
    for (int i = 0; i < open.size(); ++i)
      array.setProperty(static_cast<quint32>(i), wrap(open.at(i)));
    return array;
  });
}

void ScriptHost::provide(const QString& name, const QJSValue& function) {
  guarded([&] {
    const Service& service = HostServices::service(name);
    if (function.isCallable())
      m_services.provide(name, scriptProvider(m_runner, function, service));
    else if (function.isNull())
      m_services.withdraw(name);
    else if (function.isUndefined())
      m_services.restore(name);
    else
      throw CallError(QStringLiteral("host.provide: %1 takes a function, null or undefined, %2 was "
                                     "given")
                          .arg(name, describeValue(function)));
  });
}

bool ScriptHost::hasSchematic() const {
  return ::hasSchematic();
}

void ScriptHost::setHasSchematic(bool on) {
  ::setHasSchematic(on);
}

QJSValue ScriptHost::picking() const {
  QVariantList values;
  for (int value : passedPicking())
    values.append(value);
  return m_runner->engine()->toScriptValue(values);
}

bool ScriptHost::paste(const QString& text) {
  return guarded([&] {
    emit moved();
    return pasteText(text);
  });
}

QJSValue ScriptHost::graphs() const {
  QJSEngine* engine = m_runner->engine();
  const GraphFacts& facts = graphFacts();
  QJSValue vectors = engine->newArray(static_cast<uint>(facts.vectors.size()));
  quint32 index = 0;
  for (const GraphVectorFacts& vector : facts.vectors) {
    QJSValue object = engine->newObject();
    object.setProperty(QStringLiteral("name"), vector.name);
    object.setProperty(QStringLiteral("physicalType"), vector.physicalType);
    object.setProperty(QStringLiteral("vectorKind"), vector.vectorKind);
    object.setProperty(QStringLiteral("isPlottable"), vector.isPlottable);
    vectors.setProperty(index++, object);
  }
  QJSValue object = engine->newObject();
  object.setProperty(QStringLiteral("vectors"), vectors);
  object.setProperty(QStringLiteral("graphCount"), facts.graphCount);
  return object;
}

void ScriptHost::setGraphs(const QJSValue& facts) {
  guarded([&] { setGraphFacts(facts.isNull() ? GraphFacts() : factsOf(facts)); });
}

/// The script owns the block, which lives as long as somebody can use it.
QJSValue ScriptHost::analysis(const QJSValue& parameters, const QJSValue& fields) {
  return guarded([&] {
    auto* block = new ScriptAnalysis(parameters, fields);
    QQmlEngine::setObjectOwnership(block, QQmlEngine::JavaScriptOwnership);
    return m_runner->engine()->newQObject(block);
  });
}

void ScriptHost::openAnalysis(const QJSValue& block) {
  guarded([&] {
    ScriptAnalysis* const given = ScriptAnalysis::of(block);
    if (!given)
      throw CallError(QStringLiteral("host.openAnalysis: the block must be one of host.analysis, "
                                     "%1 was given")
                          .arg(describeValue(block)));
    const std::shared_ptr<BrennixAnalysisData> held = given->data();
    emit moved();
    openAnalysisDialog(held.get());
    emit moved();
  });
}

QJSValue ScriptHost::symbolFileDialog(const QJSValue& request) {
  return guarded([&] {
    SymbolFileResult chosen;
    emit moved();
    chooseSymbolFiles(requestOf(request), &chosen);
    emit moved();
    QStringList names;
    for (const YString& name : chosen.names)
      names.append(toQs(name));
    return textArray(m_runner->engine(), names);
  });
}
