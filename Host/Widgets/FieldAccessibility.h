#pragma once

#include "HostSupportQt/Captions.h"
#include "HostWidgets/Accessibility.h"

#include <QAccessibleWidget>
#include <QLineEdit>
#include <QPlainTextEdit>

#ifndef QT_NO_ACCESSIBILITY

/// What a field is called for those who hear it, and so is the line edit in it, which has the
/// focus: its accessible name, the label that has it for a buddy, wherever that stands, the column
/// of the cell that it edits, or the title of its box.
QString fieldName(QWidget* field);

/// The factories, by the class that Qt asks for; null for what is none of theirs.
QAccessibleInterface* makeSpinnerAccessible(const QString& className, QObject* object);
QAccessibleInterface* makeChoiceAccessible(const QString& className, QObject* object);
QAccessibleInterface* makeTextAccessible(const QString& className, QObject* object);

/// The text of an edit, as a reader moves in it and changes it. What the user cannot change, a
/// reader cannot; a change can be undone like one that was typed.
class FieldText : public QAccessibleTextInterface, public QAccessibleEditableTextInterface {
public:
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  QString attributes(int offset, int* start, int* end) const override {
    *start = *end = offset;
    return {};
  }
  void deleteText(int start, int end) override { replaceText(start, end, {}); }
  void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
};

class LineText : public FieldText {
public:
  explicit LineText(QLineEdit* edit) : m_edit(edit) {}

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override { return m_edit->hasSelectedText() ? 1 : 0; }
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override { return m_edit->cursorPosition(); }
  void setCursorPosition(int position) override { m_edit->setCursorPosition(position); }
  QString text(int start, int end) const override;
  int characterCount() const override { return m_edit->text().length(); }
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int) override { m_edit->setCursorPosition(start); }
  void replaceText(int start, int end, const QString& text) override;

private:
  QLineEdit* m_edit;
};

class PageText : public FieldText {
public:
  explicit PageText(QPlainTextEdit* edit) : m_edit(edit) {}

  void selection(int index, int* start, int* end) const override;
  int selectionCount() const override { return m_edit->textCursor().hasSelection() ? 1 : 0; }
  void removeSelection(int index) override;
  void setSelection(int index, int start, int end) override;
  int cursorPosition() const override { return m_edit->textCursor().position(); }
  void setCursorPosition(int position) override { setSelection(0, position, position); }
  QString text(int start, int end) const override;
  int characterCount() const override { return m_edit->document()->characterCount() - 1; }
  QRect characterRect(int offset) const override;
  int offsetAtPoint(const QPoint& point) const override;
  void scrollToSubstring(int start, int end) override { setSelection(0, start, end); }
  void replaceText(int start, int end, const QString& text) override;

private:
  QTextCursor cursorOver(int start, int end) const;

  QPlainTextEdit* m_edit;
};

/// A widget that is heard as a text: the edit of a field, or the field itself.
template <class Edit, class Text> class TextAccessible : public QAccessibleWidget {
public:
  TextAccessible(QWidget* widget, QAccessible::Role role, QWidget* field, Edit* textEdit)
      : QAccessibleWidget(widget, role), edit(textEdit), m_field(field), m_text(textEdit) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    switch (type) {
    case QAccessible::TextInterface:
      return static_cast<QAccessibleTextInterface*>(&m_text);
    case QAccessible::EditableTextInterface:
      return static_cast<QAccessibleEditableTextInterface*>(&m_text);
    default:
      return QAccessibleWidget::interface_cast(type);
    }
  }
  QString text(QAccessible::Text kind) const override {
    switch (kind) {
    case QAccessible::Name:
      return fieldName(m_field);
    case QAccessible::Value:
      return m_text.text(0, m_text.characterCount());
    case QAccessible::Help:
      return plainText(QAccessibleWidget::text(kind));
    default:
      return QAccessibleWidget::text(kind);
    }
  }
  void setText(QAccessible::Text kind, const QString& text) override {
    if (kind == QAccessible::Value)
      m_text.replaceText(0, m_text.characterCount(), text);
    else
      QAccessibleWidget::setText(kind, text);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = edit->isReadOnly();
    state.editable = !edit->isReadOnly();
    state.selectableText = true;
    return state;
  }

protected:
  Edit* const edit;

private:
  QWidget* m_field;
  Text m_text;
};

using LineAccessible = TextAccessible<QLineEdit, LineText>;

#endif
