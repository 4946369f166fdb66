// Loading modules: what a sound one gives, and what is said of one that is not.

#include "Call/FunctionTable.h"
#include "HostSupport/Files.h"
#include "HostSupport/KelvarinException.h"
#include "HostSupport/Registry.h"
#include "HostSupport/System.h"
#include "OwnTempDir.h"

#include <QDir>
#include <QFile>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QString moduleFile(const QString& name) {
  const QDir folder(QStringLiteral(KV_TEST_MODULES));
  const QStringList files = folder.entryList(
      {name + QStringLiteral(".*"), QStringLiteral("lib%1.*").arg(name)}, QDir::Files);
  return files.isEmpty() ? QString() : folder.absoluteFilePath(files.first());
}

QString loadFault(FunctionTable* table, const QString& file) {
  try {
    table->loadModule(file);
  } catch (const ModuleError& error) {
    return QString::fromUtf8(error.what());
  }
  return QString();
}

QStringList namesOf(const FunctionTable& table) {
  QStringList names;
  for (const FunctionInfo& info : table.functions())
    names.append(info.name);
  return names;
}

} // namespace

TEST(FunctionTable, refusesFaultyModules) {
  const struct {
    int fault;
    const char* said;
  } cases[] = {
      {1, "the argument block's size is 2184, expected 2192"},
      {2, "the function record's size is 360, expected 368"},
      {3, "the interface version is 3, expected 2"},
      {4, "list of functions is empty"},
      {5, "list of functions has a loop after 2 records"},
      {6, "list of functions has more than 4096 records"},
      {7, "does not end within its 64 bytes"},
      {8, "a function has an empty name"},
      {9, "the function name \"bad name??\" is not an identifier"},
      {10, "FunctionA is declared twice"},
      {11, "FunctionA: declares at least 2 arguments but at most 1"},
      {12, "FunctionA: declares up to 33 arguments, more than 32"},
      {13, "FunctionA: the handler is null"},
      {14, "FunctionA: argument 1 is declared with the unknown type code 2"},
      {15, "it has no symbol udf_GetFunctionDecls"},
  };
  FunctionTable table;
  ASSERT_EQ(loadFault(&table, moduleFile(QStringLiteral("FaultyModule0"))), QString());
  const QString soundFile = table.moduleFile();
  for (const auto& c : cases) {
    const QString file = moduleFile(QStringLiteral("FaultyModule%1").arg(c.fault));
    ASSERT_FALSE(file.isEmpty()) << c.fault;
    const QString message = loadFault(&table, file);
    EXPECT_TRUE(message.startsWith(QDir::toNativeSeparators(file))) << message.toStdString();
    EXPECT_TRUE(message.contains(QLatin1String(c.said))) << message.toStdString();
    EXPECT_FALSE(message.contains(QLatin1Char('\n'))) << c.fault;
    EXPECT_EQ(namesOf(table).join(QLatin1Char(' ')).toStdString(), "FunctionA FunctionB");
    EXPECT_EQ(table.moduleFile(), soundFile);
  }
}

TEST(FunctionTable, refusesFilesThatAreNoModule) {
  QTemporaryDir folder;
  QFile text(folder.filePath(QStringLiteral("text.so")));
  ASSERT_TRUE(text.open(QIODevice::WriteOnly));
  text.write("no library\n");
  text.close();
  FunctionTable table;
  EXPECT_TRUE(loadFault(&table, folder.filePath(QStringLiteral("none.so")))
                  .endsWith(QStringLiteral("none.so: there is no such file")));
  QFile huge(folder.filePath(QStringLiteral("huge.so")));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(qint64{1} << 32));
  const QString pipe = folder.filePath(QStringLiteral("pipe.so"));
  ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
  const QString noFile = QStringLiteral(": it is not a plain file");
  const std::pair<QString, QString> cases[] = {
      {text.fileName(), QString()},
      {folder.path(), QStringLiteral(": it is a folder")},
      {pipe, noFile},
      {QStringLiteral("/dev/zero"), noFile},
      {huge.fileName(), QStringLiteral(": it has 4096 MB; a module has at most 1024")},
  };
  for (const auto& [file, said] : cases) {
    const QString message = loadFault(&table, file);
    EXPECT_TRUE(message.startsWith(file + said)) << message.toStdString();
    EXPECT_FALSE(message.contains(QLatin1Char('\n'))) << message.toStdString();
  }
  EXPECT_TRUE(table.functions().isEmpty());
}

TEST(FunctionTable, readsWhatAModuleRegisters) {
  const QString file = moduleFile(QStringLiteral("EchoModule"));
  FunctionTable table;
  ASSERT_EQ(loadFault(&table, file), QString());
  const QString all =
      QStringLiteral("Apply ArgumentCount Ask AskSchematic EchoAny EchoReals "
                     "EchoStrings EmptyResult Evaluate EvaluateText Fail Hang Kinds "
                     "Note RunBlock Shape WriteTooFar");
  EXPECT_EQ(namesOf(table).join(QLatin1Char(' ')), all);
  EXPECT_EQ(table.find(QStringLiteral("Kinds"))->kind, FunctionInfo::Kind::Typed);
  EXPECT_EQ(table.find(QStringLiteral("EchoReal")), nullptr);

  const QJsonArray json = table.toJson();
  EXPECT_EQ(json.at(6).toObject(),
            (QJsonObject{{QStringLiteral("name"), QStringLiteral("EchoStrings")},
                         {QStringLiteral("kind"), QStringLiteral("legacy")},
                         {QStringLiteral("minArgs"), 1},
                         {QStringLiteral("maxArgs"), 2},
                         {QStringLiteral("argTypes"), QJsonArray{1, 1}},
                         {QStringLiteral("resultType"), 9}}));
  EXPECT_EQ(json.at(15).toObject().value(QStringLiteral("argTypes")), (QJsonArray{4, 4}));
  EXPECT_EQ(json.at(13).toObject().value(QStringLiteral("kind")), QStringLiteral("command"));

  // Again, and by a second table, what static objects registered is there although they ran once.
  FunctionTable second;
  for (FunctionTable* again : {&table, &second}) {
    EXPECT_EQ(loadFault(again, file), QString());
    EXPECT_EQ(namesOf(*again).join(QLatin1Char(' ')), all);
  }
  table.unloadModule();
  EXPECT_TRUE(table.functions().isEmpty());
  EXPECT_EQ(namesOf(second).join(QLatin1Char(' ')), all);
  second.unloadModule();
  for (const TypedFunctionRecord& record : sp_RegisteredFunctions())
    EXPECT_NE(record.name, "Kinds");
  EXPECT_EQ(loadFault(&second, file), QString());
  EXPECT_EQ(namesOf(second).join(QLatin1Char(' ')), all);
}

TEST(FunctionTable, tellsThatAModuleIsLoaded) {
  static FunctionTable* loading = nullptr;
  static QStringList seen;
  static std::string reported;
  sp_SetMessageSink([](const char* text) { reported = text; });
  const AutoFunc looking(
      "PostPluginLoad", [](void*) { seen.append(QString::number(loading->functions().size())); },
      "");
  const AutoFunc failing(
      "postpluginload", [](void*) { throw KelvarinException("not today"); }, "");
  const AutoFunc ofAnotherEvent(
      "PreExit", [](void*) { seen.append(QString()); }, "");
  // A file that no other test has in memory.
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("Module.so"));
  ASSERT_TRUE(QFile::copy(moduleFile(QStringLiteral("EchoModule")), file));
  FunctionTable table;
  FunctionTable second;
  loading = &table;
  EXPECT_FALSE(loadFault(&table, moduleFile(QStringLiteral("FaultyModule9"))).isEmpty());
  EXPECT_EQ(seen, QStringList()); // it is not loaded
  ASSERT_EQ(loadFault(&table, file), QString());
  EXPECT_EQ(seen, QStringList{QStringLiteral("17")});
  EXPECT_EQ(reported, "PostPluginLoad: not today");
  // It stays in memory: what it has to do after its load is done.
  EXPECT_EQ(loadFault(&table, file), QString());
  EXPECT_EQ(loadFault(&second, file), QString());
  EXPECT_EQ(seen.size(), 1);
  table.unloadModule();
  second.unloadModule();
  ASSERT_EQ(loadFault(&table, file), QString());
  EXPECT_EQ(seen.size(), 2);
  table.unloadModule();
  sp_SetMessageSink(nullptr);
}

TEST(OwnTempDir, isThatOfTheProcessAndItsChildren) {
  const QString before = QDir::tempPath();
  const bool wasSet = qEnvironmentVariableIsSet("TEMP");
  QString path;
  {
    const OwnTempDir folder;
    path = QDir::tempPath();
    EXPECT_NE(path, before);
    EXPECT_STREQ(sp_GetTempPath(), path.toUtf8().constData());
    QProcess child;
    child.start(QStringLiteral("cmake"), {QStringLiteral("-E"), QStringLiteral("environment")});
    ASSERT_TRUE(child.waitForFinished());
    EXPECT_TRUE(child.readAll().contains("TMPDIR=" + path.toUtf8()));
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/Kelvarin/deep")));
    ASSERT_TRUE(QFile::copy(moduleFile(QStringLiteral("EchoModule")), path + QStringLiteral("/f")));
  }
  EXPECT_FALSE(QFileInfo::exists(path));
  EXPECT_EQ(QDir::tempPath(), before);
  EXPECT_EQ(qEnvironmentVariableIsSet("TEMP"), wasSet);

  const OwnTempDir folder;
  path = QDir::tempPath();
  EXPECT_EQ(QFile::permissions(path) & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                        QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
            0);
  OwnTempDir::removeBeforeExit();
  EXPECT_FALSE(QFileInfo::exists(path));
}

// What a killed process has left goes when the next one starts; what is another's stays.
TEST(OwnTempDir, goesWithItsProcess) {
  const QTemporaryDir temp;
  const auto foldersIn = [&] {
    return QDir(temp.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  };
  qputenv("TMPDIR", temp.path().toLocal8Bit());
  QVector<pid_t> children;
  for (int i = 0; i < 2; ++i) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    children.append(fork());
    if (children.last() == 0) {
      const OwnTempDir own;
      QDir(QDir::tempPath()).mkpath(QStringLiteral("Kelvarin/deep"));
      alarm(60);
      while (write(ready[1], "x", 1) == 1)
        pause();
    }
    char byte;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
  }
  ASSERT_EQ(foldersIn().size(), 2);
  const QString other = QStringLiteral("dialoghost-123456"); // no process has ever locked it
  ASSERT_TRUE(QDir(temp.path()).mkdir(other));
  const auto end = [](pid_t child) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  };
  end(children[0]);
  { const OwnTempDir own; }
  EXPECT_EQ(foldersIn().size(), 2);
  end(children[1]);
  { const OwnTempDir own; }
  EXPECT_EQ(foldersIn(), QStringList{other});

  static QString said;
  sp_SetMessageSink([](const char* text) { said = QString::fromUtf8(text); });
  qputenv("TMPDIR", "/proc");
  { const OwnTempDir own; }
  EXPECT_TRUE(said.contains(QStringLiteral("in /proc"))) << said.toStdString();
  sp_SetMessageSink(nullptr);
  qunsetenv("TMPDIR");
}
