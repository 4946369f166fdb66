#pragma once

#include <QStringList>

class QLabel;
class QWidget;

/// Text i of a string vector; empty where there is none.
QString textAt(const char* const* texts, unsigned count, unsigned index);
/// All texts of a string vector.
QStringList textsOf(const char* const* texts, unsigned count);

/// A caption as it is shown: one that would be wider than any window is cut.
QString shownCaption(const QString& text);
/// Text i of a string vector as a caption.
QString captionAt(const char* const* texts, unsigned count, unsigned index);

/// Shows a script's caption beside its field, and names the field by it, or by the window's title
/// where the caption is empty.
void captionField(QLabel* label, QWidget* field, const QString& caption);
