#include "TreeColumns.h"

#include "ColumnWidths.h"
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
  cfgman_WriteConfigSetting(widthsSection, key, writeColumnWidths(widths));
}

void restoreColumnWidths(QTreeView* tree, const char* key) {
  const int count = tree->header()->count();
  YString stored;
  cfgman_GetConfigSetting(widthsSection, key, &stored);
  const std::vector<int> widths = readColumnWidths(stored, count);
  const int character = tree->fontMetrics().averageCharWidth();
  for (int column = 0; column < count; ++column) {
    if (widths.empty())
      tree->resizeColumnToContents(column);
    tree->setColumnWidth(column, widths.empty() ? std::clamp(tree->columnWidth(column),
                                                             leastCharacters * character,
                                                             mostCharacters * character)
                                                : widths[static_cast<std::size_t>(column)]);
  }
}
