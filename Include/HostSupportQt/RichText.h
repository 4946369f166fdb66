#pragma once

#include "HostSupportQt/Export.h"

#include <QImage>
#include <QString>

class QUrl;

// Texts and documents that come from scripts and files, and are shown as rich text where they look
// so. Looking at one contacts nobody, opens no file of its choice, and comes to an end.

/// A text of somebody else as a label, a message or a tool tip may show it: rich text stays,
/// pictures and style sheets go but for those in our resources (":/…") or in the text itself
/// ("data:…"). One that could not be laid out in reasonable time is shown as it is written.
HOSTSUPPORTQT_EXPORT QString harmlessText(const QString& text);

/// Why a rich text is not laid out: a clause for the user, as "its tables have more than 20000
/// cells"; empty where it can be laid out within a few seconds.
HOSTSUPPORTQT_EXPORT QString layoutFault(const QString& text);

/// The same of a text in Markdown, which may have tags in it.
HOSTSUPPORTQT_EXPORT QString markdownFault(const QString& text);

/// The same of a style sheet that is not part of the text.
HOSTSUPPORTQT_EXPORT bool isTooLargeSheet(const QString& sheet);

/// The bytes that a "data:" URL stands for.
HOSTSUPPORTQT_EXPORT QByteArray dataOf(const QUrl& url);

/// A picture in one of the formats that Qt reads, or an empty frame in its place where it is none
/// or has more points than `mostPixels`. Never null: a document would then look for a file itself.
HOSTSUPPORTQT_EXPORT QImage pictureOf(const QByteArray& bytes, qint64 mostPixels);

/// Characters of the longest run without a blank at which a line may break. Finding where to break
/// a run takes time that grows with its square.
HOSTSUPPORTQT_EXPORT int longestWord(const QString& text);
