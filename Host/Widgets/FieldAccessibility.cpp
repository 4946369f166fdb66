#include "FieldAccessibility.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

#ifndef QT_NO_ACCESSIBILITY

/// The view that the editor of a cell stands in.
static QAbstractItemView* viewAround(const QWidget* editor) {
  const QWidget* viewport = editor->parentWidget();
  return viewport ? qobject_cast<QAbstractItemView*>(viewport->parentWidget()) : nullptr;
}

QString fieldName(QWidget* field) {
  if (!field->accessibleName().isEmpty())
    return field->accessibleName();
  // Qt looks among the neighbours only; a label may stand in another box than its field.
  for (QLabel* label : field->window()->findChildren<QLabel*>())
    if (label->buddy() == field && !label->text().isEmpty())
      return plainCaption(plainText(label->text()));
  const QAbstractItemView* view = viewAround(field);
  if (view && view->currentIndex().isValid())
    return view->model()->headerData(view->currentIndex().column(), Qt::Horizontal).toString();
  auto* box = qobject_cast<QGroupBox*>(field->parentWidget());
  return box ? plainCaption(box->title()) : QString();
}

// ---- one line -----------------------------------------------------------------------------------

void LineText::selection(int index, int* start, int* end) const {
  const bool selected = index == 0 && m_edit->hasSelectedText();
  *start = selected ? m_edit->selectionStart() : 0;
  *end = selected ? m_edit->selectionEnd() : 0;
}

void LineText::removeSelection(int index) {
  if (index == 0)
    m_edit->deselect();
}

void LineText::setSelection(int index, int start, int end) {
  if (index == 0)
    m_edit->setSelection(start, end - start);
}

QString LineText::text(int start, int end) const {
  return m_edit->displayText().mid(start, end - start);
}

QRect LineText::characterRect(int offset) const {
  const QFontMetrics metrics = m_edit->fontMetrics();
  const QString all = m_edit->displayText();
  if (offset < 0 || offset > all.length())
    return {};
  const int x = metrics.horizontalAdvance(all.left(offset));
  const int width = metrics.horizontalAdvance(all.mid(offset, 1));
  const QRect rect(x, (m_edit->height() - metrics.height()) / 2, width, metrics.height());
  return rect.translated(m_edit->mapToGlobal(QPoint(0, 0)));
}

int LineText::offsetAtPoint(const QPoint& point) const {
  const QPoint local = m_edit->mapFromGlobal(point);
  return m_edit->rect().contains(local) ? m_edit->cursorPositionAt(local) : -1;
}

void LineText::replaceText(int start, int end, const QString& text) {
  const int length = characterCount();
  start = qBound(0, start, length);
  end = qBound(start, end, length);
  if (!m_edit->isEnabled() || m_edit->isReadOnly())
    return;
  m_edit->setCursorPosition(start);
  m_edit->setSelection(start, end - start);
  m_edit->insert(text);
  // Where the user is elsewhere, nothing else will end the change.
  if (!m_edit->hasFocus())
    emit m_edit->editingFinished();
}

// ---- several lines ------------------------------------------------------------------------------

QTextCursor PageText::cursorOver(int start, int end) const {
  const int length = characterCount();
  QTextCursor cursor(m_edit->document());
  cursor.setPosition(qBound(0, start, length));
  cursor.setPosition(qBound(0, end, length), QTextCursor::KeepAnchor);
  return cursor;
}

void PageText::selection(int index, int* start, int* end) const {
  const QTextCursor cursor = m_edit->textCursor();
  const bool selected = index == 0 && cursor.hasSelection();
  *start = selected ? cursor.selectionStart() : 0;
  *end = selected ? cursor.selectionEnd() : 0;
}

void PageText::removeSelection(int index) {
  if (index == 0)
    setCursorPosition(cursorPosition());
}

void PageText::setSelection(int index, int start, int end) {
  if (index != 0)
    return;
  m_edit->setTextCursor(cursorOver(start, end));
  m_edit->ensureCursorVisible();
}

QString PageText::text(int start, int end) const {
  return cursorOver(start, end)
      .selectedText()
      .replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

QRect PageText::characterRect(int offset) const {
  if (offset < 0 || offset > characterCount())
    return {};
  QRect rect = m_edit->cursorRect(cursorOver(offset, offset));
  const QRect next = m_edit->cursorRect(cursorOver(offset + 1, offset + 1));
  if (next.top() == rect.top())
    rect.setRight(std::max(next.left(), rect.right()));
  return rect.translated(m_edit->viewport()->mapToGlobal(QPoint(0, 0)));
}

int PageText::offsetAtPoint(const QPoint& point) const {
  const QPoint local = m_edit->viewport()->mapFromGlobal(point);
  return m_edit->viewport()->rect().contains(local) ? m_edit->cursorForPosition(local).position()
                                                    : -1;
}

void PageText::replaceText(int start, int end, const QString& text) {
  if (m_edit->isEnabled() && !m_edit->isReadOnly())
    cursorOver(start, std::max(start, end)).insertText(text);
}

// ---- what they are made for ---------------------------------------------------------------------

namespace {

class OneLine : public LineAccessible {
public:
  using LineAccessible::LineAccessible;

  QAccessible::State state() const override {
    QAccessible::State state = LineAccessible::state();
    state.passwordEdit = edit->echoMode() != QLineEdit::Normal;
    return state;
  }
};

/// A line edit is called as the editable box that it is in: Qt gives it no name.
QAccessibleInterface* makeLine(QLineEdit* edit) {
  QWidget* parent = edit->parentWidget();
  if (qobject_cast<QAbstractSpinBox*>(parent)) // Qt's own know it as a part
    return nullptr;
  QWidget* field = qobject_cast<QComboBox*>(parent) ? parent : edit;
  return new OneLine(edit, QAccessible::EditableText, field, edit);
}

class PageAccessible : public TextAccessible<QPlainTextEdit, PageText> {
public:
  explicit PageAccessible(QPlainTextEdit* page)
      : TextAccessible(page, QAccessible::EditableText, page, page) {}

  QAccessible::State state() const override {
    QAccessible::State state = TextAccessible::state();
    state.multiLine = true;
    return state;
  }
};

} // namespace

QAccessibleInterface* makeTextAccessible(const QString& className, QObject* object) {
  if (className == QLatin1String("QLineEdit"))
    if (auto* line = qobject_cast<QLineEdit*>(object))
      return makeLine(line);
  if (className == QLatin1String("QPlainTextEdit"))
    if (auto* page = qobject_cast<QPlainTextEdit*>(object))
      return new PageAccessible(page);
  return nullptr;
}

static bool installFactories() {
  // What is installed last is asked first: a spinner's line edit is more than a line.
  for (const auto factory : {makeTextAccessible, makeChoiceAccessible, makeSpinnerAccessible})
    QAccessible::installFactory(factory);
  return true;
}

void installFieldAccessibility() {
  static const bool installed = installFactories();
  Q_UNUSED(installed)
}

#else

void installFieldAccessibility() {}

#endif
