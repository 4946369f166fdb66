#pragma once

#include "HostSupport/YString.h"

#include <QStringList>

#include <optional>

/// What a property of a schematic or graph object is edited with.
enum class PropertyKind { Text, Font, Colour, Flagged, ReadOnly, Choice };

/// The kind that a type word stands for, in any letter case; a word that is none of the known ones
/// is a list of the values on offer.
PropertyKind propertyKind(const YString& type);

/// The value of a property and, of the kind `Flagged`, its attribute flags.
struct PropertyValue {
  QString text;                  ///< with real line breaks
  std::optional<int> attributes; ///< none where the value came without
};

/// Takes a value apart as a script passes it. Of the kind `Flagged`, the attribute flags stand
/// behind the last semicolon; those before it belong to the value. Null counts as empty.
PropertyValue readPropertyValue(const char* passed, PropertyKind kind);

/// The text that goes back for a value that came in `passed` (null for a new one): the value, byte
/// for byte where it has not been changed, and, where it has flags, a semicolon and their number.
YString writePropertyValue(const PropertyValue& value, const char* passed, PropertyKind kind);

/// A value in one line: each line break is shown as the two characters \n.
QString shownPropertyText(const QString& text);
/// The value that a user means by that line: \n is a line break.
QString typedPropertyText(const QString& line);

/// The values that a type word offers, separated by bars.
QStringList propertyChoices(const YString& type);
/// Position of `value` among them, -1 for none: the same text or else one that differs in case
/// only.
int propertyChoice(const QStringList& choices, const QString& value);
