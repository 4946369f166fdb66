#pragma once

class QLabel;
class QString;
class QWidget;

/// A script's caption as it is shown: one that would be wider than any window is cut.
QString shownCaption(const QString& text);

/// The same for a label, which shows rich text: without what would open files.
QString labelText(const QString& text);

/// Shows a script's caption beside its field, and names the field by it, or by the window's title
/// where the caption is empty.
void captionField(QLabel* label, QWidget* field, const QString& caption);
