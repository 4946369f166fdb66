#include "HostSupport/CompressedData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>

namespace {

struct Points {
  std::vector<double> x;
  std::vector<double> y;
};

Points thinned(const Points& points, double from, double to, int pixels, bool isStepped = false) {
  CompressedData data;
  data.build(points.x.data(), points.y.data(), static_cast<std::int64_t>(points.x.size()), from, to,
             pixels, isStepped);
  return {{data.xraw(), data.xraw() + data.numPoints()},
          {data.yraw(), data.yraw() + data.numPoints()}};
}

/// From where to where the line between the points reaches in each column.
using Coverage = std::map<int, std::pair<double, double>>;

Coverage coverage(const Points& points, int pixels) {
  Coverage covered;
  const auto cover = [&](double x, double y) {
    const int column = std::min(static_cast<int>(std::floor(x)), pixels - 1);
    const auto place = covered.insert({column, {y, y}}).first;
    place->second.first = std::min(place->second.first, y);
    place->second.second = std::max(place->second.second, y);
  };
  for (std::size_t i = 0; i < points.x.size(); ++i)
    cover(points.x[i], points.y[i]);
  for (std::size_t i = 1; i < points.x.size(); ++i) {
    const double x = points.x[i - 1], y = points.y[i - 1];
    const double width = points.x[i] - x, height = points.y[i] - y;
    for (double border = std::floor(x) + 1; border <= points.x[i]; ++border) {
      const double crossed = y + height * (border - x) / width;
      cover(border, crossed);
      cover(border - 0.5, crossed);
    }
  }
  return covered;
}

} // namespace

TEST(CompressedData, CoversThePixelsThatAllPointsCover) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  std::uniform_real_distribution<> part(0, 1);
  for (int round = 0; round < 500; ++round) {
    const int pixels = 1 + static_cast<int>(random() % 30);
    Points points;
    for (unsigned i = random() % 300; i > 0; --i) {
      const bool isOnBorder = random() % 4 == 0;
      points.x.push_back(isOnBorder ? double(random() % unsigned(pixels + 1))
                                    : part(random) * pixels);
      points.y.push_back(random() % 2 ? part(random) : double(random() % 2));
    }
    std::sort(points.x.begin(), points.x.end());
    const Points left = thinned(points, 0, pixels, pixels);
    ASSERT_LE(left.x.size(), std::min<std::size_t>(points.x.size(), 4 * std::size_t(pixels)));
    const Coverage wanted = coverage(points, pixels);
    const Coverage found = coverage(left, pixels);
    ASSERT_EQ(wanted.size(), found.size());
    for (const auto& [column, range] : wanted) {
      ASSERT_NEAR(found.at(column).first, range.first, 1e-9) << "column " << column;
      ASSERT_NEAR(found.at(column).second, range.second, 1e-9) << "column " << column;
    }
  }
}

TEST(CompressedData, EdgesAndBorders) {
  const struct {
    const char* name;
    Points points;
    double from, to;
    int pixels;
    bool isStepped;
    Points left;
  } cases[] = {
      {"an edge of a pulse in the midst of a pixel stays",
       {{0, .4, .4, .5, .5, .9}, {0, 0, 1, 1, 0, 0}},
       0,
       1,
       1,
       false,
       {{0, .4, .9}, {0, 1, 0}}},
      {"first the highest",
       {{0, .1, .2, .3, .4}, {0, 5, -5, 1, 1}},
       0,
       1,
       1,
       false,
       {{0, .1, .2, .4}, {0, 5, -5, 1}}},
      {"lines across the ends keep their points outside",
       {{-3, -2, -1, 3, 4, 5}, {1, 2, 3, 4, 5, 6}},
       0,
       2,
       2,
       false,
       {{-3, -1, 3, 5}, {1, 3, 4, 6}}},
      {"corners of steps",
       {{0, 10, 20}, {0, 1, 0}},
       0,
       20,
       20,
       true,
       {{0, 10, 10, 20, 20}, {0, 0, 1, 1, 0}}},
      {"not finite", {{0, NAN, 1, INFINITY}, {1, 2, NAN, 3}}, 0, 2, 2, false, {{0}, {1}}},
      {"back and forth",
       {{0.5, 1.5, 0.5, 1.5}, {1, 2, 3, 4}},
       0,
       2,
       2,
       false,
       {{0.5, 1.5, 0.5, 1.5}, {1, 2, 3, 4}}},
      {"no extent", {{0, 1, 2}, {0, 1, 2}}, 1, 1, 100, false, {{0, 2}, {0, 2}}},
      {"no axis", {{0, 1, 2}, {0, 1, 2}}, NAN, 1, 100, false, {{0, 2}, {0, 2}}},
      {"an axis without a start",
       {{0, 1, 2}, {0, 1, 2}},
       -INFINITY,
       1,
       100,
       false,
       {{0, 2}, {0, 2}}},
      {"no pixel", {{0, 1, 2}, {0, 1, 2}}, 0, 2, -5, false, {{0, 2}, {0, 2}}},
      {"the widest axis",
       {{-1e308, 0, 1e308}, {0, 1, 2}},
       -1.7e308,
       1.7e308,
       2,
       false,
       {{-1e308, 0, 1e308}, {0, 1, 2}}},
      {"none", {}, 0, 1, 10, true, {}},
  };
  for (const auto& c : cases) {
    const Points left = thinned(c.points, c.from, c.to, c.pixels, c.isStepped);
    EXPECT_EQ(left.x, c.left.x) << c.name;
    EXPECT_EQ(left.y, c.left.y) << c.name;
  }
}
