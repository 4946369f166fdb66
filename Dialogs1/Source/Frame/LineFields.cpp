#include "Frame/LineFields.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMetaMethod>
#include <QMimeData>
#include <QRegularExpression>

#include <algorithm>

namespace {

QString oneLine(QString text) {
  static const QRegularExpression lineEnds(
      QStringLiteral("\\r\\n|[\\n\\r\\x{b}\\x{c}\\x{85}\\x{2028}\\x{2029}]"));
  text.replace(lineEnds, QStringLiteral("\n"));
  const auto isLineEnd = [](QChar c) { return c == QLatin1Char('\n'); };
  while (!text.isEmpty() && isLineEnd(text.back()))
    text.chop(1);
  const auto first = std::find_if_not(text.cbegin(), text.cend(), isLineEnd);
  text.remove(0, static_cast<int>(first - text.cbegin()));
  return text.replace(QLatin1Char('\n'), QLatin1Char(' '));
}

/// Whether it did: what is one line already is the field's own business.
bool pasteLine(QLineEdit* edit, QClipboard::Mode mode) {
  const QString text = QGuiApplication::clipboard()->text(mode);
  const QString line = oneLine(text);
  if (line == text)
    return false;
  edit->insert(line);
  return true;
}

bool pressKey(QLineEdit* edit, QKeyEvent* event) {
  return event->matches(QKeySequence::Paste) && pasteLine(edit, QClipboard::Clipboard);
}

bool releaseMouse(QLineEdit* edit, QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton || !QGuiApplication::clipboard()->supportsSelection())
    return false;
  edit->deselect(); // as the field does: the text goes where the click went
  return pasteLine(edit, QClipboard::Selection);
}

bool drop(QLineEdit* edit, QDropEvent* event) {
  const QString line = oneLine(event->mimeData()->text());
  if (line == event->mimeData()->text() || event->source() == edit)
    return false;
  edit->setCursorPosition(edit->cursorPositionAt(event->pos()));
  edit->insert(line);
  event->acceptProposedAction();
  return true;
}

bool isByKeyboard(Qt::FocusReason reason) {
  return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
         reason == Qt::ShortcutFocusReason;
}

bool isLonger(const QLineEdit* edit) {
  return edit->fontMetrics().horizontalAdvance(edit->text().left(1000)) > edit->width();
}

/// As a field does by itself, which leaves the cursor at the end.
void selectFromEnd(QLineEdit* edit) {
  edit->setSelection(edit->text().size(), -edit->text().size());
}

void enter(QLineEdit* edit, const QFocusEvent* event) {
  if (isByKeyboard(event->reason()) && !edit->hasSelectedText() && isLonger(edit))
    selectFromEnd(edit);
}

void leave(QLineEdit* edit, const QFocusEvent* event) {
  if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason &&
      isLonger(edit))
    edit->setCursorPosition(0);
}

void takeOverPaste(QLineEdit* edit, const QMenu* menu) {
  const QMetaObject& meta = QLineEdit::staticMetaObject;
  const QMetaMethod paste = meta.method(meta.indexOfSlot("paste()"));
  const QMetaMethod triggered = QMetaMethod::fromSignal(&QAction::triggered);
  for (QAction* action : menu->actions())
    if (QObject::disconnect(action, triggered, edit, paste))
      QObject::connect(action, &QAction::triggered, edit, [edit] {
        if (!pasteLine(edit, QClipboard::Clipboard))
          edit->paste();
      });
}

} // namespace

LineFields::LineFields(QWidget* dialog) : QObject(dialog) {
  // The fields come and go: the editors of table cells, say.
  qApp->installEventFilter(this);
}

bool LineFields::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::KeyPress:
    if (QLineEdit* edit = fieldOf(watched))
      return pressKey(edit, static_cast<QKeyEvent*>(event));
    break;
  case QEvent::MouseButtonRelease:
    if (QLineEdit* edit = fieldOf(watched))
      return releaseMouse(edit, static_cast<QMouseEvent*>(event));
    break;
  case QEvent::Drop:
    if (QLineEdit* edit = fieldOf(watched))
      return drop(edit, static_cast<QDropEvent*>(event));
    break;
  case QEvent::FocusIn:
    if (QLineEdit* edit = fieldOf(watched))
      enter(edit, static_cast<QFocusEvent*>(event));
    break;
  case QEvent::FocusOut:
    if (QLineEdit* edit = fieldOf(watched))
      leave(edit, static_cast<QFocusEvent*>(event));
    break;
  case QEvent::Show:
    if (auto* menu = qobject_cast<QMenu*>(watched)) {
      if (QLineEdit* edit = fieldOf(menu->parent()))
        takeOverPaste(edit, menu);
    } else if (QLineEdit* edit = lineOf(watched)) {
      opened(edit);
    }
    break;
  default:
    break;
  }
  return false;
}

QLineEdit* LineFields::lineOf(QObject* watched) const {
  auto* edit = qobject_cast<QLineEdit*>(watched);
  return edit && edit->window() == parent() ? edit : nullptr;
}

QLineEdit* LineFields::fieldOf(QObject* watched) const {
  QLineEdit* edit = lineOf(watched);
  return edit && !edit->isReadOnly() ? edit : nullptr;
}

void LineFields::opened(QLineEdit* edit) {
  connect(edit, &QLineEdit::textChanged, this, &LineFields::textChanged, Qt::UniqueConnection);
  if (!isLonger(edit))
    return;
  if (edit->hasSelectedText())
    selectFromEnd(edit);
  else
    edit->setCursorPosition(0);
}

void LineFields::textChanged() {
  auto* edit = qobject_cast<QLineEdit*>(sender());
  if (edit && !edit->isModified() && !edit->hasFocus() && isLonger(edit))
    edit->setCursorPosition(0);
}
