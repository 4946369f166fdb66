#pragma once

#include <QAccessibleWidget>
#include <QLineEdit>

#ifndef QT_NO_ACCESSIBILITY

/// What a field is called for those who hear it, and so is the line edit in it, which has the
/// focus: its accessible name, the label that has it for a buddy, wherever that stands, or the
/// title of its box.
QString fieldName(QWidget* field);

/// The editable text of a field's line edit.
class EditText : public QAccessibleTextInterface, public QAccessibleEditableTextInterface {
public:
  explicit EditText(QLineEdit* edit) : m_edit(edit) {}

  void selection(int index, int* start, int* end) const override {
    const bool selected = index == 0 && m_edit->hasSelectedText();
    *start = selected ? m_edit->selectionStart() : 0;
    *end = selected ? m_edit->selectionEnd() : 0;
  }
  int selectionCount() const override { return m_edit->hasSelectedText() ? 1 : 0; }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int index) override {
    if (index == 0)
      m_edit->deselect();
  }
  void setSelection(int index, int start, int end) override {
    if (index == 0)
      m_edit->setSelection(start, end - start);
  }
  int cursorPosition() const override { return m_edit->cursorPosition(); }
  void setCursorPosition(int position) override { m_edit->setCursorPosition(position); }
  QString text(int start, int end) const override { return m_edit->text().mid(start, end - start); }
  int characterCount() const override { return m_edit->text().length(); }
  QRect characterRect(int offset) const override {
    const QFontMetrics metrics = m_edit->fontMetrics();
    const QString all = m_edit->text();
    if (offset < 0 || offset > all.length())
      return {};
    const int x = metrics.horizontalAdvance(all.left(offset));
    const int width = metrics.horizontalAdvance(all.mid(offset, 1));
    const QRect rect(x, (m_edit->height() - metrics.height()) / 2, width, metrics.height());
    return rect.translated(m_edit->mapToGlobal(QPoint(0, 0)));
  }
  int offsetAtPoint(const QPoint& point) const override {
    const QPoint local = m_edit->mapFromGlobal(point);
    return m_edit->rect().contains(local) ? m_edit->cursorPositionAt(local) : -1;
  }
  void scrollToSubstring(int start, int) override { m_edit->setCursorPosition(start); }
  QString attributes(int offset, int* start, int* end) const override {
    *start = *end = offset;
    return {};
  }
  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
  void replaceText(int start, int end, const QString& text) override {
    m_edit->setText(m_edit->text().replace(start, end - start, text));
  }

private:
  QLineEdit* m_edit;
};

/// A widget that is heard as a line of text: the line edit of a field, or the field itself.
class TextAccessible : public QAccessibleWidget {
public:
  void* interface_cast(QAccessible::InterfaceType type) override;

protected:
  TextAccessible(QWidget* widget, QAccessible::Role role, QLineEdit* lineEdit)
      : QAccessibleWidget(widget, role), edit(lineEdit), m_text(lineEdit) {}

  QLineEdit* const edit;

private:
  EditText m_text;
};

#endif
