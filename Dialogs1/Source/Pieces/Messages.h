#pragma once

class QString;
class QWidget;

/// A warning that quotes what the user typed or a file says: shown as it is written, since a
/// message box reads what looks like rich text.
void warn(QWidget* over, const QString& title, const QString& text);

/// What the user typed, as a part of a message in rich text: shown as it is written, cut where no
/// message could show it, and broken into lines where it has no blanks.
QString asTyped(const QString& text);
