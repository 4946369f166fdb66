#include "TestHost.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

// Puts a text that names a file as picture and as background into each text that a sample hands to
// its function, shows what opens, and presses OK: that file may not be opened by anybody.

namespace {

constexpr std::size_t mostMarkedAlone = 8; // of a vector's texts, which are treated alike

/// A picture whose openings are counted by the kernel.
class WatchedPicture {
public:
  WatchedPicture() {
    QImage picture(9, 9, QImage::Format_RGB32);
    picture.fill(Qt::red);
    EXPECT_TRUE(picture.save(path()));
    m_watch = inotify_init1(IN_NONBLOCK);
    EXPECT_GE(inotify_add_watch(m_watch, qPrintable(path()), IN_OPEN), 0);
  }
  ~WatchedPicture() { close(m_watch); }

  QString path() const { return m_folder.filePath(QStringLiteral("picture.png")); }

  bool wasOpened() {
    char events[4096];
    bool opened = false;
    while (read(m_watch, events, sizeof events) > 0)
      opened = true;
    return opened;
  }

  /// A text that shows the picture, before what was to be shown. It has no colon, bar or semicolon,
  /// at which functions part their texts.
  QByteArray mark(const QByteArray& text) const {
    const QByteArray name = path().toUtf8();
    return "<img src='" + name + "'><table background='" + name + "'><tr><td>x</table>" + text;
  }

private:
  QTemporaryDir m_folder;
  int m_watch;
};

using Arguments = std::vector<ScriptVector>;

/// All texts of one vector marked, then each alone.
std::vector<Arguments> markedCalls(const Arguments& arguments, const WatchedPicture& picture) {
  std::vector<Arguments> calls;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    Arguments all = arguments;
    for (std::size_t j = 0; j < arguments[i].strings.size(); ++j) {
      all[i].strings[j] = picture.mark(arguments[i].strings[j]);
      if (j < mostMarkedAlone) {
        calls.push_back(arguments);
        calls.back()[i].strings[j] = all[i].strings[j];
      }
    }
    calls.push_back(all);
  }
  return calls;
}

void showAndAccept(QWidget* window) {
  window->grab();
  try {
    DialogActions(window).accept();
  } catch (const DriveError&) {
    // It refuses what it was given, or is no dialog that can be accepted; it is closed then.
  }
}

void callShown(const FunctionInfo& function, const Arguments& arguments) {
  TestHost& host = TestHost::instance();
  host.driver().beginScope();
  for (int i = 0; i < 3; ++i) // messages about what it was given
    host.driver().onDialog(showAndAccept);
  try {
    callHandler(function, arguments);
  } catch (const CallError&) {
  }
  for (QWidget* window : host.driver().detachedWindows())
    window->grab();
  host.driver().endScope();
  host.driver().clearFailures();
  host.closeDetachedWindows();
}

} // namespace

TEST(ForeignTexts, OpenNoFile) {
  WatchedPicture picture;
  QImage(picture.path());
  ASSERT_TRUE(picture.wasOpened());
  int calls = 0;
  for (const QString& sample : TestHost::allSampleFiles()) {
    const SampleCall call = TestHost::instance().callIn(sample);
    if (!call.function || call.function->kind == FunctionInfo::Kind::Command)
      continue;
    for (const Arguments& marked : markedCalls(call.arguments, picture)) {
      callShown(*call.function, marked);
      ++calls;
      EXPECT_FALSE(picture.wasOpened()) << qPrintable(sample);
    }
  }
  std::printf("%d calls\n", calls);
  EXPECT_GT(calls, 100);
}

TEST(ForeignTexts, ADocumentOpensWhatLiesBesideIt) {
  WatchedPicture picture;
  const QFileInfo beside(picture.path());
  const QString pipe = beside.path() + QStringLiteral("/pipe.png"); // would never end
  ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
  ASSERT_TRUE(beside.dir().mkdir(QStringLiteral("below")));
  const struct {
    const char* document;
    const char* source;
    bool opens;
  } cases[] = {{"/page.html", "picture.png", true},
               {"/page.html", "below/../picture.png", true},
               {"/below/page.html", "../picture.png", false},
               {"/page.html", "pipe.png", false},
               {"/page.html", "//server1/share/picture.png", false},
               {"/page.html", "\\\\server1\\share\\picture.png", false}};
  const FunctionInfo* const view =
      TestHost::instance().table().find(QStringLiteral("ViewFormattedFile"));
  for (const auto& c : cases) {
    const QString page = beside.path() + QLatin1String(c.document);
    QFile file(page);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("<p>x<img src='") + c.source + "'>");
    file.close();
    callShown(*view, {ScriptVector::ofStrings({page.toUtf8()})});
    EXPECT_EQ(picture.wasOpened(), c.opens) << c.source;
  }
}
