#pragma once

class QLineEdit;
class QWidget;

/// The edit of a field that is one line of text, or has one inside; null for another field.
QLineEdit* lineEditOf(QWidget* field);

/// Makes a field as wide as its text is, within reason.
void fitText(QWidget* field);
