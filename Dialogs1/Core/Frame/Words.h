#pragma once

#include "HostSupport/YString.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <stdexcept>

/// The words that stand for the values of an enumeration in a script's texts: one table for both
/// ways. A word is read in any letter case and written as it stands in the table.
///
///     constexpr Words<DigitBase> bases = {{"dec", DigitBase::Decimal}, {"bin",
///     DigitBase::Binary}};
template <class Enum> class Words {
public:
  struct Row {
    const char* word = nullptr;
    Enum value = {};
  };

  constexpr Words(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
      if (m_count == capacity)
        throw std::length_error("Words"); // seen while compiling
      m_rows[m_count++] = row;
    }
  }

  /// What a word stands for; nothing where it is none of the table's. Null counts as empty.
  std::optional<Enum> read(const char* word) const {
    for (const Row& row : *this)
      if (sp_CompareNoCase(row.word, word) == 0)
        return row.value;
    return std::nullopt;
  }
  Enum read(const char* word, Enum otherwise) const { return read(word).value_or(otherwise); }

  /// The first word of a value; empty where it has none.
  const char* word(Enum value) const {
    for (const Row& row : *this)
      if (row.value == value)
        return row.word;
    return "";
  }

  constexpr const Row* begin() const { return m_rows; }
  constexpr const Row* end() const { return m_rows + m_count; }

private:
  static constexpr std::size_t capacity = 16;
  Row m_rows[capacity] = {};
  std::size_t m_count = 0;
};
