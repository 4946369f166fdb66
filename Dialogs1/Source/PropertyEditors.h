#pragma once

#include <QStringList>

class ListViewProperty;
class QWidget;

/// Opens the editor that fits a row's type over another dialog; the row takes what the user
/// settled. `fontStyles` are the names that a property of the schematic can choose from. Returns
/// whether the row's value is another one now.
bool editPropertyRow(QWidget* over, ListViewProperty* row, const QStringList& fontStyles);
