#pragma once

#include "Core/Frame/Texts.h"
#include "Core/Properties/ObjectProperties.h"

#include <deque>

/// A named property of an object.
struct Property {
  QString name;
  YString type; ///< the word that says what it is edited with
  PropertyValue value;
  YString extra;                ///< the script's own, goes back as it came
  const char* passed = nullptr; ///< the value as the script passes it; null where it does not

  PropertyKind kind() const { return propertyKind(type); }
  QString shownValue() const { return shownPropertyText(value.text); }
  /// Takes what the user made of the shown value.
  void setShownValue(const QString& line);
};

/// The properties of an object as a script passes them and gets them back: rows in the order of the
/// script's vectors, behind them those that the user has made. A row stays where it is in memory.
class PropertyList {
public:
  PropertyList() = default;
  /// A row for each name that has a value. The values must outlive the list.
  PropertyList(const Texts& names, const Texts& values, const Texts& types, const Texts& extras);

  int count() const { return static_cast<int>(m_rows.size()); }
  Property& operator[](int row) { return m_rows[static_cast<std::size_t>(row)]; }
  const Property& operator[](int row) const { return m_rows[static_cast<std::size_t>(row)]; }

  int findProperty(const QString& name) const; ///< the first row of that name; -1 for none
  /// A property's value with real line breaks; nothing where there is no such row.
  std::optional<QString> getProperty(const QString& name) const;
  int setProperty(const QString& name, const QString& value); ///< the row that took it; -1 for none
  const Property& addProperty(const Property& made);

  /// A text per row: the value, byte for byte as it was passed where nobody has changed it. That of
  /// an added row begins with its name, as the script does not know it.
  TextVector results() const;

  bool givesNames = false;  ///< every result begins with its row's name
  bool givesExtras = false; ///< every result ends with its row's extra text

private:
  YString resultText(const Property& property) const;

  std::deque<Property> m_rows;
};
