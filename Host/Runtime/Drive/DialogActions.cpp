#include "Drive/DialogActions.h"

#include "Drive/Chooser.h"
#include "Drive/DialogDriver.h"
#include "Drive/InputPlayer.h"
#include "Drive/ItemInput.h"
#include "Drive/WidgetFinder.h"
#include "Drive/WidgetValues.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTextEdit>
#include <QWindow>

#include <algorithm>
#include <limits>

namespace {

QWidget* requireDialog(const QPointer<QWidget>& dialog) {
  if (!dialog)
    throw DriveError(QStringLiteral("the dialog is closed"));
  return dialog;
}

/// Plays one action: to a dialog that is open and free, with its window active; it ends when the
/// dialogs that it opened have closed and nothing is pending.
template <typename Action>
void act(const QPointer<QWidget>& dialog, const QString& what, Action action) {
  if (!requireDialog(dialog)->isVisible())
    throw DriveError(QStringLiteral("\"%1\" is closed").arg(dialog->windowTitle()));
  DialogDriver* driver = DialogDriver::instance();
  if (driver)
    emit driver->moved(what);
  const int openings = driver ? driver->openings() : 0;
  // a dialog over it may be about to be served, unless it is the one whose handler acts here
  InputPlayer::waitFor([&] {
    return !dialog || !InputPlayer::isBlocked(dialog) ||
           (driver && driver->isServing(QApplication::activeModalWidget()));
  });
  if (dialog && InputPlayer::isBlocked(dialog))
    throw DriveError(
        QStringLiteral("\"%1\" cannot be acted on while \"%2\" is open")
            .arg(dialog->windowTitle(), QApplication::activeModalWidget()->windowTitle()));
  if (dialog)
    InputPlayer::activate(dialog);
  if (!dialog || !dialog->isVisible())
    throw DriveError(QStringLiteral("the dialog closed before it could be acted on"));
  action();
  InputPlayer::settle();
  if (driver) {
    const int patience = driver->isInteractive() ? std::numeric_limits<int>::max() : 60'000;
    InputPlayer::waitFor([&] { return !driver->isOpenSince(openings); }, patience);
  }
  if (dialog && dialog->isVisible() && !InputPlayer::isBlocked(dialog))
    InputPlayer::activate(dialog); // an inner dialog has taken the activation with it
}

QString described(const char* action, const QString& subject) {
  return QStringLiteral("%1 \"%2\"").arg(QString::fromLatin1(action), subject);
}

bool isEdit(const QWidget* widget) {
  const auto* combo = qobject_cast<const QComboBox*>(widget);
  return combo ? combo->isEditable()
               : qobject_cast<const QLineEdit*>(widget) || widget->inherits("Spinner") ||
                     qobject_cast<const QAbstractSpinBox*>(widget) ||
                     qobject_cast<const QPlainTextEdit*>(widget) ||
                     qobject_cast<const QTextEdit*>(widget);
}

/// The tab widgets and bars that the user sees, the outermost first.
QVector<QWidget*> visibleTabs(QWidget* dialog) {
  QVector<QWidget*> found;
  for (QWidget* widget : WidgetFinder(dialog).widgets())
    if (widget->isVisible() &&
        (qobject_cast<QTabWidget*>(widget) || qobject_cast<QTabBar*>(widget)))
      found.append(widget);
  if (found.isEmpty())
    throw DriveError(QStringLiteral("\"%1\" has no tabs").arg(dialog->windowTitle()));
  return found;
}

/// The default button, else "okButton". A button with the focus is the default one only for the
/// Return key: what the dialog calls its default shows when it loses the focus.
QWidget* acceptButton(QWidget* dialog) {
  auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
  if (focused && focused->window() == dialog && focused->autoDefault())
    focused->clearFocus();
  const auto buttons = dialog->findChildren<QPushButton*>();
  for (QPushButton* button : buttons)
    if (button->window() == dialog && button->isDefault() && button->isVisible())
      return button;
  QWidget* ok = WidgetFinder(dialog).find(QStringLiteral("okButton"));
  if (!ok)
    throw DriveError(QStringLiteral("\"%1\" has neither a default button nor an okButton")
                         .arg(dialog->windowTitle()));
  return ok;
}

/// The item of an open menu that has this caption; null where no menu is open.
bool pressMenuItem(const QString& caption) {
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (!menu)
    return false;
  QStringList captions;
  const auto items = menu->actions();
  for (QAction* item : items) {
    if (isCaption(item->text(), caption) && item->isVisible()) {
      if (!item->isEnabled())
        throw DriveError(QStringLiteral("menu item \"%1\" is disabled").arg(caption));
      InputPlayer::clickAt(menu, menu->actionGeometry(item));
      return true;
    }
    captions.append(plainCaption(item->text()));
  }
  throw DriveError(QStringLiteral("no menu item \"%1\"; %2").arg(caption, shortList(captions)));
}

QAbstractButton* buttonOf(QWidget* dialog, const QString& caption) {
  QStringList captions;
  QAbstractButton* found = nullptr;
  for (QWidget* widget : WidgetFinder(dialog).widgets()) {
    auto* button = qobject_cast<QAbstractButton*>(widget);
    if (!button || !button->isVisible())
      continue;
    captions.append(plainCaption(button->text()));
    // a check box may carry the same words as the button that is meant
    const bool isBetter = !found || (found->isCheckable() && !button->isCheckable());
    if (isCaption(button->text(), caption) && isBetter)
      found = button;
  }
  if (!found)
    throw DriveError(QStringLiteral("no visible button \"%1\" in \"%2\"; %3")
                         .arg(caption, dialog->windowTitle(), shortList(captions)));
  return found;
}

} // namespace

DialogActions::DialogActions(QWidget* dialog) : m_dialog(dialog) {}

QWidget* DialogActions::usable(const QString& widget) const {
  QWidget* found = require(widget);
  requireUsable(found);
  return found;
}

QWidget* DialogActions::require(const QString& widget) const {
  return WidgetFinder(requireDialog(m_dialog)).require(widget);
}

bool DialogActions::isOpen() const {
  return m_dialog && m_dialog->isVisible();
}

QString DialogActions::name() const {
  return m_dialog ? m_dialog->objectName() : QString();
}

QString DialogActions::title() const {
  return m_dialog ? m_dialog->windowTitle() : QString();
}

QString DialogActions::className() const {
  return m_dialog ? QString::fromUtf8(m_dialog->metaObject()->className()) : QString();
}

bool DialogActions::isModal() const {
  return m_dialog && m_dialog->isModal();
}

QStringList DialogActions::names() const {
  return WidgetFinder(requireDialog(m_dialog)).names();
}

bool DialogActions::has(const QString& widget) const {
  return WidgetFinder(requireDialog(m_dialog)).find(widget) != nullptr;
}

QVariant DialogActions::get(const QString& widget, const QString& property) const {
  return widgetProperty(require(widget), property);
}

QString DialogActions::text(const QString& widget) const {
  return widgetText(require(widget));
}

QVariant DialogActions::value(const QString& widget) const {
  return widgetValue(require(widget));
}

bool DialogActions::checked(const QString& widget) const {
  return isWidgetChecked(require(widget));
}

bool DialogActions::enabled(const QString& widget) const {
  return require(widget)->isEnabled();
}

bool DialogActions::visible(const QString& widget) const {
  return require(widget)->isVisible();
}

QString DialogActions::focused() const {
  QWidget* dialog = requireDialog(m_dialog);
  QWidget* focus = QApplication::focusWidget();
  if (!focus || !dialog->isAncestorOf(focus))
    focus = dialog->focusWidget();
  if (!focus || focus == dialog)
    return QString();
  const WidgetFinder finder(dialog);
  return finder.nameOf(finder.ownerOf(focus));
}

QStringList DialogActions::items(const QString& widget) const {
  QWidget* found = require(widget);
  if (const auto* combo = qobject_cast<QComboBox*>(found)) {
    QStringList texts;
    for (int i = 0; i < combo->count(); ++i)
      texts.append(combo->itemText(i));
    return texts;
  }
  return ItemCells::of(found).items();
}

QStringList DialogActions::headers(const QString& widget) const {
  return ItemCells::of(require(widget)).headers();
}

void DialogActions::click(const QString& widget, int row, int column) {
  act(m_dialog, described("click", widget), [&] {
    QWidget* found = usable(widget);
    if (row < 0)
      InputPlayer::click(found);
    else
      ItemInput::of(found).click(row, column);
  });
}

void DialogActions::doubleClick(const QString& widget, int row, int column) {
  act(m_dialog, described("doubleClick", widget), [&] {
    QWidget* found = usable(widget);
    if (row < 0)
      InputPlayer::click(found, true);
    else
      ItemInput::of(found).click(row, column, true);
  });
}

void DialogActions::press(const QString& caption) {
  act(m_dialog, described("press", caption), [&] {
    if (pressMenuItem(caption))
      return;
    QAbstractButton* button = buttonOf(m_dialog, caption);
    requireUsable(button);
    InputPlayer::click(button);
  });
}

void DialogActions::type(const QString& widget, const QString& text) {
  act(m_dialog, described("type", widget), [&] {
    QWidget* found = usable(widget);
    if (found->property("readOnly").toBool())
      throw DriveError(QStringLiteral("%1 is read-only").arg(describeWidget(found)));
    if (isEdit(found)) {
      InputPlayer::replaceText(found, text);
    } else {
      InputPlayer::focus(found, Qt::TabFocusReason);
      InputPlayer::typeText(m_dialog, text);
    }
  });
}

void DialogActions::key(const QString& widget, const QString& keys) {
  act(m_dialog, described("key", keys), [&] {
    if (!widget.isEmpty())
      InputPlayer::focus(usable(widget));
    InputPlayer::pressKey(m_dialog, keys);
  });
}

void DialogActions::set(const QString& widget, const QVariant& value) {
  act(m_dialog, described("set", widget), [&] { setWidget(usable(widget), value); });
}

void DialogActions::choose(const QString& widget, const QVariantList& rows) {
  act(m_dialog, described("choose", widget), [&] { ItemInput::of(usable(widget)).choose(rows); });
}

void DialogActions::pick(const QVariant& value) {
  act(m_dialog, described("pick", value.toString()), [&] { pickInChooser(m_dialog, value); });
}

QVariant DialogActions::current(const QString& widget) const {
  QWidget* found = require(widget);
  if (const auto* combo = qobject_cast<QComboBox*>(found))
    return combo->currentIndex();
  return ItemCells::of(found).current();
}

void DialogActions::setCurrent(const QString& widget, int row, int column) {
  act(m_dialog, described("current", widget), [&] {
    QWidget* found = usable(widget);
    if (qobject_cast<QComboBox*>(found))
      pickEntry(found, row);
    else
      ItemInput::of(found).click(row, column);
  });
}

QString DialogActions::cell(const QString& widget, int row, int column) const {
  return ItemCells::of(require(widget)).text(row, column);
}

void DialogActions::setCell(const QString& widget, int row, int column, const QVariant& value) {
  act(m_dialog, described("cell", widget),
      [&] { ItemInput::of(usable(widget)).set(row, column, value); });
}

QVariantMap DialogActions::cellInfo(const QString& widget, int row, int column) const {
  return ItemCells::of(require(widget)).info(row, column);
}

QVariantList DialogActions::table(const QString& widget) const {
  return ItemCells::of(require(widget)).table();
}

int DialogActions::rows(const QString& widget) const {
  return ItemCells::of(require(widget)).rows();
}

int DialogActions::columns(const QString& widget) const {
  return ItemCells::of(require(widget)).columns();
}

QString DialogActions::tab() const {
  const QWidget* tabs = visibleTabs(requireDialog(m_dialog)).first();
  return tabCaptions(tabs).value(tabs->property("currentIndex").toInt());
}

void DialogActions::setTab(const QVariant& captionOrIndex) {
  act(m_dialog, described("tab", captionOrIndex.toString()), [&] {
    QStringList captions;
    for (QWidget* tabs : visibleTabs(m_dialog)) {
      if (bringTab(tabs, captionOrIndex))
        return;
      captions += tabCaptions(tabs);
      if (isNumber(captionOrIndex)) // of the outermost
        break;
    }
    throw DriveError(QStringLiteral("no tab \"%1\" in \"%2\"; %3")
                         .arg(typedText(captionOrIndex), title(), shortList(captions)));
  });
}

QStringList DialogActions::tabs() const {
  return tabCaptions(visibleTabs(requireDialog(m_dialog)).first());
}

QVariantMap DialogActions::message() const {
  const auto* box = qobject_cast<QMessageBox*>(requireDialog(m_dialog));
  if (!box)
    throw DriveError(QStringLiteral("\"%1\" is not a message box").arg(title()));
  auto buttons = box->buttons();
  std::sort(buttons.begin(), buttons.end(), [](const QWidget* left, const QWidget* right) {
    return left->x() < right->x(); // as the user reads them
  });
  QStringList captions;
  for (const QAbstractButton* button : qAsConst(buttons))
    captions.append(plainCaption(button->text()));
  const char* icon = "none";
  switch (box->icon()) {
  case QMessageBox::Information:
    icon = "information";
    break;
  case QMessageBox::Warning:
    icon = "warning";
    break;
  case QMessageBox::Critical:
    icon = "critical";
    break;
  case QMessageBox::Question:
    icon = "question";
    break;
  case QMessageBox::NoIcon:
    break;
  }
  return {{QStringLiteral("title"), box->windowTitle()},
          {QStringLiteral("text"), box->text()},
          {QStringLiteral("icon"), QString::fromLatin1(icon)},
          {QStringLiteral("buttons"), captions}};
}

void DialogActions::accept() {
  act(m_dialog, described("accept", title()), [&] {
    InputPlayer::closePopups();
    QWidget* button = acceptButton(m_dialog);
    requireUsable(button);
    InputPlayer::click(button);
  });
}

void DialogActions::reject() {
  act(m_dialog, described("reject", title()), [&] {
    InputPlayer::closePopups();
    // an editor that is open in a cell takes the first Escape for itself
    const QWidget* focus = QApplication::focusWidget();
    const WidgetFinder finder(m_dialog);
    const bool isEditing =
        focus && m_dialog->isAncestorOf(focus) &&
        qobject_cast<QAbstractItemView*>(finder.ownerOf(const_cast<QWidget*>(focus))) != nullptr &&
        finder.ownerOf(const_cast<QWidget*>(focus)) != focus;
    InputPlayer::pressKey(m_dialog, QStringLiteral("Escape"));
    if (isEditing && isOpen())
      InputPlayer::pressKey(m_dialog, QStringLiteral("Escape"));
  });
}

void DialogActions::close() {
  act(m_dialog, described("close", title()), [&] {
    InputPlayer::closePopups();
    if (isOpen() && m_dialog->windowHandle())
      m_dialog->windowHandle()->close(); // as the platform's close button does
  });
}

void DialogActions::screenshot(const QString& path) const {
  const QPixmap picture = requireDialog(m_dialog)->grab();
  QDir().mkpath(QFileInfo(path).absolutePath());
  if (!picture.save(path, "PNG"))
    throw DriveError(QStringLiteral("no picture could be written to \"%1\"").arg(path));
}
