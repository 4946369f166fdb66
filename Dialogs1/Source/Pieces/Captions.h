#pragma once

#include <initializer_list>

class QAbstractButton;
class QGroupBox;
class QLabel;
class QString;
class QWidget;

/// A script's caption as it is shown: one that would be wider than any window is cut.
QString shownCaption(const QString& text);

/// The same as one line, for the heading of a column.
QString shownHeading(const QString& text);

/// The same for a label, which shows rich text: without what would open files.
QString labelText(const QString& text);

/// A script's caption of a check box or another button: an ampersand is seen as written; of a long
/// one the middle is left out, and stands in the tool tip.
void captionButton(QAbstractButton* button, const QString& caption);
/// Whether a script may give a mnemonic: then an ampersand before a letter marks it.
enum class Ampersands { AsWritten, MarkMnemonics };
/// The same for the title of a group.
void captionGroup(QGroupBox* group, const QString& caption,
                  Ampersands ampersands = Ampersands::AsWritten);
/// The same for the label of something that needs the room more; it can be given another caption.
void captionShortly(QLabel* label, const QString& caption);

/// Tells who points at a widget, or hears it, all of a caption that it shows in part.
void tellWhole(QWidget* widget, const QString& whole);

/// Lets controls be used where nothing speaks against it; else they are off, and the reason is
/// their tool tip.
void enableUnless(const QString& reason, std::initializer_list<QWidget*> widgets);
