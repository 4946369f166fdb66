#pragma once

#include "Digital/DefineMultiplexerDialog.h"

/// A demultiplexer: it counts its outputs where a multiplexer counts its inputs.
class DefineDeMultiplexerDialog : public DefineMultiplexerDialog {
  Q_OBJECT

public:
  DefineDeMultiplexerDialog();
};
