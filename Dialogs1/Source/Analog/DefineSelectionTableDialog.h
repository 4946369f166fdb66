#pragma once

#include "Analog/ui_DefineSelectionTableDialog.h"
#include "Core/Analog/SelectionTable.h"
#include "Frame/KelvarinDialog.h"

/// A cell of a row that is not checked.
class NoEdit_NoHighlight_Item : public QTableWidgetItem {
public:
  NoEdit_NoHighlight_Item(const QString& text, const QPalette& palette);
};

/// A cell of a row that is checked.
class NoEdit_Highlight_Item : public QTableWidgetItem {
public:
  explicit NoEdit_Highlight_Item(const QString& text);
};

/// A table of a script's own, in which rows are checked.
class DefineSelectionTableDialog : public KelvarinDialog {
  Q_OBJECT

public:
  DefineSelectionTableDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;
  void helpClicked() override;
  void okClicked() override;

private slots:
  void setRow(int row, const QStringList& fields);
  void acceptDialog();
  void cellisClicked(int row, int column);

private:
  void loadTable();
  void loadHeader();
  void fitCells();
  void fitRows();
  void loadCaptions();
  void connectTable();
  void itemChanged(const QTableWidgetItem* item);
  void checkOnly(int row);
  /// What the space bar does, in whatever column it is hit.
  void toggleSelectedRows();
  void showCells(int row);
  bool isChecked(int row) const;

  Ui::DefineSelectionTableDialog form;
  TableOptions options;
  SelectionTable contents;
  int helpNumber = -1;
};
