#pragma once

#include <initializer_list>

class QAbstractButton;
class QGroupBox;
class QString;
class QWidget;

/// A script's caption as it is shown: one that would be wider than any window is cut.
QString shownCaption(const QString& text);

/// The same for a label, which shows rich text: without what would open files.
QString labelText(const QString& text);

/// A script's caption of a check box or another button: an ampersand is seen as written; of a long
/// one the middle is left out, and stands in the tool tip.
void captionButton(QAbstractButton* button, const QString& caption);
/// The same for the title of a group, where an ampersand before a letter marks a mnemonic.
void captionGroup(QGroupBox* group, const QString& caption);

/// Lets controls be used where nothing speaks against it; else they are off, and the reason is
/// their tool tip.
void enableUnless(const QString& reason, std::initializer_list<QWidget*> widgets);
