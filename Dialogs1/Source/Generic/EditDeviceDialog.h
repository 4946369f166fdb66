#pragma once

#include "Core/Generic/OfferedNames.h"
#include "Frame/KelvarinDialog.h"
#include "Generic/ParametersDialog.h"
#include "Generic/ui_EditDeviceDialog.h"

using EditDeviceDialogData = OwnedParameters;

/// Names a device: a list of known names with an edit box above it, in which another may be typed.
/// Parameters, if the script passes any, are edited in a box of their own.
class EditDeviceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit EditDeviceDialog(const char* objectName = "EditDeviceDialog");

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  void readDialog(UserDataType type, bool accepted) override;

protected:
  /// Fills the list from argument 1, nothing selected.
  void load(const QString& title, const QString& caption, OfferedNames::Order order);
  /// Starts the user in the edit box, with the row (-1 for none) selected whatever the text.
  void start(const QString& text, int row);

  Ui::EditDeviceDialog form;
  OfferedNames offered;

private slots:
  void editBox_textChanged(const QString& text);
  void parametersButton_clicked();
  void listBox_clicked(QListWidgetItem* item);
  void selectAllButton_clicked();
  void listBox_doubleClicked();

private:
  void editBox_down();
  void listBox_selectionChanged();
  void selectRow(int row);
  ParametersDialog* parameters() const { return OwnedParameters::of(dialogData.get()); }

  bool listUpdating = false; ///< list and edit box are kept from answering each other in a circle
};
