#include "HostSupport/CompressedData.h"

#include <algorithm>
#include <cmath>

namespace {

/// The column of pixels in which an x lies; -1 and `count` stand for what is outside.
class Columns {
public:
  Columns(double from, double to, int count)
      : m_from(from), m_to(to), m_count(count),
        m_width(to / count - from / count), // the difference may be beyond a double
        m_isOne(!(m_width > 0) || !std::isfinite(m_width)) {}

  double of(double x) const {
    if (m_isOne)
      return 0;
    if (x < m_from)
      return -1;
    if (x > m_to)
      return m_count;
    return std::clamp(std::floor((x - m_from) / m_width), 0.0, m_count - 1.0);
  }

private:
  double m_from;
  double m_to;
  int m_count;
  double m_width;
  bool m_isOne;
};

/// Points one after the other in one column.
class Passage {
public:
  Passage(std::vector<double>* x, std::vector<double>* y) : m_x(x), m_y(y) {}

  void add(double column, double x, double y) {
    const Point point = {x, y, m_count};
    if (m_count == 0 || column != m_column) {
      finish();
      m_column = column;
      m_first = m_lowest = m_highest = m_last = {x, y, 0};
      m_count = 1;
      return;
    }
    ++m_count;
    m_last = point;
    if (y < m_lowest.y)
      m_lowest = point;
    if (y > m_highest.y)
      m_highest = point;
  }

  void finish() {
    if (m_count == 0)
      return;
    Point points[] = {m_first, m_lowest, m_highest, m_last};
    if (m_highest.position < m_lowest.position)
      std::swap(points[1], points[2]);
    std::int64_t written = -1;
    for (const Point& point : points)
      if (point.position > written) {
        m_x->push_back(point.x);
        m_y->push_back(point.y);
        written = point.position;
      }
    m_count = 0;
  }

private:
  struct Point {
    double x;
    double y;
    std::int64_t position;
  };
  std::vector<double>* m_x;
  std::vector<double>* m_y;
  double m_column = 0;
  std::int64_t m_count = 0;
  Point m_first = {};
  Point m_lowest = {};
  Point m_highest = {};
  Point m_last = {};
};

} // namespace

void CompressedData::build(const double* x, const double* y, std::int64_t count, double from,
                           double to, int pixels, bool isStepped) {
  m_x.clear();
  m_y.clear();
  const Columns columns(from, to, std::max(pixels, 1));
  Passage passage(&m_x, &m_y);
  double held = NAN;
  for (std::int64_t i = 0; i < count; ++i) {
    if (!std::isfinite(x[i]) || !std::isfinite(y[i]))
      continue;
    const double column = columns.of(x[i]);
    if (isStepped && std::isfinite(held))
      passage.add(column, x[i], held);
    passage.add(column, x[i], y[i]);
    held = y[i];
  }
  passage.finish();
}
