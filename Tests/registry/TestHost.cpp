#include "TestHost.h"

#include "HostSupport/Files.h"
#include "HostSupportQt/QtMessages.h"

#include <QDir>
#include <QDirIterator>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStyleFactory>

#include <chrono>
#include <clocale>
#include <cstdio>

namespace {

TestHost* currentHost = nullptr;
QStringList warnings;

void keepWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (qtsp_IsPlatformNoise(text))
    return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
  if (type != QtDebugMsg && type != QtInfoMsg)
    warnings.append(text);
}

int& prepareEnvironment(int& argc) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_FONT_DPI", "96");
  qInstallMessageHandler(keepWarning);
  return argc;
}

} // namespace

TestHost::TestHost(int& argc, char** argv) : m_application(prepareEnvironment(argc), argv) {
  currentHost = this;
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  sp_SetSettingsDir(m_settings.path().toUtf8().constData());
  m_driver = std::make_unique<DialogDriver>();
  m_table.loadModule(QStringLiteral(KV_MODULE_FILE));
  m_engine = std::make_unique<ScriptEngine>(&m_table, m_driver.get());
}

TestHost::~TestHost() {
  currentHost = nullptr;
}

TestHost& TestHost::instance() {
  return *currentHost;
}

QByteArray TestHost::settingsSnapshot() const {
  QByteArray snapshot;
  QDirIterator files(m_settings.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  QStringList names;
  while (files.hasNext())
    names.append(files.next());
  names.sort();
  for (const QString& name : names) {
    QFile file(name);
    if (name.endsWith(QLatin1String(".lock")) || !file.open(QIODevice::ReadOnly))
      continue;
    QJsonObject contents = QJsonDocument::fromJson(file.readAll()).object();
    contents.remove(QStringLiteral("WidgetDims"));
    if (!contents.isEmpty())
      snapshot += name.toUtf8() + QJsonDocument(contents).toJson();
  }
  return snapshot;
}

QStringList TestHost::takeWarnings() {
  return std::exchange(warnings, {});
}

ScriptEngine::Outcome TestHost::runSample(const QString& file,
                                          const std::function<void(DialogActions&)>& act) {
  m_driver->beginScope();
  m_driver->onDialog([&act](QWidget* dialog) {
    DialogActions actions(dialog);
    act(actions);
  });
  ScriptEngine::Outcome outcome = m_engine->runFile(file);
  m_driver->endScope();
  return outcome;
}

QStringList TestHost::sampleFiles() {
  // Asked for before there is an application, to which `hostDataDir` would look.
  const QDir folder(QStringLiteral(KV_SAMPLE_DIR));
  QStringList files;
  for (const QString& name : folder.entryList({QStringLiteral("*.js")}, QDir::Files, QDir::Name)) {
    QFile file(folder.filePath(name));
    if (file.open(QIODevice::ReadOnly) && !file.readAll().contains("// Opens: no dialog"))
      files.append(file.fileName());
  }
  return files;
}

unsigned testSeed() {
  bool given = false;
  unsigned seed = qEnvironmentVariable("KV_SEED").toUInt(&given);
  if (!given)
    seed = unsigned(std::chrono::steady_clock::now().time_since_epoch().count());
  std::printf("seed %u (KV_SEED=%u repeats this run)\n", seed, seed);
  return seed;
}
