#include "Analog/EditWaveformDialog.h"

#include "Core/Analog/WaveformNumbers.h"
#include "Frame/ScriptFunction.h"

static const ScriptFunction declaration("EditWaveformDialog", 1, "RRS", RealVectorResult,
                                        runDialogFunction<EditWaveformDialog, UserReal>);

std::unique_ptr<Waveform> EditWaveformDialog::makeWaveform(bool) const {
  return std::make_unique<WaveformNumbers>();
}

WaveSettings EditWaveformDialog::pictured() const {
  WaveSettings settings = WaveformDialog::pictured();
  if (settings.shape == WaveShape::Sawtooth) // its duty field is what another shape has left
    settings.timing[std::size_t(WaveField::Duty)] = 100;
  return settings;
}
