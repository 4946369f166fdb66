#pragma once

class QListWidget;

/// Gives all rows of a list the size of the widest, so that a list of any length is laid out at
/// once and still scrolls to the end of its texts. To be called again when its texts have changed.
void makeRowsUniform(QListWidget* list);
