#pragma once

#include "Digital/DigitalDeviceDialog.h"
#include "Digital/ui_DefineMultiplexerDialog.h"

/// A multiplexer.
class DefineMultiplexerDialog : public DigitalDeviceDialog<Ui::DefineMultiplexerDialog> {
  Q_OBJECT

public:
  explicit DefineMultiplexerDialog(const char* name = "DefineMultiplexerDialog");
};
