#include "Pieces/TreeColumns.h"

#include "Core/Pieces/ColumnWidths.h"
#include "HostSupport/Options.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

static constexpr char widthsSection[] = "ColumnWidths";
// Of a column that nobody has set the width of. What is in it today is not what is in it tomorrow,
// when the width is still remembered.
static constexpr int leastCharacters = 12;
static constexpr int mostCharacters = 40;

void saveColumnWidths(const QTreeView* tree, const char* key) {
  std::vector<int> widths;
  for (int column = 0; column < tree->header()->count(); ++column)
    widths.push_back(tree->columnWidth(column));
  // Writing says by itself when it fails; a forgotten width is not worth stopping for.
  sp_RememberSetting(widthsSection, key, writeColumnWidths(widths));
}

void restoreColumnWidths(QTreeView* tree, const char* key) {
  const int count = tree->header()->count();
  YString stored;
  cfgman_GetConfigSetting(widthsSection, key, &stored);
  const std::vector<int> widths = readColumnWidths(stored, count);
  const int character = tree->fontMetrics().averageCharWidth();
  // A last column that takes the room that the others leave has no width of its own.
  const int settable = tree->header()->stretchLastSection() ? count - 1 : count;
  for (int column = 0; column < count; ++column) {
    const bool isStored = !widths.empty() && column < settable;
    if (!isStored)
      tree->resizeColumnToContents(column);
    tree->setColumnWidth(column, isStored ? widths[static_cast<std::size_t>(column)]
                                          : std::clamp(tree->columnWidth(column),
                                                       leastCharacters * character,
                                                       mostCharacters * character));
  }
}
