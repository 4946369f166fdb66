#pragma once

#include "Analog/ui_DVMSelectTest.h"
#include "Core/Analog/TestTree.h"
#include "Frame/KelvarinDialog.h"

/// A tree of tests in folders, each with a check box.
class DVMSelectTest : public KelvarinDialog {
  Q_OBJECT

public:
  DVMSelectTest();

  void initialiseDialog() override;
  /// For each test "on" or "off", and the levels that lead to it.
  void readDialog(UserDataType type, bool accepted) override;

private slots:
  /// What is below an item is checked as it is.
  void slotItemClicked(QTreeWidgetItem* item, int column);

private:
  void itemChanged(QTreeWidgetItem* item, int column);

  Ui::DVMSelectTest form;
  TestTree tests;
  std::vector<QTreeWidgetItem*> items; ///< of the nodes of `tests`
};
