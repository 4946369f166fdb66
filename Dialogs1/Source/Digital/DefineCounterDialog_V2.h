#pragma once

#include "Digital/DefineCounterDialog.h"

/// A counter that can be loaded and count down, of up to 256 bits.
class DefineCounterDialog_V2 : public DefineCounterDialog {
  Q_OBJECT

public:
  DefineCounterDialog_V2();

  void initialiseDialog() override;

private:
  void updateEnables();
};
