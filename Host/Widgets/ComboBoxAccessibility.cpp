#include "FieldAccessibility.h"
#include "HostWidgets/ComboBox.h"

#ifndef QT_NO_ACCESSIBILITY

namespace {

/// The line edit of an editable box: Qt gives it no name.
class ComboEdit : public QAccessibleWidget {
public:
  explicit ComboEdit(QLineEdit* edit)
      : QAccessibleWidget(edit, QAccessible::EditableText), m_edit(edit), m_text(edit) {}

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
      return fieldName(m_edit->parentWidget());
    case QAccessible::Value:
      return m_edit->text();
    default:
      return QAccessibleWidget::text(kind);
    }
  }
  void setText(QAccessible::Text kind, const QString& text) override {
    if (kind == QAccessible::Value && !m_edit->isReadOnly())
      m_edit->setText(text);
    else
      QAccessibleWidget::setText(kind, text);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = !m_edit->isReadOnly();
    state.readOnly = m_edit->isReadOnly();
    state.selectableText = true;
    return state;
  }

private:
  QLineEdit* m_edit;
  EditText m_text;
};

QAccessibleInterface* makeComboEdit(const QString& className, QObject* object) {
  auto* edit = className == QLatin1String("QLineEdit") ? qobject_cast<QLineEdit*>(object) : nullptr;
  return edit && qobject_cast<ComboBox*>(edit->parent()) ? new ComboEdit(edit) : nullptr;
}

} // namespace

void ComboBox::installAccessibility() {
  static const bool installed = (QAccessible::installFactory(makeComboEdit), true);
  Q_UNUSED(installed)
}

#else

void ComboBox::installAccessibility() {}

#endif
