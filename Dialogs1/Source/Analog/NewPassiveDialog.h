#pragma once

#include "Analog/ui_NewPassiveDialog.h"
#include "Core/Analog/PreferredValues.h"
#include "Frame/KelvarinDialog.h"
#include "Generic/ParametersDialog.h"

using NewPassiveDialogData = OwnedParameters;

/// The value of a passive component: a preferred value times a decade, or any text. Base and decade
/// follow what is typed as the result, and the result follows them; neither rewrites what caused
/// it.
class NewPassiveDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit NewPassiveDialog(const char* objectName = "NewPassiveDialog");

  void prepareDialog(UserFunctionInterface* args, UserDataType type) override;
  void initialiseDialog() override;
  /// The value, the number of parameters and their values, all as strings.
  void readDialog(UserDataType type, bool accepted) override;

  virtual void baseEdit_changed(const QString&);
  virtual void rbE6_clicked() {} ///< another series counts from the next step on
  virtual void baseEdit_decrementing(double* value);
  virtual void baseEdit_incrementing(double* value);
  virtual void decadeEdit_decrementing(double* value);
  virtual void decadeEdit_incrementing(double* value);
  virtual void resultEdit_changed(const QString&);
  virtual void parametersButton_clicked();
  virtual void radioGroup_clicked(bool hasInitialCondition);

protected:
  PreferredSeries series() const;
  ParametersDialog* parameters() const { return OwnedParameters::of(dialogData.get()); }
  /// Makes a result of these texts, the number of parameters, their values, and further texts.
  void makeResult(const QStringList& first, const QStringList& last = {}) const;

  Ui::NewPassiveDialog form;
};
