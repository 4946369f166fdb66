#pragma once

#include <QColor>

class QFont;
class QPalette;

/// The palettes of the workbench and of the tour's pictures.
enum class PaletteKind { Light, Dark };

void applyPalette(PaletteKind kind); ///< to the whole application
bool isDark(const QPalette& palette);

/// Colours that a palette has no role for, readable on its base colour.
struct InkColours {
  QColor keyword, text, number, comment, function, error, success;
};
InkColours inkColours(const QPalette& palette);
QColor ruleColour(const QPalette& palette); ///< of lines between cells

/// The system's font for code; one of fixed pitch also where the system names none.
QFont codeFont();
