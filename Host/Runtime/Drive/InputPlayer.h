#pragma once

#include <QRect>
#include <QString>

#include <functional>

class QWidget;

/// Plays mouse and keyboard to widgets the way the platform would: events enter at the window, so
/// that hit tests, pop-ups, modal blocking, shortcuts and the focus decide as they do for a user.
/// What a user could not do raises `DriveError`.
namespace InputPlayer {

/// Delivers what is pending, until nothing is left that could happen without a user.
void settle();
/// Runs the event loop until the condition holds; false where it did not within that time.
bool waitFor(const std::function<bool()>& condition, int milliseconds = 5000);

/// Whether a modal dialog keeps the user from this window.
bool isBlocked(const QWidget* window);
/// Makes the window the active one, with the focus where it had it last.
void activate(QWidget* window);
/// Gives the focus to the widget or to a part of it, unless it is there already.
void focus(QWidget* widget, Qt::FocusReason reason = Qt::OtherFocusReason);
/// Leaves a field as a user does, so that what was typed counts.
void leave(QWidget* widget);
/// Closes menus, lists and completions that are open, by Escape.
void closePopups();

/// Clicks where the widget reacts: on a check box's indicator, else in its middle. A point that
/// other widgets cover is avoided; scroll areas are scrolled.
void click(QWidget* widget, bool twice = false);
/// Clicks inside of `area`, which is in the widget's coordinates.
void clickAt(QWidget* widget, const QRect& area, bool twice = false,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// Presses and releases one key with its modifiers ("Ctrl+V", "F1", "a"); it goes where the
/// window has its focus.
void pressKey(QWidget* window, const QString& keys);
void pressKey(QWidget* window, int key, Qt::KeyboardModifiers modifiers, const QString& text);
/// Types any text into the widget that has the focus; a line break is the Return key.
void typeText(QWidget* window, const QString& text);
/// Replaces what an edit holds: focus, select all, type. An empty text deletes.
void replaceText(QWidget* widget, const QString& text);

} // namespace InputPlayer
