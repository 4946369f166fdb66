#include "TestHost.h"

#include "HostSupport/Files.h"
#include "HostSupportQt/QtMessages.h"

#include <QClipboard>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStyleFactory>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdio>
#include <set>

namespace {

TestHost* currentHost = nullptr;
QStringList warnings;
constexpr const char* foldersLeft[] = {"settings", "tmp", "work"};

void keepWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (qtsp_IsPlatformNoise(text))
    return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
  if (type != QtDebugMsg && type != QtInfoMsg)
    warnings.append(text);
}

int& prepareEnvironment(int& argc, const QDir& folder) {
  for (const char* name : {"settings", "tmp", "work", "home"})
    folder.mkdir(QLatin1String(name));
  // What dialogs leave is looked for there; what Qt's own remember is nobody's concern.
  qputenv("TMPDIR", folder.filePath(QStringLiteral("tmp")).toUtf8());
  qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("home")).toUtf8());
  QDir::setCurrent(folder.filePath(QStringLiteral("work")));
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_FONT_DPI", "96");
  qInstallMessageHandler(keepWarning);
  return argc;
}

/// The settings without geometry and open panes: what they are worth is how the user left them.
QByteArray withoutGeometry(const QByteArray& json) {
  QJsonObject contents = QJsonDocument::fromJson(json).object();
  for (const char* section : {"WidgetDims", "ColumnWidths", "Pictures"})
    contents.remove(QLatin1String(section));
  return contents.isEmpty() ? QByteArray() : QJsonDocument(contents).toJson();
}

ScriptVector vectorOf(const QJsonValue& argument) {
  ScriptVector vector;
  for (const QJsonValue& element : argument.isArray() ? argument.toArray() : QJsonArray{argument}) {
    if (element.isString()) {
      vector.type = UserString;
      vector.strings.push_back(element.toString().toUtf8());
    } else {
      vector.reals.push_back(element.toDouble());
    }
  }
  return vector;
}

} // namespace

void LoadedModule::load(const QString& file) {
  std::set<const void*> before;
  for (const DynFuncDefRecord& record : sp_RegisteredDynFuncDefs())
    before.insert(record.owner);
  table.loadModule(file);
  for (const DynFuncDefRecord& record : sp_RegisteredDynFuncDefs())
    if (!before.count(record.owner))
      served.push_back(record);
}

TestHost::TestHost(int& argc, char** argv)
    : m_application(prepareEnvironment(argc, QDir(m_folder.path())), argv) {
  currentHost = this;
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  forgetSettings();
  m_driver = std::make_unique<DialogDriver>();
  m_module.load(QStringLiteral(KV_MODULE_FILE));
  m_engine = std::make_unique<ScriptEngine>(&m_module.table, m_driver.get());
}

TestHost::~TestHost() {
  currentHost = nullptr;
}

TestHost& TestHost::instance() {
  return *currentHost;
}

const LoadedModule& TestHost::echoModule() {
  if (m_echoModule.table.functions().isEmpty())
    m_echoModule.load(QStringLiteral(KV_ECHO_MODULE_FILE));
  return m_echoModule;
}

QByteArray TestHost::traces() const {
  QStringList names;
  for (const char* folder : foldersLeft) {
    QDirIterator entries(m_folder.filePath(QLatin1String(folder)),
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext())
      names.append(entries.next());
  }
  names.sort();
  QByteArray traces;
  for (const QString& name : names) {
    QFile file(name);
    if (name.endsWith(QLatin1String(".lock")))
      continue;
    const bool isRead = QFileInfo(name).isFile() && file.open(QIODevice::ReadOnly);
    const QByteArray contents = isRead ? file.readAll() : QByteArray();
    const bool isSetting = name.startsWith(m_folder.filePath(QLatin1String(foldersLeft[0])));
    const QByteArray left = isSetting ? withoutGeometry(contents) : contents;
    if (!isSetting || !left.isEmpty())
      traces += name.toUtf8() + '\n' + left + '\n';
  }
  traces += "clipboard: " + QGuiApplication::clipboard()->text().toUtf8() + '\n';
  return traces + "windows: " + QByteArray::number(QApplication::topLevelWidgets().size());
}

void TestHost::forgetSettings() {
  QDir folder(m_folder.filePath(QLatin1String(foldersLeft[0])));
  folder.removeRecursively();
  folder.mkpath(QStringLiteral("."));
  sp_SetSettingsDir(folder.path().toUtf8().constData());
}

QStringList TestHost::takeWarnings() {
  return std::exchange(warnings, {});
}

ScriptEngine::Outcome TestHost::runSample(const QString& file,
                                          const std::function<void(DialogActions&)>& act) {
  m_driver->beginScope();
  if (opensDialog(file))
    m_driver->onDialog([&act](QWidget* dialog) {
      DialogActions actions(dialog);
      act(actions);
    });
  ScriptEngine::Outcome outcome = m_engine->runFile(file);
  m_driver->endScope();
  closeDetachedWindows();
  return outcome;
}

void TestHost::accept(const QString& sampleFile, DialogActions& dialog) {
  QFile file(sampleFile);
  file.open(QIODevice::ReadOnly);
  const QRegularExpression mark(QStringLiteral("^// Types: (.+)$"),
                                QRegularExpression::MultilineOption);
  const QRegularExpressionMatch match = mark.match(QString::fromUtf8(file.readAll()));
  if (match.hasMatch())
    dialog.type(dialog.focused(), match.captured(1));
  dialog.accept();
}

SampleCall TestHost::callIn(const QString& sample) {
  SampleCall call;
  const auto connection = QObject::connect(
      m_engine.get(), &ScriptEngine::called,
      [&](const QString& function, const QString& argumentsJson) {
        call.function = m_module.table.find(function);
        call.arguments.clear();
        for (const QJsonValue& argument : QJsonDocument::fromJson(argumentsJson.toUtf8()).array())
          call.arguments.push_back(vectorOf(argument));
      });
  runSample(sample, [](DialogActions& dialog) { dialog.reject(); });
  QObject::disconnect(connection);
  return call;
}

void TestHost::closeDetachedWindows() {
  for (QWidget* window : m_driver->detachedWindows())
    window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QStringList TestHost::allSampleFiles() {
  // Asked for before there is an application, to which `hostDataDir` would look.
  const QDir folder(QStringLiteral(KV_SAMPLE_DIR));
  QStringList files;
  for (const QString& name : folder.entryList({QStringLiteral("*.js")}, QDir::Files, QDir::Name))
    files.append(folder.filePath(name));
  return files;
}

QStringList TestHost::sampleFiles() {
  QStringList files = allSampleFiles();
  files.erase(std::remove_if(files.begin(), files.end(),
                             [](const QString& file) { return !opensDialog(file); }),
              files.end());
  return files;
}

bool TestHost::opensDialog(const QString& sampleFile) {
  QFile file(sampleFile);
  return file.open(QIODevice::ReadOnly) && !file.readAll().contains("// Opens: no dialog");
}

unsigned testSeed() {
  bool given = false;
  unsigned seed = qEnvironmentVariable("KV_SEED").toUInt(&given);
  if (!given)
    seed = unsigned(std::chrono::steady_clock::now().time_since_epoch().count());
  std::printf("seed %u (KV_SEED=%u repeats this run)\n", seed, seed);
  return seed;
}
