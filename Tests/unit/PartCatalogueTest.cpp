#include "Core/Analog/PartCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace {

using Names = std::vector<std::string>;

/// Lines that a script has passed.
struct Script {
  explicit Script(Names itsLines) : lines(std::move(itsLines)) {
    for (const std::string& line : lines)
      raw.push_back(line.c_str());
  }
  Texts texts() const { return {raw.data(), static_cast<unsigned>(raw.size())}; }

  Names lines;
  std::vector<const char*> raw;
};

/// "line name", so many as are listed.
Names shown(const PartCatalogue& catalogue, const PartCatalogue::Lines& lines) {
  Names names;
  for (int line : lines)
    names.push_back(std::to_string(line) + " " + catalogue.shownName(line).toStdString());
  return names;
}

Names searched(PartCatalogue* catalogue, const char* text, bool withModels = false) {
  PartCatalogue::Lines lines;
  catalogue->search(QString::fromUtf8(text), withModels, &lines);
  return shown(*catalogue, lines);
}

} // namespace

TEST(PartCatalogue, APartIsFoundByAnyOfItsNames) {
  const Script script({
      "Quad op amp;Analog|Amplifiers;10;symbol", // 0
      "LM-type;Analog|Old|names;10",             // 1
      "zener;Diodes;20;MODEL",                   // 2
      "Zener 5V6;Diodes|Zener;20;symbol",        // 3
      "bjt;T;30",                                // 4
      "BJT;T;40",                                // 5
      "no identity",                             // 6
      "nor this;x;abc;Model;more",               // 7
      ";empty;50",                               // 8
      "Widerstand \xC3\xA4"
      "10\xC2\xB5;R;60", // 9
  });
  PartCatalogue catalogue(script.texts());
  EXPECT_EQ(shown(catalogue, catalogue.parts(false)),
            Names({"8 ", "5 BJT", "0 Quad op amp", "9 Widerstand ä10µ", "4 bjt", "6 no identity"}));
  EXPECT_EQ(catalogue.parts(true).size(), 7U);
  const struct {
    const char* text;
    bool withModels;
    Names found;
  } cases[] = {
      {"lm-", false, {"1 Quad op amp"}},
      {"QUAD", false, {"0 Quad op amp"}},
      {"zener", false, {"3 zener"}}, // through the line that is no model, under the first name
      {"zener", true, {"2 zener"}},
      {"BJT", false, {"4 bjt"}}, // one for names that differ in case alone
      {"this", true, {"7 no identity"}},
      {"this", false, {"7 no identity"}}, // "Model;more" is another type
      {"\xC3\x84"
       "10",
       false,
       {"9 Widerstand ä10µ"}},
      {"10\xCE\xBC", false, {"9 Widerstand ä10µ"}}, // the letter mu for the sign micro
      {"",
       false,
       {"8 ", "0 Quad op amp", "9 Widerstand ä10µ", "4 bjt", "6 no identity", "3 zener"}},
      {"ampquad", false, {}},
      {"p\nl", false, {}},
  };
  for (const auto& c : cases)
    EXPECT_EQ(searched(&catalogue, c.text, c.withModels), c.found) << c.text;
  PartCatalogue::Lines lines;
  catalogue.search(QString(QChar(0)), true, &lines);
  EXPECT_TRUE(lines.empty()) << "what stands between names is in none";
  EXPECT_EQ(catalogue.path(1).toStdString(), "Analog -> Old -> names");
  EXPECT_STREQ(catalogue.identity(7), "abc");
  EXPECT_EQ(catalogue.path(6), QString());
}

TEST(PartCatalogue, SortsAsAListDoes) {
  const Names names = {"b",
                       "B",
                       "a",
                       "",
                       "Z",
                       "abcdefgh",
                       "abcdefghi",
                       "abcdefgH2",
                       "é",
                       "\xEF\xBF\xBD",
                       "\xF0\x9D\x84\x9E",
                       "\xEE\x80\x80",
                       "~",
                       "_x",
                       "10",
                       "9"};
  Names lines;
  QStringList expected;
  for (std::size_t i = 0; i < names.size(); ++i) {
    lines.push_back(names[i] + ";;" + std::to_string(i + 1));
    expected.append(QString::fromStdString(names[i]));
  }
  expected.sort();
  const Script script(lines);
  const PartCatalogue catalogue(script.texts());
  QStringList sorted;
  for (int line : catalogue.parts(true))
    sorted.append(catalogue.shownName(line));
  EXPECT_EQ(sorted, expected);
}

// Against the search as one would say it in words.
TEST(PartCatalogue, FindsWhatAPlainSearchFinds) {
  std::mt19937 random(5);
  const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
  const auto word = [&](int longest) {
    std::string text;
    for (int length = pick(longest + 1); length > 0; --length)
      text += "aAbB;-"[pick(length > 1 ? 4 : 6)];
    return text;
  };
  for (int round = 0; round < 300; ++round) {
    Names lines;
    for (int line = pick(40); line > 0; --line)
      lines.push_back(word(5) + ";p;" + std::to_string(pick(25)) + (pick(3) ? "" : ";model"));
    const Script script(lines);
    PartCatalogue catalogue(script.texts());
    const std::string text = word(3);
    const bool withModels = pick(2) != 0;

    std::map<int, QString> parts;
    std::set<QString> taken;
    std::vector<std::pair<QString, int>> expected;
    for (const std::string& line : lines) {
      const QStringList fields = QString::fromStdString(line).split(QLatin1Char(';'));
      parts.emplace(fields.value(2).toInt(), fields.at(0));
    }
    for (std::size_t line = 0; line < lines.size(); ++line) {
      const QStringList fields = QString::fromStdString(lines[line]).split(QLatin1Char(';'));
      if ((!withModels && fields.mid(3).join(QLatin1Char(';')) == QLatin1String("model")) ||
          !fields.at(0).contains(QString::fromStdString(text), Qt::CaseInsensitive))
        continue;
      const QString& name = parts[fields.value(2).toInt()];
      if (taken.insert(name.toLower()).second)
        expected.emplace_back(name, static_cast<int>(line));
    }
    std::sort(expected.begin(), expected.end());
    Names found;
    for (const auto& [name, line] : expected)
      found.push_back(std::to_string(line) + " " + name.toStdString());
    EXPECT_EQ(searched(&catalogue, text.c_str(), withModels), found) << "round " << round;
  }
}
