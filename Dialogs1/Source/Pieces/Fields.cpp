#include "Pieces/Fields.h"

#include "Core/Frame/Integers.h"
#include "HostSupportQt/Text.h"
#include "HostWidgets/RadioGroup.h"
#include "HostWidgets/Spinner.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>

#include <algorithm>

using Kind = FieldValue::Kind;

namespace {

void showRow(QComboBox* combo, int row) {
  if (row >= 0 && row < combo->count())
    combo->setCurrentIndex(row);
}

void showNumber(Spinner* edit, const FieldValue& value) {
  if (value.kind == Kind::Text)
    edit->setText(value.asText());
  else
    edit->setValue(value.asNumber());
}

} // namespace

Field::Field(const QWidget* widget, Place place, Kind kind, Show show, Read read)
    : m_isThere(widget), m_place(place), m_kind(kind), m_show(std::move(show)),
      m_read(std::move(read)) {}

Field::Field(QAbstractButton* box, Place place)
    : Field(
          box, place, Kind::Flag,
          [box](const FieldValue& value) { box->setChecked(value.asFlag()); },
          [box] { return FieldValue::flag(box->isChecked()); }) {}

Field::Field(QGroupBox* box, Place place)
    : Field(
          box, place, Kind::Flag,
          [box](const FieldValue& value) { box->setChecked(value.asFlag()); },
          [box] { return FieldValue::flag(box->isChecked()); }) {}

Field::Field(QLineEdit* edit, Place place)
    : Field(
          edit, place, Kind::Text,
          [edit](const FieldValue& value) { edit->setText(value.asText()); },
          [edit] { return FieldValue::text(edit->text()); }) {}

Field::Field(QPlainTextEdit* edit, Place place)
    : Field(
          edit, place, Kind::Text,
          [edit](const FieldValue& value) { edit->setPlainText(value.asText()); },
          [edit] { return FieldValue::text(edit->toPlainText()); }) {}

Field::Field(Spinner* edit, Place place)
    : Field(
          edit, place, Kind::Number, [edit](const FieldValue& value) { showNumber(edit, value); },
          [edit] { return FieldValue::number(edit->value(), edit->stringValue()); }) {}

Field::Field(QComboBox* combo, Place place)
    : Field(
          combo, place, Kind::Text,
          [combo](const FieldValue& value) { combo->setCurrentText(value.asText()); },
          [combo] { return FieldValue::text(combo->currentText()); }) {}

Field::Field(RadioGroup* group, Place place)
    : Field(
          group, place, Kind::Row,
          [group](const FieldValue& value) { group->setValue(value.asRow()); },
          [group] { return FieldValue::row(truncatedToInt(group->value())); }) {}

Field::Field(std::initializer_list<Choice> list, Place place)
    : Field(list.size() > 0 ? list.begin()->button : nullptr, place, Kind::Text, {}, {}) {
  const std::vector<Choice> choices = list;
  m_show = [choices](const FieldValue& value) {
    for (const Choice& choice : choices)
      if (equals(value.asText(), QString::fromLatin1(choice.word)))
        choice.button->setChecked(true);
  };
  m_read = [choices] {
    for (const Choice& choice : choices)
      if (choice.button->isChecked())
        return std::optional(FieldValue::text(QString::fromLatin1(choice.word)));
    return std::optional<FieldValue>(); // a word that no button knows
  };
}

Field Field::row(QComboBox* combo, Place place) {
  return {combo, place, Kind::Row,
          [combo](const FieldValue& value) { showRow(combo, value.asRow()); },
          [combo] { return FieldValue::row(combo->currentIndex()); }};
}

Field Field::buttonOf(QWidget* parent, Place place) {
  const auto buttons = parent ? parent->findChildren<QRadioButton*>() : QList<QRadioButton*>();
  return {parent, place, Kind::Row,
          [buttons](const FieldValue& value) {
            if (QRadioButton* button = buttons.value(value.asRow()))
              button->setChecked(true);
          },
          [buttons] {
            const auto checked = std::find_if(buttons.begin(), buttons.end(),
                                              [](QRadioButton* one) { return one->isChecked(); });
            return FieldValue::row(checked == buttons.end() ? -1 : int(checked - buttons.begin()));
          }};
}

Field& Field::forEmpty(const char* text) {
  m_forEmpty = text;
  return *this;
}

void Field::load(const FieldStore& store) const {
  FieldValue value = FieldValue::text(QString());
  if (!m_isThere || !store.read(m_place, m_kind, &value))
    return;
  if (value.isEmpty() && m_forEmpty)
    value = FieldValue::text(QString::fromLatin1(m_forEmpty));
  if (!value.isEmpty() || m_kind == Kind::Text || m_kind == Kind::Flag)
    m_show(value);
}

void Field::store(FieldStore* store) const {
  if (!m_isThere)
    return;
  if (const std::optional<FieldValue> value = m_read())
    store->write(m_place, *value);
}

void Fields::load(const FieldStore& store) const {
  for (const Field& field : m_fields)
    field.load(store);
}

void Fields::store(FieldStore* store) const {
  for (const Field& field : m_fields)
    field.store(store);
}
