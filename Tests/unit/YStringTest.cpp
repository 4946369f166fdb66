#include "HostSupport/YString.h"

#include "HostSupport/KelvarinException.h"
#include "HostSupport/Parsing.h"
#include "HostSupport/System.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <thread>
#include <vector>

namespace {

TEST(YString, IsNeverNull) {
  for (const YString& text :
       {YString(), YString(static_cast<const char*>(nullptr)), YString(""), YString(nullptr, 5)}) {
    EXPECT_STREQ(text, "");
    EXPECT_TRUE(text.isEmpty());
  }
  YString source("moved away");
  const YString target(std::move(source));
  EXPECT_STREQ(source.c_str(), "");
  EXPECT_STREQ(target, "moved away");
}

TEST(YString, ConvertsNumbers) {
  EXPECT_STREQ(YString(-7), "-7");
  EXPECT_STREQ(YString(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
  EXPECT_STREQ(YString(std::numeric_limits<qint64>::min()), "-9223372036854775808");
  EXPECT_STREQ(YString(std::numeric_limits<std::size_t>::max()), "18446744073709551615");
  EXPECT_STREQ(YString(4'000'000'000u), "4000000000");
  EXPECT_STREQ(YString(-5L), "-5");
  EXPECT_STREQ(YString(0.1), "0.1");
  EXPECT_STREQ(YString(1e6), "1000000");
  EXPECT_STREQ(YString(0.1 + 0.2), "0.30000000000000004");
  EXPECT_STREQ(YString(1e300), "1e300");
}

TEST(YString, CopiesShareUntilOneChanges) {
  YString a("Text");
  YString b = a;
  EXPECT_EQ(a.c_str(), b.c_str());
  b[0] = 'N';
  EXPECT_STREQ(a, "Text");
  EXPECT_STREQ(b, "Next");
  YString c = b;
  c.tolower();
  EXPECT_STREQ(b, "Next");
  EXPECT_STREQ(c, "next");
  const char* alone = b.c_str();
  EXPECT_EQ(b.detach(), alone);
  b = *&b;
  EXPECT_STREQ(b, "Next");
}

TEST(YString, CarriesWhatIsNotUtf8) {
  const char bytes[] = "\xff\xfe\x80 \xc3";
  YString text(bytes);
  EXPECT_EQ(text.length(), 5u);
  EXPECT_EQ(std::memcmp(text.tolower().c_str(), bytes, sizeof bytes), 0);
  EXPECT_EQ(YString("a\0b", 3).length(), 3u);
}

TEST(YString, ConcatBuildsAChain) {
  const YString chain = YString("a").concat("b").concat(nullptr).concat(YString("cd"));
  EXPECT_STREQ(chain, "abcd");
  YString self("x");
  self = self.concat(self).concat(self);
  EXPECT_STREQ(self, "xxx");
}

TEST(YString, StrtokCutsTokensOffTheFront) {
  YString size("10x20X");
  EXPECT_STREQ(size.strtok("xX"), "10");
  EXPECT_STREQ(size, "20X");
  EXPECT_STREQ(size.strtok("xX"), "20");
  EXPECT_STREQ(size.strtok("xX"), "");
  YString runs(",,a,,b");
  EXPECT_STREQ(runs.strtok(","), "a");
  EXPECT_STREQ(runs, ",b");
  EXPECT_STREQ(runs.strtok(nullptr), ",b");
}

TEST(YString, SubstitutesAndStrips) {
  EXPECT_STREQ(YString("aaa").substituteAll("aa", "b"), "ba");
  EXPECT_STREQ(YString("a.b.").substituteAll(".", "::"), "a::b::");
  EXPECT_STREQ(YString("abc").substituteAll("", "x"), "abc");
  EXPECT_STREQ(YString("abc").substituteAll("b", nullptr), "ac");
  EXPECT_STREQ(YString("\t x ").stripLeading(" \t"), "x ");
  EXPECT_STREQ(YString("x//").stripTrailing("/"), "x");
  EXPECT_STREQ(YString("///").stripTrailing("/").stripLeading("/"), "");
  EXPECT_STREQ(YString("\u00c4 B").tolower(), "\u00c4 b");
}

TEST(YString, CopyIsTheCallers) {
  char* copy = YString("mine").copy();
  EXPECT_STREQ(copy, "mine");
  std::free(copy);
}

TEST(YString, IndexIsBounded) {
  const YString text("ab");
  EXPECT_EQ(text[1], 'b');
  EXPECT_EQ(text[2], '\0');
  EXPECT_EQ(text[-1], '\0');
  YString changing("ab");
  EXPECT_THROW(changing[2] = 'x', KelvarinException);
  EXPECT_THROW(changing[-1] = 'x', KelvarinException);
  changing[1] = changing[0];
  EXPECT_STREQ(changing, "aa");
  EXPECT_EQ(changing[2], '\0') << "read, not written";
  const YString shared = changing;
  EXPECT_EQ(changing[0], 'a');
  EXPECT_EQ(changing.c_str(), shared.c_str()) << "a reader does not detach";
  YString empty;
  EXPECT_EQ(empty[0], '\0');
  EXPECT_THROW(empty[0] = 'x', KelvarinException);
  EXPECT_STREQ(YString(), "");
}

TEST(YString, ComparePathFollowsTheFileSystem) {
  const YString path("/Home/a\\B");
  for (const char* caseCounts : {"1", "0"}) {
    sp_SetSystemValue("caseSensitiveFiles", caseCounts);
    EXPECT_EQ(path.comparePath("\\Home\\a/B"), 0);
    EXPECT_EQ(path.comparePath("/home/A/b") == 0, *caseCounts == '0');
    EXPECT_LT(YString("a").comparePath("b"), 0);
    EXPECT_GT(YString("ab").comparePath("a"), 0);
  }
  sp_SetSystemValue("caseSensitiveFiles", nullptr);
}

// Names of stored geometry hold these numbers: they are frozen.
TEST(YString, HashIsFrozen) {
  const struct {
    const char* text;
    std::uint32_t hash;
  } frozen[] = {{"", 2166136261u},
                {"a", 0xE40C292Cu},
                {"foobar", 0xBF9CF968u},
                {"Select Devices", 0x146E5E4Au},
                {"\u00b5", 0x86A0CB10u}};
  for (const auto& entry : frozen) {
    EXPECT_EQ(YString(entry.text).hashValue(), entry.hash) << entry.text;
    EXPECT_EQ(sp_HashValue(entry.text), entry.hash) << entry.text;
  }
  EXPECT_EQ(sp_HashValue(nullptr), 2166136261u);
}

TEST(YString, Compares) {
  EXPECT_TRUE(YString("a") < YString("ab"));
  EXPECT_TRUE(YString("z") < YString("\u00e4")); // by bytes, unsigned
  EXPECT_TRUE(YString() == nullptr);
  const YString shorter("a");
  const YString longer("ab");
  EXPECT_TRUE("ab" == longer && "a" != longer && longer == "ab" && longer != "a");
  EXPECT_TRUE(longer > shorter && longer >= longer && shorter <= longer);
  EXPECT_FALSE(shorter > longer || shorter >= longer || longer <= shorter);
  EXPECT_TRUE(shorter < "ab" && "ab" > shorter && "a" <= shorter && longer >= "a");
  EXPECT_EQ(sp_CompareNoCase("ABC", "abc"), 0);
  EXPECT_EQ(sp_CompareNoCase(nullptr, ""), 0);
  EXPECT_LT(sp_CompareNoCase("abc", "ABD"), 0);
  EXPECT_GT(sp_CompareNoCase("\u00c4", "z"), 0);
}

TEST(YString, CopiesMayLiveInOtherThreads) {
  const YString shared("one buffer for all of them");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([shared] {
      for (int round = 0; round < 20'000; ++round) {
        YString copy = shared;
        if (round % 100 == 0)
          copy.detach()[0] = 'x';
      }
    });
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_STREQ(shared, "one buffer for all of them");
}

TEST(KelvarinException, MessageIsCutAndTerminated) {
  const std::string longName(5000, 'x');
  EXPECT_EQ(std::strlen(KelvarinException(longName.c_str()).message()), 999u);
  EXPECT_STREQ(KelvarinException(nullptr).message(), "");
  EXPECT_EQ(KelvarinException("a").category(), 8u);
  const DynFuncException unresolved("dyn_RunCommand");
  EXPECT_EQ(unresolved.category(), 9u);
  EXPECT_STREQ(unresolved.message(),
               "*** FATAL ERROR *** Unresolved dynamic function 'dyn_RunCommand' called");
  EXPECT_EQ(std::strlen(DynFuncException(longName.c_str()).message()), 999u);
}

} // namespace
