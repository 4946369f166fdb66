#pragma once

class QComboBox;
class QStringList;

/// Gives a combo box these names and selects the first. Any number of them comes and goes in no
/// time.
void showNames(QComboBox* combo, const QStringList& names);
/// Gives a combo box these names in ascending order, each with itself as item data, and selects the
/// first.
void showSortedNames(QComboBox* combo, const QStringList& names);
