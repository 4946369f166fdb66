// The substitute simulator: what it finds in points files, and that readers of its messages find
// the same.

#include "PointsCheck.h"
#include "CheckRun.h"
#include "Core/Pwl/SyntaxMessages.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

bool canRead(const QString& path) {
  return !path.contains(QLatin1String("absent"));
}

QVector<Fault> faultsOf(const std::string& text) {
  return checkPoints(text, canRead);
}

/// "NUMBER@LINE", in order.
std::string summary(const QVector<Fault>& faults) {
  std::string text;
  for (const Fault& fault : faults)
    text += (text.empty() ? "" : " ") + std::to_string(static_cast<int>(fault.number)) + "@" +
            std::to_string(fault.line);
  return text;
}

/// The same, out of the file that a reader gets.
std::string summary(const SyntaxMessages& messages) {
  std::string text;
  for (const SyntaxMessage& message : messages.all())
    text += (text.empty() ? "" : " ") + message.id.toStdString() + "@" +
            std::to_string(message.lineNumber.toInt());
  return text;
}

SyntaxMessages asRead(QVector<Fault> faults) {
  for (Fault& fault : faults)
    fault.file = QStringLiteral("/tmp/a*b/temp_points.txt");
  return SyntaxMessages(QString::fromUtf8(messageFile(faults)));
}

struct Case {
  const char* text;
  const char* expected;
};

/// Draws from lists.
class Chance {
public:
  explicit Chance(unsigned seed) : m_random(seed) {}
  int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
  template <std::size_t n> std::string of(const char* const (&list)[n]) {
    return list[m_random() % n];
  }

private:
  std::mt19937 m_random;
};

} // namespace

TEST(PointsCheck, LinesOfTwoFields) {
  const Case cases[] = {
      {"0 1\n1 2", ""},
      {"0,1\n1 , 2\n2\t3\n 3 4 \n", ""},
      {"0 1\n\n  \t\n1 2\n", ""},
      {"0 1k\n1ms -2.5e-3V\n+2 .5\n", ""},
      {"* a, b, c\n  * 1 2 3\n0 1\n1 2", ""},
      {"0 {a + b}\n{t, 1} {max(a, {b})}\n1 2", ""},
      {"0 1\n{t} 2\n-1 3", "1104@3"}, // whatever t is
      {"0 1\nx 2\n1 y\n2 1+1\n3 5 k", "1101@2 1101@3 1101@4 1103@5"},
      {"0 1\n1\n2,\n,3\n,\n4 5", "1102@2 1102@3 1102@4 1102@5"},
      {"0 1\n1 2 3\n2 3,\n3,,4\n4 5 *c", "1103@2 1103@3 1103@4 1103@5"},
      {"0 1\n1 {a\n{a 2\n2 {}\n3 {a}b\n4 {a}{b}\n5 { }\n6 a}\n{t}",
       "1101@2 1101@3 1101@4 1101@5 1101@6 1101@7 1101@8 1102@9"},
      {"0 1\na} 2\n1 b} 2", "1101@2 1103@3"}, // a stray brace keeps nothing together
      {"0 1\n1 nan\n2 inf\n3 0x10\n4 1e999\n1e999 5", "1101@2 1101@3 1101@4 1108@5 1108@6"},
      {"0 1\n2 2\n2 3\n1 4\n1.5 5", "1104@3 1104@4"}, // each against the line before it
      {"-1 1\n0 2", "1105@1"},
      {"* c\n\n-1u 1\n-0.5u 2", "1105@3"},
      {"-0 1\n1 2", ""},
      {"{t} 1\n-1 2", ""},
  };
  for (const Case& each : cases)
    EXPECT_EQ(summary(faultsOf(each.text)), each.expected) << each.text;
}

TEST(PointsCheck, TheStartDataLine) {
  const Case cases[] = {
      {"START_DATA\n0 1\n1 2", ""},
      {"* c\n START_DATA  FORMAT=CSV\tREPEAT_COUNT=1k SHIFT_FIRST_TO_ZERO \n-1, 1\n1,2", ""},
      {"START_DATA REPEAT_COUNT=0\n0 1\n1 2", ""},
      {"START_DATA REPEAT_COUNT=1001\n0 1\n1 2", "1050@1"},
      {"START_DATA REPEAT_COUNT=1.5\n0 1\n1 2", "1050@1"},
      {"START_DATA REPEAT_COUNT=-1\n0 1\n1 2", "1050@1"},
      {"START_DATA REPEAT_COUNT=\n0 1\n1 2", "1050@1"},
      {"START_DATA REPEAT_COUNT = 5\n0 1\n1 2", "1050@1"},
      {"START_DATA FORMAT=TAB\n0 1\n1 2", "1050@1"},
      {"start_data Format=csv shift_first_to_zero\n-1, 1\n1,2", ""},
      {"START_DATA,FORMAT=CSV\n0 1\n1 2", "1050@1"},
      {"START_DATAX\n0 1\n1 2", "1050@1"},
      {"START_DATA SHIFT_FIRST_TO_ZERO SHIFT_FIRST_TO_ZERO\n-1 1\n1 2", "1050@1"},
      {"START_DATA\n0 1\nSTART_DATA\n1 2\nSTART_DATA X", "1051@3 1051@5"},
      {"START_DATA FORMAT=CSV\n0\t1\n1 ,2\n2 3\n3,4 5", "1106@2 1106@4 1103@5"},
      {"0\t1\nSTART_DATA FORMAT=CSV\n1, 2", "1106@1"}, // it holds for lines before it, too
      {"START_DATA X FORMAT=CSV SHIFT_FIRST_TO_ZERO\n-1\t1\n1, 2", "1050@1 1106@2"},
  };
  for (const Case& each : cases)
    EXPECT_EQ(summary(faultsOf(each.text)), each.expected) << each.text;
}

TEST(PointsCheck, SuperDataPoints) {
  const Case cases[] = {
      {"0 file=\"a b, c.txt\"\n1 FILE=\"x\"", ""},
      {"START_DATA FORMAT=CSV\n0, file=\"a\"\n1, 2", ""},
      {"0 file=\"absent, really.txt\"\n1 file=\"there\"\n2 file=\"absent\"", "1107@1 1107@3"},
      {"0 1\n1 file=\"open\n2 file=\"\"\n3 file=\"a\"b\n4 file=\"a\" b\n5 file=a",
       "1107@2 1107@3 1107@4 1103@5 1101@6"},
      {"0 1\nfile=\"a\" 2\n2 3", "1101@2"},
  };
  for (const Case& each : cases)
    EXPECT_EQ(summary(faultsOf(each.text)), each.expected) << each.text;

  int looks = 0; // a million points of one file do not cost a million looks
  const FileProbe probe = [&looks](const QString&) { return ++looks > 0; };
  checkPoints("0 file=\"a\"\n1 file=\"b\"\n2 file=\"a\"\n3 file=\"a\"", probe);
  EXPECT_EQ(looks, 2);
}

TEST(PointsCheck, FilesAsAWhole) {
  const Case cases[] = {
      {"", "1217@0"},
      {"\n \r\n\t\n", "1217@0"},
      {"\xEF\xBB\xBF\n", "1217@0"},
      {"* nothing but words", "1219@0"},
      {"START_DATA\n0 1\n", "1219@0"},
      {"0 1\nx\n", "1102@2 1219@0"},
      {"0 1\nx y\n", "1101@2"}, // a point at fault is one
      {"\xEF\xBB\xBFSTART_DATA FORMAT=CSV\r\n0,1\r\n1\t2\r\n", "1106@3"},
      {"0 1\r1 2\r\nx 3\n", "1101@3"},
      {"0 1\n1 \xff\xfe\n2 3\xc2\xa0", "1101@2"},
  };
  for (const Case& each : cases)
    EXPECT_EQ(summary(faultsOf(each.text)), each.expected) << each.text;
  EXPECT_EQ(summary(faultsOf(std::string("0 1\n1 2\0003\n2\0 4\n3 5\n", 19))), "1101@2 1101@3");
}

TEST(PointsCheck, MessagesComeThroughWhole) {
  const SyntaxMessages messages =
      asRead(faultsOf("0 1\n1 a*b\n2 <<<ErrorMessageID:>>>\n3 \x1b\xff,line,5:\n4 %1%2\nq " +
                      std::string(500, 'w')));
  ASSERT_EQ(summary(messages), "1101@2 1101@3 1103@4 1101@5 1101@6");
  EXPECT_EQ(messages.atLine(2)->text, QString::fromUtf8("The value \"a\u2217b\" is not a number."));
  EXPECT_EQ(messages.atLine(5)->text, QStringLiteral("The value \"%1%2\" is not a number."));
  EXPECT_EQ(messages.atLine(6)->text, QStringLiteral("The time \"q\" is not a number."));
  EXPECT_LT(messages.atLine(3)->text.size(), 100);
  EXPECT_TRUE(messageFile({}).isEmpty());
}

TEST(PointsCheck, FaultsOfTheFileAreNotCrowdedOut) {
  std::string text;
  for (int i = 0; i < 100; ++i)
    text += "x\n";
  const SyntaxMessages messages = asRead(faultsOf(text));
  ASSERT_EQ(messages.all().size(), 20);
  EXPECT_EQ(messages.all().last().id, QStringLiteral("1219"));
  EXPECT_EQ(messages.all().at(18).lineNumber, QStringLiteral("19"));
  const QVector<Fault> many(30, {FaultNumber::FileUnreadable, 0, QStringLiteral("x")});
  EXPECT_EQ(messageFile(many).count("Error Message ID"), 20);
  EXPECT_LT(messageFile(faultsOf(std::string(text) + std::string(1 << 20, 'x'))).size(), 8192);
}

// Definitions put together of lines that are known to be good or bad.
TEST(PointsCheck, EachFaultyLineIsMarkedAndNoOther) {
  const char* const values[] = {"1", "-2.5k", "{a}", "{a + b}", "file=\"a b.txt\"", "1e-9V", "0"};
  const char* const separators[] = {"\t", " ", ",", " ,\t"};
  const char* const faulty[] = {
      "x 1",    "1e999 5",  "{t 1",  "7",       "{t}",        "1e9,,2",   "1 2 3",
      ",1",     "@ 1",      "{t} x", "{t} 1 2", "START_DATA", "{t} {a}}", "{t} file=\"absent\"",
      "-1e9 1", "{t} 1e999"};
  for (unsigned seed = 1; seed <= 300; ++seed) {
    Chance chance(seed);
    std::string text = chance.below(2) ? "START_DATA REPEAT_COUNT=3\n0 1\n" : "*\n0 1\n";
    const bool hasStart = text.front() == 'S';
    std::string marked;
    int count = 0;
    int line = 2;
    int time = 1;
    const int rate = 2 + chance.below(20);
    for (int i = 0; i < 60; ++i) {
      ++line;
      const int kind = chance.below(rate);
      const std::string bad = chance.of(faulty);
      const bool isBad = kind == 0 && count < 20 && (hasStart || bad != "START_DATA");
      if (isBad) {
        text += bad;
        marked += (count++ ? " " : "") + std::to_string(line);
      } else if (kind == 1) {
        text += chance.below(2) ? "" : "* x, y z {";
      } else {
        text += std::to_string(time++) + chance.of(separators) + chance.of(values);
      }
      text += chance.below(2) ? "\n" : "\r\n";
    }
    std::string found;
    const SyntaxMessages messages = asRead(faultsOf(text));
    for (const SyntaxMessage& message : messages.all())
      found += (found.empty() ? "" : " ") + message.lineNumber.toStdString();
    // More than 20 would be cut.
    EXPECT_EQ(found, marked) << "seed " << seed << "\n" << text;
  }
}

TEST(PointsCheck, AnyBytesGiveMessagesThatReadersFind) {
  const char* const pieces[] = {"1",
                                " ",
                                ",",
                                "\n",
                                "\r",
                                "{",
                                "}",
                                "\"",
                                "*",
                                "\t",
                                "file=\"",
                                "-",
                                "START_DATA",
                                "\xff",
                                "<<< Error Message ID: 7 >>>\n",
                                "\xEF\xBB\xBF",
                                ", line 3:\n",
                                "temp_points.txt\n",
                                "e9",
                                "FORMAT=CSV"};
  for (unsigned seed = 1; seed <= 3000; ++seed) {
    Chance chance(seed);
    std::string text;
    for (int i = chance.below(60); i > 0; --i) {
      const std::string piece = chance.of(pieces);
      text += chance.below(50) ? piece : std::string(1, '\0');
    }
    const QVector<Fault> faults = faultsOf(text);
    const SyntaxMessages messages = asRead(faults);
    const int count = std::min(faults.size(), mostFaults);
    ASSERT_EQ(messages.all().size(), count) << "seed " << seed;
    if (faults.size() <= mostFaults) {
      EXPECT_EQ(summary(messages), summary(faults)) << "seed " << seed;
    }
    int line = 0;
    for (const Fault& fault : faults) {
      EXPECT_TRUE(fault.line > line || fault.line == 0) << "seed " << seed;
      line = fault.line;
    }
  }
}

TEST(PointsCheck, LongFilesAndLinesTakeLinearTime) {
  std::string million = "START_DATA FORMAT=CSV\n";
  for (int i = 0; i < 1000000; ++i)
    million += std::to_string(i) + "e-6, " + (i % 3 ? "{a + b}" : "file=\"same.txt\"") + "\n";
  const std::string ten(10 << 20, '1');
  const std::string braces(10 << 20, '{');
  const std::string commas(10 << 20, ',');
  const std::pair<std::string, const char*> cases[] = {
      {million, ""},
      {"0 1\n1 " + ten + "\n2 3", "1108@2"},
      {"0 1\n1 " + braces + "\n2 3", "1101@2"},
      {"0 1\n1 " + commas + "\n2 3", "1103@2"},
      {"0 1\n1 file=\"" + ten, "1107@2"},
      {"START_DATA " + ten + "\n0 1\n1 2", "1050@1"},
      {"* " + ten + "\n0 1\n1 2", ""},
  };
  for (const auto& [text, expected] : cases) {
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(summary(faultsOf(text)), expected);
#ifndef KV_SANITIZE
    EXPECT_LT(clock.elapsed(), 1000) << text.substr(0, 40);
#endif
  }
}

// ---- the run ------------------------------------------------------------------------------------

class CheckRun : public ::testing::Test {
protected:
  QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
  void write(const char* name, const QByteArray& text) const {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QString run(const char* switches, const char* deck = "d.deck") const {
    return runCheck(QString::fromUtf8(switches).split(QLatin1Char(' '), Qt::SkipEmptyParts)
                    << path(deck));
  }
  /// What a reader finds; "none" where there is no message file.
  std::string messages() const {
    QFile file(path("d.deck.err"));
    if (!file.open(QIODevice::ReadOnly))
      return "none";
    return summary(SyntaxMessages(QString::fromUtf8(file.readAll())));
  }

  QTemporaryDir folder;
};

static const char* const usualSwitches =
    "/hidestatusbox /additionalargs SYNTAX_CHK_ONLY,,BATCH_MODE,,";

TEST_F(CheckRun, ReadsTheDeckOfTheDialog) {
  const auto deckOf = [this](const char* device, const char* points) {
    return syntaxCheckDeck(QString::fromUtf8(device), path(points)).toUtf8();
  };
  write("temp_points.txt", "0 1\n1 x\n");
  write("good.txt", "0 1\n1 file=\"" + path("good.txt").toUtf8() + "\"\n");
  write("deep.txt", "0 1\n1 file=\"" + path("temp_points.txt").toUtf8() + "\"\n2 file=\"" +
                        folder.path().toUtf8() + "\"\n3 file=\"/dev/zero\"");
  const std::pair<QByteArray, const char*> cases[] = {
      {deckOf("V1", "temp_points.txt"), "1101@2"},
      {deckOf("V1", "good.txt"), "none"},
      {deckOf("V1", "deep.txt"), "1107@3 1107@4"}, // one level, and ordinary files
      {deckOf("V1", "absent.txt"), "1216@0"},
      {deckOf("V1", "."), "1216@0"},
      {deckOf("*V1", "good.txt"), "1001@0"},
      {deckOf("", "good.txt"), "none"},
      {deckOf("V\n1\xc3\xa9", "temp_points.txt").replace("\n", "\r\n"), "1101@2"},
      {deckOf("V1", "absent.txt").replace("FDPWL file", "fdpwl FILE") +
           deckOf("V2", "temp_points.txt"),
       "1216@0"}, // nothing counts behind .END
      {"*\nV1 1 0 FDPWL file=\"\"\n", "1216@0"},
      {"", "1001@0"},
  };
  for (const auto& [deck, expected] : cases) {
    write("d.deck", deck);
    EXPECT_EQ(run(usualSwitches).toStdString(), "") << deck.toStdString();
    EXPECT_EQ(messages(), expected) << deck.toStdString();
  }
}

TEST_F(CheckRun, RefusesWhatItCannotDo) {
  write("d.deck", "*\n");
  for (const char* switches :
       {"", "/hidestatusbox", "/additionalargs", "/additionalargs BATCH_MODE",
        "/additionalargs SYNTAX_CHK_ONLY,,FASTER", "/faster /additionalargs SYNTAX_CHK_ONLY"}) {
    EXPECT_FALSE(run(switches).isEmpty()) << switches;
    EXPECT_EQ(messages(), "none") << switches;
  }
  EXPECT_FALSE(runCheck({}).isEmpty());
  EXPECT_FALSE(run(usualSwitches, "absent.deck").isEmpty());
  EXPECT_FALSE(run(usualSwitches, ".").isEmpty());
  write("victim", "mine");
  ASSERT_TRUE(QFile::link(path("victim"), path("d.deck.err")));
  write("d.deck", "");
  EXPECT_EQ(run(usualSwitches).toStdString(), "");
  EXPECT_EQ(messages(), "1001@0"); // in a file of its own
  EXPECT_EQ(QFileInfo(path("victim")).size(), 4);
  QFile::remove(path("d.deck.err"));
  QDir(folder.path()).mkdir(QStringLiteral("d.deck.err"));
  EXPECT_FALSE(run(usualSwitches).isEmpty()); // there is no room for the messages
}
