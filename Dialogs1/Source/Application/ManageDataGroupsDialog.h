#pragma once

#include "Application/ManageDataItem.h"
#include "Application/ui_ManageDataGroupsDialog.h"
#include "Frame/KelvarinDialog.h"

/// The simulation data groups that the host holds: which are to go, which to stay, their titles,
/// and which is the current one.
class ManageDataGroupsDialog : public KelvarinDialog {
  Q_OBJECT

public:
  ManageDataGroupsDialog();

  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

private slots:
  void setCurrentGroupButtonClicked();
  void deleteGroupButtonClicked();
  void keepGroupButtonClicked();
  void deleteAllGroupsButtonClicked();
  void editTitleButtonClicked();
  void manageGroupsListWidgetSelectionChanged();

private:
  void showRemoval(const DataGroups::Removal& removal);
  void showFlags();
  void onKey(int key, QPushButton* button);

  Ui::ManageDataGroupsDialog form;
  DataGroups groups;
};
