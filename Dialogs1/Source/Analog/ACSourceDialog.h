#pragma once

#include "Analog/ui_ACSourceDialog.h"
#include "Frame/KelvarinDialog.h"

/// Magnitude and phase of a source in an AC analysis: numbers, or texts that may be expressions.
class ACSourceDialog : public KelvarinDialog {
  Q_OBJECT

public:
  explicit ACSourceDialog(const char* objectName = "ACSourceDialog");

private:
  Ui::ACSourceDialog form;
};
