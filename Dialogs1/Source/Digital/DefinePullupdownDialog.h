#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefinePullupdownDialog.h"

/// A device that gives a digital net a fixed state.
class DefinePullupdownDialog : public DigitalDeviceDialog<Ui::DefinePullupdownDialog> {
  Q_OBJECT

public:
  DefinePullupdownDialog();
};
