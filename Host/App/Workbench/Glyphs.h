#pragma once

#include <QIcon>

/// The pictures of the workbench's tool buttons, drawn in the colours of the present palette at any
/// resolution.
enum class Glyph { New, Open, Save, Run, Stop, Back, Forward, Contents, Search };
QIcon glyphIcon(Glyph glyph);
