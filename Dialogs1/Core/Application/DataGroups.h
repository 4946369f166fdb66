#pragma once

#include "Core/Pieces/RowBlocks.h"
#include "HostSupport/YString.h"

/// What is said of a data group beside its texts. The global group is the one that is always there.
struct DataGroupFlags {
  bool isGlobal = false;
  bool isKeep = false;
  bool isCurrent = false;
  bool isDeleted = false;
};

/// A data group as a script describes it.
struct DataGroup {
  YString name;
  YString title;
  YString analysis;
  DataGroupFlags flags;
};

/// Reads "name;title;analysis;flags", where the flags are of the words global, keep and current in
/// any letter case, with bars between them. What is missing counts as empty, other words as none;
/// null counts as empty.
DataGroup readDataGroup(const char* line);
/// Writes "name;title;flags" with bars between the words, "deleted" the last.
YString writeDataGroup(const YString& name, const YString& title, const DataGroupFlags& flags);
/// The words global, keep and current that apply, in this order.
YString dataGroupWords(const DataGroupFlags& flags, const char* separator);

/// The groups of a list in row order. Their flags belong to the list's items and have to outlive
/// this.
///
/// Rows are passed as blocks in any order, which must not overlap; those of deleted groups count as
/// not passed. Every operation is linear in the number of groups.
class DataGroups {
public:
  /// What can be done with the groups selected.
  struct Actions {
    bool setCurrent = false;
    bool remove = false;
    bool keep = false;
    bool removeAll = false;
    bool editTitle = false;
  };
  /// What a deletion leaves to be shown.
  struct Removal {
    RowBlocks deleted;
    RowBlocks selected;
    int cursor = -1; ///< where the user goes on; -1 where no group is left
  };

  void append(DataGroupFlags* group) { m_groups.push_back(group); }

  /// The row of the current group, -1 for none.
  int current() const;
  Actions actions(const RowBlocks& selected) const;
  void keep(const RowBlocks& selected);
  void setCurrent(int row);
  /// Deletes what is selected but for global groups. What follows the last one is selected where
  /// nothing else stays so. If the current group goes, the first one that is left is the current
  /// one, the global group only where it is alone.
  Removal remove(const RowBlocks& selected);
  /// Deletes all but global groups; the global group is the current one then.
  Removal removeAll();

private:
  DataGroupFlags& at(int row) const { return *m_groups[static_cast<std::size_t>(row)]; }
  int count() const { return static_cast<int>(m_groups.size()); }
  bool isDeletable(int row) const { return !at(row).isGlobal && !at(row).isDeleted; }
  /// The rows that `wanted` is true for, of those passed.
  template <class Wanted> RowBlocks filtered(const RowBlocks& rows, Wanted wanted) const;
  template <class Wanted> int firstRow(Wanted wanted) const;
  /// True if one of them was the current group.
  bool markDeleted(const RowBlocks& rows);
  /// The nearest row behind `row` that is not deleted.
  int rowBehind(int row) const;
  int rowBefore(int row) const;

  std::vector<DataGroupFlags*> m_groups;
};
