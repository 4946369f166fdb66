// What dialoghost leaves behind, and what it keeps from one run to the next.

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Run {
  int status;
  QString output;
};

Run run(const QStringList& words) {
  QProcess process;
  process.start(QStringLiteral(KV_DIALOGHOST), words);
  EXPECT_TRUE(process.waitForFinished(60000));
  return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()).trimmed()};
}

QString eval(const QStringList& options, const char* text) {
  const Run done = run(options + QStringList{QStringLiteral("eval"), QString::fromUtf8(text)});
  EXPECT_EQ(done.status, 0) << text;
  return done.output;
}

} // namespace

TEST(Program, removesItsTemporaryFolder) {
  const QString file = eval({QStringLiteral("--fresh")},
                            "const f = host.tempDir() + '/f'; host.writeFile(f, 'x'); f")
                           .remove(QLatin1Char('"'));
  int levels = 0; // the file, the script's folders, the one of the process
  for (QFileInfo entry(file); entry.path() != QDir::tempPath() && levels < 5; ++levels) {
    EXPECT_FALSE(entry.exists()) << entry.filePath().toStdString();
    entry = QFileInfo(entry.path());
  }
  EXPECT_EQ(levels, 3);
}

TEST(Program, removesItWhenItIsAskedToEnd) {
  QProcess process;
  process.start(QStringLiteral(KV_DIALOGHOST),
                {QStringLiteral("--fresh"), QStringLiteral("eval"),
                 QStringLiteral("print(host.tempDir()); while (true);")});
  ASSERT_TRUE(process.waitForReadyRead(60000));
  const QString folder = QString::fromUtf8(process.readLine()).trimmed();
  ASSERT_TRUE(QDir(folder).exists()) << folder.toStdString();
  process.terminate();
  ASSERT_TRUE(process.waitForFinished(60000));
  EXPECT_EQ(process.exitCode(), 128 + 15);
  EXPECT_FALSE(QDir(folder).exists());
}

// The names of the files of a check are the same for both, and so is the folder that the user
// chose.
TEST(Program, checksBesideAnotherInOneFolder) {
  const QTemporaryDir folder;
  const QStringList options{QStringLiteral("--settings"), folder.path()};
  const QString chosen = QStringLiteral("host.option('TempDataDir', '%1/chosen')");
  eval(options, chosen.arg(folder.path()).toUtf8().constData());
  const char* const text = R"(
    for (let i = 0; i < 15; ++i)
      for (const fault of [true, false]) {
        host.onDialog(d => {
          host.onDialog(m => {
            equal(m.title === "Syntax Check Passed", !fault, m.title);
            m.accept();
          });
          d.click("toolButtonCheckSyntax");
          d.reject();
        });
        EditFileDefinedPWLDialog(["0 1", fault ? "x 2" : "1 2"], ["0", "0", "0", "s", "Disk"]);
      }
  )";
  QProcess hosts[2];
  for (QProcess& host : hosts)
    host.start(QStringLiteral(KV_DIALOGHOST),
               options + QStringList{QStringLiteral("eval"), QString::fromUtf8(text)});
  for (QProcess& host : hosts) {
    ASSERT_TRUE(host.waitForFinished(60000));
    EXPECT_EQ(host.exitCode(), 0) << host.readAllStandardOutput().constData()
                                  << host.readAllStandardError().constData();
  }
}

TEST(Program, startsFresh) {
  const QTemporaryDir folder;
  const QStringList kept{QStringLiteral("--settings"), folder.path()};
  const QStringList fresh{QStringLiteral("--fresh")};
  for (const QStringList& options : {kept, fresh})
    EXPECT_EQ(eval(options, "host.option('Of a test', 'v')"), QStringLiteral("\"v\""));
  EXPECT_EQ(eval(kept, "host.option('Of a test')"), QStringLiteral("\"v\""));
  EXPECT_EQ(eval(fresh, "host.option('Of a test')"), QStringLiteral("null"));
  EXPECT_EQ(run(fresh + kept + QStringList{QStringLiteral("list")}).status, 2);
}
