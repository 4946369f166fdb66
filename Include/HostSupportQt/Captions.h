#pragma once

#include "HostSupportQt/Export.h"

#include <QString>

class QWidget;

/// A caption as the user reads it: without the marks of mnemonics.
HOSTSUPPORTQT_EXPORT QString plainCaption(const QString& caption);

/// A text as it is read out: the words of a rich one, without its tags and pictures.
HOSTSUPPORTQT_EXPORT QString plainText(const QString& text);

/// Describes what the window holds by its tool tips, without their tags, as Qt does not. What has a
/// description of its own keeps it.
HOSTSUPPORTQT_EXPORT void describeByToolTips(const QWidget* window);
