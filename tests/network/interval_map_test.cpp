#include <klepur/network/interval_map.h>

#include <gtest/gtest.h>
#include <klepur/network/range.h>
#include <tests/network/random_values.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::internal {
namespace {

Interval Of(std::string_view range, std::uint32_t value) {
  const auto addresses = AddressRange::Parse(range).value();
  return {addresses.First(), addresses.Last(), value};
}

Address At(std::string_view text) {
  return Address::Parse(text).value();
}

/// The values of the intervals: "3 1".
std::string ValuesOf(const std::vector<Interval>& intervals) {
  std::string values;
  for (const Interval& interval : intervals) {
    values += (values.empty() ? "" : " ") + std::to_string(interval.value);
  }
  return values;
}

std::string Containing(const IntervalMap& map, std::string_view address) {
  std::vector<Interval> found;
  map.AppendContaining(At(address), found);
  return ValuesOf(found);
}

std::vector<Interval> Office() {
  return {
      Of("10.0.0.0 10.0.255.255", 1),  // a subnet
      Of("10.0.0.0 10.0.0.255", 2),    // pools in it
      Of("10.0.1.0 10.0.1.255", 3),
      Of("10.0.0.10 10.0.0.50", 4),  // ranges that overlap
      Of("10.0.0.40 10.0.0.90", 5),
      Of("10.0.1.7", 6),
      Of("10.0.1.7", 7),
      Of("2001:db8::/64", 8),
      Of("2001:db8::10 2001:db8::1f", 9),
  };
}

constexpr struct {
  const char* address;
  const char* values;  // innermost first
} kLookups[] = {
    {"9.255.255.255", ""},    {"10.0.0.0", "2 1"},      {"10.0.0.10", "4 2 1"},
    {"10.0.0.45", "5 4 2 1"}, {"10.0.0.50", "5 4 2 1"}, {"10.0.0.51", "5 2 1"},
    {"10.0.0.91", "2 1"},     {"10.0.1.0", "3 1"},      {"10.0.1.7", "7 6 3 1"},
    {"10.0.2.0", "1"},        {"10.1.0.0", ""},         {"::", ""},
    {"2001:db8::", "8"},      {"2001:db8::10", "9 8"},  {"2001:db8::20", "8"},
    {"2001:db8:0:1::", ""},   {"255.255.255.255", ""},  {"ffff::", ""},
};

TEST(IntervalMap, FindsWhatIsAroundAnAddressInnermostFirst) {
  const IntervalMap atOnce(Office());
  IntervalMap oneByOne;
  for (const Interval& interval : Office()) oneByOne.Insert(interval);
  for (const IntervalMap* map : std::array<const IntervalMap*, 2>{&atOnce, &oneByOne}) {
    EXPECT_EQ(map->Count(), 9U);
    for (const auto& row : kLookups) {
      EXPECT_EQ(Containing(*map, row.address), row.values) << row.address;
      const Interval* innermost = map->Innermost(At(row.address));
      const std::string first = std::string(row.values).substr(0, 1);
      EXPECT_EQ(innermost != nullptr ? std::to_string(innermost->value) : "", first) << row.address;
    }
  }
}

TEST(IntervalMap, FindsWhatOverlaps) {
  const IntervalMap map(Office());
  std::vector<Interval> found = {Of("10.9.9.9", 99)};
  map.AppendOverlapping(At("10.0.0.60"), At("10.0.1.0"), found);
  EXPECT_EQ(ValuesOf(found), "99 3 5 2 1");
}

TEST(IntervalMap, WithoutIntervalsFindsNothing) {
  const IntervalMap empty;
  EXPECT_EQ(empty.Innermost(At("10.0.0.1")), nullptr);
  EXPECT_EQ(Containing(empty, "10.0.0.1"), "");
  const IntervalMap alsoEmpty((std::vector<Interval>()));
  EXPECT_EQ(alsoEmpty.Innermost(At("10.0.0.1")), nullptr);
  EXPECT_EQ(alsoEmpty.Count(), 0U);
}

TEST(IntervalMap, RemovesOneEqualInterval) {
  IntervalMap map(Office());
  map.Insert(Of("10.0.1.7", 7));
  EXPECT_FALSE(map.Remove(Of("10.0.1.7", 5)));
  EXPECT_FALSE(map.Remove(Of("10.0.1.7 10.0.1.8", 7)));
  EXPECT_FALSE(map.Remove(Of("10.0.1.6 10.0.1.7", 7)));
  EXPECT_EQ(Containing(map, "10.0.1.7"), "7 7 6 3 1");
  EXPECT_TRUE(map.Remove(Of("10.0.1.7", 7)));
  EXPECT_EQ(Containing(map, "10.0.1.7"), "7 6 3 1");
  EXPECT_TRUE(map.Remove(Of("10.0.1.7", 7)));
  EXPECT_EQ(Containing(map, "10.0.1.7"), "6 3 1");
  EXPECT_FALSE(map.Remove(Of("10.0.1.7", 7)));
  for (const Interval& interval : Office()) map.Remove(interval);
  EXPECT_EQ(map.Count(), 0U);
  EXPECT_EQ(map.Innermost(At("10.0.1.7")), nullptr);
}

/// One of few addresses, so that intervals are often equal, adjacent and nested.
Address AnAddress(RandomValues& random) {
  unsigned char bytes[Address::kMostBytes] = {};
  const bool isV4 = random.Below(2) == 0;
  bytes[isV4 ? 3 : 15] = static_cast<unsigned char>(random.Below(40));
  return isV4 ? Address::FromV4Bytes(bytes) : Address::FromV6Bytes(bytes);
}

Interval AnInterval(RandomValues& random) {
  for (;;) {
    const auto range = AddressRange::Of(AnAddress(random), AnAddress(random));
    if (range) return {range->First(), range->Last(), random.Below(3)};
  }
}

std::vector<Interval> Scan(const std::vector<Interval>& all, const Address& first,
                           const Address& last) {
  std::vector<Interval> found;
  for (const Interval& interval : all) {
    if (interval.first <= last && first <= interval.last) found.push_back(interval);
  }
  std::sort(found.begin(), found.end(), std::greater<>());
  return found;
}

void ExpectSameAsScan(const IntervalMap& map, const std::vector<Interval>& all,
                      RandomValues& random) {
  const Address address = AnAddress(random);
  const std::vector<Interval> expected = Scan(all, address, address);
  std::vector<Interval> found;
  map.AppendContaining(address, found);
  ASSERT_EQ(found, expected) << address.Text();
  const Interval* innermost = map.Innermost(address);
  ASSERT_EQ(innermost == nullptr, expected.empty()) << address.Text();
  if (innermost != nullptr) {
    ASSERT_EQ(*innermost, expected.front()) << address.Text();
  }
  const Interval between = AnInterval(random);
  found.clear();
  map.AppendOverlapping(between.first, between.last, found);
  ASSERT_EQ(found, Scan(all, between.first, between.last));
}

TEST(IntervalMap, FindsAfterAnyEditsWhatAScanFinds) {
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    RandomValues random(seed);
    std::vector<Interval> all(random.Below(50));
    for (Interval& interval : all) interval = AnInterval(random);
    IntervalMap map(all);
    const unsigned inserted = 1 + random.Below(9);  // of ten edits, so that some maps shrink
    for (int edit = 0; edit < 300; ++edit) {
      if (random.Below(10) < inserted) {
        all.push_back(AnInterval(random));
        map.Insert(all.back());
      } else {
        const Interval interval = all.empty() || random.Below(4) == 0
                                      ? AnInterval(random)
                                      : all[random.Below(static_cast<unsigned>(all.size()))];
        const auto it = std::find(all.begin(), all.end(), interval);
        ASSERT_EQ(map.Remove(interval), it != all.end());
        if (it != all.end()) all.erase(it);
      }
      ASSERT_EQ(map.Count(), all.size());
      ASSERT_NO_FATAL_FAILURE(ExpectSameAsScan(map, all, random));
    }
  }
}

}  // namespace
}  // namespace klepur::internal
