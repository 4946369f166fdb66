#include "Core/Application/DataGroups.h"

#include "Core/Frame/Words.h"
#include "HostSupport/Parsing.h"

namespace {

enum Field { Name, Title, Analysis, Flags, fieldCount };

constexpr Words<bool DataGroupFlags::*> flagWords = {{"global", &DataGroupFlags::isGlobal},
                                                     {"keep", &DataGroupFlags::isKeep},
                                                     {"current", &DataGroupFlags::isCurrent}};

void addWord(YString* words, const char* separator, const char* word) {
  *words = words->concat(words->isEmpty() ? "" : separator).concat(word);
}

} // namespace

DataGroup readDataGroup(const char* line) {
  YArray<YString> fields;
  sp_SplitLine(line, ';', &fields, fieldCount);
  DataGroup group{fields.value(Name), fields.value(Title), fields.value(Analysis), {}};
  YArray<YString> words;
  sp_SplitLine(fields.value(Flags), '|', &words, allFields);
  for (const YString& word : words)
    if (const auto flag = flagWords.read(word))
      group.flags.*(*flag) = true;
  return group;
}

YString dataGroupWords(const DataGroupFlags& flags, const char* separator) {
  YString words;
  for (const auto& known : flagWords)
    if (flags.*known.value)
      addWord(&words, separator, known.word);
  return words;
}

YString writeDataGroup(const YString& name, const YString& title, const DataGroupFlags& flags) {
  YString words = dataGroupWords(flags, "|");
  if (flags.isDeleted)
    addWord(&words, "|", "deleted");
  return name.concat(";").concat(title).concat(";").concat(words);
}

template <class Wanted> RowBlocks DataGroups::filtered(const RowBlocks& rows, Wanted wanted) const {
  RowBlocks found;
  for (const RowBlock& block : tidied(rows))
    for (int row = block.first; row <= block.last; ++row)
      if (wanted(row)) {
        if (!found.empty() && found.back().last == row - 1)
          found.back().last = row;
        else
          found.push_back({row, row});
      }
  return found;
}

template <class Wanted> int DataGroups::firstRow(Wanted wanted) const {
  for (int row = 0; row < count(); ++row)
    if (wanted(row))
      return row;
  return -1;
}

int DataGroups::current() const {
  return firstRow([this](int row) { return at(row).isCurrent; });
}

DataGroups::Actions DataGroups::actions(const RowBlocks& selected) const {
  const RowBlocks rows = filtered(selected, [this](int row) { return !at(row).isDeleted; });
  const bool isOne = rows.size() == 1 && rows.front().first == rows.front().last;
  Actions actions;
  actions.setCurrent = isOne;
  // Global groups count as well, alone too: the button's tip says why they stay.
  actions.remove = actions.keep = !rows.empty();
  actions.removeAll = firstRow([this](int row) { return isDeletable(row); }) >= 0;
  actions.editTitle = isOne && !at(rows.front().first).isGlobal;
  return actions;
}

void DataGroups::keep(const RowBlocks& selected) {
  for (const RowBlock& block : selected)
    for (int row = block.first; row <= block.last; ++row)
      at(row).isKeep |= !at(row).isDeleted;
}

void DataGroups::setCurrent(int row) {
  for (DataGroupFlags* group : m_groups)
    group->isCurrent = false;
  if (row >= 0)
    at(row).isCurrent = true;
}

bool DataGroups::markDeleted(const RowBlocks& rows) {
  bool hadCurrent = false;
  for (const RowBlock& block : rows)
    for (int row = block.first; row <= block.last; ++row) {
      hadCurrent |= at(row).isCurrent;
      at(row) = DataGroupFlags();
      at(row).isDeleted = true;
    }
  return hadCurrent;
}

int DataGroups::rowBehind(int row) const {
  do
    ++row;
  while (row < count() && at(row).isDeleted);
  return row < count() ? row : -1;
}

int DataGroups::rowBefore(int row) const {
  do
    --row;
  while (row >= 0 && at(row).isDeleted);
  return row;
}

DataGroups::Removal DataGroups::remove(const RowBlocks& selected) {
  Removal removal;
  removal.deleted = filtered(selected, [this](int row) { return isDeletable(row); });
  removal.selected = filtered(selected, [this](int row) { return at(row).isGlobal; });
  if (removal.deleted.empty())
    return removal;

  if (markDeleted(removal.deleted)) {
    const int next = firstRow([this](int row) { return isDeletable(row); });
    setCurrent(next >= 0 ? next : firstRow([this](int row) { return at(row).isGlobal; }));
  }
  const int last = removal.deleted.back().last;
  const int behind = rowBehind(last);
  if (removal.selected.empty() && behind >= 0)
    removal.selected.push_back({behind, behind});
  if (!removal.selected.empty())
    removal.cursor = removal.selected.front().first;
  else
    removal.cursor = rowBefore(last);
  return removal;
}

DataGroups::Removal DataGroups::removeAll() {
  Removal removal;
  if (m_groups.empty())
    return removal;
  removal.deleted = filtered({{0, count() - 1}}, [this](int row) { return isDeletable(row); });
  markDeleted(removal.deleted);
  const int global = firstRow([this](int row) { return at(row).isGlobal; });
  setCurrent(global);
  if (global >= 0)
    removal.selected.push_back({global, global});
  removal.cursor = global;
  return removal;
}
