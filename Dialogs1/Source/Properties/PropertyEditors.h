#pragma once

class ListViewProperty;
class QStringList;
class QWidget;

/// Opens the editor that fits a row's type over another dialog; the row takes what the user
/// settled, and stays as it was on cancel. `fontStyles` are the names that a property of the
/// schematic can choose from.
void editPropertyRow(QWidget* over, ListViewProperty* row, const QStringList& fontStyles);

/// Asks for a property that is not in the list yet. The row to be added at `rowIndex`, the
/// caller's; null on cancel.
ListViewProperty* askForNewProperty(QWidget* over, int rowIndex, const QStringList& fontStyles);
