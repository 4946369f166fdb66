#pragma once

#include "Analog/WaveformDialog.h"

/// A waveform in numbers.
class EditWaveformDialog : public WaveformDialog {
  Q_OBJECT

public:
  EditWaveformDialog() : WaveformDialog("EditWaveformDialog") {}

protected:
  std::unique_ptr<Waveform> makeWaveform(bool isBrennix) const override;
  WaveSettings pictured() const override;
};
