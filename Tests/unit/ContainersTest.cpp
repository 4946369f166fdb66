#include "HostSupport/Containers.h"

#include <gtest/gtest.h>

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

TEST(YArray, ValueOutsideIsTheDefault) {
  YArray<int> items;
  items.append(5);
  EXPECT_EQ(items.value(0), 5);
  EXPECT_EQ(items.value(1), 0);
  EXPECT_EQ(items.value(-1), 0);
}

} // namespace
