#pragma once

#include "Core/Pieces/FontSpec.h"

#include <optional>

class QWidget;

/// Lets the user choose a font over another dialog (null: over none), starting from a font
/// specification or from the name of one of the host's fonts. Nothing on cancel. The colour, which
/// nobody is asked for, comes back as it was.
std::optional<FontSpec> askForFont(QWidget* over, const YString& initial);
