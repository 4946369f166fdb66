#include "Pieces/PicturePane.h"
#include "SettingsFixture.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace {

/// A form with a field's room and a pane beside it.
struct Form {
  QDialog dialog;
  QPushButton* button = new QPushButton;
  PicturePane* pane = new PicturePane;
  Plotter* plot = nullptr;
  QString reason;
  int drawn = 0;

  Form() {
    auto* layout = new QHBoxLayout(&dialog);
    layout->addWidget(button);
    layout->addWidget(pane);
    plot = pane->addPlot(QStringLiteral("Gain"), QStringLiteral("Frequency"));
    pane->start(button, [this] {
      ++drawn;
      return reason;
    });
    dialog.show();
    QCoreApplication::processEvents();
  }
};

using PicturePaneTest = SettingsFixture;

} // namespace

TEST_F(PicturePaneTest, OpensAndClosesWithTheWindowAndIsRemembered) {
  QSize closed;
  {
    Form form;
    closed = form.dialog.size();
    form.pane->refresh();
    EXPECT_EQ(form.drawn, 0) << "what nobody sees is not drawn";
    EXPECT_FALSE(form.pane->isVisible());
    form.button->click();
    EXPECT_TRUE(form.plot->isVisible());
    EXPECT_GT(form.drawn, 0);
    EXPECT_GE(form.dialog.width(), closed.width() + form.plot->minimumWidth());
    EXPECT_EQ(form.plot->accessibleName(), QStringLiteral("Gain"));
  }
  Form again;
  EXPECT_TRUE(again.button->isChecked());
  EXPECT_TRUE(again.plot->isVisible());
  EXPECT_GT(again.drawn, 0);
  again.button->click();
  QCoreApplication::processEvents();
  EXPECT_EQ(again.dialog.width(), closed.width());
  EXPECT_FALSE(Form().button->isChecked());
}

TEST_F(PicturePaneTest, GivesBackAllTheRoomThatItTook) {
  Form form;
  for (const QSize size : {form.dialog.size(), QSize(700, 90), QSize(500, 400)}) {
    form.dialog.resize(size);
    const QSize closed = form.dialog.size();
    for (int i = 0; i < 3; ++i) {
      form.button->click();
      QCoreApplication::processEvents();
      EXPECT_LE(form.dialog.width(), form.dialog.screen()->availableSize().width());
      EXPECT_GE(form.plot->height(), form.plot->minimumHeight());
      form.button->click();
      QCoreApplication::processEvents();
      EXPECT_EQ(form.dialog.width(), closed.width()) << i;
    }
    EXPECT_LT(form.dialog.height(), 450);
  }
}

TEST_F(PicturePaneTest, SaysWhyThereIsNoPicture) {
  Form form;
  form.button->click();
  form.reason = QStringLiteral("Not known: <b> is no number.");
  form.pane->refresh();
  const QLabel* said = nullptr;
  for (const QLabel* label : form.pane->findChildren<QLabel*>())
    if (label->isVisible() && label->text() == form.reason)
      said = label;
  ASSERT_TRUE(said);
  EXPECT_FALSE(form.plot->isVisible());
  form.reason.clear();
  form.pane->refresh();
  EXPECT_TRUE(form.plot->isVisible());
  EXPECT_FALSE(said->isVisible());
}
