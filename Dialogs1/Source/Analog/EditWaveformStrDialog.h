#pragma once

#include "Analog/WaveformDialog.h"

/// A waveform whose values may be expressions, and which remembers the values of each shape.
class EditWaveformStrDialog : public WaveformDialog {
  Q_OBJECT

public:
  EditWaveformStrDialog();

protected:
  std::unique_ptr<Waveform> makeWaveform(bool isBrennix) const override;
  void showShape(WaveShape shape) override;

private:
  void cbVisibleParameters_clicked(bool isChecked);
};
