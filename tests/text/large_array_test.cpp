#include <klepur/text/large_array.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <new>
#include <utility>
#include <vector>

#include "tests/random/chance.h"

namespace klepur::internal {
namespace {

struct Record {
  std::uint32_t first;
  std::uint32_t second;
  std::uint32_t third;
  friend bool operator==(const Record&, const Record&) = default;
};

constexpr Record Numbered(std::uint32_t number) {
  return {number, ~number, number * 17};
}

/// More than fit into small memory.
constexpr std::uint32_t kMany = 400000;
static_assert(kMany * sizeof(Record) > 4 * LargeMemory::kLarge);

LargeArray<Record> Filled(std::uint32_t count) {
  LargeArray<Record> array;
  for (std::uint32_t i = 0; i != count; ++i) array.push_back(Numbered(i));
  return array;
}

void ExpectNumbered(const LargeArray<Record>& array, std::uint32_t count) {
  ASSERT_EQ(array.size(), count);
  for (std::uint32_t i = 0; i != count; ++i) ASSERT_EQ(array[i], Numbered(i)) << i;
}

TEST(LargeArray, IsEmptyAtFirst) {
  const LargeArray<Record> array;
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.size(), 0U);
  EXPECT_EQ(array.begin(), array.end());
}

TEST(LargeArray, HoldsWhatWasAdded) {
  for (const std::uint32_t count : {1U, 31U, 32U, 33U, 1000U, kMany}) {
    LargeArray<Record> array = Filled(count);
    ExpectNumbered(array, count);
    EXPECT_FALSE(array.empty());
    EXPECT_EQ(array.back(), Numbered(count - 1));
    EXPECT_EQ(array.data(), &array[0]);
    EXPECT_EQ(array.end() - array.begin(), static_cast<std::ptrdiff_t>(count));
  }
}

TEST(LargeArray, TakesARecordOfItsOwn) {
  LargeArray<Record> array = Filled(1);
  while (array.size() != kMany) array.push_back(array[0]);
  EXPECT_TRUE(std::all_of(array.begin(), array.end(),
                          [](const Record& record) { return record == Numbered(0); }));
}

TEST(LargeArray, DoesNotMoveWithinWhatIsReserved) {
  for (const std::uint32_t count : {100U, kMany}) {
    LargeArray<Record> array;
    array.reserve(count);
    const Record* const data = array.data();
    for (std::uint32_t i = 0; i != count; ++i) array.push_back(Numbered(i));
    EXPECT_EQ(array.data(), data);
    ExpectNumbered(array, count);
    array.reserve(count / 2);
    EXPECT_EQ(array.data(), data);
  }
}

TEST(LargeArray, GrowsAgainAfterItIsCutOff) {
  LargeArray<Record> array = Filled(100);
  array.truncate(40);
  ExpectNumbered(array, 40);
  array.truncate(50);
  ExpectNumbered(array, 40);
  for (std::uint32_t i = 40; i != kMany; ++i) array.push_back(Numbered(i));
  ExpectNumbered(array, kMany);
}

TEST(LargeArray, StaysAsItIsWhenThereIsNoMoreMemory) {
  for (const std::uint32_t count : {0U, 10U, kMany}) {
    LargeArray<Record> array = Filled(count);
    EXPECT_THROW(array.reserve(std::size_t{LargeArray<Record>::kMostRecords} + 1), std::bad_alloc);
    EXPECT_THROW(array.reserve(SIZE_MAX), std::bad_alloc);
    ExpectNumbered(array, count);
    array.push_back(Numbered(count));
    ExpectNumbered(array, count + 1);
  }
}

TEST(LargeArray, IsHandedOver) {
  for (const std::uint32_t count : {10U, kMany}) {
    LargeArray<Record> first = Filled(count);
    LargeArray<Record> second(std::move(first));
    EXPECT_TRUE(first.empty());
    first.push_back(Numbered(0));
    ExpectNumbered(first, 1);
    first = std::move(second);
    EXPECT_TRUE(second.empty());
    ExpectNumbered(first, count);
  }
}

TEST(LargeArray, AgreesWithAVectorOnRandomChanges) {
  test::Chance chance(20260304);
  for (int round = 0; round != 20; ++round) {
    LargeArray<Record> array;
    std::vector<Record> expected;
    for (int step = 0; step != 30; ++step) {
      const std::size_t count = chance.Below(chance.OneIn(5) ? kMany / 4 : 100);
      switch (chance.Below(4)) {
        case 0:
          array.truncate(static_cast<std::uint32_t>(count));
          expected.resize(std::min(expected.size(), count));
          break;
        case 1:
          array.reserve(count);
          break;
        default:
          for (std::size_t i = 0; i != count; ++i) {
            const Record record = Numbered(static_cast<std::uint32_t>(chance.Below(1000)));
            array.push_back(record);
            expected.push_back(record);
          }
      }
      ASSERT_TRUE(std::equal(array.begin(), array.end(), expected.begin(), expected.end()));
    }
  }
}

}  // namespace
}  // namespace klepur::internal
