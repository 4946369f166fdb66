#pragma once

#include "Pieces/Fields.h"

#include <gtest/gtest.h>

/// Holds a sheet's table to what every table has to keep: each of the elements from 0 to `count` is
/// bound at most once, none lies beyond, and what is loaded comes back. `texts` are texts that
/// every bound element can show.
inline void checkElementTable(const Fields& fields, const std::vector<YString>& texts) {
  std::vector<bool> isBound(texts.size());
  std::vector<const char*> raw;
  for (const YString& text : texts)
    raw.push_back(text.c_str());
  for (const Field& field : fields) {
    const auto element = static_cast<std::size_t>(field.place().number);
    ASSERT_LT(element, texts.size());
    EXPECT_FALSE(isBound[element]) << "element " << element << " is bound twice";
    isBound[element] = true;
  }
  fields.load(Elements(Texts(raw.data(), static_cast<unsigned>(raw.size()))));
  TextVector result(static_cast<unsigned>(texts.size()));
  Elements elements(&result);
  fields.store(&elements);
  for (unsigned element = 0; element < result.count(); ++element)
    EXPECT_STREQ(result[element].c_str(), isBound[element] ? raw[element] : "")
        << "element " << element;
}
