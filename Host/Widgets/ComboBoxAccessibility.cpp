#include "FieldAccessibility.h"
#include "HostWidgets/ComboBox.h"

#ifndef QT_NO_ACCESSIBILITY

namespace {

/// The line edit of an editable box: Qt gives it no name.
class ComboEdit : public TextAccessible {
public:
  explicit ComboEdit(QLineEdit* lineEdit)
      : TextAccessible(lineEdit, QAccessible::EditableText, lineEdit) {}

  QString text(QAccessible::Text kind) const override {
    switch (kind) {
    case QAccessible::Name:
      return fieldName(edit->parentWidget());
    case QAccessible::Value:
      return edit->text();
    default:
      return QAccessibleWidget::text(kind);
    }
  }
  void setText(QAccessible::Text kind, const QString& text) override {
    if (kind == QAccessible::Value && !edit->isReadOnly())
      edit->setText(text);
    else
      QAccessibleWidget::setText(kind, text);
  }

  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = !edit->isReadOnly();
    state.readOnly = edit->isReadOnly();
    state.selectableText = true;
    return state;
  }
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
