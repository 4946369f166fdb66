#pragma once

#include <QVariant>

class QWidget;

/// Brings a value into Qt's own chooser by mouse and keyboard: a colour "#rrggbb", a font
/// `{family, pointSize, bold, italic, underline, strikeOut}` (what is left out stays), a path or
/// several. Raises `DriveError` where the dialog is no chooser, or has no such value to choose.
void pickInChooser(QWidget* dialog, const QVariant& value);
