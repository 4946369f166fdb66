#pragma once

#include "Analog/ui_DCSourceDialog.h"
#include "Frame/KelvarinDialog.h"

/// The value of a DC source: a number, or a text that may be an expression. Buttons put in the
/// usual supplies.
class DCSourceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit DCSourceDialog(const char* objectName = "DCSourceDialog");

  void initialiseDialog() override; ///< selects the value, so that typing replaces it

  virtual void zeroButton_clicked();
  virtual void plusFiveButton_clicked();
  virtual void plusTwelveButton_clicked();
  virtual void plusFifteenButton_clicked();

private:
  Ui::DCSourceDialog form;
};
