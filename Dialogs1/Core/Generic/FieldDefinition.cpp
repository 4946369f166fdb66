#include "Core/Generic/FieldDefinition.h"

#include "Core/Frame/Integers.h"
#include "Core/Frame/Words.h"
#include "HostSupport/Numbers.h"
#include "HostSupport/Parsing.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double largestReal = 1e100;
constexpr double largestInteger = 2147483647;
constexpr int mostColumns = 10;
constexpr int groupCount = 4;

constexpr Words<FieldKind> kindWords = {
    {"", FieldKind::Real},       {"real", FieldKind::Real}, {"integer", FieldKind::Integer},
    {"int", FieldKind::Integer}, {"bool", FieldKind::Flag}, {"string", FieldKind::Text},
    {"list", FieldKind::Choice},
};
constexpr Words<bool> flagWords = {{"true", true}, {"false", false}};

double numberOr(const YString& text, double missing) {
  return text.isEmpty() ? missing : sp_ConvertEngToReal(text);
}

void readLimits(const YString& text, FieldDefinition* field) {
  const bool whole = field->kind == FieldKind::Integer;
  YArray<YString> limits;
  sp_SplitLine(text, '|', &limits, 3);
  field->min = numberOr(limits.value(0), whole ? 0 : -largestReal);
  field->max = numberOr(limits.value(1), whole ? largestInteger : largestReal);
  field->step = std::max(numberOr(limits.value(2), 0), 0.0);
}

int groupOf(FieldKind kind) {
  switch (kind) {
  case FieldKind::Real:
  case FieldKind::Integer:
    return 0;
  case FieldKind::Flag:
    return 1;
  case FieldKind::Text:
    return 2;
  case FieldKind::Choice:
    break;
  }
  return 3;
}

/// About three rows to two columns; the margin keeps a whole root whole.
int columnsFor(int fields) {
  return std::clamp(static_cast<int>(std::sqrt(2.0 * fields / 3.0 + 1e-6)), 1, mostColumns);
}

} // namespace

FieldDefinition readFieldDefinition(const char* text) {
  YArray<YString> parts;
  sp_SplitLine(text, ':', &parts, 3);
  FieldDefinition field;
  field.label = parts.value(0);
  field.kind = kindWords.read(parts.value(1), FieldKind::Text);
  if (field.kind == FieldKind::Choice)
    field.items = parts.value(2);
  else
    readLimits(parts.value(2), &field);
  return field;
}

bool initialFlag(const char* text) {
  return flagWords.read(text, leadingInteger(text) != 0);
}

double initialChoice(const YString& items, const char* text) {
  YArray<YString> texts;
  sp_SplitLine(items, '|', &texts, allFields);
  for (int i = texts.count() - 1; i >= 0; --i)
    if (sp_CompareNoCase(texts[i], text) == 0)
      return i;
  return sp_ConvertEngToReal(text);
}

FieldGrid arrangeFields(const std::vector<FieldKind>& kinds) {
  std::vector<int> groups[groupCount];
  for (std::size_t i = 0; i < kinds.size(); ++i)
    groups[groupOf(kinds[i])].push_back(static_cast<int>(i));

  FieldGrid grid;
  grid.places.reserve(kinds.size());
  int firstRow = 0;
  for (const std::vector<int>& group : groups) {
    const int count = static_cast<int>(group.size());
    if (count == 0)
      continue;
    if (firstRow > 0)
      grid.lines.push_back(firstRow++);
    const int columns = columnsFor(count);
    for (int i = 0; i < count; ++i)
      grid.places.push_back(
          {group[static_cast<std::size_t>(i)], firstRow + i / columns, 2 * (i % columns)});
    firstRow += (count - 1) / columns + 1;
    grid.columns = std::max(grid.columns, 2 * columns);
  }
  return grid;
}
