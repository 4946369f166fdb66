#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_NewValueDialog.h"

/// Base of the boxes on the form "NewValueDialog", whose rows are made from the script's arguments.
class RowBox : public KelvarinDialog {
public:
  explicit RowBox(const char* objectName);

  void initialiseDialog() override; ///< the rows have loaded themselves

protected:
  void showEvent(QShowEvent* event) override; ///< shrinks to the rows, unless a size is remembered
  void hideSelectButtons();
  /// Adds a line of text across the columns, which wraps where they are wider than the screen.
  void addHeading(const QString& text, int row, int columns);
  /// Adds a field with its caption before it, in the grid's `column` and the next, and names it for
  /// those who do not see it.
  void addCaptioned(QWidget* field, const QString& caption, int row, int column);
  /// The same for a field that shows its caption itself, across `columnSpan` columns.
  void addSelfCaptioned(QWidget* field, const QString& caption, int row, int column,
                        int columnSpan);
  /// Once the rows are in: the user starts in `first` (null: nowhere), and rows that the screen has
  /// no room for scroll.
  void finishRows(QWidget* first);

  Ui::NewValueDialog form;

private:
  QWidget* headingLabel = nullptr;
};

/// Elements of a real vector argument; 0 where it is missing or of another kind.
unsigned realCount(UserFunctionInterface* call, int index);

/// Says so, and is true, where a script asks for more rows than anybody could answer: each is a
/// widget, and a million of them would stop the host for minutes.
bool refusesRowCount(unsigned rows, QWidget* over = nullptr);

/// Puts `contents`, a widget in a layout, in a scroll area where it is larger than the screen has
/// room for; whether it did.
bool scrollWhenLarge(QWidget* contents);
