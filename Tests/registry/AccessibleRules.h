#pragma once

class QWidget;

/// What somebody who hears a dialog needs of it. The program that links these rules has a reader in
/// it, as it were: whatever changes, it asks at once what has changed, be it finished or not.

/// Whether each widget that can have the focus, and each label, is what its class says, shown or
/// not, enabled or not; names and descriptions are words, without the tags of what is shown; and
/// what is off, or only to be read, takes nothing from a reader. The page in front has names.
/// Returns how many widgets were off.
int expectReadable(QWidget* dialog);

/// Whether what a reader comes to on the page in front has a name that tells it from the others,
/// and the columns of tables have one.
void expectNames(QWidget* dialog);
