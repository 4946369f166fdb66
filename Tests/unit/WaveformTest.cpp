#include "Core/Analog/WaveformCurve.h"
#include "Core/Analog/WaveformNumbers.h"
#include "Core/Analog/WaveformTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Field = WaveField;
using Shape = WaveShape;

WaveTiming loaded(Shape shape) {
  WaveTiming timing;
  timing.shape = shape;
  timing.set(Field::Rise, 500e-9);
  timing.set(Field::Fall, 500e-9);
  timing.set(Field::Width, 50e-6);
  timing.set(Field::Period, 100e-6);
  timing.set(Field::Frequency, 10e3);
  timing.set(Field::Duty, 50.5);
  return timing;
}

template <class Kind> Kind opened(Kind wave, Shape shape) {
  wave.open(loaded(shape));
  return wave;
}
WaveformNumbers numbers(Shape shape) {
  return opened(WaveformNumbers(), shape);
}
WaveformTexts texts(Shape shape, bool isBrennix = false) {
  return opened(WaveformTexts(isBrennix), shape);
}

const WaveValue hidden{QStringLiteral("{x}")};

void expectNear(const Waveform& wave, Field field, double wanted, const char* what = "") {
  EXPECT_NEAR(wave.timing().number(field), wanted, 1e-12 * std::abs(wanted))
      << what << ", field " << int(field);
}

/// What the enabled fields say: R rise, F fall, W width, P period, Q frequency, D duty, d damping,
/// S start, = equal, * default edges.
std::string enabledOf(const Waveform& wave) {
  std::string enabled;
  for (int i = 0; i < 10; ++i)
    if (wave.isEnabled(WaveControl(i)))
      enabled += "RFWPQDdS=*"[i];
  return enabled;
}

std::string boxesOf(const Waveform& wave) {
  return std::string(wave.timing().hasEqualEdges ? "=" : "") +
         (wave.timing().hasDefaultEdges ? "*" : "");
}

/// Edits at random as a user can: enabled fields only, mostly sensible numbers.
template <class Kind, class Check> void editAtRandom(Kind wave, bool withTexts, Check check) {
  std::mt19937 random(4711);
  const auto pick = [&random](int count) { return int(random() % unsigned(count)); };
  constexpr WaveControl controls[] = {WaveControl::Rise,      WaveControl::Fall,
                                      WaveControl::Width,     WaveControl::Period,
                                      WaveControl::Frequency, WaveControl::Duty};
  for (int i = 0; i < 20000; ++i) {
    const int act = pick(12);
    if (act == 0) {
      wave.setShape(Shape(pick(waveShapeCount)));
    } else if (act == 1 && wave.isEnabled(WaveControl::EqualEdges)) {
      wave.setEqualEdges(pick(2));
    } else if (act == 2 && wave.isEnabled(WaveControl::DefaultEdges)) {
      wave.setDefaultEdges(pick(2));
    } else {
      const int field = pick(int(waveFieldCount));
      if (!wave.isEnabled(controls[field]))
        continue;
      const double share = (1 + pick(99)) / 100.0;
      const double wide[] = {share * 1e-5, share * 1e-5, share * 1e-4,
                             share * 1e-3, share * 1e5,  share * 100};
      const bool isOdd = pick(40) == 0;
      const WaveLimits limits = wave.timing().limitsOf(Field(field));
      const double value = std::clamp(isOdd ? 0 : wide[field], limits.min, limits.max);
      wave.edit(Field(field), withTexts && pick(10) == 0 ? hidden : WaveValue(value));
    }
    check(wave);
    if (testing::Test::HasFailure())
      FAIL() << "edit " << i << " of the seed 4711";
  }
}

} // namespace

TEST(Waveform, ShapesHaveTheirFields) {
  const std::pair<Shape, const char*> cases[] = {
      {Shape::Square, "PQS"},     {Shape::Triangle, "PQDS"},      {Shape::Sawtooth, "PQS"},
      {Shape::Sine, "PQdS"},      {Shape::Cosine, "PQdS"},        {Shape::Pulse, "RFWPQDS=*"},
      {Shape::OnePulse, "RFW=*"}, {Shape::ExponentialPulse, "R"}, {Shape::Step, "RFW=*"},
  };
  for (const auto& [shape, enabled] : cases) {
    EXPECT_EQ(enabledOf(numbers(shape)), enabled);
    EXPECT_EQ(enabledOf(texts(shape)), enabled);
  }
  WaveformTexts wave = texts(Shape::Pulse);
  wave.edit(Field::Width, hidden);
  EXPECT_EQ(enabledOf(wave), "RFWPQS=*");
  wave.edit(Field::Frequency, hidden);
  EXPECT_EQ(enabledOf(wave), "RFWQS=");
  WaveformTexts single = texts(Shape::OnePulse);
  single.edit(Field::Width, hidden);
  EXPECT_EQ(enabledOf(single), "RFW=");
}

TEST(Waveform, WhatWasTypedStandsAgainstRoundingOnly) {
  WaveTiming timing = loaded(Shape::Pulse);
  timing.set(Field::Width, 50e-6 * (1 + 1e-15));
  EXPECT_EQ(timing.number(Field::Width), 50e-6);
  timing.set(Field::Width, 50e-6 * (1 + 1e-10));
  EXPECT_NE(timing.number(Field::Width), 50e-6);
  timing.set(Field::Period, 1e100);
  timing.set(Field::Width, 1e99);
  EXPECT_EQ(timing.number(Field::Width), 1e18) << "as wide as can be";
}

TEST(Waveform, LevelsAreOneThingSaidTwice) {
  WaveLevels levels{1.0, 4.0, {}, {}};
  levels.followPulse();
  EXPECT_EQ(levels.offset, 2.5);
  EXPECT_EQ(levels.amplitude, 3.0);
  levels.offset = 0.0;
  levels.followOffset();
  EXPECT_EQ(levels.initial, -1.5);
  EXPECT_EQ(levels.pulse, 1.5);
  levels = {{}, 4.0, 2.0, 1.0};
  levels.followPulse();
  levels.followOffset();
  EXPECT_EQ(levels.offset, 2.0);
  EXPECT_EQ(levels.pulse, 4.0);
}

TEST(WaveformNumbers, OneFieldLeadsToTheOthers) {
  constexpr Field W = Field::Width, P = Field::Period, F = Field::Frequency, D = Field::Duty;
  struct Case {
    const char* what;
    std::vector<std::pair<Field, double>> edits;
    std::array<double, waveFieldCount> wanted; ///< in their order
    const char* boxes;
  };
  const Case cases[] = {
      {"as loaded", {}, {500e-9, 500e-9, 50e-6, 100e-6, 10e3, 50.5}, "=*"},
      {"duty", {{D, 25.25}}, {250e-9, 250e-9, 25e-6, 100e-6, 10e3, 25.25}, "=*"},
      {"width", {{W, 20e-6}}, {200e-9, 200e-9, 20e-6, 100e-6, 10e3, 20.2}, "=*"},
      {"period", {{P, 200e-6}}, {500e-9, 500e-9, 50e-6, 200e-6, 5e3, 25.25}, "=*"},
      {"frequency", {{F, 20e3}}, {250e-9, 250e-9, 25e-6, 50e-6, 20e3, 50.5}, "=*"},
      {"no frequency", {{F, 0}}, {500e-9, 500e-9, 50e-6, 100e-6, 10e3, 50.5}, "=*"},
      {"rise", {{Field::Rise, 2e-6}}, {2e-6, 2e-6, 50e-6, 100e-6, 10e3, 52}, "="},
      {"fall", {{Field::Fall, 1.5e-6}}, {500e-9, 1.5e-6, 50e-6, 100e-6, 10e3, 51}, ""},
      {"both", {{Field::Fall, 1.5e-6}, {D, 21}}, {500e-9, 1.5e-6, 20e-6, 100e-6, 10e3, 21}, ""},
      {"too wide", {{W, 1}}, {1e-6, 1e-6, 100e-6, 100e-6, 10e3, 100}, "=*"},
      {"too wide again", {{P, 200e-6}, {W, 1}}, {2e-6, 2e-6, 200e-6, 200e-6, 5e3, 100}, "=*"},
      {"too short", {{P, 1e-6}}, {500e-9, 500e-9, 50e-6, 50e-6, 20e3, 100}, "=*"},
      {"all", {{W, 2e-5}, {F, 0}, {P, 1e-6}}, {2e-7, 2e-7, 2e-5, 2e-5, 50e3, 100}, "=*"},
  };
  for (const Case& c : cases) {
    WaveformNumbers wave = numbers(Shape::Pulse);
    for (const auto& [field, value] : c.edits)
      wave.edit(field, value);
    for (Field field : waveFields)
      expectNear(wave, field, c.wanted[std::size_t(field)], c.what);
    for (const auto& [field, value] : c.edits)
      if (field == Field::Width && value < 1) {
        EXPECT_EQ(wave.timing().number(field), value) << "no digit gets lost";
      }
    EXPECT_EQ(boxesOf(wave), c.boxes) << c.what;
  }
}

TEST(WaveformNumbers, WhatNobodySeesKeepsNothingAway) {
  for (Shape shape : {Shape::Square, Shape::Triangle, Shape::Sawtooth, Shape::Sine, Shape::Cosine})
    for (double period : {20e-6, 1e-9, 1.0}) {
      WaveformNumbers wave = numbers(shape);
      wave.edit(Field::Frequency, 1e3);
      wave.edit(Field::Period, period);
      EXPECT_EQ(wave.timing().number(Field::Period), period) << int(shape);
    }
}

TEST(WaveformNumbers, BoxesMakeTheEdgesWhatTheySay) {
  WaveformNumbers wave = numbers(Shape::Pulse);
  wave.edit(Field::Fall, 3e-6);
  wave.setEqualEdges(true);
  expectNear(wave, Field::Fall, 500e-9);
  wave.setDefaultEdges(true);
  wave.edit(Field::Rise, 1e-6);
  EXPECT_FALSE(wave.timing().hasDefaultEdges);
  wave.setDefaultEdges(true);
  expectNear(wave, Field::Fall, 500e-9);
  wave.setEqualEdges(false);
  EXPECT_FALSE(wave.timing().hasDefaultEdges);
  wave.setShape(Shape::Step);
  EXPECT_FALSE(wave.timing().hasEqualEdges);
  wave.setShape(Shape::OnePulse);
  EXPECT_TRUE(wave.timing().hasEqualEdges && wave.timing().hasDefaultEdges);
}

TEST(WaveformNumbers, AgreesWhateverIsTypedInWhichOrder) {
  editAtRandom(numbers(Shape::Pulse), false, [](const WaveformNumbers& wave) {
    const WaveTiming& t = wave.timing();
    for (Field field : waveFields) {
      EXPECT_GE(t.number(field), 0);
      EXPECT_LE(t.number(field), t.limitsOf(field).max);
    }
    EXPECT_NEAR(t.number(Field::Frequency) * t.number(Field::Period), 1, 1e-12);
    if (t.hasDefaultEdges && wave.isEnabled(WaveControl::DefaultEdges)) {
      EXPECT_TRUE(t.hasEqualEdges);
      expectNear(wave, Field::Rise, t.number(Field::Width) / 100);
    }
    if (t.hasEqualEdges && wave.isEnabled(WaveControl::EqualEdges)) {
      EXPECT_EQ(t.number(Field::Rise), t.number(Field::Fall));
    }
    if (t.shape != Shape::Pulse)
      return;
    EXPECT_LE(t.number(Field::Width), t.number(Field::Period) * (1 + 1e-12));
    const double edges = (t.number(Field::Rise) + t.number(Field::Fall)) / 2;
    const double duty = 100 * (t.number(Field::Width) + edges) / t.number(Field::Period);
    EXPECT_NEAR(std::min(duty, 100.0), t.number(Field::Duty), 1e-9); // edges may be too long
  });
}

TEST(WaveformTexts, ShapesAreComputedFromThePeriod) {
  struct Case {
    Shape shape;
    bool isBrennix;
    double rise, fall, width, duty;
    bool isEqual, isDefault;
  };
  const Case cases[] = {
      {Shape::Square, false, 100e-9, 100e-9, 49.9e-6, 50, true, true},
      {Shape::Square, true, 0, 0, 50e-6, 50, true, true},
      {Shape::Triangle, false, 50e-6, 50e-6, 0, 50, false, true},
      {Shape::Sawtooth, false, 99.9e-6, 0.1e-6, 0, 99.9, false, true},
      {Shape::Sawtooth, true, 100e-6, 0, 0, 100, false, true},
      {Shape::Sine, false, 0, 0, 0, 50, true, true},
      {Shape::Cosine, true, 0, 0, 0, 50, true, true},
      {Shape::OnePulse, false, 50e-9, 50e-9, 50e-6, 50.5, true, true},
      {Shape::ExponentialPulse, false, 50e-9, 50e-9, 50e-6, 50.5, true, true},
      {Shape::Step, false, 500e-9, 500e-9, 50e-6, 50.5, false, false},
  };
  for (const Case& c : cases) {
    WaveformTexts wave = texts(Shape::Pulse, c.isBrennix);
    wave.setShape(c.shape);
    const std::string name = "shape " + std::to_string(int(c.shape));
    EXPECT_NEAR(wave.timing().number(Field::Rise), c.rise, 1e-17) << name;
    EXPECT_NEAR(wave.timing().number(Field::Fall), c.fall, 1e-17) << name;
    EXPECT_NEAR(wave.timing().number(Field::Width), c.width, 1e-17) << name;
    EXPECT_NEAR(wave.timing().number(Field::Duty), c.duty, 1e-9) << name;
    EXPECT_EQ(wave.timing().hasEqualEdges, c.isEqual) << name;
    EXPECT_EQ(wave.timing().hasDefaultEdges, c.isDefault) << name;
    // And back again: what the pulse was, it is.
    wave.setShape(Shape::Pulse);
    const WaveTiming before = texts(Shape::Pulse).timing();
    for (Field field : waveFields)
      expectNear(wave, field, before.number(field), name.c_str());
    EXPECT_EQ(wave.timing().hasDefaultEdges, before.hasDefaultEdges) << name;
  }
}

TEST(WaveformTexts, SinglePulseStartsAsWideAsWhatIsLeft) {
  const std::pair<Shape, double> cases[] = {{Shape::Square, 49.9e-6},
                                            {Shape::Triangle, 50e-6},
                                            {Shape::Sine, 50e-6},
                                            {Shape::Pulse, 50e-6},
                                            {Shape::Step, 1e-6}};
  for (const auto& [shape, width] : cases) {
    WaveformTexts wave = texts(shape);
    wave.setShape(Shape::OnePulse);
    expectNear(wave, Field::Width, width);
    wave.edit(Field::Width, 7e-6);
    wave.setShape(shape);
    wave.setShape(Shape::ExponentialPulse);
    expectNear(wave, Field::Width, 7e-6, "both single pulses remember the same");
    expectNear(wave, Field::Rise, 7e-9);
  }
}

TEST(WaveformTexts, ExpressionsFreezeWhatCannotBeComputed) {
  constexpr Field W = Field::Width, P = Field::Period, F = Field::Frequency, D = Field::Duty;
  struct Case {
    Field field;
    Field next;
    double value;
    std::vector<std::pair<Field, double>> wanted;
  };
  const Case cases[] = {
      {F, W, 20e-6, {{W, 20e-6}, {P, 100e-6}, {D, 50.5}}},
      {W, F, 20e3, {{P, 50e-6}, {D, 50.5}}},
      {Field::Rise, W, 20e-6, {{W, 20e-6}, {D, 50.5}}},
      {Field::Fall, D, 30, {{W, 50e-6}, {D, 30}}},
      {D, W, 20e-6, {{W, 20e-6}, {F, 10e3}}},
      {P, D, 40, {{P, 100e-6}, {F, 10e3}, {W, 39.5e-6}}},
  };
  for (const Case& c : cases) {
    WaveformTexts wave = texts(Shape::Pulse);
    wave.setEqualEdges(false);
    wave.edit(c.field, hidden);
    EXPECT_EQ(wave.timing().isExpression(c.field), c.field != Field::Period) << int(c.field);
    wave.edit(c.next, c.value);
    EXPECT_EQ(wave.timing().isExpression(c.field), c.field != Field::Period) << int(c.field);
    for (const auto& [field, value] : c.wanted)
      expectNear(wave, field, value, std::to_string(int(c.field)).c_str());
    // It stays with its shape.
    wave.setShape(Shape::Sine);
    EXPECT_EQ(wave.timing().isExpression(c.field), c.field == Field::Frequency) << int(c.field);
    wave.setShape(Shape::Pulse);
    EXPECT_EQ(wave.timing().isExpression(c.field), c.field != Field::Period) << int(c.field);
  }
}

TEST(WaveformTexts, SawtoothsHaveNoExpressionForTheirDuty) {
  WaveTiming timing = loaded(Shape::Sawtooth);
  timing.enter(Field::Duty, hidden);
  WaveformTexts wave(false);
  wave.open(timing);
  EXPECT_EQ(wave.timing()[Field::Duty], WaveValue(99.9));
}

TEST(WaveformTexts, EdgesHaveAsMuchRoomAsTheDutyLeaves) {
  WaveformTexts wave = texts(Shape::Pulse);
  const auto longest = [&wave](Field field) { return wave.timing().limitsOf(field).max; };
  wave.edit(Field::Duty, 20);
  EXPECT_NEAR(longest(Field::Rise), 20e-6, 1e-15);
  wave.edit(Field::Rise, 1);
  expectNear(wave, Field::Fall, 20e-6);
  wave.setEqualEdges(false);
  wave.edit(Field::Fall, 5e-6);
  EXPECT_NEAR(longest(Field::Rise), 35e-6, 1e-15);
  // A frequency on the way to another one costs no edge anything, until the shape is left.
  wave.edit(Field::Frequency, 1e6);
  EXPECT_LT(wave.timing().number(Field::Rise), 1e-6);
  wave.edit(Field::Frequency, 10e3);
  expectNear(wave, Field::Rise, 20e-6);
  wave.edit(Field::Frequency, 1e6);
  const double kept = wave.timing().number(Field::Rise);
  wave.setShape(Shape::Sine);
  wave.edit(Field::Frequency, 10e3);
  wave.setShape(Shape::Pulse);
  expectNear(wave, Field::Rise, kept);
  wave.edit(Field::Fall, hidden);
  EXPECT_EQ(longest(Field::Rise), 1e100);
  wave.setShape(Shape::OnePulse);
  EXPECT_EQ(longest(Field::Fall), 1e100);
}

TEST(WaveformTexts, AgreesWhateverIsTypedInWhichOrder) {
  editAtRandom(texts(Shape::Pulse), true, [](const WaveformTexts& wave) {
    const WaveTiming& t = wave.timing();
    for (Field field : waveFields)
      EXPECT_GE(t.number(field), 0);
    if (t.isExpression(Field::Frequency) || t.number(Field::Frequency) == 0)
      return;
    EXPECT_FALSE(t.isExpression(Field::Period));
    EXPECT_NEAR(t.number(Field::Frequency) * t.number(Field::Period), 1, 1e-12);
    if (t.shape != Shape::Pulse || t.isExpression(Field::Width) || t.isExpression(Field::Duty) ||
        t.isExpression(Field::Rise) || t.isExpression(Field::Fall))
      return;
    const double period = t.number(Field::Period);
    const double edges = (t.number(Field::Rise) + t.number(Field::Fall)) / 2;
    EXPECT_NEAR(t.number(Field::Width) + edges, t.number(Field::Duty) / 100 * period,
                1e-12 * period);
  });
}

// --- the picture ---------------------------------------------------------------------------------

namespace {

WaveSettings settingsOf(const Waveform& wave) {
  WaveSettings settings(wave.timing());
  settings.delay = 0;
  settings.damping = 0;
  settings.initial = 1;
  settings.pulse = 3;
  return settings;
}

/// Between the points; where several stand at one time, of the first of them.
double at(const WaveCurve& curve, double x) {
  const auto next = std::lower_bound(curve.x.begin(), curve.x.end(), x);
  if (next == curve.x.end() || next == curve.x.begin())
    return next == curve.x.end() ? curve.y.back() : curve.y.front();
  const auto i = std::size_t(next - curve.x.begin());
  const double share = (x - curve.x[i - 1]) / (curve.x[i] - curve.x[i - 1]);
  return curve.y[i - 1] + share * (curve.y[i] - curve.y[i - 1]);
}

double meanOf(const WaveCurve& curve) {
  double area = 0;
  for (std::size_t i = 1; i < curve.x.size(); ++i)
    area += (curve.x[i] - curve.x[i - 1]) * (curve.y[i] + curve.y[i - 1]) / 2;
  return area / (curve.x.back() - curve.x.front());
}

} // namespace

TEST(WaveformCurve, HasTwoPeriodsWithTheirMeanAndLevels) {
  struct Case {
    Shape shape;
    double mean;
    std::vector<std::pair<double, double>> levels; ///< share of the period, level
  };
  const Case cases[] = {
      {Shape::Square, 2, {{0.25, 3}, {0.75, 1}}},
      {Shape::Triangle, 2, {{0.125, 1.5}, {0.25, 2}, {0.5, 3}, {0.75, 2}}},
      {Shape::Sawtooth, 2, {{0.25, 1.5}, {0.75, 2.5}, {0.999, 2.998}}},
      {Shape::Sine, 2, {{0, 2}, {0.25, 3}, {0.5, 2}, {0.75, 1}}},
      {Shape::Cosine, 2, {{0, 3}, {0.25, 2}, {0.5, 1}}},
      {Shape::Pulse, 2.01, {{0.0025, 2}, {0.25, 3}, {0.5075, 2}, {0.75, 1}}},
  };
  for (const Case& c : cases)
    for (double delay : {0.0, 30e-6, -130e-6, 1e-3 + 70e-6}) {
      WaveSettings settings = settingsOf(numbers(c.shape));
      settings.delay = delay;
      if (c.shape != Shape::Pulse)
        settings.timing[int(Field::Duty)] = c.shape == Shape::Sawtooth ? 100 : 50;
      const WaveCurve curve = waveCurve(settings);
      ASSERT_FALSE(curve.x.empty());
      EXPECT_TRUE(std::is_sorted(curve.x.begin(), curve.x.end()));
      EXPECT_NEAR(curve.x.front(), 0, 1e-18);
      EXPECT_NEAR(curve.x.back(), 200e-6, 1e-15);
      EXPECT_NEAR(meanOf(curve), c.mean, 1e-9) << int(c.shape) << ' ' << delay;
      for (const auto& [share, level] : c.levels) {
        const double first = std::fmod(delay + share * 100e-6 + 1e-3, 100e-6);
        EXPECT_NEAR(at(curve, first), level, 1e-3) << int(c.shape) << ' ' << share << ' ' << delay;
        EXPECT_NEAR(at(curve, first + 100e-6), level, 1e-3) << int(c.shape) << ' ' << share;
      }
    }
}

TEST(WaveformCurve, IsOffUntilItsDelayAndPhasesLead) {
  for (Shape shape : {Shape::Square, Shape::Sine, Shape::Cosine, Shape::Pulse}) {
    WaveSettings settings = settingsOf(numbers(shape));
    settings.delay = 1e-3;
    settings.isOffUntilDelay = true;
    const WaveCurve curve = waveCurve(settings);
    EXPECT_NEAR(curve.x.front(), 975e-6, 1e-12);
    EXPECT_NEAR(curve.x.back(), 1.2e-3, 1e-12);
    const double off = shape == Shape::Sine ? 2 : shape == Shape::Cosine ? 3 : 1;
    EXPECT_NEAR(at(curve, 0.99e-3), off, 1e-12) << int(shape);
    EXPECT_NEAR(at(curve, 1.02e-3), at(curve, 1.12e-3), 1e-9) << int(shape);
    settings.isPhase = true;
    settings.delay = 90;
    const WaveCurve led = waveCurve(settings);
    settings.delay = 0;
    for (double time : {3e-6, 20e-6, 40e-6, 70e-6})
      EXPECT_NEAR(at(led, time), at(waveCurve(settings), time + 25e-6), 1e-3) << int(shape);
  }
}

TEST(WaveformCurve, DampsBySoMuchInAPeriod) {
  WaveSettings settings = settingsOf(numbers(Shape::Sine));
  settings.damping = 5e3;
  WaveCurve curve = waveCurve(settings);
  for (double time : {25e-6, 75e-6, 125e-6, 175e-6})
    EXPECT_NEAR(at(curve, time), 2 + std::sin(2 * M_PI * 1e4 * time) * std::exp(-5e3 * time), 1e-9);
  settings.delay = 100e-6;
  curve = waveCurve(settings);
  EXPECT_NEAR(at(curve, 25e-6), 3, 1e-9) << "not before the delay";
  EXPECT_NEAR(at(curve, 125e-6), 2 + std::exp(-5e3 * 25e-6), 1e-9);
}

TEST(WaveformCurve, ShowsASingleShapeFromBeforeItsDelayToAfterItsEnd) {
  WaveformNumbers wave = numbers(Shape::OnePulse);
  wave.edit(Field::Rise, 10e-6);
  wave.edit(Field::Fall, 20e-6);
  WaveSettings settings = settingsOf(wave);
  settings.delay = 1e-3;
  WaveCurve curve = waveCurve(settings);
  EXPECT_EQ(curve.x, (std::vector<double>{1e-3 - 20e-6, 1e-3, 1e-3 + 10e-6, 1e-3 + 10e-6 + 50e-6,
                                          1e-3 + 80e-6, 1e-3 + 80e-6 + 20e-6}));
  EXPECT_EQ(curve.y, (std::vector<double>{1, 1, 3, 3, 1, 1}));

  settings.shape = Shape::Step;
  curve = waveCurve(settings);
  EXPECT_EQ(curve.y, (std::vector<double>{1, 1, 3, 3}));
  EXPECT_LT(curve.x.front(), 1e-3);

  settings.shape = Shape::ExponentialPulse;
  curve = waveCurve(settings);
  const double top = 1 - std::exp(-5);
  EXPECT_EQ(at(curve, 0.99e-3), 1);
  for (double constants : {0.5, 1.0, 3.0})
    EXPECT_NEAR(at(curve, 1e-3 + constants * 10e-6), 3 - 2 * std::exp(-constants), 1e-3);
  EXPECT_NEAR(at(curve, 1.05e-3), 1 + 2 * top, 1e-9);
  EXPECT_NEAR(at(curve, 1.05e-3 + 20e-6), 1 + 2 * top * std::exp(-1), 1e-3);
}

TEST(WaveformCurve, SaysWhatItLacks) {
  WaveformTexts wave = texts(Shape::Pulse);
  wave.setDefaultEdges(false);
  EXPECT_EQ(waveCurve(settingsOf(wave)).lack, WaveCurve::Lack::None);
  for (Field field : {Field::Rise, Field::Fall, Field::Width, Field::Frequency, Field::Duty}) {
    WaveformTexts edited = wave;
    edited.setEqualEdges(false);
    edited.edit(field, hidden);
    EXPECT_EQ(waveCurve(settingsOf(edited)).lack, WaveCurve::Lack::Hidden) << int(field);
    edited.setShape(Shape::Sine);
    EXPECT_EQ(waveCurve(settingsOf(edited)).lack == WaveCurve::Lack::Hidden,
              field == Field::Frequency);
  }
  WaveSettings settings = settingsOf(wave);
  settings.pulse.reset();
  EXPECT_EQ(waveCurve(settings).lack, WaveCurve::Lack::Hidden);
  wave.edit(Field::Frequency, 0);
  EXPECT_EQ(waveCurve(settingsOf(wave)).lack, WaveCurve::Lack::NoFrequency);
}

TEST(WaveformCurve, HoldsOutWithAnyNumbers) {
  std::mt19937 random(1);
  const double odd[] = {0, 1e-300, 1e-12, 1, -1, 50, 1e12, 1e100, -1e100, 1e308};
  const auto pick = [&] { return odd[random() % std::size(odd)]; };
  for (int i = 0; i < 20000; ++i) {
    WaveTiming timing;
    timing.shape = Shape(random() % waveShapeCount);
    for (Field field : waveFields)
      timing.enter(field, std::abs(pick()));
    WaveSettings settings(timing);
    settings.isPhase = random() % 2;
    settings.isOffUntilDelay = random() % 2;
    for (auto* value : {&settings.delay, &settings.damping, &settings.initial, &settings.pulse})
      *value = pick();
    const WaveCurve curve = waveCurve(settings);
    EXPECT_EQ(curve.x.size(), curve.y.size());
    EXPECT_LT(curve.x.size(), 1000u);
    EXPECT_TRUE(std::is_sorted(curve.x.begin(), curve.x.end()));
  }
}
