#include "Chance.h"
#include "Changes.h"
#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/WidgetFinder.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QClipboard>
#include <QColorDialog>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>

#include <algorithm>

// A user without a plan in every dialog: random acts, boxes that come taken or left, and at the end
// the dialog accepted as often as cancelled. Nothing may crash, hang, warn or trip a sanitizer.
// KV_SEED repeats a run, KV_MONKEY_ACTS says how many acts each dialog gets, KV_MONKEY_LOG=1 names
// each act before it is done.

namespace {

constexpr int usualActs = 120;
constexpr int actsInBox = 5;
constexpr int deepestBox = 3;
// Some ask again as long as the answer is none that they can take.
constexpr int boxesOfAct = 40;

int actsPerDialog() {
  const int given = qEnvironmentVariableIntValue("KV_MONKEY_ACTS");
  return given > 0 ? given : usualActs;
}

QString randomText(Chance& chance) {
  static const char* const texts[] = {"0",
                                      "1",
                                      "-1",
                                      "4.7k",
                                      "2Meg",
                                      "1e400",
                                      "1e-400",
                                      "nan",
                                      "inf",
                                      "{2*R}",
                                      "{",
                                      "x",
                                      "",
                                      " ",
                                      "a b",
                                      "1,5",
                                      "10 k",
                                      "4k7",
                                      "&Ok",
                                      "<b>x</b>",
                                      "%1%s%n",
                                      "a|b|c",
                                      "a;b;c",
                                      "0\t1\t2",
                                      "1\n2\n3",
                                      "\"q\" 'q'",
                                      "\\",
                                      "0x7F",
                                      "1.#IND",
                                      "999999999",
                                      "-2147483649",
                                      "µΩ – 電圧",
                                      "e\xcc\x81",
                                      "\xe2\x80\xae"
                                      "abc"};
  switch (chance.below(12)) {
  case 0:
    return QString(chance.below(2000), QLatin1Char(char('0' + chance.below(60))));
  case 1: { // a block of cells
    QString block;
    for (int i = chance.below(60); i > 0; --i)
      block += QString::fromUtf8(chance.of(texts)) + QLatin1Char(chance.one(3) ? '\n' : '\t');
    return block;
  }
  case 2: { // anything but line breaks, surrogates without a partner among it
    QString text;
    for (int i = chance.below(20); i > 0; --i)
      text += QChar(ushort(32 + chance.below(65504)));
    return text;
  }
  default:
    return QString::fromUtf8(chance.of(texts));
  }
}

QWidgetList usableWidgets(const DialogActions& dialog) {
  QWidgetList usable;
  for (QWidget* widget : WidgetFinder(dialog.dialog()).widgets())
    if (widget->isVisible() && widget->isEnabled())
      usable.append(widget);
  return usable;
}

QWidget* anyOf(const QWidgetList& widgets, Chance& chance) {
  return widgets.isEmpty() ? nullptr : widgets[chance.below(widgets.size())];
}

/// What ends the dialog is used now and then only, or there would be few acts in each.
bool isExit(const QWidget* widget) {
  static const QStringList exits{QStringLiteral("okButton"), QStringLiteral("cancelButton"),
                                 QStringLiteral("closeButton")};
  return exits.contains(widget->objectName());
}

QString nameIn(const DialogActions& dialog, QWidget* widget) {
  return WidgetFinder(dialog.dialog()).nameOf(widget);
}

/// Qt's own are taken or left, and that is all: one can delete files, another picks from the
/// screen.
bool isQts(const QWidget* dialog) {
  return qobject_cast<const QFileDialog*>(dialog) || qobject_cast<const QColorDialog*>(dialog) ||
         qobject_cast<const QMessageBox*>(dialog);
}

// ---- acts ---------------------------------------------------------------------------------------

QString anyKey(Chance& chance) {
  static const char* const keys[] = {
      "Tab",        "Shift+Tab", "Up",         "Down",        "Left",     "Right",     "PgUp",
      "PgDown",     "Home",      "End",        "Space",       "Return",   "F1",        "F2",
      "F4",         "Del",       "Backspace",  "Ins",         "Ctrl+A",   "Ctrl+C",    "Ctrl+V",
      "Ctrl+X",     "Ctrl+Z",    "Ctrl+Y",     "Alt+Down",    "Ctrl+Tab", "Ctrl+Home", "Ctrl+End",
      "Shift+Down", "Shift+End", "Ctrl+Space", "Ctrl+Return", "*",        "-",         "+",
      "a",          "7",         "."};
  return QString::fromLatin1(chance.of(keys));
}

void pressKey(DialogActions& dialog, Chance& chance) {
  QWidget* widget = chance.one(3) ? anyOf(usableWidgets(dialog), chance) : nullptr;
  dialog.key(widget ? nameIn(dialog, widget) : QString(),
             chance.one(40) ? QStringLiteral("Escape") : anyKey(chance));
}

void typeText(DialogActions& dialog, Chance& chance) {
  if (QWidget* widget = anyOf(usableWidgets(dialog), chance))
    dialog.type(nameIn(dialog, widget), randomText(chance));
}

void click(DialogActions& dialog, Chance& chance) {
  QWidget* widget = anyOf(usableWidgets(dialog), chance);
  if (!widget || (isExit(widget) && !chance.one(20)))
    return;
  const QPoint point(chance.below(widget->width()), chance.below(widget->height()));
  static const Qt::KeyboardModifiers held[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                               Qt::ControlModifier};
  InputPlayer::clickAt(widget, QRect(point, QSize(1, 1)), chance.one(4), chance.of(held));
}

void setValue(DialogActions& dialog, Chance& chance) {
  QWidget* widget = anyOf(usableWidgets(dialog), chance);
  if (widget)
    dialog.set(nameIn(dialog, widget), chance.one(3)   ? QVariant(chance.one(2))
                                       : chance.one(2) ? QVariant(chance.below(8))
                                                       : QVariant(randomText(chance)));
}

void editCell(DialogActions& dialog, Chance& chance) {
  QWidgetList views = usableWidgets(dialog);
  views.erase(std::remove_if(views.begin(), views.end(),
                             [](QWidget* w) { return !qobject_cast<QAbstractItemView*>(w); }),
              views.end());
  QWidget* view = anyOf(views, chance);
  if (!view)
    return;
  const QString name = nameIn(dialog, view);
  const int row = chance.below(dialog.rows(name));
  const int column = chance.below(dialog.columns(name));
  switch (chance.below(4)) {
  case 0:
    dialog.setCurrent(name, row, column);
    break;
  case 1:
    dialog.doubleClick(name, row, column); // an editor that stays open
    break;
  default:
    dialog.setCell(name, row, column, randomText(chance));
  }
}

void paste(DialogActions& dialog, Chance& chance) {
  QGuiApplication::clipboard()->setText(randomText(chance));
  dialog.key(QString(), QStringLiteral("Ctrl+V"));
}

void drop(DialogActions& dialog, Chance& chance) {
  QWidgetList targets;
  for (QWidget* widget : dialog.dialog()->findChildren<QWidget*>())
    if (widget->isVisible() && widget->isEnabled() && widget->acceptDrops())
      targets.append(widget);
  const QPointer<QWidget> target = anyOf(targets, chance);
  if (!target)
    return;
  QMimeData data;
  data.setText(randomText(chance));
  if (chance.one(2))
    data.setUrls({QUrl::fromLocalFile(QDir::currentPath()), QUrl(randomText(chance))});
  const QPoint point(chance.below(target->width()), chance.below(target->height()));
  const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &enter);
  if (!enter.isAccepted() || !target)
    return;
  QDragMoveEvent move(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(target, &move);
  if (target && move.isAccepted()) {
    QDropEvent event(point, actions, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
  } else if (target) {
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(target, &leave);
  }
}

void resize(DialogActions& dialog, Chance& chance) {
  dialog.dialog()->resize(chance.below(1600), chance.below(1200));
}

void turnPage(DialogActions& dialog, Chance& chance) {
  const int count = dialog.tabs().size();
  if (count > 0)
    dialog.setTab(chance.below(count));
}

void openContextMenu(DialogActions& dialog, Chance& chance) {
  QWidget* widget = anyOf(usableWidgets(dialog), chance);
  if (!widget)
    return;
  const QPoint point = widget->rect().center();
  QContextMenuEvent event(QContextMenuEvent::Mouse, point, widget->mapToGlobal(point));
  QCoreApplication::sendEvent(widget, &event);
  if (chance.one(3))
    InputPlayer::closePopups();
}

struct Act {
  const char* name;
  int share;
  void (*make)(DialogActions& dialog, Chance& chance);
};

constexpr Act acts[] = {
    {"key", 6, pressKey},  {"text", 4, typeText},
    {"click", 6, click},   {"value", 4, setValue},
    {"cell", 4, editCell}, {"paste", 2, paste},
    {"drop", 1, drop},     {"resize", 1, resize},
    {"page", 1, turnPage}, {"menu", 1, openContextMenu},
};

const Act& anyAct(Chance& chance) {
  int sum = 0;
  for (const Act& act : acts)
    sum += act.share;
  int left = chance.below(sum);
  const Act* act = acts;
  while (left >= act->share)
    left -= (act++)->share;
  return *act;
}

// ---- the monkey ---------------------------------------------------------------------------------

class Monkey {
public:
  explicit Monkey(unsigned seed) : m_chance(seed) {}

  /// Acts until there are `budget` acts less or the dialog is closed, and then closes it.
  void play(DialogActions& dialog, int* budget);
  struct Count {
    int accepted = 0;
    int cancelled = 0;
    int boxes = 0;   ///< that came from an act
    int acts = 0;    ///< that were done
    int refused = 0; ///< that no user could have done
  };
  const Count& count() const { return m_count; }

private:
  void act(DialogActions& dialog);
  void playInBox(DialogActions& box);
  void leave(DialogActions& dialog);

  Chance m_chance;
  Count m_count;
  int m_depth = 0;
};

void Monkey::play(DialogActions& dialog, int* budget) {
  const QPointer<QDialog> watched = qobject_cast<QDialog*>(dialog.dialog());
  while (*budget > 0 && dialog.isOpen()) {
    --*budget;
    act(dialog);
  }
  leave(dialog);
  if (watched && m_depth == 0)
    ++(watched->result() == QDialog::Accepted ? m_count.accepted : m_count.cancelled);
}

void Monkey::act(DialogActions& dialog) {
  static const bool isLogged = qEnvironmentVariableIsSet("KV_MONKEY_LOG");
  const Act& act = anyAct(m_chance);
  if (isLogged)
    std::fprintf(stderr, "%*s%s: %s\n", 2 * m_depth, "", qPrintable(dialog.name()), act.name);
  bool isDone = false;
  servingDialogs([this](DialogActions& box) { playInBox(box); },
                 [&] {
                   act.make(dialog, m_chance);
                   isDone = true;
                   InputPlayer::settle();
                 },
                 boxesOfAct);
  ++(isDone ? m_count.acts : m_count.refused);
}

void Monkey::playInBox(DialogActions& box) {
  ++m_depth;
  ++m_count.boxes;
  if (!isQts(box.dialog()) && m_depth < deepestBox) {
    int budget = actsInBox;
    play(box, &budget);
  } else {
    leave(box);
  }
  --m_depth;
}

void Monkey::leave(DialogActions& dialog) {
  if (dialog.isOpen() && m_chance.one(2))
    servingDialogs([](DialogActions& box) { box.reject(); },
                   [&] {
                     InputPlayer::closePopups();
                     if (!qobject_cast<QFileDialog*>(dialog.dialog()))
                       dialog.accept();
                   });
  if (dialog.isOpen())
    servingDialogs([](DialogActions& box) { box.reject(); },
                   [&] {
                     InputPlayer::closePopups();
                     m_chance.one(2) ? dialog.reject() : dialog.close();
                   });
}

class MonkeyTest : public testing::TestWithParam<std::string> {
protected:
  static void SetUpTestSuite() { s_seed = testSeed(); }
  static void TearDownTestSuite() {
    std::printf("%d acts, %d refused, %d boxes; accepted %d times, cancelled %d times\n",
                s_all.acts, s_all.refused, s_all.boxes, s_all.accepted, s_all.cancelled);
    if (testing::UnitTest::GetInstance()->test_to_run_count() < dialogsToCount)
      return; // a few are too few to be even
    EXPECT_GT(s_all.acts, 2 * s_all.refused);
    EXPECT_GT(s_all.boxes, 0);
    EXPECT_GT(s_all.accepted, s_all.cancelled / 4);
    EXPECT_GT(s_all.cancelled, s_all.accepted / 4);
  }
  static void add(const Monkey::Count& count) {
    s_all.acts += count.acts;
    s_all.refused += count.refused;
    s_all.boxes += count.boxes;
    s_all.accepted += count.accepted;
    s_all.cancelled += count.cancelled;
  }

  static constexpr int dialogsToCount = 20;
  inline static unsigned s_seed = 0;
  inline static Monkey::Count s_all;
};

} // namespace

// Each dialog has chances of its own, so that a failure comes again without the dialogs before it.
TEST_P(MonkeyTest, FindsNothing) {
  const QString sample = QString::fromStdString(GetParam());
  TestHost& host = TestHost::instance();
  host.forgetSettings();
  host.takeWarnings();
  host.driver().clearFailures();
  Monkey monkey(s_seed ^ qHash(QFileInfo(sample).baseName()));
  int budget = actsPerDialog();
  while (budget > 0 && !HasFailure()) {
    const int before = budget--;
    host.runSample(sample, [&](DialogActions& dialog) { monkey.play(dialog, &budget); });
    ASSERT_LT(budget, before);
    EXPECT_TRUE(host.driver().openDialogs().isEmpty());
    EXPECT_EQ(host.takeWarnings().join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_EQ(host.driver().failures().join(QLatin1Char('\n')).toStdString(), "");
  }
  add(monkey.count());
}

namespace {

std::vector<std::string> samples() {
  std::vector<std::string> files;
  for (const QString& file : TestHost::sampleFiles())
    files.push_back(file.toStdString());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Samples, MonkeyTest, testing::ValuesIn(samples()), [](const auto& test) {
  return QFileInfo(QString::fromStdString(test.param)).baseName().toStdString();
});

} // namespace
