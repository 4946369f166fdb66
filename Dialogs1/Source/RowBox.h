#pragma once

class QWidget;
class QString;

// What the boxes with one row per script element share.

/// Says so, and is true, where a script asks for more rows than anybody could answer: each is a
/// widget, and a million of them would stop the host for minutes.
bool refusesRowCount(unsigned rows, const QString& title);

/// Puts `contents` in a scroll area where it is taller than the screen has room for.
void scrollWhenTall(QWidget* contents);
