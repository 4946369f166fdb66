#include "Drive/InputPlayer.h"

#include "Drive/DriveError.h"
#include "Drive/WidgetFinder.h"
#include "HostWidgets/Label.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QGroupBox>
#include <QKeyEvent>
#include <QKeySequence>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollArea>
#include <QSet>
#include <QStyleOption>
#include <QTextEdit>
#include <QTimer>
#include <QWindow>

// What Qt Test plays its events with. It stands in every Qt 5 build, and comes in where the
// platform's own events do.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers modifiers,
                                      int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers modifiers, const QString& text,
                                    bool autoRepeat, ushort count);
QT_END_NAMESPACE

namespace InputPlayer {

namespace {

QWindow* windowOf(const QWidget* widget) {
  if (widget->internalWinId() && widget->windowHandle())
    return widget->windowHandle();
  const QWidget* native = widget->nativeParentWidget();
  return native ? native->windowHandle() : nullptr;
}

/// The part of a widget that reacts to a click.
QRect clickArea(const QWidget* widget) {
  const QStyle* style = widget->style();
  if (qobject_cast<const QCheckBox*>(widget) || qobject_cast<const QRadioButton*>(widget)) {
    QStyleOptionButton option;
    option.initFrom(widget);
    return style->subElementRect(qobject_cast<const QCheckBox*>(widget)
                                     ? QStyle::SE_CheckBoxIndicator
                                     : QStyle::SE_RadioButtonIndicator,
                                 &option, widget);
  }
  const auto* box = qobject_cast<const QGroupBox*>(widget);
  if (box && box->isCheckable()) {
    QStyleOptionGroupBox option;
    option.initFrom(box);
    option.text = box->title();
    option.textAlignment = Qt::Alignment(box->alignment());
    option.lineWidth = 1;
    option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxCheckBox;
    if (!box->title().isEmpty())
      option.subControls |= QStyle::SC_GroupBoxLabel;
    if (box->isFlat())
      option.features |= QStyleOptionFrame::Flat;
    return style->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxCheckBox, box);
  }
  return widget->rect();
}

void scrollIntoView(QWidget* widget) {
  bool scrolled = false;
  for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
    if (auto* area = qobject_cast<QScrollArea*>(parent)) {
      if (area->widget() && area->widget()->isAncestorOf(widget)) {
        area->ensureWidgetVisible(widget, 0, 0);
        scrolled = true;
      }
    }
  if (scrolled)
    settle();
}

bool hits(const QWidget* widget, const QPoint& point) {
  const QWidget* window = widget->window();
  const QPoint place = widget->mapTo(window, point);
  if (!window->rect().contains(place))
    return false;
  const QWidget* hit = window->childAt(place);
  return hit ? hit == widget || widget->isAncestorOf(hit) : widget == window;
}

/// A point of the area at which a click arrives at the widget: the middle if it can be.
QPoint reachablePoint(const QWidget* widget, const QRect& area) {
  const QPoint middle = area.center();
  if (hits(widget, middle))
    return middle;
  const QRect seen = area & widget->visibleRegion().boundingRect();
  constexpr int steps = 8;
  for (int y = 1; y < steps && !seen.isEmpty(); ++y)
    for (int x = 1; x < steps; ++x) {
      const QPoint point(seen.left() + seen.width() * x / steps,
                         seen.top() + seen.height() * y / steps);
      if (hits(widget, point))
        return point;
    }
  const QWidget* window = widget->window();
  const QWidget* cover = window->childAt(widget->mapTo(window, middle));
  throw DriveError(cover ? QStringLiteral("%1 cannot be clicked: %2 covers it")
                               .arg(describeWidget(widget), describeWidget(cover))
                         : QStringLiteral("%1 cannot be clicked: it is outside of its window")
                               .arg(describeWidget(widget)));
}

/// Milliseconds of the played mouse. Two clicks of their own must be further apart than a double
/// click's.
int mouseTime = 0;

void playMouse(const QPointer<QWindow>& window, const QPointF& local, QEvent::Type type,
               Qt::KeyboardModifiers modifiers) {
  if (!window)
    return;
  const bool isDown = type == QEvent::MouseButtonPress;
  qt_handleMouseEvent(
      window, local, window->mapToGlobal(local.toPoint()), isDown ? Qt::LeftButton : Qt::NoButton,
      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, type, modifiers, ++mouseTime);
}

QPointF inWindow(const QWidget* widget, const QPoint& point, const QWindow* window) {
  const QWidget* native = QWidget::find(window->winId());
  return widget->mapTo(native ? native : widget->window(), point);
}

/// The place of a widget at which the pointer becomes a hand: where it says that it can be clicked.
QRect findHand(QWidget* widget) {
  scrollIntoView(widget);
  const QPointer<QWindow> window(windowOf(widget));
  const int step = qMax(2, widget->fontMetrics().height() / 3);
  for (int y = step; window && y < widget->height(); y += step)
    for (int x = step / 2; x < widget->width(); x += step) {
      playMouse(window, inWindow(widget, QPoint(x, y), window), QEvent::MouseMove, Qt::NoModifier);
      if (widget->cursor().shape() == Qt::PointingHandCursor)
        return QRect(x, y, 1, 1);
    }
  return widget->rect();
}

/// The text that a keyboard sends along with a key.
QString textOfKey(int key, Qt::KeyboardModifiers modifiers) {
  switch (key) {
  case Qt::Key_Return:
  case Qt::Key_Enter:
    return QStringLiteral("\r");
  case Qt::Key_Tab:
  case Qt::Key_Backtab:
    return QStringLiteral("\t");
  case Qt::Key_Escape:
    return QStringLiteral("\x1b");
  case Qt::Key_Backspace:
    return QStringLiteral("\b");
  case Qt::Key_Delete:
    return QStringLiteral("\x7f");
  default:
    break;
  }
  if (key >= Qt::Key_Escape || key < Qt::Key_Space)
    return QString();
  const uint code = uint(key);
  if (modifiers & Qt::ControlModifier) // a control character, as for Ctrl+A
    return code >= 'A' && code <= 'Z' ? QString(QChar(code - 'A' + 1)) : QString();
  const uint shown = modifiers & Qt::ShiftModifier ? code : QChar::toLower(code);
  return QString::fromUcs4(&shown, 1);
}

void playKey(const QWidget* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  // a pop-up grabs the keyboard; not every platform does that for it
  const QWidget* popup = QApplication::activePopupWidget();
  const QPointer<QWindow> handle(windowOf(popup ? popup : window));
  if (!handle)
    throw DriveError(QStringLiteral("%1 has no window").arg(describeWidget(window)));
  qt_handleKeyEvent(handle, QEvent::KeyPress, key, modifiers, text, false, 1);
  if (handle)
    qt_handleKeyEvent(handle, QEvent::KeyRelease, key, modifiers, text, false, 1);
}

/// The buttons that are down now: a shortcut's button stays down for a moment, and clicks when it
/// comes up again.
QSet<const QAbstractButton*> buttonsDown(const QWidget* window) {
  QSet<const QAbstractButton*> found;
  const auto buttons = window->findChildren<QAbstractButton*>();
  for (const QAbstractButton* button : buttons)
    if (button->isDown() && button->isVisible())
      found.insert(button);
  return found;
}

bool isMultiLine(const QWidget* widget) {
  return qobject_cast<const QPlainTextEdit*>(widget) || qobject_cast<const QTextEdit*>(widget);
}

} // namespace

void settle() {
  // deletions that wait for an outer loop stay pending, so there has to be an end
  constexpr int mostRounds = 8;
  for (int round = 0; round < mostRounds; ++round) {
    QCoreApplication::processEvents();
    if (!QAbstractEventDispatcher::instance()->hasPendingEvents())
      break;
  }
}

bool waitFor(const std::function<bool()>& condition, int milliseconds) {
  const QDeadlineTimer deadline(milliseconds);
  QTimer wakeUp; // what is waited for need not come as an event
  wakeUp.start(10);
  while (!condition()) {
    if (deadline.hasExpired())
      return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return true;
}

bool isBlocked(const QWidget* window) {
  const QWidget* modal = QApplication::activeModalWidget();
  if (!modal || window->windowType() == Qt::Popup)
    return false;
  // a modal dialog blocks neither itself nor the windows that belong to it
  for (const QWidget* owner = window; owner; owner = owner->parentWidget())
    if (owner == modal)
      return false;
  return true;
}

void activate(QWidget* window) {
  if (window->windowType() == Qt::Popup || QApplication::activePopupWidget() ||
      QApplication::activeWindow() == window)
    return;
  const QPointer<QWidget> guard(window);
  // a window that the platform has not mapped yet cannot have the focus
  constexpr int longest = 1000;
  waitFor([&] { return !guard || !guard->windowHandle() || guard->windowHandle()->isExposed(); },
          longest);
  if (!guard)
    return;
  window->activateWindow();
  settle();
  // a platform that gives the activation to nobody by itself
  if (guard && guard->isVisible() && QApplication::activeWindow() != guard) {
    QApplication::setActiveWindow(guard);
    settle();
  }
}

void focus(QWidget* widget, Qt::FocusReason reason) {
  const QWidget* present = QApplication::focusWidget();
  if (present && (present == widget || widget->isAncestorOf(present)))
    return;
  if (const QWidget* popup = QApplication::activePopupWidget()) {
    for (const QWidget* owner = popup; owner; owner = owner->parentWidget())
      if (owner == widget) // a list or menu of its own: the keys are for that
        return;
    closePopups();
  }
  QWidget* target = widget;
  while (target->focusProxy())
    target = target->focusProxy();
  if (target->focusPolicy() == Qt::NoFocus) {
    const auto parts = target->findChildren<QWidget*>();
    for (QWidget* part : parts)
      if (part->focusPolicy() != Qt::NoFocus && part->isVisible() && part->isEnabled()) {
        target = part;
        break;
      }
  }
  if (target->focusPolicy() == Qt::NoFocus)
    throw DriveError(QStringLiteral("%1 takes no keys").arg(describeWidget(widget)));
  // What loses the focus finishes its text, which may take the target away.
  const QString description = describeWidget(widget);
  const QPointer<QWidget> guard(target);
  scrollIntoView(widget);
  target->setFocus(reason);
  settle();
  if (!guard)
    throw DriveError(QStringLiteral("%1 has gone as it took the focus").arg(description));
  if (!target->hasFocus() && !target->isAncestorOf(QApplication::focusWidget()))
    throw DriveError(QStringLiteral("%1 does not take the focus").arg(describeWidget(widget)));
}

void leave(QWidget* widget) {
  closePopups();
  const QPointer<QWidget> guard(widget);
  const auto isInside = [&guard] {
    const QWidget* present = QApplication::focusWidget();
    return guard && present && (present == guard || guard->isAncestorOf(present));
  };
  if (!isInside())
    return;
  const auto* plain = qobject_cast<QPlainTextEdit*>(widget);
  const auto* rich = qobject_cast<QTextEdit*>(widget);
  if (!(plain && !plain->tabChangesFocus()) && !(rich && !rich->tabChangesFocus()))
    pressKey(widget->window(), Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"));
  if (isInside()) // it keeps the key for itself, or there is nowhere to go
    QApplication::focusWidget()->clearFocus();
  settle();
}

void closePopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    const QPointer<QWidget> guard(popup);
    pressKey(popup, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
    if (guard && guard->isVisible())
      guard->hide();
  }
}

void click(QWidget* widget, bool twice) {
  const auto* label = qobject_cast<Label*>(widget);
  const bool hasMark = label && !label->info().isEmpty();
  clickAt(widget, hasMark ? findHand(widget) : clickArea(widget), twice);
}

void clickAt(QWidget* widget, const QRect& area, bool twice, Qt::KeyboardModifiers modifiers) {
  if (QApplication::activePopupWidget() && QApplication::activePopupWidget() != widget->window())
    closePopups(); // it would take the click for itself
  scrollIntoView(widget);
  const QPoint point = reachablePoint(widget, area);
  const QPointer<QWindow> window(windowOf(widget));
  if (!window)
    throw DriveError(QStringLiteral("%1 has no window").arg(describeWidget(widget)));
  const QPointF local = inWindow(widget, point, window);
  mouseTime += QApplication::doubleClickInterval() + 1;
  playMouse(window, local, QEvent::MouseMove, modifiers);
  for (int press = 0; press < (twice ? 2 : 1); ++press) {
    playMouse(window, local, QEvent::MouseButtonPress, modifiers);
    playMouse(window, local, QEvent::MouseButtonRelease, modifiers);
  }
  settle();
}

void pressKey(QWidget* window, const QString& keys) {
  const QKeySequence sequence = QKeySequence::fromString(keys, QKeySequence::PortableText);
  const int code = sequence.count() == 1 ? sequence[0] : Qt::Key_unknown;
  int key = code & ~int(Qt::KeyboardModifierMask);
  const Qt::KeyboardModifiers modifiers(code & int(Qt::KeyboardModifierMask));
  if (key == Qt::Key_unknown || key == 0)
    throw DriveError(QStringLiteral("\"%1\" is not a key").arg(keys));
  if (key == Qt::Key_Tab && modifiers & Qt::ShiftModifier)
    key = Qt::Key_Backtab; // what keyboards make of it
  pressKey(window, key, modifiers, textOfKey(key, modifiers));
}

void pressKey(QWidget* window, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  const QPointer<QWidget> guard(window);
  const auto before = buttonsDown(window); // some are so for good, to mark a mode
  playKey(window, key, modifiers, text);
  if (key == Qt::Key_Menu && guard && !QApplication::activePopupWidget()) {
    // the platform makes this event of the key
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : guard.data();
    const QPoint middle = target->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, target->mapToGlobal(middle));
    QCoreApplication::sendEvent(target, &event);
  }
  settle();
  constexpr int longest = 2000; // far beyond the tenth of a second that it takes
  waitFor(
      [&] {
        return !guard || QApplication::activePopupWidget() || before.contains(buttonsDown(guard));
      },
      longest);
}

void typeText(QWidget* window, const QString& text) {
  // what nobody would type comes in one piece, as from an input method
  constexpr int singleKeys = 2000;
  const QPointer<QWidget> guard(window);
  QString typed = text;
  typed.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  typed.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  if (typed.contains(QLatin1Char('\n')) && !isMultiLine(QApplication::focusWidget()))
    throw DriveError(QStringLiteral("a line break cannot be typed into one line"));
  for (int at = 0; at < typed.size();) {
    if (!guard || !guard->isVisible())
      throw DriveError(QStringLiteral("the window closed while something was typed into it"));
    if (typed.at(at) == QLatin1Char('\n')) {
      playKey(window, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
      settle();
      ++at;
      continue;
    }
    const bool isPair = typed.at(at).isHighSurrogate() && at + 1 < typed.size();
    const int length = at >= singleKeys ? typed.size() - at : isPair ? 2 : 1;
    const QString piece = typed.mid(at, length);
    const uint code = piece.toUcs4().value(0);
    // a tab by its key would leave the field
    const bool isKey = length <= 2 && QChar::isPrint(code);
    const Qt::KeyboardModifiers modifiers =
        isKey && QChar::isUpper(code) ? Qt::ShiftModifier : Qt::NoModifier;
    playKey(window, isKey ? int(QChar::toUpper(code)) : 0, modifiers, piece);
    settle();
    at += length;
  }
}

void replaceText(QWidget* widget, const QString& text) {
  QWidget* window = widget->window();
  focus(widget, Qt::TabFocusReason);
  pressKey(window, Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
  if (text.isEmpty())
    pressKey(window, Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f"));
  else
    typeText(window, text);
}

} // namespace InputPlayer
