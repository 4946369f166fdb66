#include "HostSupport/Arguments.h"

#include <gtest/gtest.h>

namespace {

struct Call : UserFunctionInterface {
  Call() : UserFunctionInterface() {
    argCount = 4;
    args[0] = {0, reals, nullptr, 2, UserReal, {}};
    args[1] = {0, strings, nullptr, 2, UserString, {}};
    args[2] = {0, nullptr, nullptr, 3, UserString, {}}; // the host broke its word
    args[3] = {0, nullptr, nullptr, 0, UserString, {}};
    args[4] = {0, strings, nullptr, 2, UserString, {}}; // not passed
  }
  double reals[2] = {1, 2};
  char text[4] = "abc";
  char* strings[2] = {text, nullptr};
};

TEST(Arguments, ScalarString) {
  Call call;
  YString out("untouched");
  for (const int index : {-1, 0, 2, 3, 4, 32, 1'000'000})
    EXPECT_FALSE(sp_GetScalarString(&call, index, &out)) << index;
  EXPECT_FALSE(sp_GetScalarString(nullptr, 0, &out));
  EXPECT_STREQ(out, "untouched");
  EXPECT_TRUE(sp_GetScalarString(&call, 1, &out));
  EXPECT_STREQ(out, "abc");
  call.strings[0] = nullptr;
  EXPECT_FALSE(sp_GetScalarString(&call, 1, &out));
  call.argCount = 1'000'000;
  EXPECT_FALSE(sp_GetScalarString(&call, 32, &out));
}

TEST(Arguments, VectorsOfTheirKind) {
  Call call;
  const char* const* strings = nullptr;
  const double* reals = nullptr;
  unsigned count = 9;
  EXPECT_TRUE(sp_GetStringIfVector(&call, 1, &strings, &count));
  EXPECT_EQ(strings, call.strings);
  EXPECT_EQ(count, 2u);
  EXPECT_FALSE(sp_GetStringIfVector(&call, 2, &strings, &count));
  EXPECT_EQ(strings, nullptr);
  EXPECT_EQ(count, 0u);
  EXPECT_TRUE(sp_GetRealIfVector(&call, 0, &reals, &count));
  EXPECT_EQ(reals, call.reals);
  EXPECT_FALSE(sp_GetRealIfVector(&call, 1, &reals, &count));
  EXPECT_EQ(reals, nullptr);
  EXPECT_FALSE(sp_GetRealIfVector(nullptr, 0, &reals, &count));
  EXPECT_TRUE(sp_GetStringIfVector(&call, 3, &strings, &count)); // an empty vector is one
}

TEST(Arguments, StringResultNeedsAHost) {
  Call call;
  EXPECT_EQ(sp_MakeStringResult(nullptr, 1), nullptr);
  EXPECT_EQ(sp_MakeStringResult(&call, 1), nullptr);
  static char* slots[1];
  call.makeStringResult = [](UserFunctionInterface*, int count) {
    return count == 1 ? slots : nullptr;
  };
  EXPECT_EQ(sp_MakeStringResult(&call, 1), slots);
  EXPECT_EQ(sp_MakeStringResult(&call, -1), nullptr);
}

} // namespace
