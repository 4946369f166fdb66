// The fit of straight pieces: against all polylines of a grid, against an optimum known in closed
// form, and what it promises of every curve.

#include "Services/Numerics/CurveFit.h"
#include "ExhaustivePolyline.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>

namespace {

double chordDistance(const Curve& curve) {
  return greatestDistance(curve, {curve.front(), curve.back()});
}

Curve sampled(int count, double from, double to, const std::function<double(double)>& f) {
  Curve curve;
  for (int i = 0; i < count; ++i) {
    const double x = from + (to - from) * i / (count - 1);
    curve.push_back({x, f(x)});
  }
  return curve;
}

/// Any shape, or one that rises with slopes over three decades; uneven steps.
Curve randomCurve(std::mt19937& random, int count, bool rising) {
  std::uniform_real_distribution<> part(0, 1);
  Curve curve = {{part(random) * 20 - 10, part(random) * 20 - 10}};
  while (static_cast<int>(curve.size()) < count) {
    const double step = 0.05 + part(random);
    const double slope = rising ? std::pow(10, -3 * part(random)) : 4 * part(random) - 2;
    curve.push_back({curve.back().x + step, curve.back().y + slope * step});
  }
  return curve;
}

std::pair<double, double> slopes(const Curve& curve) {
  std::pair<double, double> found(INFINITY, -INFINITY);
  for (std::size_t i = 1; i < curve.size(); ++i) {
    const double slope = (curve[i].y - curve[i - 1].y) / (curve[i].x - curve[i - 1].x);
    found = {std::min(found.first, slope), std::max(found.second, slope)};
  }
  return found;
}

} // namespace

TEST(CurveFit, noPolylineOfTheGridIsCloser) {
  std::mt19937 random(20);
  double excess = 0;
  int curves = 0;
  for (int round = 0; round < 24; ++round)
    for (int segments = 2; segments <= 4; ++segments) {
      const Curve curve = randomCurve(random, 6 + round % 3, round % 2 == 0);
      const double found = greatestDistance(curve, fitPolyline(curve, segments));
      const double tried = exhaustiveDistance(curve, segments, 6, 20, std::max(1.5 * found, 1e-3));
      EXPECT_LE(found, tried * (1 + 1e-9)) << "round " << round << ", " << segments;
      excess += tried / found;
      ++curves;
    }
  // The grid comes near, so that it would have found what is closer.
  EXPECT_LT(excess / curves, 1.2);
}

TEST(CurveFit, reachesTheOptimumOfAParabola) {
  // A piece over x² has its ends as far below as its middle is above: the inner ones are √(8d) long
  // for a distance d, the outer ones, which start on the curve, (1 + √2)√d.
  const Curve curve = sampled(4001, 0, 1, [](double x) { return x * x; });
  for (const int segments : {1, 2, 3, 4, 5, 10, 50, 255}) {
    const double root = 1 / (2 + 2 * std::sqrt(2) * (segments - 1));
    EXPECT_NEAR(greatestDistance(curve, fitPolyline(curve, segments)), root * root, 2e-8)
        << segments;
  }
}

TEST(CurveFit, keepsItsPromises) {
  std::mt19937 random(21);
  for (int round = 0; round < 300; ++round) {
    const bool rising = round % 2 == 0;
    const int count = 3 + static_cast<int>(random() % (round % 10 == 0 ? 1000 : 60));
    const Curve curve = randomCurve(random, count, rising);
    const int segments = 1 + static_cast<int>(random() % static_cast<unsigned>(count + 5));
    const Curve fit = fitPolyline(curve, segments);
    SCOPED_TRACE("round " + std::to_string(round));

    ASSERT_EQ(fit.size(), static_cast<std::size_t>(std::min(segments + 1, count)));
    EXPECT_EQ(fit.front().x, curve.front().x);
    EXPECT_EQ(fit.front().y, curve.front().y);
    EXPECT_EQ(fit.back().x, curve.back().x);
    EXPECT_EQ(fit.back().y, curve.back().y);
    for (std::size_t i = 1; i < fit.size(); ++i) {
      EXPECT_LT(fit[i - 1].x, fit[i].x);
      if (rising) {
        EXPECT_LT(fit[i - 1].y, fit[i].y);
      }
    }
    const auto [least, greatest] = slopes(curve);
    const auto [fitLeast, fitGreatest] = slopes(fit);
    EXPECT_GE(fitLeast, least - 1e-6);
    EXPECT_LE(fitGreatest, greatest + 1e-6);

    // Neither fewer pieces nor the way back nor another slope or scale does better.
    const double found = greatestDistance(curve, fit);
    const double noise = 1e-9 * chordDistance(curve) + 1e-12;
    EXPECT_LE(found,
              greatestDistance(curve, fitPolyline(curve, std::max(segments - 1, 1))) + noise);
    Curve reversed;
    Curve tilted;
    for (const CurvePoint& point : curve) {
      reversed.insert(reversed.begin(), {-point.x, point.y});
      tilted.push_back({point.x * 1e-9, (point.y + 3 * point.x) * -1e12});
    }
    EXPECT_NEAR(greatestDistance(reversed, fitPolyline(reversed, segments)), found, noise);
    EXPECT_NEAR(greatestDistance(tilted, fitPolyline(tilted, segments)) / 1e12, found,
                noise + 1e-11);
  }
}

TEST(CurveFit, findsPolylinesAgain) {
  const Curve drawn = {{0, 0}, {1.2345, 5}, {2.5, 6}, {7, 6.5}, {10, 20}};
  const Curve curve = sampled(1000, 0, 10, [&](double x) { return heightAt(drawn, x); });
  const Curve fit = fitPolyline(curve, 4);
  ASSERT_EQ(fit.size(), drawn.size());
  for (std::size_t i = 0; i < fit.size(); ++i)
    EXPECT_NEAR(fit[i].x, drawn[i].x, 0.01) << i; // the corners are cut off between two samples

  // What is straight is cut evenly, rounding or not.
  const Curve line = fitPolyline(sampled(1000, 0, 10, [](double x) { return 0.1 * x; }), 5);
  for (std::size_t i = 0; i < line.size(); ++i) {
    EXPECT_NEAR(line[i].x, 2.0 * i, 1e-12);
    EXPECT_NEAR(line[i].y, 0.2 * i, 1e-12);
  }
}

TEST(CurveFit, takesEveryCurve) {
  const struct {
    Curve given;
    int segments;
    Curve expected;
  } cases[] = {
      {{}, 3, {}},
      {{{1, 2}}, 3, {{1, 2}}},
      {{{1, 2}, {3, 4}}, 2, {{1, 2}, {3, 4}}},
      {{{1, 2}, {3, 4}}, 1, {{1, 2}, {3, 4}}},
      {{{0, 0}, {1, 5}, {2, 0}}, 1, {{0, 0}, {2, 0}}},
      {{{0, 0}, {1, 5}, {2, 0}}, 2, {{0, 0}, {1, 5}, {2, 0}}},
      {{{0, 0}, {1, 5}, {2, 0}}, 2000000000, {{0, 0}, {1, 5}, {2, 0}}},
      {{{2, 0}, {1, 5}, {0, 0}}, 2, {{0, 0}, {1, 5}, {2, 0}}}, // descending x
      {{{0, 0}, {2, 4}, {3, 5}, {1, 1}}, 5, {{0, 0}, {1, 1}, {2, 4}, {3, 5}}},
      {{{1, 5}, {1, 7}, {1, 9}}, 3, {{1, 7}}},                         // all at one x
      {{{0, 0}, {1, 2}, {1, 4}, {2, 5}}, 9, {{0, 0}, {1, 3}, {2, 5}}}, // a step in the middle
      {{{0, 0}, {0, 9}, {1, 2}, {2, 5}, {2, 7}}, 9, {{0, 0}, {1, 2}, {2, 7}}}, // and at the ends
      {{{0, 0}, {1, 1}, {1 + 1e-15, 1}, {2, 5}}, 9, {{0, 0}, {1, 1}, {2, 5}}},
      {{{-1e150, -1e150}, {0, 1e150}, {1e150, 1e150}}, 1, {{-1e150, -1e150}, {1e150, 1e150}}},
      {{{0, 0}, {1e-320, 1}, {1, 1}}, 1, {{0, 0}, {1, 1}}},
  };
  for (const auto& c : cases) {
    const Curve fit = fitPolyline(c.given, c.segments);
    ASSERT_EQ(fit.size(), c.expected.size()) << (&c - cases);
    for (std::size_t i = 0; i < fit.size(); ++i) {
      EXPECT_EQ(fit[i].x, c.expected[i].x) << (&c - cases) << ", " << i;
      EXPECT_EQ(fit[i].y, c.expected[i].y) << (&c - cases) << ", " << i;
    }
  }
}

TEST(CurveFit, keepsCornersApart) {
  // Where the best corridor leaves no choice two corners may fall into one.
  const std::pair<std::vector<double>, int> cases[] = {
      {{3, 1, 1, 0, 2, 2, 1}, 5}, {{3, 0, 2, 0, 2, 1, 1}, 4},          {{1, 0, 0, 2, 2, 1}, 4},
      {{2, 3, 3, 1, 3, 3, 2}, 5}, {{3, 2, 3, 0, 3, 2, 0, 0, 2, 2}, 6},
  };
  for (const auto& [heights, segments] : cases) {
    Curve curve;
    for (const double y : heights)
      curve.push_back({double(curve.size()), y});
    const Curve fit = fitPolyline(curve, segments);
    ASSERT_EQ(fit.size(), static_cast<std::size_t>(segments + 1));
    for (std::size_t i = 1; i < fit.size(); ++i)
      EXPECT_GT(fit[i].x - fit[i - 1].x, 1e-6) << segments << ", " << i;
  }
}

TEST(CurveFit, survivesExtremes) {
  // Magnitudes from denormal to the largest, steps and needles, at every number of segments.
  std::mt19937 random(22);
  const double values[] = {0, 5e-324, 1e-300, 1e-16, 1, 1 + 1e-15, 1e16, 1e150, -1e150, -1, -1e-16};
  const auto any = [&] { return values[random() % (sizeof values / sizeof *values)]; };
  for (int round = 0; round < 20000; ++round) {
    Curve curve;
    for (std::size_t count = random() % 12; curve.size() < count;)
      curve.push_back({any(), any()});
    const int segments = 1 + static_cast<int>(random() % 12);
    const Curve fit = fitPolyline(curve, segments);
    EXPECT_LE(fit.size(), static_cast<std::size_t>(segments + 1));
    for (std::size_t i = 0; i < fit.size(); ++i) {
      ASSERT_TRUE(std::isfinite(fit[i].x) && std::isfinite(fit[i].y)) << round;
      ASSERT_LT(i > 0 ? fit[i - 1].x : -INFINITY, fit[i].x) << round;
    }
  }
}

TEST(CurveFit, takesLittleTime) {
  std::mt19937 random(23);
  const auto start = std::chrono::steady_clock::now();
  for (const int segments : {2, 16, 255})
    fitPolyline(randomCurve(random, 30000, segments == 16), segments);
  // Far above what it takes, far below what anything but linear time would.
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
