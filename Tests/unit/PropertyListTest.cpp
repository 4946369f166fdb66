#include "Core/Properties/PropertyList.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Strings = std::vector<std::string>;

/// A string vector as a script passes it.
class Vector {
public:
  Vector(Strings texts) : m_texts(std::move(texts)) {
    for (const std::string& text : m_texts)
      m_raw.push_back(text.c_str());
  }
  Vector(const Vector&) = delete;
  operator Texts() const { return {m_raw.data(), static_cast<unsigned>(m_raw.size())}; }
  const Strings& texts() const { return m_texts; }
  std::string at(std::size_t place) const { return place < m_texts.size() ? m_texts[place] : ""; }

private:
  Strings m_texts;
  std::vector<const char*> m_raw;
};

Strings resultsOf(const PropertyList& list) {
  const TextVector results = list.results();
  Strings texts;
  for (unsigned row = 0; row < results.count(); ++row)
    texts.emplace_back(results[row].c_str());
  return texts;
}

QString q(const char* text) {
  return QString::fromUtf8(text);
}

} // namespace

TEST(PropertyList, WhatNobodyTouchedGoesBackByteForByte) {
  std::mt19937 random(11);
  const auto anyText = [&random](const std::string& letters) {
    std::string text(random() % 10, ' ');
    for (char& letter : text)
      letter = letters[random() % letters.size()];
    return text;
  };
  const Strings types = {"",  "string", "Font", "Colour", "SchemProperty", "symbolproperty",
                         "*", "a|b"};
  for (int round = 0; round < 2000; ++round) {
    Strings vectors[4];
    for (Strings& vector : vectors)
      vector.resize(random() % 5);
    for (std::string& name : vectors[0])
      name = anyText("abc ;");
    for (std::string& value : vectors[1])
      value = anyText("\\n\n\r01-9 a\xff\xc3\xa9") + (random() % 2 ? ";" : ";5;") + "7";
    for (std::string& type : vectors[2])
      type = types[random() % types.size()];
    for (std::string& extra : vectors[3])
      extra = anyText("x;\xff\n");
    const Vector names(vectors[0]);
    const Vector values(vectors[1]);
    const Vector extras(vectors[3]);
    PropertyList list(names, values, Vector(vectors[2]), extras);
    list.givesNames = random() % 2 == 0;
    list.givesExtras = random() % 2 == 0;

    Strings expected;
    for (std::size_t row = 0; row < std::min(vectors[0].size(), vectors[1].size()); ++row)
      expected.push_back((list.givesNames ? names.at(row) + ";" : "") + values.at(row) +
                         (list.givesExtras ? ";" + extras.at(row) : ""));
    EXPECT_EQ(resultsOf(list), expected) << "round " << round;
    for (int row = 0; row < list.count(); ++row)
      list[row].setShownValue(list[row].shownValue());
    EXPECT_EQ(resultsOf(list), expected) << "confirmed as shown, round " << round;
  }
}

TEST(PropertyList, MissingVectorsCountAsEmpty) {
  const Vector names({"A", "B"});
  const Vector values({"1;2", "3"});
  EXPECT_EQ(PropertyList(names, Texts(), Texts(), Texts()).count(), 0);
  EXPECT_EQ(PropertyList(Texts(), values, Texts(), Texts()).count(), 0);
  PropertyList list(names, values, Texts(), Texts());
  EXPECT_EQ(list[0].kind(), PropertyKind::Text);
  list.givesExtras = true;
  EXPECT_EQ(resultsOf(list), (Strings{"1;2;", "3;"}));
}

TEST(PropertyList, AChangeIsWrittenWithWhatBelongsToTheRow) {
  const struct {
    const char* type;
    const char* value;
    const char* line; ///< what the user makes of the shown value
    const char* result;
  } cases[] = {
      {"", "10k", "22k", "22k;e"},
      {"", "10k;7", "22k", "22k;e"},
      {"SchemProperty", "10k;7", "22k", "22k;7;e"},
      {"symbolproperty", "a;b;7", "a;c", "a;c;7;e"},
      {"SchemProperty", "10k;x", "22k", "22k;0;e"},
      {"SchemProperty", "10k", "22k", "22k;e"},
      {"", "a\nb", "a\\nc\\n", "a\nc\n;e"},
      {"", "C:\\new", "C:\\net", "C:\net;e"},
      {"", "C:\\new", "C:\\new", "C:\\new;e"},
      {"", "\xff", "", ";e"},
  };
  for (const auto& c : cases) {
    const Vector values({c.value, "1;2"});
    PropertyList list(Vector({"A", "B"}), values, Vector({c.type}), Vector({"e", "f"}));
    list.givesExtras = true;
    list[0].setShownValue(q(c.line));
    EXPECT_EQ(resultsOf(list), (Strings{c.result, "1;2;f"}));
  }
}

TEST(PropertyList, PropertiesGoByTheirName) {
  const Vector values({"1;7", "2", "3"});
  PropertyList list(Vector({"A", "B", "B"}), values, Vector({"SchemProperty"}), Texts());
  EXPECT_EQ(list.findProperty(q("B")), 1) << "the first of two";
  EXPECT_EQ(list.findProperty(q("a")), -1) << "as written";
  EXPECT_EQ(list.getProperty(q("A")), q("1")) << "without its attributes";
  EXPECT_EQ(list.getProperty(q("C")), std::nullopt);

  EXPECT_EQ(list.setProperty(q("C"), q("x")), -1);
  EXPECT_EQ(resultsOf(list), values.texts());
  EXPECT_EQ(list.setProperty(q("A"), q("x")), 0);
  EXPECT_EQ(list.setProperty(q("B"), q("y\nz")), 1);
  EXPECT_EQ(list.getProperty(q("B")), q("y\nz"));
  EXPECT_EQ(resultsOf(list), (Strings{"x;7", "y\nz", "3"}));
  list.setProperty(q("A"), q("1"));
  list.setProperty(q("B"), q("2"));
  EXPECT_EQ(resultsOf(list), values.texts());
}

TEST(PropertyList, AnAddedPropertyIsNamedInItsResult) {
  const Vector values({"1;7", "more values than names"});
  PropertyList list(Vector({"A"}), values, Vector({"SchemProperty"}), Texts());
  const Property* first = &list[0];
  for (int i = 0; i < 1000; ++i)
    list.addProperty({q("TOL"), "SchemProperty", {q("5%"), 512}, {}});
  EXPECT_EQ(first, &list[0]) << "a row stays where it is";
  EXPECT_EQ(list.setProperty(q("TOL"), q("a;b")), 1);
  const Strings results = resultsOf(list);
  ASSERT_EQ(results.size(), 1001U);
  EXPECT_EQ(results[0], "1;7");
  EXPECT_EQ(results[1], "TOL;a;b;512");
  EXPECT_EQ(results[1000], "TOL;5%;512");
  list.givesNames = list.givesExtras = true;
  EXPECT_EQ(resultsOf(list)[0], "A;1;7;");
  EXPECT_EQ(resultsOf(list)[1000], "TOL;5%;512;");
}
