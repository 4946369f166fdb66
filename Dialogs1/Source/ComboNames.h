#pragma once

class QComboBox;
class QStringList;

/// Gives a combo box these names in ascending order, each with itself as item data, and selects the
/// first. Any number of them comes and goes in no time.
void showSortedNames(QComboBox* combo, const QStringList& names);
