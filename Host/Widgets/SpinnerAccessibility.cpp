#include "SpinnerPrivate.h"

#include <QAccessibleWidget>
#include <QLineEdit>

#ifndef QT_NO_ACCESSIBILITY

namespace {

/// The editable text of a spinner's line edit.
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

/// Stands for the spinner, and for its line edit, which has the focus: a reader of the focus hears
/// the same name and value either way.
class SpinButton : public QAccessibleWidget, public QAccessibleValueInterface {
public:
  SpinButton(QWidget* widget, Spinner* spinner, QLineEdit* edit)
      : QAccessibleWidget(widget,
                          widget == spinner ? QAccessible::SpinBox : QAccessible::EditableText),
        m_spinner(spinner), m_edit(edit), m_text(edit) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    switch (type) {
    case QAccessible::ValueInterface:
      return static_cast<QAccessibleValueInterface*>(this);
    case QAccessible::TextInterface:
      return static_cast<QAccessibleTextInterface*>(&m_text);
    case QAccessible::EditableTextInterface:
      return static_cast<QAccessibleEditableTextInterface*>(&m_text);
    default:
      return QAccessibleWidget::interface_cast(type);
    }
  }

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value)
      return m_edit->text();
    if (kind == QAccessible::Description && !m_edit->accessibleDescription().isEmpty())
      return m_edit->accessibleDescription();
    if (widget() != m_spinner) {
      if (QAccessibleInterface* spinner = QAccessible::queryAccessibleInterface(m_spinner))
        return spinner->text(kind);
    }
    return QAccessibleWidget::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    state.invalid = !m_spinner->isAcceptable();
    return state;
  }

  QVariant currentValue() const override { return m_spinner->value(); }
  void setCurrentValue(const QVariant& value) override {
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (ok)
      m_spinner->setValue(number);
  }
  QVariant maximumValue() const override { return m_spinner->max; }
  QVariant minimumValue() const override { return m_spinner->min; }
  QVariant minimumStepSize() const override { return m_spinner->increment; }

private:
  Spinner* m_spinner;
  QLineEdit* m_edit;
  EditText m_text;
};

QAccessibleInterface* makeSpinButton(const QString& className, QObject* object) {
  if (className == QLatin1String("Spinner")) {
    auto* spinner = qobject_cast<Spinner*>(object);
    auto* edit = spinner ? qobject_cast<QLineEdit*>(spinner->focusProxy()) : nullptr;
    return edit ? new SpinButton(spinner, spinner, edit) : nullptr;
  }
  if (className == QLatin1String("QLineEdit")) {
    auto* edit = qobject_cast<QLineEdit*>(object);
    auto* spinner = edit ? qobject_cast<Spinner*>(edit->parent()) : nullptr;
    return spinner ? new SpinButton(edit, spinner, edit) : nullptr;
  }
  return nullptr;
}

} // namespace

void Spinner::Private::installAccessibility() {
  static const bool installed = (QAccessible::installFactory(makeSpinButton), true);
  Q_UNUSED(installed)
}

void Spinner::Private::announceValue() const {
  if (!QAccessible::isActive())
    return;
  QAccessibleValueChangeEvent event(q, q->value());
  QAccessible::updateAccessibility(&event);
}

#else

void Spinner::Private::installAccessibility() {}
void Spinner::Private::announceValue() const {}

#endif
