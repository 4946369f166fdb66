#pragma once

#include "HostSupport/YString.h"
#include "HostSupportQt/Export.h"

#include <QString>

class QLabel;
class QObject;
class QPixmap;

/// Loads a picture (a resource or file name, or a name below the host's image folder) that was
/// drawn for `dpi`, at the size that the screen's resolution asks for. False where there is none.
HOSTSUPPORTQT_EXPORT bool sp_GetPixmap(const QString& name, QPixmap* pixmap, int dpi);
/// Scales a picture that was drawn for `dpi` to the screen's resolution.
HOSTSUPPORTQT_EXPORT void sp_ScalePixmap(QPixmap* pixmap, int dpi);
HOSTSUPPORTQT_EXPORT YString sp_GetImagePath(const YString& name);
/// The host's font of that name as a font specification: from the option of that name, or of the
/// name behind "Font", else of the system for "Standard", "Fixed" and "Title"; empty if none.
HOSTSUPPORTQT_EXPORT YString sp_GetFontSpec(const YString& name);
/// Makes a label look and act as a link: a click or Return calls the slot `linkActivated(QString)`
/// of `receiver`, or opens the address where it is null.
HOSTSUPPORTQT_EXPORT void sp_CvtToHyperlink(QLabel* label, QObject* receiver);
// Colours in numbers are packed with red in the low byte: 0xBBGGRR.

/// From any text that `sp_ReadColour` takes; 0 from others.
HOSTSUPPORTQT_EXPORT int sp_ConvertHTMLcolourToRGB(const YString& colour);
HOSTSUPPORTQT_EXPORT YString sp_ConvertRGBcolourToHTML(int colour);
