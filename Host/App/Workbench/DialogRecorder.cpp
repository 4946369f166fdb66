#include "Workbench/DialogRecorder.h"

#include "Workbench/CallRecord.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QEvent>
#include <QMetaProperty>
#include <QRadioButton>

namespace {

/// The property that holds what the user put in; empty for what is no field.
QByteArray valueProperty(const QWidget* widget) {
  const auto* button = qobject_cast<const QAbstractButton*>(widget);
  if (button)
    return button->isCheckable() ? QByteArray("checked") : QByteArray();
  if (qobject_cast<const QComboBox*>(widget))
    return QByteArray("currentText");
  if (widget->metaObject()->indexOfProperty("plainText") >= 0)
    return QByteArray("plainText");
  return QByteArray(widget->metaObject()->userProperty().name());
}

QString scriptValue(const QVariant& value) {
  switch (int(value.type())) {
  case QMetaType::Bool:
    return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
  case QMetaType::Int:
  case QMetaType::Double:
    return scriptNumber(value.toDouble());
  default:
    return scriptText(value.toString());
  }
}

bool isPlainValue(const QVariant& value) {
  switch (int(value.type())) {
  case QMetaType::Bool:
  case QMetaType::Int:
  case QMetaType::Double:
  case QMetaType::QString:
    return true;
  default:
    return false;
  }
}

} // namespace

void DialogRecorder::watch(QWidget* dialog) {
  Dialog entry;
  entry.widget = dialog;
  QHash<QString, int> counts;
  collect(dialog, &counts, &entry.fields);
  dialog->installEventFilter(this);
  m_dialogs.append(entry);
}

void DialogRecorder::collect(QWidget* parent, QHash<QString, int>* counts, QVector<Field>* fields) {
  for (QObject* object : parent->children()) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || widget->isWindow())
      continue;
    const QByteArray property = valueProperty(widget);
    const QVariant value = property.isEmpty() ? QVariant() : widget->property(property);
    const QString name = widget->objectName();
    if (!name.isEmpty() && isPlainValue(value)) {
      const int number = (*counts)[name]++;
      fields->append(
          {widget, number == 0 ? name : QStringLiteral("%1:%2").arg(name).arg(number), value});
    }
    // Inner parts of a field are the field's own; a checkable group box is a field with fields.
    if (property.isEmpty() || property == "checked")
      collect(widget, counts, fields);
  }
}

void DialogRecorder::finish(Dialog* dialog) {
  for (const Field& field : qAsConst(dialog->fields)) {
    if (!field.widget)
      continue;
    const QVariant value = field.widget->property(valueProperty(field.widget));
    // A radio button goes off because another goes on.
    if (value != field.value && !(qobject_cast<QRadioButton*>(field.widget) && !value.toBool()))
      dialog->lines
          << QStringLiteral("  d.set(%1, %2);").arg(scriptText(field.name), scriptValue(value));
  }
  const auto* asDialog = qobject_cast<const QDialog*>(dialog->widget.data());
  const bool accepted = !asDialog || asDialog->result() == QDialog::Accepted;
  dialog->lines << (accepted ? QStringLiteral("  d.accept();") : QStringLiteral("  d.reject();"));
  dialog->widget = nullptr;
}

bool DialogRecorder::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Hide && !event->spontaneous())
    for (Dialog& dialog : m_dialogs)
      if (dialog.widget == watched)
        finish(&dialog);
  return false;
}

QString DialogRecorder::takeAnswers() {
  QString text;
  for (const Dialog& dialog : qAsConst(m_dialogs))
    if (!dialog.widget && !dialog.lines.isEmpty())
      text += QStringLiteral("host.onDialog(d => {\n%1\n});\n")
                  .arg(dialog.lines.join(QLatin1Char('\n')));
  m_dialogs.clear();
  return text;
}
