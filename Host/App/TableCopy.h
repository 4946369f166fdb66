#pragma once

class QAbstractItemView;
class QTableView;

/// Gives the view a Copy action (Ctrl+C, and in its context menu) that puts the selected cells on
/// the clipboard, columns separated by tabs.
void addCopyAction(QAbstractItemView* view);

/// The look of the workbench's tables: read-only, striped, dense, and left by Tab; with a Copy
/// action.
void setUpTable(QTableView* table);
