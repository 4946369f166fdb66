#include "SpinnerPrivate.h"

#include "FieldAccessibility.h"

#ifndef QT_NO_ACCESSIBILITY

namespace {

/// Stands for the spinner, and for its line edit, which has the focus: a reader of the focus hears
/// the same name and value either way.
class SpinButton : public LineAccessible, public QAccessibleValueInterface {
public:
  SpinButton(QWidget* widget, Spinner* spinner, QLineEdit* lineEdit)
      : LineAccessible(widget, widget == spinner ? QAccessible::SpinBox : QAccessible::EditableText,
                       spinner, lineEdit),
        m_spinner(spinner) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface*>(this)
                                               : LineAccessible::interface_cast(type);
  }

  QString text(QAccessible::Text kind) const override {
    const bool isPart = widget() != m_spinner;
    if (kind == QAccessible::Description && !edit->accessibleDescription().isEmpty())
      return edit->accessibleDescription();
    if (isPart && kind != QAccessible::Name && kind != QAccessible::Value)
      if (QAccessibleInterface* spinner = QAccessible::queryAccessibleInterface(m_spinner))
        return spinner->text(kind);
    return LineAccessible::text(kind);
  }

  QAccessible::State state() const override {
    QAccessible::State state = LineAccessible::state();
    state.invalid = !m_spinner->isAcceptable();
    return state;
  }

  QVariant currentValue() const override { return m_spinner->value(); }
  void setCurrentValue(const QVariant& value) override {
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (ok && m_spinner->isEnabled())
      m_spinner->setValue(number);
  }
  QVariant maximumValue() const override { return m_spinner->max; }
  QVariant minimumValue() const override { return m_spinner->min; }
  QVariant minimumStepSize() const override { return m_spinner->increment; }

private:
  Spinner* m_spinner;
};

} // namespace

QAccessibleInterface* makeSpinnerAccessible(const QString& className, QObject* object) {
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

void Spinner::Private::announceValue() const {
  if (!QAccessible::isActive())
    return;
  QAccessibleValueChangeEvent event(q, q->value());
  QAccessible::updateAccessibility(&event);
}

#else

void Spinner::Private::announceValue() const {}

#endif
