#pragma once

class QWidget;

/// What somebody who hears a dialog needs of it. The program that links these rules has a reader in
/// it, as it were: whatever changes, it asks at once what has changed, be it finished or not.

/// Whether each widget that can have the focus, and each label, is what its class says, shown or
/// not, enabled or not.
void expectRoles(const QWidget* dialog);

/// Whether what a reader comes to on the page in front has a name, which tells it from the others.
void expectNames(QWidget* dialog);

/// Whether names and descriptions are words, without the tags of what is shown.
void expectWords(QWidget* dialog);

/// Whether what is off, or only to be read, takes nothing from a reader.
void expectOffStays(QWidget* dialog);
