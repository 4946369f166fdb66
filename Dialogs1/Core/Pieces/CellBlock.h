#pragma once

#include <QStringList>
#include <QVector>

/// The rows and cells of a block that a spreadsheet has put on the clipboard: rows end with a line
/// break, cells are separated by tabs or, where there is no tab, by commas.
QVector<QStringList> cellsOfBlock(const QString& text);
