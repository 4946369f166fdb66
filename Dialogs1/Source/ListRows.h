#pragma once

class QListWidget;
class QString;

/// A text of any length as one row of a list or table can show it: cut, and without line breaks.
QString rowText(QString text);

/// Gives all rows of a list the size of the widest, so that a list of any length is laid out at
/// once and still scrolls to the end of its texts. To be called again when its texts have changed.
void makeRowsUniform(QListWidget* list);
