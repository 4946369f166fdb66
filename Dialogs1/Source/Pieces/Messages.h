#pragma once

class QString;
class QWidget;

/// A warning that quotes what the user typed or a file says: shown as it is written, since a
/// message box reads what looks like rich text.
void warn(QWidget* over, const QString& title, const QString& text);
