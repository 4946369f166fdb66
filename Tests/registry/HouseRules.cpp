#include "AccessibleRules.h"
#include "Changes.h"
#include "Drive/DriveError.h"
#include "Drive/InputPlayer.h"
#include "Drive/WidgetFinder.h"
#include "TestHost.h"

#include "Paths.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QFontDialog>
#include <QGroupBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QTabBar>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#include <set>
#include <typeinfo>

// What every dialog of the module has to be, whoever wrote it. The rules run over all samples, so a
// dialog that is added is held to them by itself.

// What Qt Test plays its events with; a key that is held down comes only this way.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool autoRepeat, ushort count);
QT_END_NAMESPACE

namespace {

// What fits the smallest laptop screen that the product is used on, at 96 dpi.
const QSize smallestScreen(1366, 768);

/// Whether the widget is what a user meets, and not an inner part of one.
bool isInnerPart(const QWidget* widget) {
  const QWidget* parent = widget->parentWidget();
  return widget->objectName().startsWith(QLatin1String("qt_")) || !parent ||
         parent->inherits("Spinner") || parent->inherits("QAbstractSpinBox") ||
         parent->inherits("QComboBox") || qobject_cast<const QTabBar*>(widget);
}

QList<QWidget*> shownWidgets(const QWidget* dialog) {
  QList<QWidget*> shown;
  for (QWidget* widget : dialog->findChildren<QWidget*>())
    if (widget->isVisible() && !isInnerPart(widget))
      shown.append(widget);
  return shown;
}

std::string nameOf(const QWidget* widget) {
  return (QString::fromLatin1(widget->metaObject()->className()) + QLatin1Char(' ') +
          widget->objectName())
      .toStdString();
}

QChar mnemonicOf(const QString& text) {
  const int length = text.size();
  for (int i = 0; i + 1 < length; ++i) {
    if (text[i] != QLatin1Char('&'))
      continue;
    if (text[i + 1] != QLatin1Char('&'))
      return text[i + 1].toLower();
    ++i;
  }
  return {};
}

QString captionOf(const QWidget* widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    return button->text();
  if (const auto* box = qobject_cast<const QGroupBox*>(widget))
    return box->title();
  const auto* label = qobject_cast<const QLabel*>(widget);
  return label && label->buddy() ? label->text() : QString();
}

/// The composite that a focus widget belongs to.
QWidget* composite(QWidget* widget) {
  while (widget && isInnerPart(widget) && widget->parentWidget())
    widget = widget->parentWidget();
  return widget;
}

/// Two groups of this one have had the same mnemonic for so long that users know it.
bool hasGivenCaptions(const QWidget* dialog) {
  return dialog->objectName() == QLatin1String("DefineDACDialog");
}

void expectMnemonics(const QWidget* dialog) {
  std::set<QChar> seen;
  for (QWidget* widget : shownWidgets(dialog)) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    EXPECT_TRUE(!label || label->buddy() || mnemonicOf(label->text()).isNull())
        << nameOf(widget) << " has a mnemonic and no buddy";
    const QChar mnemonic = mnemonicOf(captionOf(widget));
    EXPECT_TRUE(mnemonic.isNull() || seen.insert(mnemonic).second || hasGivenCaptions(dialog))
        << nameOf(widget) << " shares its mnemonic";
  }
}

/// Whether `to` stands wholly above `from`, and not in a column further right. Compared are the
/// outermost containers that the two do not share: a box of fields is read before what is below it.
bool readsBackwards(const QWidget* from, const QWidget* to) {
  const QWidget* before = from;
  const QWidget* after = to;
  while (before->parentWidget() && !before->parentWidget()->isAncestorOf(to))
    before = before->parentWidget();
  while (after->parentWidget() && !after->parentWidget()->isAncestorOf(from))
    after = after->parentWidget();
  if (before->parentWidget() != after->parentWidget())
    return false;
  return after->geometry().bottom() < before->geometry().top() &&
         after->geometry().left() < before->geometry().right();
}

/// Moves the widget that is read first to the front; the others follow as they did.
void startAtTheTop(std::vector<QWidget*>* cycle) {
  std::rotate(cycle->begin(),
              std::min_element(cycle->begin(), cycle->end(),
                               [](const QWidget* a, const QWidget* b) {
                                 const QPoint first = a->mapToGlobal({});
                                 const QPoint second = b->mapToGlobal({});
                                 return std::pair(first.y(), first.x()) <
                                        std::pair(second.y(), second.x());
                               }),
              cycle->end());
}

void expectTabCycle(DialogActions& actions) {
  QWidget* dialog = actions.dialog();
  std::set<QWidget*> wanted;
  for (QWidget* widget : shownWidgets(dialog))
    if (widget->isEnabled() && (widget->focusPolicy() & Qt::TabFocus) &&
        !qobject_cast<QAbstractScrollArea*>(widget->parentWidget()) &&
        // Of exclusive buttons, Tab visits the checked one only.
        !(qobject_cast<QAbstractButton*>(widget) &&
          static_cast<QAbstractButton*>(widget)->autoExclusive() &&
          !static_cast<QAbstractButton*>(widget)->isChecked()))
      wanted.insert(widget);
  ASSERT_FALSE(wanted.empty());

  QWidget* const first = composite(dialog->focusWidget());
  ASSERT_TRUE(first) << "nothing has the focus on opening";
  std::vector<QWidget*> cycle{first};
  bool back = false;
  while (!back && cycle.size() < 4 * wanted.size() + 8) {
    actions.key(QString(), QStringLiteral("Tab"));
    QWidget* next = composite(dialog->focusWidget());
    ASSERT_TRUE(next && next != cycle.back()) << nameOf(cycle.back()) << " swallows Tab";
    back = next == first;
    if (!back)
      cycle.push_back(next);
  }
  EXPECT_TRUE(back) << "Tab does not come back to " << nameOf(first);
  for (QWidget* widget : wanted)
    EXPECT_TRUE(std::count(cycle.begin(), cycle.end(), widget))
        << "Tab does not reach " << nameOf(widget);
  startAtTheTop(&cycle);
  for (std::size_t i = 1; i < cycle.size(); ++i)
    EXPECT_FALSE(readsBackwards(cycle[i - 1], cycle[i]))
        << nameOf(cycle[i - 1]) << " leads back up to " << nameOf(cycle[i]);
}

void expectButtons(const QWidget* dialog) {
  bool hasDefault = false;
  for (const QPushButton* button : dialog->findChildren<QPushButton*>())
    hasDefault |= button->isVisible() && button->isDefault();
  EXPECT_TRUE(hasDefault) << "no default button";
}

/// Whether the user sees all of the widget, or can scroll to it.
bool isWhollySeen(const QWidget* widget) {
  bool isInside = true;
  for (const QWidget* in = widget->parentWidget(); in; in = in->parentWidget()) {
    if (qobject_cast<const QAbstractScrollArea*>(in))
      return true;
    isInside &= in->rect().contains(QRect(widget->mapTo(in, {}), widget->size()));
    if (in->isWindow())
      break;
  }
  return isInside;
}

void expectNothingClipped(const QWidget* dialog) {
  EXPECT_LE(dialog->frameGeometry().width(), smallestScreen.width());
  EXPECT_LE(dialog->frameGeometry().height(), smallestScreen.height());
  for (const QWidget* widget : shownWidgets(dialog)) {
    // What scrolls makes do with less, and so do its own parts.
    if (qobject_cast<const QAbstractScrollArea*>(widget) ||
        qobject_cast<const QAbstractScrollArea*>(widget->parentWidget())) {
      EXPECT_TRUE(isWhollySeen(widget)) << nameOf(widget) << " is cut off";
      continue;
    }
    const bool wraps = qobject_cast<const QLabel*>(widget) && widget->property("wordWrap").toBool();
    const QSize wanted =
        wraps ? QSize(0, widget->heightForWidth(widget->width())) : widget->minimumSizeHint();
    EXPECT_TRUE(widget->width() >= wanted.width() && widget->height() >= wanted.height() &&
                isWhollySeen(widget))
        << nameOf(widget) << " is clipped";
  }
}

/// A picture that a text names and nobody has is a question mark in the middle of it.
void expectPictures(const QWidget* dialog) {
  static const QRegularExpression image(QStringLiteral("<img\\s[^>]*src=[\"']?([^\"'>\\s]+)"));
  for (const QLabel* label : dialog->findChildren<QLabel*>())
    for (const QString& text : {label->text(), label->property("info").toString()})
      for (auto found = image.globalMatch(text); found.hasNext();) {
        const QString picture = found.next().captured(1);
        EXPECT_FALSE(QPixmap(picture).isNull()) << nameOf(label) << ": " << picture.toStdString();
      }
}

/// What a field holds shows in its name. In a field of the 1-2-5 series the increment is the first
/// step away from 0; where nothing else is said, that step is 1, and so are those of a count.
void expectSteps(const QWidget* dialog) {
  static const QRegularExpression time(
      QStringLiteral("\\b(time|delay|rise|fall|width|period|start|end|hold|setup|shift)\\b|^at$|"
                     "minimum clock"),
      QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression capacitance(QStringLiteral("capacitance"),
                                              QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression count(
      QStringLiteral("#|\\b(number of|(?<!step )size|bits|count|cycles|inputs|segments?)\\b"),
      QRegularExpression::CaseInsensitiveOption);
  // What a script asks for by itself is the script's, name and steps.
  if (dialog->inherits("NewValueDialog"))
    return;
  for (QWidget* widget : dialog->findChildren<QWidget*>()) {
    if (!widget->inherits("Spinner"))
      continue;
    const QString name = QAccessible::queryAccessibleInterface(widget)
                             ->text(QAccessible::Name)
                             .remove(QLatin1Char('&'));
    const bool isSeries = widget->property("step125").toBool();
    const double increment = widget->property("increment").toDouble();
    SCOPED_TRACE(nameOf(widget) + " \"" + name.toStdString() + "\"");
    if (count.match(name).hasMatch()) {
      EXPECT_FALSE(isSeries);
      EXPECT_EQ(increment, 1);
    } else if (isSeries) {
      EXPECT_EQ(increment, capacitance.match(name).hasMatch() ? 1e-12
                           : time.match(name).hasMatch()      ? 1e-9
                                                              : 1);
    }
  }
}

/// A class without a meta-object goes by the name of its base, and no text of it can be translated.
void expectOwnClassName(const QWidget* dialog) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(*dialog).name(), nullptr, nullptr, &status), &std::free);
  ASSERT_EQ(status, 0);
  EXPECT_STREQ(dialog->metaObject()->className(), name.get());
}

/// By its button; by Escape where it has none.
void pressCancel(DialogActions& dialog) {
  const QString cancel = QStringLiteral("cancelButton");
  if (dialog.has(cancel) && dialog.visible(cancel))
    dialog.click(cancel);
  else
    dialog.reject();
}

bool canBeCancelled(const DialogActions& dialog) {
  const QString cancel = QStringLiteral("cancelButton");
  const auto* box = dialog.dialog()->findChild<QDialogButtonBox*>();
  return (dialog.has(cancel) && dialog.visible(cancel)) ||
         (box && box->button(QDialogButtonBox::Cancel));
}

bool isAsQtMadeIt(const QWidget* dialog) {
  return dialog->metaObject()->className()[0] == 'Q' && !qobject_cast<const QMessageBox*>(dialog);
}

/// Uses the openers of this name and leaves the boxes that come by Escape, after changes on demand.
/// Returns how many could be cancelled.
int cancelBoxesOf(DialogActions& dialog, const std::string& name, bool change) {
  int boxes = 0;
  QString before;
  const auto cancel = [&](DialogActions& opened) {
    boxes += canBeCancelled(opened);
    if (!isAsQtMadeIt(opened.dialog()))
      expectReadable(opened.dialog());
    if (change)
      changeFields(opened);
    opened.reject();
  };
  onEveryPage(dialog, [&](const std::string&) {
    for (const Opener& opener : openers(dialog)) {
      if (opener.name != name)
        continue;
      opener.prepare(dialog);
      before = stateOf(dialog.dialog());
      servingDialogs(cancel, [&] { opener.use(dialog); });
      EXPECT_TRUE(boxes == 0 || stateOf(dialog.dialog()) == before)
          << "what was cancelled can be seen";
    }
  });
  return boxes;
}

/// Qt's own chooser, and the dialogs that have to open the same, or as small as may be, each time.
bool forgets(const QWidget* dialog) {
  return qobject_cast<const QFontDialog*>(dialog) ||
         dialog->objectName() == QLatin1String("EditPinDialog") ||
         dialog->objectName() == QLatin1String("DefineLaplaceDialog");
}

/// One way to type that leaves the focus, or the cell, where it was typed.
struct Typing {
  QString widget;
  void (*type)(DialogActions& dialog, const QString& widget);
};

void typeInField(DialogActions& dialog, const QString& widget) {
  dialog.type(widget, QStringLiteral("7"));
}

void typeInCell(DialogActions& dialog, const QString& widget) {
  dialog.key(widget, QStringLiteral("F2"));
  for (const char* key : {"Ctrl+A", "7"})
    dialog.key(QString(), QString::fromLatin1(key));
}

/// One for each class of widget on the page in front that takes a line of text.
std::vector<Typing> waysToType(DialogActions& dialog) {
  std::vector<Typing> ways;
  std::set<QByteArray> classes;
  const WidgetFinder finder(dialog.dialog());
  for (QWidget* widget : finder.widgets()) {
    const auto* view = qobject_cast<const QAbstractItemView*>(widget);
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    const bool isEdit = qobject_cast<const QLineEdit*>(widget) || widget->inherits("Spinner") ||
                        (combo && combo->isEditable());
    const bool hasCell = view && (view->currentIndex().flags() & Qt::ItemIsEditable) &&
                         (view->editTriggers() & QAbstractItemView::EditKeyPressed);
    if ((isEdit || hasCell) && widget->isVisible() && widget->isEnabled() &&
        !widget->property("readOnly").toBool() &&
        classes.insert(widget->metaObject()->className()).second)
      ways.push_back({finder.nameOf(widget), isEdit ? typeInField : typeInCell});
  }
  return ways;
}

QString keyOfOk(DialogActions& dialog) {
  const QString ok = QStringLiteral("okButton");
  const QString key = dialog.has(ok) ? QString(mnemonicOf(dialog.text(ok))) : QString();
  return key.isEmpty() ? QStringLiteral("Return") : QStringLiteral("Alt+") + key;
}

/// What a keyboard goes on to send while Return is held down.
void repeatReturn(const QPointer<QWidget>& window) {
  for (int i = 0; i < 4 && window && window->isVisible(); ++i) {
    qt_handleKeyEvent(window->windowHandle(), QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier,
                      QStringLiteral("\r"), true, 1);
    InputPlayer::settle();
  }
}

class HouseRules : public testing::TestWithParam<std::string> {
protected:
  QString sample() const { return QString::fromStdString(GetParam()); }
  TestHost& host() { return TestHost::instance(); }

  void SetUp() override {
    host().forgetSettings();
    host().takeWarnings();
    host().driver().clearFailures();
  }
  void TearDown() override {
    EXPECT_EQ(host().takeWarnings().join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_EQ(host().driver().failures().join(QLatin1Char('\n')).toStdString(), "");
  }

  std::string resultOf(const std::function<void(DialogActions&)>& act) {
    bool opened = false;
    const ScriptEngine::Outcome outcome = host().runSample(sample(), [&](DialogActions& dialog) {
      opened = true;
      act(dialog);
    });
    EXPECT_TRUE(outcome.ok) << outcome.error.toStdString();
    EXPECT_TRUE(opened) << "no dialog opened";
    return host().engine().toJson(outcome.value).toStdString();
  }

  std::set<std::string> openerNames() {
    std::set<std::string> names;
    resultOf([&](DialogActions& dialog) {
      onEveryPage(dialog, [&](const std::string&) {
        for (const Opener& opener : openers(dialog))
          names.insert(opener.name);
      });
      dialog.reject();
    });
    return names;
  }

  /// A rule that no dialog gave anything to check would always hold.
  static void TearDownTestSuite() {
    std::printf("OK took %d of %d texts\n", s_typed, s_typings);
    EXPECT_GE(s_typed, s_typings / 2);
    std::printf("Return opened %d boxes\n", s_held);
    std::printf("a reader changed none of %d widgets that were off\n", s_off);
  }

  inline static int s_typings = 0;
  inline static int s_typed = 0;
  inline static int s_held = 0;
  inline static int s_off = 0;
};

TEST_P(HouseRules, LooksAndReadsAsItShould) {
  resultOf([](DialogActions& actions) {
    if (isAsQtMadeIt(actions.dialog())) {
      actions.reject();
      return;
    }
    expectOwnClassName(actions.dialog());
    expectPictures(actions.dialog());
    expectSteps(actions.dialog());
    s_off += expectReadable(actions.dialog());
    EXPECT_TRUE(actions.dialog()->focusWidget()) << "nothing has the focus on opening";
    onEveryPage(actions, [&](const std::string& page) {
      SCOPED_TRACE(page);
      expectNothingClipped(actions.dialog());
      expectNames(actions.dialog());
      expectMnemonics(actions.dialog());
      expectButtons(actions.dialog());
      expectTabCycle(actions);
    });
    changeFields(actions);
    s_off += expectReadable(actions.dialog());
    onEveryPage(actions, [&](const std::string& page) {
      SCOPED_TRACE(page + ", changed");
      expectNothingClipped(actions.dialog());
      expectNames(actions.dialog());
      expectMnemonics(actions.dialog());
    });
    actions.reject();
  });
}

TEST_P(HouseRules, CancelLeavesEverythingAsItWas) {
  QGuiApplication::clipboard()->setText(QStringLiteral("before"));
  const std::string cancelled = resultOf([](DialogActions& dialog) { dialog.reject(); });
  const std::string before = host().traces().toStdString();

  const struct {
    const char* name;
    void (*leave)(DialogActions& dialog);
  } waysOut[] = {{"Escape", [](DialogActions& dialog) { dialog.reject(); }},
                 {"the window's button", [](DialogActions& dialog) { dialog.close(); }},
                 {"Cancel", pressCancel}};
  int variant = 0;
  for (const auto& way : waysOut) {
    SCOPED_TRACE(way.name);
    Changes changed;
    int used = 0;
    const std::string result = resultOf([&](DialogActions& dialog) {
      changed = changeFields(dialog, variant++);
      used = useOpeners(dialog);
      way.leave(dialog);
    });
    std::printf("%s, left by %s: changed %s, by buttons %d\n",
                qPrintable(QFileInfo(sample()).baseName()), way.name, changed.words().c_str(),
                used);
    EXPECT_EQ(changed.missed(), "") << "could be changed nowhere";
    EXPECT_EQ(result, cancelled);
    EXPECT_EQ(host().traces().toStdString(), before);
  }
}

// A box over a dialog is cancelled as the dialog is: nothing of what was changed in it is to be
// seen, and nothing is in what OK gives back.
TEST_P(HouseRules, ACancelledBoxLeavesNoTrace) {
  int boxes = 0;
  for (const std::string& name : openerNames()) {
    SCOPED_TRACE(name);
    const auto resultAfter = [&](bool change) {
      return resultOf([&](DialogActions& dialog) {
        const int opened = cancelBoxesOf(dialog, name, change);
        boxes += change ? opened : 0;
        opened ? dialog.accept() : dialog.reject();
      });
    };
    EXPECT_EQ(resultAfter(true), resultAfter(false));
  }
  std::printf("%s: %d boxes cancelled\n", qPrintable(QFileInfo(sample()).baseName()), boxes);
}

// Where the user left it, and as big as they made it.
TEST_P(HouseRules, RemembersItsGeometry) {
  bool remembers = true;
  QRect left;
  resultOf([&](DialogActions& actions) {
    QWidget* dialog = actions.dialog();
    remembers = !forgets(dialog);
    const QSize most = dialog->screen()->availableSize();
    dialog->move(11, 13);
    dialog->resize((dialog->size() + QSize(37, 28)).boundedTo(most));
    InputPlayer::settle();
    left = dialog->geometry();
    actions.reject();
  });
  resultOf([&](DialogActions& actions) {
    EXPECT_EQ(actions.dialog()->geometry() == left, remembers) << nameOf(actions.dialog());
    actions.reject();
  });
}

// A box that Return has opened may be closed by the Return that is still held; it does not open
// again.
TEST_P(HouseRules, AHeldReturnOpensOneBox) {
  for (const std::string& name : openerNames()) {
    SCOPED_TRACE(name);
    int boxes = 0;
    const auto hold = [&](DialogActions& opened) {
      boxes += !qobject_cast<QMessageBox*>(opened.dialog());
      repeatReturn(opened.dialog());
      if (opened.isOpen())
        opened.reject();
    };
    resultOf([&](DialogActions& dialog) {
      for (const Opener& opener : openers(dialog))
        if (opener.name == name && dialog.isOpen())
          servingDialogs(hold, [&] {
            opener.prepare(dialog);
            dialog.key(opener.widget, QStringLiteral("Return"));
            repeatReturn(dialog.dialog());
          });
      if (dialog.isOpen())
        dialog.reject();
    });
    EXPECT_LE(boxes, 1);
    s_held += boxes;
  }
}

// What is being typed when OK is called by its key counts like what was typed and left.
TEST_P(HouseRules, OkTakesWhatIsBeingTyped) {
  std::vector<Typing> typings;
  QString okKey;
  const std::string untouched = resultOf([&](DialogActions& dialog) {
    typings = waysToType(dialog);
    okKey = keyOfOk(dialog);
    TestHost::accept(sample(), dialog);
  });
  for (const Typing& typing : typings) {
    SCOPED_TRACE(typing.widget.toStdString());
    const auto resultWith = [&](const QStringList& keys) {
      return resultOf([&](DialogActions& dialog) {
        const auto reject = [](DialogActions& opened) { opened.reject(); };
        typing.type(dialog, typing.widget);
        servingDialogs(reject, [&] {
          for (const QString& key : keys)
            dialog.key(QString(), key);
        });
        if (dialog.isOpen())
          dialog.reject();
      });
    };
    const std::string left = resultWith({QStringLiteral("Tab"), okKey});
    EXPECT_EQ(resultWith({okKey}), left);
    ++s_typings;
    s_typed += left != untouched;
  }
}

TEST_P(HouseRules, ReturnInAnOpenCellIsForTheCell) {
  resultOf([](DialogActions& dialog) {
    for (const Typing& typing : waysToType(dialog)) {
      if (typing.type != typeInCell)
        continue;
      typing.type(dialog, typing.widget);
      dialog.key(QString(), QStringLiteral("Return"));
      ASSERT_TRUE(dialog.isOpen());
    }
    dialog.reject();
  });
}

TEST_P(HouseRules, SameInputSameResult) {
  const auto accept = [this](DialogActions& dialog) { TestHost::accept(sample(), dialog); };
  const std::string once = resultOf(accept);
  EXPECT_EQ(resultOf(accept), once);

  // "Reopens: N" in a sample says that the result can stand as argument N: it comes back unchanged.
  QFile file(sample());
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  const QRegularExpression mark(QStringLiteral("^// Reopens: (\\d+)$"),
                                QRegularExpression::MultilineOption);
  const QRegularExpressionMatch match = mark.match(text);
  if (!match.hasMatch())
    return;
  QString function;
  QJsonArray arguments;
  const auto connection = QObject::connect(
      &host().engine(), &ScriptEngine::called, [&](const QString& name, const QString& json) {
        function = name;
        arguments = QJsonDocument::fromJson(json.toUtf8()).array();
      });
  resultOf(accept);
  QObject::disconnect(connection);
  arguments[match.captured(1).toInt()] =
      QJsonDocument::fromJson(QByteArray::fromStdString(once)).array();
  QString list = QString::fromUtf8(QJsonDocument(arguments).toJson(QJsonDocument::Compact));
  list = list.mid(1, list.size() - 2);
  host().driver().beginScope();
  host().driver().onDialog([](QWidget* dialog) { DialogActions(dialog).accept(); });
  const ScriptEngine::Outcome again =
      host().engine().evaluate(QStringLiteral("%1(%2)").arg(function, list));
  host().driver().endScope();
  EXPECT_TRUE(again.ok) << again.error.toStdString();
  EXPECT_EQ(host().engine().toJson(again.value).toStdString(), once);
}

std::vector<std::string> samples() {
  std::vector<std::string> files;
  for (const QString& file : TestHost::sampleFiles())
    files.push_back(file.toStdString());
  return files;
}

INSTANTIATE_TEST_SUITE_P(Samples, HouseRules, testing::ValuesIn(samples()), [](const auto& test) {
  return QFileInfo(QString::fromStdString(test.param)).baseName().toStdString();
});

TEST(Registry, EveryFunctionHasASampleAndAHelpPage) {
  for (const FunctionInfo& function : TestHost::instance().table().functions()) {
    const QString sample =
        hostDataDir(QStringLiteral("samples")) + QStringLiteral("/calls/%1.js").arg(function.name);
    const QString page =
        hostDataDir(QStringLiteral("help")) + QStringLiteral("/%1.md").arg(function.name);
    EXPECT_TRUE(QFile::exists(sample)) << qPrintable(sample);
    EXPECT_TRUE(QFile::exists(page)) << qPrintable(page);
  }
}

} // namespace
