#pragma once

#include "Pieces/Fields.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

// What every table of a sheet has to keep: no place is bound twice, and what is loaded comes back.

inline std::set<Place> boundPlaces(const Fields& fields) {
  std::set<Place> places;
  for (const Field& field : fields)
    EXPECT_TRUE(places.insert(field.place()).second)
        << (field.place().name ? field.place().name : std::to_string(field.place().number))
        << " is bound twice";
  return places;
}

/// A table over the elements of a vector that stores these texts, and no others.
inline void checkElementsAsShown(const Fields& fields, const std::vector<YString>& texts) {
  const std::set<Place> places = boundPlaces(fields);
  TextVector result(static_cast<unsigned>(texts.size()));
  Elements elements(&result);
  fields.store(&elements);
  ASSERT_EQ(result.count(), texts.size()) << "a place lies beyond the vector";
  for (unsigned place = 0; place < result.count(); ++place)
    EXPECT_STREQ(result[place].c_str(), places.count(place) ? texts[place].c_str() : "")
        << "element " << place;
}

/// The same for texts that each bound element can show, once they are loaded.
inline void checkElements(const Fields& fields, const std::vector<YString>& texts) {
  std::vector<const char*> raw;
  for (const YString& text : texts)
    raw.push_back(text.c_str());
  fields.load(Elements(Texts(raw.data(), static_cast<unsigned>(raw.size()))));
  checkElementsAsShown(fields, texts);
}

/// A table over the bits of a word.
inline void checkBits(const Fields& fields) {
  std::uint32_t all = 0;
  for (const Place& place : boundPlaces(fields))
    all |= 1U << place.number;
  for (std::uint32_t given = 1; given != 0; given <<= 1) {
    fields.load(Bits(given));
    Bits taken(~all);
    fields.store(&taken);
    EXPECT_EQ(taken.word(), ~all | (given & all)) << "bit " << given;
  }
}
