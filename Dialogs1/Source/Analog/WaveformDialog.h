#pragma once

#include "Analog/ui_EditWaveformDialog.h"
#include "Core/Analog/WaveformCurve.h"
#include "Frame/KelvarinDialog.h"
#include "HostWidgets/Axis.h"

#include <memory>
#include <optional>

/// Shape, timing and levels of a source over time. What follows from what in the timing is a
/// `Waveform`, of which there are two kinds.
///
/// The fields follow every key; what the user has finished is kept apart, so that the "1" on the
/// way to "100u" costs no other field anything.
class WaveformDialog : public KelvarinDialog {
  Q_OBJECT

public:
  void initialiseDialog() override;

protected:
  explicit WaveformDialog(const char* name);

  virtual std::unique_ptr<Waveform> makeWaveform(bool isBrennix) const = 0;
  virtual void showShape(WaveShape shape); ///< in the captions of fields
  virtual WaveSettings pictured() const;   ///< what the picture shows

  Ui::EditWaveformDialog form;

private:
  Spinner* spinnerOf(WaveField field) const;
  WaveValue valueOf(WaveField field) const;
  void connectFields();
  void startPicture();
  WaveTiming loadedTiming() const;
  void loadLevels(bool trustPulse);

  void waveShapeGroupBox_clicked();
  void delayOptionsGroupBox_clicked();
  void follow(WaveField field); ///< what is being typed, on a trial
  void takeTyped();
  void settle(WaveField field);
  void showWaveform(const Waveform& now, Spinner* typed = nullptr);
  void showField(const WaveTiming& timing, WaveField field, bool isTyped);
  void enableFields(const Waveform& waveform);
  void applyShape();
  void applyDelayMode();
  void followPulse();
  void followOffset();
  WaveLevels levels() const;
  void showLevels(const WaveLevels& levels);
  QString drawPicture();

  std::unique_ptr<Waveform> waveform; ///< as the user has left it
  WaveTiming shown;                   ///< with what is being typed
  std::optional<WaveField> typing;    ///< the one that is not yet finished
  bool isPhase = false;
  std::optional<bool> idleBefore; ///< `cbSourceIdle` before a shape that has no choice
  Plotter* plot = nullptr;
  Axis time;
  Axis level;
};
