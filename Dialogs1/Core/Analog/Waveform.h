#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <memory>
#include <optional>

/// By the numbers that scripts know them by.
enum class WaveShape {
  Square,
  Triangle,
  Sawtooth,
  Sine,
  Cosine,
  Pulse,
  OnePulse,
  ExponentialPulse,
  Step
};
constexpr int waveShapeCount = 9;
/// The shape of this number; a square where none has it.
WaveShape waveShapeOf(int number);
bool isPeriodic(WaveShape shape);

/// The timing values that depend on each other.
enum class WaveField { Rise, Fall, Width, Period, Frequency, Duty };
constexpr WaveField waveFields[] = {WaveField::Rise,   WaveField::Fall,      WaveField::Width,
                                    WaveField::Period, WaveField::Frequency, WaveField::Duty};
constexpr std::size_t waveFieldCount = std::size(waveFields);

/// What the user can reach with some shapes only.
enum class WaveControl {
  Rise,
  Fall,
  Width,
  Period,
  Frequency,
  Duty,
  Damping,
  Start, ///< delay or phase, and what is before it
  EqualEdges,
  DefaultEdges
};

/// What stands in a field: a number, or an expression whose value only the simulator knows.
struct WaveValue {
  double number = 0; ///< of an expression 0
  QString expression;

  WaveValue() = default;
  WaveValue(double value) : number(value) {}
  explicit WaveValue(const QString& text) : expression(text) {}

  bool isExpression() const { return !expression.isEmpty(); }
  bool operator==(const WaveValue& other) const {
    return number == other.number && expression == other.expression;
  }
};

struct WaveLimits {
  double min = 0;
  double max = 1e100;
};

/// All that the form of a waveform says of its timing.
struct WaveTiming {
  WaveShape shape = WaveShape::Square;
  std::array<WaveValue, waveFieldCount> values;
  std::array<WaveLimits, waveFieldCount> limits;
  bool hasEqualEdges = false;   ///< the fall follows the rise
  bool hasDefaultEdges = false; ///< both follow the width or the period

  WaveTiming();

  WaveValue& operator[](WaveField field) { return values[std::size_t(field)]; }
  const WaveValue& operator[](WaveField field) const { return values[std::size_t(field)]; }
  WaveLimits& limitsOf(WaveField field) { return limits[std::size_t(field)]; }
  const WaveLimits& limitsOf(WaveField field) const { return limits[std::size_t(field)]; }

  double number(WaveField field) const { return (*this)[field].number; }
  bool isExpression(WaveField field) const { return (*this)[field].isExpression(); }
  void enter(WaveField field, const WaveValue& value); ///< as the user has it, within the limits
  /// Takes what was computed, within the limits. What differs from the present by rounding only
  /// leaves that as it is, so that what a user typed stands.
  void set(WaveField field, double value);
  void setMin(WaveField field, double value);
  void setMax(WaveField field, double value);
};

/// The timing of a waveform: set one thing, and read what became of the others. A value of a type
/// below, so that what a field would do while it is being typed can be tried on a copy.
class Waveform {
public:
  virtual ~Waveform() = default;
  virtual std::unique_ptr<Waveform> clone() const = 0;

  const WaveTiming& timing() const { return m_timing; }
  /// Whether the shape, and what cannot be computed, leave this to the user.
  virtual bool isEnabled(WaveControl control) const;

  virtual void open(const WaveTiming& loaded) = 0; ///< as a script gives it
  virtual void setShape(WaveShape shape) = 0;
  virtual void edit(WaveField field, const WaveValue& value) = 0; ///< by the user
  virtual void setEqualEdges(bool on) = 0;
  virtual void setDefaultEdges(bool on) = 0;

protected:
  Waveform() = default;
  Waveform(const Waveform&) = default;
  Waveform& operator=(const Waveform&) = default;

  WaveTiming m_timing;
};

/// The levels of a waveform, said in two ways; nothing where an expression hides one.
struct WaveLevels {
  std::optional<double> initial, pulse;
  std::optional<double> offset, amplitude;

  void followPulse();  ///< makes offset and amplitude of initial and pulse
  void followOffset(); ///< the other way round
};
