#include "../unit/SettingsFixture.h"

#include "HostSupportQt/Geometry.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>

// What a window remembers of its place, where a window manager puts a frame around it. The frame
// is known only when the window has been on the screen for a while.

namespace {

constexpr int openings = 10;
const QRect chosen(300, 240, 320, 210); // without the frame

/// As dialogs do that wait for an answer: they restore as they are shown.
class RememberingDialog : public QDialog {
public:
  RememberingDialog() { setObjectName(QStringLiteral("remembering")); }

protected:
  void showEvent(QShowEvent* event) override {
    QDialog::showEvent(event);
    sp_RestoreWidgetDims(this, YString());
  }
  void hideEvent(QHideEvent* event) override {
    sp_SaveWidgetDims(this, YString());
    QDialog::hideEvent(event);
  }
};

/// Restores before it has a window at all.
class EarlyDialog : public RememberingDialog {
public:
  EarlyDialog() { sp_RestoreWidgetDims(this, YString()); }

protected:
  void showEvent(QShowEvent* event) override { QDialog::showEvent(event); }
};

class Viewer : public QDialog {
public:
  Viewer() {
    setObjectName(QStringLiteral("viewer"));
    sp_AutoSaveDialogDims(this);
  }
};

/// Whether there is somebody who puts frames around windows; he may have just been started.
bool windowsHaveFrames() {
  bool isFramed = false;
  for (int attempt = 0; attempt < 50 && !isFramed; ++attempt) {
    QWidget window;
    window.show();
    isFramed = QTest::qWaitFor([&] { return window.frameGeometry() != window.geometry(); }, 200);
  }
  return isFramed;
}

/// Where it stands when the window manager has had its say.
std::string placeOf(const QWidget* window) {
  QTest::qWait(100);
  const QRect place = window->geometry();
  return QStringLiteral("%1 %2 %3 %4")
      .arg(place.x())
      .arg(place.y())
      .arg(place.width())
      .arg(place.height())
      .toStdString();
}

template <class Window> class WindowPlace : public SettingsFixture {
protected:
  void SetUp() override {
    SettingsFixture::SetUp();
    ASSERT_TRUE(windowsHaveFrames());
  }
};
using Windows = testing::Types<RememberingDialog, EarlyDialog, Viewer>;
TYPED_TEST_SUITE(WindowPlace, Windows);

} // namespace

TYPED_TEST(WindowPlace, IsTheSameAtEachOpening) {
  for (int opening = 0; opening < openings; ++opening) {
    TypeParam window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    if (opening == 0)
      window.setGeometry(chosen);
    ASSERT_EQ(placeOf(&window), "300 240 320 210") << "opening " << opening;
    window.hide();
  }
}

TYPED_TEST(WindowPlace, IsTheSameForAWindowThatComesBack) {
  TypeParam window;
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  window.setGeometry(chosen);
  for (int opening = 0; opening < openings; ++opening) {
    window.hide();
    QTest::qWait(20);
    window.show();
    ASSERT_EQ(placeOf(&window), "300 240 320 210") << "opening " << opening;
  }
}
