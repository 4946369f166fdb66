// What dialoghost leaves behind, what it keeps from one run to the next, and how it ends.

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <csignal>
#include <string>

namespace {

constexpr int crashed = -1;

struct Ended {
  int status; ///< or `crashed`
  QString output;
  std::string said; ///< on the standard error output
};

/// `output` is a file that takes the standard output; empty: it is read.
Ended run(const QStringList& words, const QString& output = QString()) {
  QProcess process;
  if (!output.isEmpty())
    process.setStandardOutputFile(output);
  process.start(QStringLiteral(KV_DIALOGHOST), words);
  EXPECT_TRUE(process.waitForFinished(120000));
  return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : crashed,
          QString::fromUtf8(process.readAllStandardOutput()).trimmed(),
          process.readAllStandardError().toStdString()};
}

Ended runText(const QStringList& options, const char* text) {
  return run(QStringList{QStringLiteral("--fresh"), QStringLiteral("eval")} + options +
             QStringList{QString::fromUtf8(text)});
}

bool says(const Ended& done, const char* words) {
  return done.said.find(words) != std::string::npos;
}

/// Whether a process runs; one that has ended may wait for somebody to ask for its status.
bool isRunning(const QString& process) {
  QFile file(QStringLiteral("/proc/%1/stat").arg(process));
  return file.open(QIODevice::ReadOnly) && !file.readAll().contains(") Z ");
}

QString eval(const QStringList& options, const char* text) {
  const Ended done = run(options + QStringList{QStringLiteral("eval"), QString::fromUtf8(text)});
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

TEST(Program, saysWhatItCannotWrite) {
  const QTemporaryDir folder;
  const QString script = folder.filePath(QStringLiteral("endless.js"));
  QFile file(script);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("for (;;) print(1)");
  file.close();
  const QStringList cases[] = {
      {QStringLiteral("--help")},
      {QStringLiteral("list")},
      {QStringLiteral("list"), QStringLiteral("--json")},
      {QStringLiteral("eval"), QStringLiteral("1")},
      {QStringLiteral("run"), script},
      {QStringLiteral("tour"), QStringLiteral("--out"), folder.path(),
       QStringLiteral("ValueDialog")},
  };
  for (const QStringList& words : cases) {
    const Ended done = run(words, QStringLiteral("/dev/full"));
    EXPECT_EQ(done.status, 1) << words.join(QLatin1Char(' ')).toStdString();
    EXPECT_TRUE(says(done, "dialoghost: the output cannot be written: No space left on device"))
        << done.said;
  }
  // Nobody reads any more: there is nothing to say, and nothing to go on for.
  QProcess shell;
  shell.start(QStringLiteral("bash"),
              {QStringLiteral("-c"), QStringLiteral("%1 run %2 | head -1; exit ${PIPESTATUS[0]}")
                                         .arg(QStringLiteral(KV_DIALOGHOST), script)});
  ASSERT_TRUE(shell.waitForFinished(60000));
  EXPECT_EQ(shell.exitCode(), 1);
  EXPECT_EQ(shell.readAllStandardOutput(), "1\n");
  EXPECT_FALSE(shell.readAllStandardError().contains("cannot be written"));
}

TEST(Program, runsAScriptOfAPipe) {
  QProcess process;
  process.start(QStringLiteral(KV_DIALOGHOST),
                {QStringLiteral("--fresh"), QStringLiteral("run"), QStringLiteral("/dev/stdin")});
  process.write("let n = 0;\n" +
                QByteArray("++n; // long enough for several turns\n").repeated(9000) + "print(n)");
  process.closeWriteChannel();
  ASSERT_TRUE(process.waitForFinished(60000));
  EXPECT_EQ(process.readAllStandardOutput(), "9000\n");
}

TEST(Program, boundsTheMemoryOfAScript) {
  const char* cases[] = {
      "let a = []; for (;;) a.push({})",
      "let a = []; for (;;) a.push(1)",
      "let a = [1]; for (;;) a = a.concat(a)",
      "const s = 'x'.repeat(1e6), all = []; for (let i = 0; ; ++i) all.push((s + i).toUpperCase())",
      "new Array(4e9).fill(1)", // in one stroke, of which nothing stops it
  };
  for (const char* text : cases) {
    const Ended done = runText({QStringLiteral("--memory"), QStringLiteral("200")}, text);
    EXPECT_EQ(done.status, 3) << text;
    EXPECT_TRUE(says(done, "dialoghost: the script used more than 200 MB\n")) << done.said;
  }
  const Ended huge = runText({}, "'x'.repeat(Math.pow(2, 30)).length");
  EXPECT_EQ(huge.status, 3);
  EXPECT_TRUE(says(huge, "dialoghost: there is not enough memory for what the script asks for"))
      << huge.said;
  EXPECT_EQ(
      runText({QStringLiteral("--memory"), QStringLiteral("400")}, "new Array(5e6).fill(1).length")
          .status,
      0);
  EXPECT_EQ(runText({QStringLiteral("--memory"), QStringLiteral("much")}, "1").status, 2);
}

TEST(Program, tellsOfAnyThrownValue) {
  const struct {
    const char* text;
    const char* said;
  } cases[] = {
      {"let e = new Error(); e.message = e; throw e", "<eval>:1: Error: …"},
      {"let e = new Error('m'); e.name = e; throw e", "<eval>:1: …: m"},
      {"let e = new Error(), f = new Error(); e.message = f; f.message = e; throw e",
       "<eval>:1: Error: Error: …"},
      {"let a = []; a.push(a); throw a", "<eval>: […]"},
      {"let d = []; for (let i = 0; i < 200000; ++i) d = [d]; throw d", "<eval>: [[["},
      {"let o = {}; o.toString = () => String(o); throw o",
       "RangeError: Maximum call stack size exceeded."},
      {"throw {toString() { throw 'in toString' }}", "<eval>: in toString"},
      {"throw {toString() { return 'told by itself' }}", "<eval>: told by itself"},
      {"throw {a: 1}", "<eval>: {\"a\": 1}"},
      {"throw Object.create(null)", "<eval>: {}"},
      {"throw new Proxy({}, {get() { throw new Error('a trap') }})", "<eval>:1: a trap"},
      {"const e = new Error('m'); Object.defineProperty(e, 'message', {get() { throw e }}); throw "
       "e",
       "<eval>: a fault that cannot be told"},
      {"let e = new Error('m'); e.message = e; print(e)", ""},
      {"let e = new Error('m'); e.message = e; check(false, e)", "check failed: Error: …"},
      {"let e = new Error('m'); e.message = e; equal(e, new Error('m'))",
       "got Error: …, expected \"m\" at .message"},
      {"let d = []; for (let i = 0; i < 200000; ++i) d = [d]; host.graphs({vectors: d})",
       "<eval>:1: RangeError: a value is nested more than 8 deep"},
      {"let d = {}; for (let i = 0; i < 200000; ++i) { d = {d}; Object.setPrototypeOf(d, "
       "Date.prototype); } host.onDialog(d0 => { try { d0.set('Spinner0', d) } finally { "
       "d0.reject() } }); ValueDialog(1)",
       "a value is nested more than 8 deep"},
  };
  for (const auto& c : cases) {
    const Ended done = runText({}, c.text);
    EXPECT_EQ(done.status, *c.said ? 1 : 0) << c.text;
    EXPECT_TRUE(says(done, c.said)) << c.text << ": " << done.said;
  }
}

TEST(Program, endsASimulatorWithTheScript) {
  const QTemporaryDir folder;
  const QString noted = folder.filePath(QStringLiteral("processes"));
  const QString text =
      QStringLiteral("host.option('SimulatorProgram', '/bin/sh -c \"sleep 300 & echo $$ $! > %1; "
                     "wait\"'); host.option('SimulatorTimeLimit', 300); command('RunBRENNIX x')")
          .arg(noted);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, 0}) {
    QFile::remove(noted);
    QProcess process;
    process.start(QStringLiteral(KV_DIALOGHOST),
                  {QStringLiteral("--fresh"), QStringLiteral("eval"), QStringLiteral("--timeout"),
                   signal == 0 ? QStringLiteral("2") : QStringLiteral("60"), text});
    QElapsedTimer clock;
    for (clock.start(); QFileInfo(noted).size() == 0 && clock.elapsed() < 30000;)
      QThread::msleep(20);
    if (signal != 0)
      ::kill(static_cast<pid_t>(process.processId()), signal);
    clock.start();
    EXPECT_TRUE(process.waitForFinished(30000));
    EXPECT_LT(clock.elapsed(), 4500) << signal; // not by the guard that ends what does not listen
    EXPECT_EQ(process.exitCode(), signal == 0 ? 1 : 128 + signal);
    QFile file(noted);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList started =
        QString::fromLatin1(file.readAll()).simplified().split(QLatin1Char(' '));
    EXPECT_EQ(started.size(), 2);
    for (const QString& each : started) {
      EXPECT_FALSE(isRunning(each)) << signal;
      if (isRunning(each))
        ::kill(each.toInt(), SIGKILL);
    }
  }
}
