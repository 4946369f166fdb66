#pragma once

#include <initializer_list>

class QAbstractItemView;
class QPushButton;
class QTableView;
class QWidget;

/// Gives the view a Copy action (Ctrl+C, and in its context menu) that puts the selected cells on
/// the clipboard, columns separated by tabs.
void addCopyAction(QAbstractItemView* view);

/// The look of the workbench's tables: read-only, striped, dense, and left by Tab; with a Copy
/// action.
void setUpTable(QTableView* table);

/// Fills a panel of the workbench with a table and a column of buttons beside it.
void layOutPanel(QWidget* panel, QTableView* table, std::initializer_list<QPushButton*> buttons);
