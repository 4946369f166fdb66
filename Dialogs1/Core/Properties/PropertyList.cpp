#include "Core/Properties/PropertyList.h"

#include <algorithm>

void Property::setShownValue(const QString& line) {
  // A line that stands as it was leaves a \n alone that was never a line break.
  if (line != shownValue())
    value.text = typedPropertyText(line);
}

PropertyList::PropertyList(const Texts& names, const Texts& values, const Texts& types,
                           const Texts& extras) {
  for (unsigned row = 0; row < std::min(names.count(), values.count()); ++row) {
    const char* passed = values.raw(row);
    const char* type = types.raw(row);
    m_rows.push_back({names.text(row), type, readPropertyValue(passed, propertyKind(type)),
                      extras.raw(row), passed});
  }
}

int PropertyList::findProperty(const QString& name) const {
  const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                  [&](const Property& one) { return one.name == name; });
  return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

std::optional<QString> PropertyList::getProperty(const QString& name) const {
  const int row = findProperty(name);
  return row < 0 ? std::nullopt : std::optional((*this)[row].value.text);
}

int PropertyList::setProperty(const QString& name, const QString& value) {
  const int row = findProperty(name);
  if (row >= 0)
    (*this)[row].value.text = value;
  return row;
}

const Property& PropertyList::addProperty(const Property& made) {
  m_rows.push_back(made);
  return m_rows.back();
}

TextVector PropertyList::results() const {
  TextVector texts(static_cast<unsigned>(m_rows.size()));
  unsigned row = 0;
  for (const Property& property : m_rows)
    texts.set(row++, resultText(property));
  return texts;
}

YString PropertyList::resultText(const Property& property) const {
  YString text = writePropertyValue(property.value, property.passed, property.kind());
  if (givesNames || !property.passed)
    text = YString(property.name.toUtf8().constData()).concat(";").concat(text);
  return givesExtras ? YString(text.concat(";").concat(property.extra)) : text;
}
