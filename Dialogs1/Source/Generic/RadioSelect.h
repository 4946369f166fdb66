#pragma once

#include "Frame/KelvarinDialog.h"
#include "Generic/ui_RadioSelect.h"

#include <optional>

/// One of several, as radio buttons, with an optional check box below.
class RadioSelect : public KelvarinDialog {
  Q_OBJECT

public:
  explicit RadioSelect(QWidget* parent = nullptr);

  int helpContextId() override;
  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  /// The number of the button from 1, and the check box where there is one; a single 0 on cancel.
  void readDialog(UserDataType type, bool accepted) override;

  void load(const QString& title, const QString& heading, const QString& option);
  /// `number`, from 1, is the button that is checked.
  void fillGroup(const QStringList& captions, int number);
  int number() const { return form.radioGroup1->value() + 1; }

private:
  Ui::Form1 form;
  YString helpNumber;
  bool hasCheckBox = false;
};

/// Lets the user choose one of several over another dialog; `row` is the one chosen at first, -1
/// for none. Gives the row chosen; nothing on cancel, or where none was.
std::optional<int> askForChoice(QWidget* over, const QString& title, const QStringList& choices,
                                int row);
