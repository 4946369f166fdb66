#include "TestHost.h"

#include "Call/CallMemory.h"
#include "HostSupport/Options.h"
#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <sys/resource.h>

// Lets the n-th host callback, then the n-th file operation, fail during every sample, for n = 1,
// 2, … until a run has none left to fail. The call has to come back, with its result or without,
// and nothing that was stored before may be lost.

namespace {

constexpr int farTooMany = 100000;

/// Each of the first ones, then ever fewer of them: a long sample makes thousands that are alike.
int nextToFail(int failing) {
  return failing + 1 + failing / 50;
}

class FaultLoop : public testing::TestWithParam<std::string> {
protected:
  QString sample() const { return QString::fromStdString(GetParam()); }

  /// Runs the sample once with acceptance; whether the call came back with no error of its own.
  bool runAccepted() {
    TestHost& host = TestHost::instance();
    const ScriptEngine::Outcome outcome = host.runSample(
        sample(), [this](DialogActions& dialog) { TestHost::accept(sample(), dialog); });
    EXPECT_TRUE(host.driver().openDialogs().isEmpty());
    return outcome.ok;
  }

  /// Few dialogs keep no geometry; were it all of them, no operation would have failed.
  static void TearDownTestSuite() {
    EXPECT_LT(s_withoutFiles, std::max(s_samples / 4, 2)) << "too few samples touched a file";
  }

  inline static int s_samples = 0;
  inline static int s_withoutFiles = 0;
};

TEST_P(FaultLoop, HostCallbacks) {
  int failing = 1;
  for (; failing < farTooMany; failing = nextToFail(failing)) {
    failHostCallback(failing);
    runAccepted();
    const int made = failHostCallback(0);
    if (made < failing)
      break;
  }
  EXPECT_LT(failing, farTooMany);
  EXPECT_TRUE(failing > 1 || !TestHost::opensDialog(sample())) << "it made no host callback";
  EXPECT_TRUE(runAccepted());
}

TEST_P(FaultLoop, FileOperations) {
  for (const bool andAllAfter : {false, true}) {
    ASSERT_TRUE(sp_WriteOption("Witness", "stands"));
    int failing = 1;
    for (; failing < farTooMany; failing = nextToFail(failing)) {
      // A geometry that differs from the stored one makes the dialog write.
      cfgman_WriteConfigSetting("WidgetDims", QFileInfo(sample()).baseName().toUtf8().constData(),
                                "10 10 301 301");
      sp_FailFileOperation(failing, andAllAfter);
      runAccepted();
      const int made = sp_FailFileOperation(0);
      EXPECT_EQ(sp_GetStringOption("Witness"), "stands") << "operation " << failing;
      if (made < failing)
        break;
    }
    EXPECT_LT(failing, farTooMany);
    ++s_samples;
    s_withoutFiles += failing == 1;
  }
}

/// Cuts the files of this process off while it stands.
class FileSizeLimit {
public:
  explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit limit{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
  rlimit m_before;
  void (*m_handler)(int);
};

// A disk that is full takes bytes and says so only when they are to be on it.
TEST(FullDisk, IsNoticed) {
  QString title;
  TestHost& host = TestHost::instance();
  host.runSample(QStringLiteral(KV_SAMPLE_DIR "/EditFileDefinedPWLDialog.js"),
                 [&](DialogActions& dialog) {
                   host.driver().onDialog([&](QWidget* box) {
                     title = box->windowTitle();
                     DialogActions(box).accept();
                   });
                   const FileSizeLimit limit(100); // bytes; of a lock file, and not of the deck
                   dialog.click(QStringLiteral("toolButtonCheckSyntax"));
                   dialog.reject();
                 });
  EXPECT_EQ(title.toStdString(), "Temporary Directory Not Writeable");
}

std::vector<std::string> samples() {
  std::vector<std::string> files;
  for (const QString& file : TestHost::allSampleFiles())
    files.push_back(file.toStdString());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Samples, FaultLoop, testing::ValuesIn(samples()), [](const auto& test) {
  return QFileInfo(QString::fromStdString(test.param)).baseName().toStdString();
});

} // namespace
