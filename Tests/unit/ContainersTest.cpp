#include "HostSupport/Containers.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace {

TEST(YVector, GrowsWithZerosAndRefusesNegativeIndices) {
  YVector<double> values;
  values[3] = 7;
  EXPECT_EQ(values.count(), 4);
  EXPECT_EQ(std::vector<double>(values.begin(), values.end()), (std::vector<double>{0, 0, 0, 7}));
  try {
    values[-1] = 1;
    FAIL() << "no exception";
  } catch (const KelvarinException& fault) {
    EXPECT_STREQ(fault.message(), "YVector index negative");
    EXPECT_EQ(fault.category(), 8u);
  }
}

TEST(YVector, IsReadWithoutGrowing) {
  YVector<double> values;
  values[1] = 7;
  const YVector<double>& constant = values;
  EXPECT_EQ(constant[1], 7);
  EXPECT_EQ(constant[5], 0);
  EXPECT_THROW(constant[-1], KelvarinException);
  EXPECT_EQ(values.count(), 2);
}

// std::vector has no elements of bool to refer to.
TEST(YVector, HoldsFlagsAsAnythingElse) {
  YVector<bool> flags;
  bool& second = flags[1];
  second = true;
  flags[2] |= true;
  EXPECT_EQ(flags.count(), 3);
  YArray<bool> fixed;
  fixed.reserve(2);
  fixed.append(false);
  bool* first = &fixed[0];
  *first = true;
  EXPECT_TRUE(fixed.value(0));
  const YVector<bool>& constant = flags;
  EXPECT_FALSE(constant[0]);
  EXPECT_TRUE(constant[1] && constant[2]);
  for (bool& flag : flags)
    flag = !flag;
  EXPECT_TRUE(constant[0]);
}

TEST(Containers, AreIndexed) {
  YList<std::string> list;
  for (const char* text : {"a", "b", "c"})
    list.append(text);
  list[1] += "!";
  const YList<std::string>& constant = list;
  EXPECT_EQ(constant[0] + constant[1] + constant[2], "ab!c");
  KvVector<double> values({1, 2});
  values[1] = 5;
  const KvSequenceContainer<double>& sequence = values;
  EXPECT_EQ(sequence[0] + sequence[1], 6);
}

struct Counted {
  explicit Counted(int* alive) : m_alive(alive) { ++*m_alive; }
  ~Counted() { --*m_alive; }
  int* m_alive;
};

TEST(YRef, LastReleaseDeletes) {
  int alive = 0;
  YRef<Counted> first(new Counted(&alive));
  {
    YRef<Counted> second = first;
    YRef<Counted> third(std::move(second));
    EXPECT_FALSE(second);
    first = third;
    first = *&first;
    EXPECT_EQ(first.get(), third.get());
  }
  EXPECT_EQ(alive, 1);
  first.reset();
  EXPECT_EQ(alive, 0);
  EXPECT_FALSE(YRef<Counted>(nullptr));
}

struct First {
  virtual ~First() = default;
  int first = 1;
};
struct Second { // no virtual destructor
  int second = 2;
};
struct Both : First, Second, Counted {
  using Counted::Counted;
};

TEST(YRef, OfADerivedClassIsOneOfItsBase) {
  int alive = 0;
  YRef<Second> base;
  {
    YRef<Both> both(new Both(&alive));
    base = both;
    const YRef<const Second> another = both;
    EXPECT_EQ(another->second, 2);
    EXPECT_EQ(base->second, 2);
    EXPECT_EQ(base.get(), both.get());
    YRef<First> moved = std::move(both);
    EXPECT_FALSE(both);
    EXPECT_EQ(moved->first, 1);
  }
  EXPECT_EQ(alive, 1);
  base.reset();
  EXPECT_EQ(alive, 0);
  EXPECT_FALSE((std::is_convertible_v<YRef<First>, YRef<Both>>));
  EXPECT_FALSE((std::is_convertible_v<YRef<int>, YRef<double>>));
}

TEST(YArray, ValueOutsideIsTheDefault) {
  YArray<int> items;
  items.append(5);
  EXPECT_EQ(items.value(0), 5);
  EXPECT_EQ(items.value(1), 0);
  EXPECT_EQ(items.value(-1), 0);
}

} // namespace
