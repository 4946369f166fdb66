#include "HostSupport/Files.h"
#include "HostSupport/Options.h"
#include "HostSupportQt/Colours.h"
#include "HostSupportQt/HostSupportQt.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDialog>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace {

class Settings : public testing::Test {
protected:
  void SetUp() override { sp_SetSettingsDir(toYs(m_folder.path())); }
  QTemporaryDir m_folder;
};

std::vector<HelpRequest> requests;

} // namespace

using ColourTest = Settings;
using FontTest = Settings;
using GeometryTest = Settings;

TEST(Colours, WhatIsWrongCanBeReadOnAnyGround) {
  EXPECT_NEAR(sp_Contrast(Qt::black, Qt::white), 21, 1e-9);
  EXPECT_NEAR(sp_Contrast(Qt::red, Qt::white), 4.0, 0.01);
  for (int grey = 0; grey < 256; ++grey)
    for (const QColor& ground :
         {QColor(grey, grey, grey), QColor::fromHsv(grey, 255, 255), QColor::fromHsv(grey, 90, 200),
          QColor::fromHsv(grey, 255, 90), QColor(255, grey, grey), QColor(grey, 0, 0)})
      EXPECT_GE(sp_Contrast(sp_WrongColour(ground), ground), 4.5) << ground.name().toStdString();
  for (const char* ground : {"#ffffff", "#efefef", "#353535", "#232629", "#000000"}) {
    const QColor colour = sp_WrongColour(QColor(QLatin1String(ground)));
    EXPECT_GT(colour.red(), colour.blue() + 100) << ground << ": red on what palettes have";
  }
}

TEST_F(GeometryTest, OnlyWhatAScreenShowsIsRestored) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const struct {
    const char* stored;
    bool restored;
    bool moved;
  } cases[] = {
      {"40 50 320 240", true, true},
      {"40 50 32000 24000", true, true}, // no larger than the screen
      {"-5000 50 320 240", true, false}, // that screen is gone: the size only
      {"40 90000 320 240", false, false},
      {"40 50 1 1", true, true}, // no smaller than its contents
      {"40 50 0 240", false, false},
      {"40 50 320", false, false},
      {"40 50 320 240 1", false, false},
      {"4e1 50 320 240", false, false},
      {"", false, false},
      {"\xff\xfe", false, false},
  };
  for (const auto& c : cases) {
    cfgman_WriteConfigSetting("WidgetDims", "box", c.stored);
    QDialog dialog;
    dialog.setObjectName(QStringLiteral("box"));
    QVBoxLayout layout(&dialog);
    QLabel contents(QStringLiteral("contents"));
    layout.addWidget(&contents);
    dialog.resize(111, 112);
    dialog.move(7, 8);
    EXPECT_EQ(sp_RestoreWidgetDims(&dialog, YString()), c.restored) << c.stored;
    EXPECT_EQ(dialog.pos(), c.moved ? QPoint(40, 50) : QPoint(7, 8)) << c.stored;
    if (!c.restored) {
      EXPECT_EQ(dialog.size(), QSize(111, 112)) << c.stored;
    }
    EXPECT_LE(dialog.width(), screen.width()) << c.stored;
    EXPECT_GE(dialog.width(), contents.sizeHint().width()) << c.stored;
  }
}

TEST_F(GeometryTest, SavedByNameAndByKey) {
  QDialog first;
  first.setObjectName(QStringLiteral("one"));
  first.setGeometry(20, 30, 300, 200);
  sp_SaveWidgetDims(&first, YString());
  sp_SaveWidgetDims(&first, "other key");
  QDialog second;
  second.setObjectName(QStringLiteral("one"));
  EXPECT_TRUE(sp_RestoreWidgetDims(&second, YString()));
  EXPECT_EQ(second.size(), QSize(300, 200));
  EXPECT_TRUE(sp_RestoreWidgetDims(&second, "other key"));
  second.setObjectName(QString());
  EXPECT_FALSE(sp_RestoreWidgetDims(&second, YString()));
}

TEST_F(GeometryTest, AWindowThatSavesByItself) {
  for (const QSize size : {QSize(310, 210), QSize(320, 220)}) {
    QWidget window;
    window.setObjectName(QStringLiteral("auto"));
    sp_AutoSaveDialogDims(&window);
    sp_AutoSaveDialogDims(&window);
    window.show();
    if (size.width() == 320) {
      EXPECT_EQ(window.size(), QSize(310, 210));
    }
    window.resize(size);
    window.hide();
  }
}

TEST(Help, TopicToNumberToPage) {
  QTemporaryDir folder;
  QFile index(folder.filePath(QStringLiteral("topics.txt")));
  ASSERT_TRUE(index.open(QIODevice::WriteOnly));
  index.write(
      "# comment\n3004 Passive_conv  passive.md\r\nnonsense\n12 Two fields too many\n17 P q.md");
  index.close();
  ASSERT_TRUE(sp_SetHelpDir(toYs(folder.path())));
  EXPECT_EQ(sp_GetHelpContextId("PASSIVE_CONV"), 3004);
  EXPECT_EQ(sp_GetHelpContextId("p"), 17);
  EXPECT_EQ(sp_GetHelpContextId("nonsense"), -1);
  EXPECT_EQ(sp_GetHelpContextId(""), -1);

  requests.clear();
  sp_SetHelpViewer([](const HelpRequest& request) { requests.push_back(request); });
  EXPECT_TRUE(sp_HasHelp());
  sp_RunHelp("3004", nullptr);
  sp_RunHelp("passive_conv", nullptr);
  sp_RunHelpContext(99);
  sp_RunHelp(nullptr, nullptr);
  sp_SetHelpViewer(nullptr);
  EXPECT_FALSE(sp_HasHelp());
  ASSERT_EQ(requests.size(), 3U);
  EXPECT_EQ(requests[0].topic, "Passive_conv");
  EXPECT_EQ(requests[1].number, 3004);
  EXPECT_TRUE(toQs(requests[1].page).endsWith(QStringLiteral("/passive.md")));
  EXPECT_TRUE(requests[2].number == 99 && requests[2].page.isEmpty());
  EXPECT_FALSE(sp_SetHelpDir("/nonexistent"));
}

TEST(Query, ByClassAndNameAndDepth) {
  QWidget root;
  auto* outer = new QWidget(&root);
  outer->setObjectName(QStringLiteral("a"));
  auto* inner = new QPushButton(outer);
  inner->setObjectName(QStringLiteral("a"));
  new QLabel(&root);
  EXPECT_EQ(qtsp_QueryList(&root, nullptr, nullptr, true, true).size(), 3);
  EXPECT_EQ(qtsp_QueryList(&root, nullptr, nullptr, true, false).size(), 2);
  EXPECT_EQ(qtsp_SearchChild(&root, "a", "QPushButton", true), inner);
  EXPECT_EQ(qtsp_SearchChild(&root, "a", "QPushButton", false), nullptr);
  EXPECT_EQ(qtsp_SearchChild(&root, "a", "QAbstractButton", true), inner)
      << "derived classes count";
  EXPECT_EQ(qtsp_SearchChild(nullptr, "a", nullptr, true), nullptr);
}

TEST(Text, IsReadOutWithoutItsTags) {
  const char* const texts[][2] = {
      {"<p>First<br/>second &amp; <b>third</b></p>", "First\nsecond & third"},
      {"picture <img src=\"a.png\"> here", "picture  here"},
      {"1 < 2 & 3 > 2", "1 < 2 & 3 > 2"},
      {" plain ", " plain "}};
  for (const auto& [shown, read] : texts)
    EXPECT_EQ(plainText(QString::fromLatin1(shown)).toStdString(), read);
  QWidget window;
  QWidget field(&window);
  field.setToolTip(QStringLiteral("<i>Own</i>"));
  QWidget other(&window);
  other.setToolTip(QStringLiteral("<i>None</i>"));
  other.setAccessibleDescription(QStringLiteral("Given"));
  describeByToolTips(&window);
  EXPECT_EQ(field.accessibleDescription(), QStringLiteral("Own"));
  EXPECT_EQ(other.accessibleDescription(), QStringLiteral("Given"));
}

TEST(Text, BothWaysAndForAMoment) {
  const QString text = QStringLiteral("4.7 µF – 電圧");
  EXPECT_EQ(toQs(toYs(text)), text);
  const char* first = toCs(QStringLiteral("first"));
  EXPECT_STREQ(toCs(QStringLiteral("second")), "second");
  EXPECT_STREQ(first, "first");
  EXPECT_TRUE(equals(QStringLiteral("Meg"), QStringLiteral("MEG")));
}

// What is a colour for one is a colour for all.
TEST_F(ColourTest, OfOptionsAndPagesAreAlike) {
  QStringList texts = QColor::colorNames();
  texts.removeAll(QStringLiteral("transparent"));
  texts +=
      {QStringLiteral("#0a141e"),    QStringLiteral("#AbC"),          QStringLiteral("#800a141e"),
       QStringLiteral("#123456789"), QStringLiteral("#0a001400ffff"), QStringLiteral("Light Blue")};
  for (const QString& text : texts) {
    const QColor colour(text);
    const int expected = colour.red() | colour.green() << 8 | colour.blue() << 16;
    EXPECT_EQ(sp_ConvertHTMLcolourToRGB(toYs(text)), expected) << Tocs(text);
    ASSERT_TRUE(sp_WriteOption("Colour", toYs(text)));
    EXPECT_EQ(sp_GetColourOption("Colour", -1), expected) << Tocs(text);
  }
  EXPECT_EQ(sp_ConvertHTMLcolourToRGB("1971210"), 0x1e140a);
  EXPECT_EQ(sp_ConvertRGBcolourToHTML(0x1e140a), "#0a141e");
  for (const char* none : {"no colour", "transparent", "1k", "0xff", "1.5", "-1", "16777216", "#",
                           "#12", "#12345", "#12345678901234", "#-12", ""})
    EXPECT_EQ(sp_ConvertHTMLcolourToRGB(none), 0) << none;
}

TEST(Graphics, ADrawingIsDrawnAtItsSizeWhateverItsFileIsCalled) {
  QTemporaryDir folder;
  for (const char* name : {"half.svg", "half.png"}) {
    QFile file(folder.filePath(QString::fromLatin1(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"4\" height=\"4\">"
               "<path d=\"M0 0h2v4h-2z\" fill=\"#ff0000\"/></svg>");
    file.close();
    QPixmap picture;
    ASSERT_TRUE(sp_GetPixmap(file.fileName(), &picture, 24)) << name;
    const QImage image = picture.toImage();
    ASSERT_GE(image.width(), 16) << name;
    // What is enlarged has an edge that is neither red nor nothing.
    for (int x = 0; x < image.width(); ++x)
      EXPECT_TRUE(image.pixelColor(x, 8).alpha() % 255 == 0) << name << ' ' << x;
  }
}

TEST_F(FontTest, TheOptionOfThatVeryNameComesFirst) {
  EXPECT_EQ(sp_GetFontSpec("Mine"), "");
  EXPECT_NE(sp_GetFontSpec("Fixed"), "");
  sp_WriteOption("FontMine", "9;0;0;0;0;0;Short");
  EXPECT_EQ(sp_GetFontSpec("Mine"), "9;0;0;0;0;0;Short");
  EXPECT_EQ(sp_GetFontSpec("FontMine"), "9;0;0;0;0;0;Short");
  sp_WriteOption("Mine", "-12;0;0;0;0;0;Full");
  EXPECT_EQ(sp_GetFontSpec("Mine"), "-12;0;0;0;0;0;Full");
  sp_WriteOption("Mine", "no font");
  EXPECT_EQ(sp_GetFontSpec("Mine"), "9;0;0;0;0;0;Short");
}
