#pragma once

#include <QString>
#include <QVector>

// The schematic editor, as far as the development host has one: what scripts set, what modules
// passed, and the user's click.

bool hasSchematic(); ///< is a schematic open
void setHasSchematic(bool on);
/// The values that modules passed as they began and ended picking, in order.
QVector<int> passedPicking();

/// Hands the text to the installed paste object; false when none is installed.
bool pasteText(const QString& text);
