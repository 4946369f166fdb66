#pragma once

#include <optional>

class QWidget;

/// Lets the user choose a colour over another dialog; colours have red in the low byte. Nothing on
/// cancel.
std::optional<int> askForColour(QWidget* over, int initial);
