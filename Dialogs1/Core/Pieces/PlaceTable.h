#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Tells which of many things are alike: a hash table of their places, which takes no memory per
/// thing. What is alike, and hashes alike, is the caller's to say.
class PlaceTable {
public:
  /// For so many things at most.
  explicit PlaceTable(std::size_t count) {
    std::size_t size = 16;
    while (size < 2 * count)
      size *= 2;
    m_places.assign(size, nowhere);
  }

  /// The place of the first thing that is like this one: its own where none was.
  template <class IsSame> int insert(int place, std::uint64_t hash, IsSame isSame) {
    std::size_t slot = (hash ^ (hash >> 32)) & (m_places.size() - 1);
    while (m_places[slot] != nowhere) {
      if (isSame(m_places[slot]))
        return m_places[slot];
      slot = (slot + 1) & (m_places.size() - 1);
    }
    return m_places[slot] = place;
  }

private:
  static constexpr int nowhere = -1;

  std::vector<int> m_places;
};

/// A hash of what a script has passed, a unit at a time: nobody can make all units fall into one
/// place, since the factor is another one in each run.
class UnitHash {
public:
  UnitHash();
  void add(std::uint32_t unit) { m_value = (m_value + unit + 1) * m_factor; }
  std::uint64_t value() const { return m_value; }

private:
  std::uint64_t m_factor;
  std::uint64_t m_value = 0;
};
