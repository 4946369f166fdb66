#pragma once

class QLineEdit;
class QWidget;

/// The edit of a field that is one line of text, or has one inside; null for another field.
QLineEdit* lineEditOf(QWidget* field);

/// Selects all of a text, so that typing replaces it. Of one that is longer than its field the
/// beginning is in sight, which says more than the end.
void selectWhole(QLineEdit* edit);

/// Makes a field as wide as its text is, within reason, and shows the beginning of a longer one.
void fitText(QWidget* field);
