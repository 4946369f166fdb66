#pragma once

#include "HostSupport/YString.h"

#include <vector>

/// What a field of a typed form holds.
enum class FieldKind { Real, Integer, Flag, Text, Choice };

/// One field of a typed form, as a script describes it.
struct FieldDefinition {
  YString label;
  FieldKind kind = FieldKind::Real;
  YString items; ///< of a choice, separated by bars
  double min = 0;
  double max = 0;
  double step = 0; ///< 0: the field's usual steps
};

/// Reads "label:type:limits"; what is missing counts as empty, and a colon in the limits is theirs.
/// The type is one of real (or empty), integer, int, bool, string, list, in any letter case; a
/// field of any other type is a text, which takes every value. Null counts as empty.
FieldDefinition readFieldDefinition(const char* text);

/// The state that a flag's initial value stands for: "true" and "false" in any letter case, else
/// whether it begins with a whole number that is not 0.
bool initialFlag(const char* text);

/// The item that a choice's initial value stands for: the last one of that text, in any letter
/// case, else the number that it reads as, which may be none of the items.
double initialChoice(const YString& items, const char* text);

/// Where the fields of a typed form stand: numbers, flags, texts and choices one group below the
/// other, each in rows of its own length. A field takes two columns of the grid.
struct FieldGrid {
  struct Place {
    int field; ///< position in the definitions
    int row;
    int column; ///< the first of its two
  };
  std::vector<Place> places; ///< in reading order
  std::vector<int> lines;    ///< rows of the lines between groups
  int columns = 0;           ///< of the grid
};
FieldGrid arrangeFields(const std::vector<FieldKind>& kinds);
