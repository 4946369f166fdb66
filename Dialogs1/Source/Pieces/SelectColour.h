#pragma once

#include <QColor>
#include <QPixmap>

#include <optional>

class QWidget;

/// A colour packed in a number with red in the low byte.
QColor unpackedColour(int packed);
int packedColour(const QColor& colour);

/// A patch of a packed colour, for a list.
QPixmap colourPatch(int packed);

/// Lets the user choose a colour over another dialog; packed colours in and out. Nothing on cancel.
std::optional<int> askForColour(QWidget* over, int initial);
