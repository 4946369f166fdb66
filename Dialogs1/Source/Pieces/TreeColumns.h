#pragma once

class QTreeView;

/// Keeps the widths of a tree's columns in the settings, under `key`.
void saveColumnWidths(const QTreeView* tree, const char* key);
/// Gives the columns the widths kept, or, where none are that can be used, those of their contents.
void restoreColumnWidths(QTreeView* tree, const char* key);
