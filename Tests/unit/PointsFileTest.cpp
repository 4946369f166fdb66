#include "Core/Pwl/PointsFile.h"
#include "Core/Pwl/LineStore.h"
#include "Core/Pwl/SyntaxMessages.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// A line of words and separators, some of them none that a points file has.
std::string randomLine(std::mt19937& random) {
  static const char* const words[] = {
      "*",       "START_DATA",   "REPEAT_COUNT=7", "FORMAT=CSV", "1", "-2u",
      "{a + b}", "file=\"a b\"", "\xff\xfe",       "\xc2\xa0",   "",  "SHIFT_FIRST_TO_ZERO"};
  static const char* const separators[] = {" ", "\t", ",", ", ", ",,", "", "\v"};
  std::string line;
  for (unsigned i = random() % 5; i > 0; --i)
    line += std::string(words[random() % std::size(words)]) +
            separators[random() % std::size(separators)];
  return line;
}

std::string faultText(int id, int line) {
  return "<<< Error Message ID: " + std::to_string(id) + " >>>\n\n" +
         (line > 0 ? "in points, line " + std::to_string(line) + ":\n" : "temp_points.txt\n") +
         "Fault " + std::to_string(id) + "\n****\n";
}

} // namespace

TEST(PointsFile, AWrittenLineReadsAsItWas) {
  const unsigned seed = std::random_device{}();
  SCOPED_TRACE(seed);
  std::mt19937 random(seed);
  for (int round = 0; round < 20000; ++round) {
    const PointRow line = readPointsLine(randomLine(random));
    for (const bool isCsv : {false, true}) {
      // A comma that blanks have kept in front of the value is dropped the next time.
      if (line.kind != PointRow::Kind::Point || line.x.isEmpty() ||
          line.y.startsWith(QLatin1Char(',')))
        continue;
      const QByteArray written = (line.x + fieldSeparator(isCsv) + line.y).toUtf8();
      const PointRow again = readPointsLine(written.toStdString());
      ASSERT_EQ(again.x, line.x) << written.toStdString();
      ASSERT_EQ(again.y, line.y) << written.toStdString();
    }
  }
}

TEST(PointsFile, TheStartDataLineComesBack) {
  for (int repeats : {0, 1, 1000})
    for (bool shifts : {false, true})
      for (bool isCsv : {false, true}) {
        const QString line = writeStartData(repeats, shifts, isCsv);
        EXPECT_EQ(kindOfPointsLine(line.toStdString()), PointRow::Kind::StartData);
        const StartData read = readStartData(repeats ? line : line.toLower());
        EXPECT_EQ(read.repeatCount.toInt(), repeats);
        EXPECT_EQ(read.shiftsToZero, shifts);
        EXPECT_EQ(read.isCsv, isCsv);
      }
}

TEST(PointsFile, TimeBeforeTheTriggerIsANumberBelowZero) {
  for (const char* line : {"-1 2", " -1e-9,2", "-.5", "-2u 1"})
    EXPECT_TRUE(hasNegativeTime(line)) << line;
  for (const char* line : {"1 -2", "-x 2", "-0 1", "", "- 1", "* -1"})
    EXPECT_FALSE(hasNegativeTime(line)) << line;
}

TEST(PointsFile, BytesInFrontOfTheFirstLine) {
  EXPECT_EQ(withoutByteOrderMark("\xef\xbb\xbf* a"), "* a");
  EXPECT_EQ(withoutByteOrderMark("1 2"), "1 2");
  for (const char* line : {"\xff\xfe,", "\xfe\xff"})
    EXPECT_FALSE(faultOfEncoding(line).isEmpty());
  for (const char* line : {"", "\xff", "1 2"})
    EXPECT_TRUE(faultOfEncoding(line).isEmpty());
}

TEST(PointsFile, ReferencesAreFoundInAnyCase) {
  EXPECT_EQ(pathOfReference(QStringLiteral(" FILE=\"a b.txt\" ")), QStringLiteral("a b.txt"));
  EXPECT_EQ(pathOfReference(QStringLiteral("4.7")), QStringLiteral("4.7"));
  EXPECT_EQ(pathOfReference(referenceTo(QStringLiteral("x;y"))), QStringLiteral("x;y"));
}

TEST(LineStore, KeepsLinesByteForByte) {
  LineStore lines;
  const char* const texts[] = {"", "one", "\xff", "", "two words"};
  for (const char* text : texts)
    lines.append(text);
  for (int i = 0; i < lines.size(); ++i)
    EXPECT_EQ(lines.at(i), texts[i]);
  EXPECT_EQ(lines.joined(), QByteArray("\none\n\xff\n\ntwo words"));
}

TEST(SyntaxMessages, AreReadAsTheSimulatorWritesThem) {
  struct Case {
    std::string text;
    std::vector<std::string> ids;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {"", {}, {}},
      {"the simulator fell over", {}, {}},
      {faultText(1101, 3), {"1101"}, {"3"}},
      {faultText(1217, 0), {"1217"}, {""}},
      {faultText(1101, 3) + faultText(1102, 5), {"1101", "1102"}, {"3", "5"}},
      // The search does not stop at the next message, which is then passed over.
      {faultText(1217, 0) + faultText(1102, 5), {"1217"}, {"5"}},
  };
  for (const Case& each : cases) {
    const SyntaxMessages messages(QString::fromStdString(each.text));
    ASSERT_EQ(static_cast<std::size_t>(messages.all().size()), each.ids.size()) << each.text;
    for (int i = 0; i < messages.all().size(); ++i) {
      EXPECT_EQ(messages.all().at(i).id.toStdString(), each.ids[static_cast<std::size_t>(i)]);
      EXPECT_EQ(messages.all().at(i).lineNumber.toStdString(),
                each.lines[static_cast<std::size_t>(i)]);
    }
  }
  std::string many;
  for (int i = 0; i < 30; ++i)
    many += faultText(1101, 30 - i);
  const SyntaxMessages messages(QString::fromStdString(many));
  EXPECT_EQ(messages.all().size(), 20) << "the rest is left unread";
  EXPECT_EQ(messages.atLine(5), nullptr);
  ASSERT_TRUE(messages.atLine(11));
  EXPECT_EQ(toolTipOf(*messages.atLine(11)), QStringLiteral("Line number 11:\n\nFault 1101"));
}
