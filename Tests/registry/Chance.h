#pragma once

#include <cstddef>
#include <random>

/// Chance with a seed, so that a run can be repeated.
class Chance {
public:
  explicit Chance(unsigned seed) : m_engine(seed) {}
  int below(int limit) { return limit > 0 ? int(m_engine() % unsigned(limit)) : 0; }
  bool one(int in) { return below(in) == 0; }
  template <class T, std::size_t n> const T& of(const T (&items)[n]) {
    return items[below(int(n))];
  }

private:
  std::mt19937 m_engine;
};
