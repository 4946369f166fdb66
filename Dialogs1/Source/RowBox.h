#pragma once

#include "KelvarinDialog.h"
#include "ui_NewValueDialog.h"

/// Base of the boxes on the form "NewValueDialog", whose rows are made from the script's arguments.
class RowBox : public KelvarinDialog {
public:
  explicit RowBox(const char* objectName);

  void initialiseDialog() override; ///< the rows have loaded themselves

protected:
  void showEvent(QShowEvent* event) override; ///< shrinks to the rows, unless a size is remembered
  void hideSelectButtons();
  /// Once the rows are in: the user starts in `first` (null: nowhere), and rows that are taller
  /// than the screen scroll.
  void finishRows(QWidget* first);

  Ui::NewValueDialog form;
};

/// Elements of a vector argument of the kind asked for; 0 where it is missing or of another kind.
unsigned realCount(UserFunctionInterface* call, int index);
unsigned stringCount(UserFunctionInterface* call, int index);

/// Says so, and is true, where a script asks for more rows than anybody could answer: each is a
/// widget, and a million of them would stop the host for minutes.
bool refusesRowCount(unsigned rows, const char* function);

/// Text i of a string vector; empty where there is none.
QString captionAt(const char* const* texts, unsigned count, unsigned index);
