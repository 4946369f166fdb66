// Resampling, reading and integrating curves.

#include "Services/Numerics/Curves.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

const Curve tooth = {{0, 0}, {2, 4}, {4, 0}};
const Curve step = {{0, 1}, {1, 1}, {1, 3}, {2, 3}};

void expectPoints(const Curve& actual, const Curve& expected, const char* what) {
  ASSERT_EQ(actual.size(), expected.size()) << what;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    EXPECT_DOUBLE_EQ(actual[i].x, expected[i].x) << what << ", " << i;
    EXPECT_DOUBLE_EQ(actual[i].y, expected[i].y) << what << ", " << i;
  }
}

} // namespace

TEST(Curves, resamplesEvenly) {
  const struct {
    const char* what;
    Curve given;
    int count;
    Curve expected;
  } cases[] = {
      {"tooth", tooth, 5, {{0, 0}, {1, 2}, {2, 4}, {3, 2}, {4, 0}}},
      {"coarser than given", tooth, 2, {{0, 0}, {4, 0}}},
      {"one", tooth, 1, {{0, 0}}},
      {"a step has the later value", step, 5, {{0, 1}, {.5, 1}, {1, 3}, {1.5, 3}, {2, 3}}},
      {"steps at the ends", {{0, 1}, {0, 2}, {4, 4}, {4, 9}}, 3, {{0, 2}, {2, 3}, {4, 9}}},
      {"order", {{4, 0}, {0, 0}, {2, 4}}, 3, {{0, 0}, {2, 4}, {4, 0}}},
      {"one place", {{1, 5}, {1, 6}}, 1000, {{1, 6}}},
      {"one point", {{1, 5}}, 1000, {{1, 5}}},
      {"nothing", {}, 1000, {}},
  };
  for (const auto& c : cases)
    expectPoints(resampled(c.given, c.count), c.expected, c.what);

  const Curve many = resampled({{-8.1, 0}, {0.9, 1}}, 1000);
  EXPECT_EQ(many.size(), 1000u);
  EXPECT_EQ(many.back().x, 0.9); // exactly, although -8.1 + 9 is a little more
  EXPECT_EQ(many.back().y, 1);
}

TEST(Curves, resamplesByInterval) {
  expectPoints(resampled(tooth, 1.5, 0.5, 99), {{.5, 1}, {2, 4}, {3.5, 1}}, "offset");
  expectPoints(resampled(tooth, 100, 0, 99), {{0, 0}}, "long interval");
  expectPoints(resampled(tooth, 1, 5, 99), {}, "offset behind the end");
  EXPECT_EQ(resampled(tooth, 1e-300, 0, 7).size(), 7u);
  const Curve tenths = resampled({{0.1, 0}, {0.7, 1}}, 0.1, 0, 99);
  ASSERT_EQ(tenths.size(), 7u); // 0.1 + 6 · 0.1 is a little more than 0.7
  EXPECT_EQ(tenths.back().x, 0.7);
}

TEST(Curves, readsValues) {
  const Curve there = {{0, 0}, {2, 2}, {0, 4}, {2, 6}}; // and back
  const struct {
    Curve curve;
    double x;
    std::vector<double> expected;
  } cases[] = {
      {tooth, 1, {2}},    {tooth, 0, {0}},
      {tooth, 4, {0}},    {tooth, 2, {4}},
      {tooth, -0.1, {}},  {tooth, 4.1, {}},
      {step, 1, {1, 3}},  {there, 1, {1, 3, 5}},
      {there, 2, {2, 6}}, {there, 0, {0, 4}},
      {{{1, 5}}, 1, {5}}, {{{1, 5}}, 2, {}},
      {{}, 1, {}},        {{{1, 5}, {1, 5}}, 1, {5}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(valuesAt(c.curve, c.x), c.expected) << (&c - cases);
}

TEST(Curves, integrates) {
  expectPoints(runningIntegral(tooth), {{0, 0}, {2, 4}, {4, 8}}, "tooth");
  expectPoints(runningIntegral(step), {{0, 0}, {1, 1}, {1, 1}, {2, 4}}, "step");
  expectPoints(runningIntegral({{0, 1}, {2, 1}, {1, 1}}), {{0, 0}, {2, 2}, {1, 1}}, "back");
  expectPoints(runningIntegral({{3, 7}}), {{3, 0}}, "one point");
  expectPoints(runningIntegral({}), {}, "nothing");

  // Points put in between do not change it.
  std::mt19937 random(30);
  std::uniform_real_distribution<> part(0, 1);
  Curve curve = {{0, 0}};
  while (curve.size() < 50)
    curve.push_back({curve.back().x + part(random), part(random) - 0.3});
  Curve finer;
  for (std::size_t i = 0; i + 1 < curve.size(); ++i) {
    finer.push_back(curve[i]);
    const double x = curve[i].x + (curve[i + 1].x - curve[i].x) * part(random);
    finer.push_back({x, valueOnLine(curve[i], curve[i + 1], x)});
  }
  finer.push_back(curve.back());
  EXPECT_NEAR(runningIntegral(finer).back().y, runningIntegral(curve).back().y, 1e-12);
}
