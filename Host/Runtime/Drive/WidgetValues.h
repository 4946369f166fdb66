#pragma once

#include <QString>
#include <QVariant>

class QWidget;

// What one widget shows, and the shortest way for a user to bring a value into it, by class.

/// The text of a widget, plain for edits of any kind, else as it was set, mnemonics included;
/// raises `DriveError` where it has none.
QString widgetText(const QWidget* widget);
bool hasWidgetText(const QWidget* widget);
/// The widget in a cell that shows its value: the one that stands there, or the first part of a
/// container that has a text. Null for null.
QWidget* valueWidget(QWidget* inCell);
QVariant widgetValue(const QWidget* widget);
bool isWidgetChecked(const QWidget* widget);
/// A property as a script reads it: colours as "#rrggbb", fonts, sizes and rectangles as maps.
QVariant widgetProperty(const QWidget* widget, const QString& property);

/// A number as it is typed; every other value as its text.
QString typedText(const QVariant& value);
bool isNumber(const QVariant& value);
/// A row, an index or a slider's value; raises `DriveError` for what is not a whole number.
int toIndex(const QVariant& value);

/// Types into an edit or spinner and leaves it, picks the entry of a combo box, brings what can be
/// checked to a state, moves a slider, brings a tab to the front.
void setWidget(QWidget* widget, const QVariant& value);
/// Brings a tab to the front by a click on it; false where there is none of that caption or index.
bool bringTab(QWidget* tabs, const QVariant& captionOrIndex);
/// Captions of a tab widget or tab bar, without mnemonics.
QStringList tabCaptions(const QWidget* tabs);
/// Picks the entry of a combo box in its list.
void pickEntry(QWidget* comboBox, int row);
/// Raises `DriveError` where a user could not act on the widget: hidden or disabled.
void requireUsable(const QWidget* widget);
