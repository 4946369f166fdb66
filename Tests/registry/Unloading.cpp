#include "Call/HostCall.h"
#include "Changes.h"
#include "Drive/DriveError.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPixmapCache>
#include <QRegExp>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <dlfcn.h>

// The module goes while the program goes on: nothing of it may be in use any more, neither by its
// windows nor by what Qt keeps of texts, patterns and pictures.

namespace {

bool isLoaded() {
  void* const module = dlopen(KV_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD);
  if (module)
    dlclose(module);
  return module;
}

int moduleWindows() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  return int(std::count_if(windows.begin(), windows.end(), [](const QWidget* window) {
    return window->objectName() == QLatin1String("ViewFormattedText");
  }));
}

void copyText(DialogActions& dialog) {
  for (QWidget* edit : dialog.dialog()->findChildren<QLineEdit*>())
    if (edit->isVisible() && edit->isEnabled()) {
      static_cast<QLineEdit*>(edit)->selectAll();
      static_cast<QLineEdit*>(edit)->copy();
    }
}

void changeAndAccept(DialogActions& dialog) {
  try {
    copyText(dialog);
    changeFields(dialog);
    dialog.accept();
  } catch (const DriveError&) {
    // Its OK is grey.
  }
  if (dialog.isOpen())
    dialog.reject();
}

void visitAccessible(QAccessibleInterface* accessible, int* visited) {
  ++*visited;
  accessible->text(QAccessible::Name);
  for (int i = 0; i < accessible->childCount(); ++i)
    if (QAccessibleInterface* child = accessible->child(i))
      visitAccessible(child, visited);
}

/// All that Qt keeps for the whole program: its patterns, pictures, fonts and what was copied.
void useQt() {
  for (int i = 0; i < 200; ++i)
    EXPECT_TRUE(QRegExp(QStringLiteral("a{%1}").arg(i)).isValid());
  EXPECT_GE(QGuiApplication::clipboard()->text().toUtf8().size(), 0);
  QPixmapCache::clear();
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* box = new QComboBox;
  box->addItems({QStringLiteral("one"), QStringLiteral("two")});
  for (QWidget* widget :
       {static_cast<QWidget*>(new QLineEdit(QStringLiteral("text"))), static_cast<QWidget*>(box),
        static_cast<QWidget*>(new QTableWidget(3, 3))})
    layout->addWidget(widget);
  dialog.setStyleSheet(QStringLiteral("QLineEdit { color: red }"));
  dialog.show();
  QCoreApplication::processEvents();
  int visited = 0;
  visitAccessible(QAccessible::queryAccessibleInterface(&dialog), &visited);
  EXPECT_GT(visited, 10);
  dialog.grab();
}

class Unloading : public testing::Test {
protected:
  TestHost& host = TestHost::instance();

  void TearDown() override {
    load();
    EXPECT_TRUE(isLoaded());
    EXPECT_EQ(host.takeWarnings().join(QLatin1Char('\n')).toStdString(), "");
  }
  void load() { host.table().loadModule(QStringLiteral(KV_MODULE_FILE)); }
  void unload() { host.table().unloadModule(); }
  ScriptEngine::Outcome run(const char* name, const std::function<void(DialogActions&)>& act) {
    return host.runSample(QStringLiteral(KV_SAMPLE_DIR "/%1.js").arg(QLatin1String(name)), act);
  }
};

} // namespace

TEST_F(Unloading, LeavesNothingThatQtGoesOnToUse) {
  for (int time = 0; time < 2; ++time) {
    for (const QString& sample : TestHost::allSampleFiles()) {
      host.runSample(sample, changeAndAccept);
      host.driver().clearFailures(); // a message about what was typed
    }
    unload();
    ASSERT_FALSE(isLoaded());
    useQt();
    EXPECT_FALSE(run("ValueDialog", changeAndAccept).ok);
    host.driver().clearFailures();
    load();
  }
  EXPECT_TRUE(run("ValueDialog", changeAndAccept).ok);
}

TEST_F(Unloading, TakesOpenWindowsAlong) {
  host.engine().runFile(QStringLiteral(KV_SAMPLE_DIR "/ViewFormattedText.js"));
  host.engine().runFile(QStringLiteral(KV_SAMPLE_DIR "/ViewFormattedFile.js"));
  ASSERT_EQ(moduleWindows(), 2);
  unload();
  EXPECT_FALSE(isLoaded());
  EXPECT_EQ(moduleWindows(), 0);
  useQt();
}

TEST_F(Unloading, WaitsForTheCallThatRuns) {
  const ScriptEngine::Outcome outcome = run("ValueDialog", [&](DialogActions& dialog) {
    unload();
    EXPECT_TRUE(isLoaded());
    EXPECT_FALSE(host.table().find(QStringLiteral("ValueDialog")));
    dialog.type(QStringLiteral("Spinner0"), QStringLiteral("4u"));
    dialog.accept();
  });
  EXPECT_TRUE(outcome.ok);
  EXPECT_FALSE(isLoaded());
  useQt();
}

TEST_F(Unloading, WaitsForAnEntryThatRuns) {
  callEntry(QStringLiteral("anybody's"), [this] {
    unload();
    EXPECT_TRUE(isLoaded());
  });
  EXPECT_FALSE(isLoaded());
}

// Another module, or the same one, takes the place of the one that a call is in.
TEST_F(Unloading, ALoadDuringACallIsNoUnload) {
  const ScriptEngine::Outcome outcome = run("ValueDialog", [&](DialogActions& dialog) {
    unload();
    load();
    dialog.accept();
  });
  EXPECT_TRUE(outcome.ok);
  EXPECT_TRUE(isLoaded());
  EXPECT_TRUE(run("ValueDialog", changeAndAccept).ok);
}
