#pragma once

#include "Core/Analog/Waveform.h"

/// The timing of a waveform in numbers: width and period lead to duty and frequency, and back.
/// Default edges are a hundredth of the width each.
class WaveformNumbers : public Waveform {
public:
  std::unique_ptr<Waveform> clone() const override;

  void open(const WaveTiming& loaded) override;
  void setShape(WaveShape shape) override;
  void edit(WaveField field, const WaveValue& value) override;
  void setEqualEdges(bool on) override;
  void setDefaultEdges(bool on) override;

private:
  void checkEdges();
  void update(WaveField sender);
  void followTimes(WaveField sender);
  void followFrequency();
  void edgesFollowWidth();
  void dutyFollowsTimes();
  double edges() const; ///< what of both edges counts as on
};
