#include "Core/Analog/FrequencyResponse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <string>

namespace {

constexpr double pi = 3.14159265358979323846;

/// What the curves show at a frequency: on the line between two points, as it is drawn.
struct Seen {
  double decibels, degrees;
};
Seen seenAt(const FrequencyResponse& response, double frequency) {
  const auto& all = response.frequency;
  const std::size_t right = std::clamp<std::size_t>(
      std::lower_bound(all.begin(), all.end(), frequency) - all.begin(), 1, all.size() - 1);
  const double part = std::log(frequency / all[right - 1]) / std::log(all[right] / all[right - 1]);
  const auto between = [&](const std::vector<double>& values) {
    return values[right - 1] + part * (values[right] - values[right - 1]);
  };
  return {between(response.decibels), between(response.degrees)};
}

TEST(FrequencyResponse, ClosedForms) {
  const struct {
    const char* text;
    double scale, delay, frequency, decibels, degrees;
  } cases[] = {
      // First order: at the corner, a decade below and above it.
      {"1/(1+s/(2*pi*1k))", 1, 0, 1e3, -10 * std::log10(2.0), -45},
      {"1/(1+s/(2*pi*1k))", 1, 0, 1e2, -10 * std::log10(1.01), -std::atan(0.1) * 180 / pi},
      {"1/(1+s/(2*pi*1k))", 1, 0, 1e4, -10 * std::log10(101), -std::atan(10.) * 180 / pi},
      {"s/(s+2*pi)", 1, 0, 1, -10 * std::log10(2.0), 45},
      // The same corner by the scale factor.
      {"1/(1+s)", 2 * pi * 1e3, 0, 1e3, -10 * std::log10(2.0), -45},
      // Second order with a damping of 0.5: 0 dB and a quarter of a turn.
      {"1/(s^2+s+1)", 2 * pi * 50, 0, 50, 0, -90},
      // A resonance of Q = 10000 is seen at its top.
      {"1/(s^2+1e-4*s+1)", 2 * pi, 0, 1, 80, -90},
      {"1/(s^2+1e-4*s+1)", 2 * pi, 0, 9, -20 * std::log10(80.0), -180},
      // Without losses half a turn is that of a small one.
      {"1/(s^2+1)", 2 * pi, 0, 5, -20 * std::log10(24.0), -180},
      {"1/(s*(s^2+1))", 2 * pi, 0, 5, -20 * std::log10(120.0), -270},
      {"s/(s^2+1)", 2 * pi, 0, 5, 20 * std::log10(5 / 24.0), -90},
      {"s^2+1", 2 * pi, 0, 5, 20 * std::log10(24.0), 180},
      // Poles and zeros at the origin, and their whole turns.
      {"1/s", 2 * pi, 0, 100, -40, -90},
      {"1/s^3", 2 * pi, 0, 10, -60, -270},
      {"s^2", 2 * pi, 0, 10, 40, 180},
      {"-1", 1, 0, 1e3, 0, 180},
      {"(1-s)/(1+s)", 2 * pi, 0, 1, 0, -90},
      {"1/(s+1)^4", 2 * pi, 0, 1, -20 * std::log10(4.0), -180},
      // A delay of one millisecond, beside the expression and in it.
      {"2", 1, 1e-3, 500, 20 * std::log10(2.0), -180},
      {"exp(-s*1m)/(1+s/(2*pi*500))", 1, 0, 500, -10 * std::log10(2.0), -225},
      {"1/(1+s/(2*pi*500))", 1, 1e-3, 1000, -10 * std::log10(5), -360 - std::atan(2.) * 180 / pi},
      // A fractional power.
      {"1/sqrt(s)", 2 * pi, 0, 100, -20, -45},
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text);
    const TransferFunction function{expression, row.scale, row.delay};
    const Decades decades = decadesOfInterest(function);
    EXPECT_LT(std::pow(10, decades.first), row.frequency) << row.text;
    EXPECT_GT(std::pow(10, decades.last), row.frequency) << row.text;
    const Seen seen = seenAt(frequencyResponse(function, decades), row.frequency);
    EXPECT_NEAR(seen.decibels, row.decibels, 0.1) << row.text << " at " << row.frequency;
    EXPECT_NEAR(seen.degrees, row.degrees, 1) << row.text << " at " << row.frequency;
  }
}

TEST(FrequencyResponse, DecadesHoldAllCorners) {
  const struct {
    const char* text;
    double scale, delay;
    int first, last;
  } cases[] = {
      {"1/(1+s/(2*pi*1k))", 1, 0, 1, 5},
      {"1/(1+s/(2*pi*1k))/(1+s/(2*pi*1Meg))", 1, 0, 1, 8},
      {"1/(1+s)", 2 * pi * 1e9, 0, 7, 11},
      {"(s-6.28)/(s+6.28)", 1, 0, -3, 3},
      {"5", 1, 0, 0, 6},
      {"5", 1e20, 0, 20, 26},
      {"0", 1, 0, 0, 6},
      {"10k/s", 1, 0, 1, 6},
      {"1", 1, 1e-6, 4, 7},
      {"1", 1, 1e308, -151, -149},
      {"1", 1e-300, 1e-320, 149, 151},
      {"exp(-s*1u)", 1, 0, 3, 7},
      {"1/(s^2+1e-6*s+1)/(1+s*1u)", 2 * pi, 0, -2, 8}, // a sharp resonance is no delay
  };
  for (const auto& row : cases) {
    const LaplaceExpression expression(row.text);
    const Decades decades = decadesOfInterest({expression, row.scale, row.delay});
    EXPECT_EQ(decades.first, row.first) << row.text;
    EXPECT_EQ(decades.last, row.last) << row.text;
  }
}

TEST(FrequencyResponse, WhatHasNoLogarithmIsLeftOut) {
  for (const char* text : {"0", "{gain}/s", "1e200*s^40*s^40*s^40"}) {
    const LaplaceExpression expression(text);
    const TransferFunction function{expression, 1, 0};
    const FrequencyResponse response = frequencyResponse(function, {0, 300});
    EXPECT_EQ(response.frequency.size(), response.degrees.size()) << text;
    for (const double each : response.decibels)
      EXPECT_TRUE(std::isfinite(each)) << text;
  }
}

TEST(FrequencyResponse, IsThereWithinAFrame) {
  std::string longest = "exp(-s*1u)";
  for (int i = 1; i < 200; ++i)
    longest += "+1/(s+" + std::to_string(i) + ")";
  for (const std::string& text : {std::string("1/(s^2+1e-4*s+1)"), longest}) {
    const LaplaceExpression expression(text.c_str());
    const TransferFunction function{expression, 1, 1e-9};
    const auto started = std::chrono::steady_clock::now();
    const FrequencyResponse response = frequencyResponse(function, decadesOfInterest(function));
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - started;
    EXPECT_GT(response.frequency.size(), 100u);
    EXPECT_LT(taken.count(), 1) << text.substr(0, 20); // a slow machine, and checks that slow it
  }
}

} // namespace
