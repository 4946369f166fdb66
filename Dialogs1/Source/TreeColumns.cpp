#include "TreeColumns.h"

#include "ColumnWidths.h"
#include "HostSupport/Options.h"

#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

static constexpr char widthsSection[] = "ColumnWidths";
static constexpr int mostCharacters = 40; // of a column that nobody has set the width of

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
  const int most = tree->fontMetrics().averageCharWidth() * mostCharacters;
  for (int column = 0; column < count; ++column) {
    if (widths.empty())
      tree->resizeColumnToContents(column);
    tree->setColumnWidth(column, widths.empty() ? std::min(tree->columnWidth(column), most)
                                                : widths[static_cast<std::size_t>(column)]);
  }
}
