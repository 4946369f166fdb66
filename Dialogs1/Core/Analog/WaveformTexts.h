#pragma once

#include "Core/Analog/Waveform.h"

#include <initializer_list>

/// The timing of a waveform whose values may be expressions, with a memory for each shape.
///
/// What follows from an expression cannot be computed and stays as it is. Frequency and duty lead
/// to the width; default edges are a thousandth of the period of a pulse, or of the width of a
/// single one.
class WaveformTexts : public Waveform {
public:
  /// `isBrennix`: for the simulator that takes edges of no length.
  explicit WaveformTexts(bool isBrennix) : m_isBrennix(isBrennix) {}
  std::unique_ptr<Waveform> clone() const override;

  bool isEnabled(WaveControl control) const override;
  void open(const WaveTiming& loaded) override;
  void setShape(WaveShape shape) override;
  void edit(WaveField field, const WaveValue& value) override;
  void setEqualEdges(bool on) override;
  void setDefaultEdges(bool on) override;

private:
  /// What a shape was like when it was last on show; nothing where that is not known.
  struct Record {
    std::optional<double> period;
    std::optional<WaveValue> width, duty, rise, fall;
    std::optional<bool> hasEqualEdges, hasDefaultEdges;
  };

  Record& recordOf(WaveShape shape);
  Record& current() { return recordOf(m_timing.shape); }
  void store();
  void settle(WaveShape before); ///< computes the record of the shape on show, and shows it
  void compute(Record* record, WaveShape before);
  void computeSquare(Record* record) const;
  void computeTriangle(Record* record) const;
  void computePulse(Record* record) const;
  void computeSinglePulse(Record* record, WaveShape before);
  WaveValue firstWidth(WaveShape before); ///< of a single pulse
  void apply(const Record& record);
  void show(WaveField field, const std::optional<WaveValue>& value);
  void limitEdges();
  void widthFollowsDuty();
  void checkEdges();
  void dutyFollowsWidth();
  bool isExpression(std::initializer_list<WaveField> any) const;

  bool m_isBrennix;
  std::array<Record, waveShapeCount> m_records;
};
