// The command "RunBRENNIX": programs that stand in for the simulator, and the wait for them.

#include "Services/Simulator.h"

#include "HostSupport/Options.h"
#include "HostSupportQt/Text.h"
#include "Services/Commands.h"
#include "SettingsFixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// What the command raises; empty where it succeeds.
std::string faultOf(const QString& deck) {
  try {
    runCommand(FunctionTable(), QStringLiteral("RunBRENNIX /hidestatusbox /additionalargs "
                                               "SYNTAX_CHK_ONLY,,BATCH_MODE,, \"%1\"")
                                    .arg(deck));
    return std::string();
  } catch (const CallError& error) {
    return error.what();
  }
}

/// Counts what reaches it.
class Witness : public QWidget {
public:
  int paints = 0;
  int inputs = 0;

protected:
  void paintEvent(QPaintEvent*) override { ++paints; }
  void mousePressEvent(QMouseEvent*) override { ++inputs; }
  void keyPressEvent(QKeyEvent*) override { ++inputs; }
};

class SimulatorTest : public SettingsFixture {
protected:
  void SetUp() override {
    SettingsFixture::SetUp();
    deck = folder.filePath(QStringLiteral("a deck.deck"));
    write(folder.filePath(QStringLiteral("p.txt")), "0 1\n1 x\n");
    write(deck, "*\nV1 1 0 FDPWL file=\"" + folder.path().toUtf8() + "/p.txt\"\n.END\n");
    write(messageFile(), "old");
  }
  static void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QString messageFile() const { return deck + QStringLiteral(".err"); }

  QTemporaryDir folder;
  QString deck;
};

} // namespace

TEST_F(SimulatorTest, RunsTheProgramBesideTheHost) {
  EXPECT_EQ(faultOf(deck), "");
  QFile messages(messageFile());
  ASSERT_TRUE(messages.open(QIODevice::ReadOnly));
  EXPECT_TRUE(messages.readAll().contains(", line 2:\n"));
  messages.close();
  write(folder.filePath(QStringLiteral("p.txt")), "0 1\n1 2\n");
  EXPECT_EQ(faultOf(deck), "");
  EXPECT_FALSE(messages.exists());
  EXPECT_NE(faultOf(folder.filePath(QStringLiteral("absent")))
                .find("status 2. brennixcheck: the "
                      "deck"),
            std::string::npos);
}

TEST_F(SimulatorTest, SaysWhatBecameOfTheProgram) {
  const std::pair<const char*, const char*> cases[] = {
      {"/no/such/program", "RunBRENNIX: /no/such/program could not be started: "},
      {"/bin/sh -c \"kill -SEGV $$\"", "RunBRENNIX: /bin/sh crashed."},
      {"/bin/sh -c \"echo bad >&2; echo deck >&2; exit 3\"",
       "RunBRENNIX: /bin/sh ended with status 3. bad deck"},
      {"/bin/sh -c \"exec sleep 60\"", "RunBRENNIX: /bin/sh has not ended within 0.3 s and was"},
      {"/bin/sh -c \"exec yes >&2\"", "RunBRENNIX: /bin/sh has not ended within 0.3 s and was"},
      {"/bin/sh -c \"yes | head -c 1000000 >&2; exit 1\"",
       "RunBRENNIX: /bin/sh ended with status 1."},
      {"\"/bin/sh", "command: a quote is not closed"},
      {"/bin/sh -c \"exit 0\"", ""},
  };
  for (const auto& [program, expected] : cases) {
    sp_WriteOption("SimulatorProgram", program);
    const bool hangs = std::strstr(expected, "within 0.3 s");
    sp_WriteOption("SimulatorTimeLimit", hangs ? "0.3" : "");
    QElapsedTimer clock;
    clock.start();
    const std::string fault = faultOf(deck);
    EXPECT_EQ(fault.substr(0, std::strlen(expected)), expected) << program;
    EXPECT_EQ(fault.empty(), !*expected) << fault;
    EXPECT_LT(fault.size(), 1200u) << program;
    EXPECT_LT(clock.elapsed(), 5000) << program;
  }
  EXPECT_FALSE(QFile::exists(messageFile())); // no old faults for new ones
  ASSERT_TRUE(QDir().mkdir(messageFile()));
  EXPECT_NE(faultOf(deck).find("cannot be removed"), std::string::npos);
  EXPECT_THROW(runSimulator({}), CallError);
}

TEST_F(SimulatorTest, NothingOutlivesTheRun) {
  sp_WriteOption("SimulatorTimeLimit", "0.3");
  const QString noted = folder.filePath(QStringLiteral("child"));
  for (const char* end : {"wait", "exit 0", "kill -SEGV $$"}) {
    QFile::remove(noted);
    sp_WriteOption("SimulatorProgram",
                   toYs(QStringLiteral("/bin/sh -c \"sleep 60 & echo $! > %1; %2\"")
                            .arg(noted, QLatin1String(end))));
    EXPECT_EQ(faultOf(deck).empty(), end[0] == 'e');
    QFile file(noted);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QFile status(QStringLiteral("/proc/%1/stat").arg(file.readAll().trimmed().toInt()));
    const auto runs = [&status] {
      status.close(); // one that has ended may wait for somebody to ask for its status
      return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !runs(); }, 2000)) << end;
  }
}

TEST_F(SimulatorTest, WindowsArePaintedButTakeNoInput) {
  const QString sign = folder.filePath(QStringLiteral("end"));
  sp_WriteOption(
      "SimulatorProgram",
      toYs(QStringLiteral("/bin/sh -c \"until [ -e %1 ]; do sleep 0.05; done\"").arg(sign)));
  Witness window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const auto useIt = [&window] {
    QTest::mouseClick(&window, Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_A);
  };
  std::string nested = "not tried";
  int ticks = 0;
  int paintsMeanwhile = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &window, [&] {
    if (++ticks == 1) {
      window.paints = 0;
      window.update();
      useIt();
      window.close();
      nested = faultOf(deck);
    } else if (window.paints > 0 || ticks > 200) {
      paintsMeanwhile = window.paints;
      write(sign, "");
      timer.stop();
    }
  });
  timer.start(20);
  EXPECT_EQ(faultOf(deck), "");
  EXPECT_GT(paintsMeanwhile, 0);
  EXPECT_EQ(nested, "RunBRENNIX: another run is under way");
  QCoreApplication::processEvents();
  EXPECT_EQ(window.inputs, 0);
  EXPECT_TRUE(window.isVisible());
  useIt();
  EXPECT_EQ(window.inputs, 2);
}
