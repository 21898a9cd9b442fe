#include <klepur/network/range.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur {
namespace {

AddressRange Of(std::string_view value) {
  return AddressRange::Parse(value).value();
}

Address At(std::string_view text) {
  return Address::Parse(text).value();
}

std::string TextOf(const std::optional<AddressRange>& range) {
  return range ? range->Text() : "none";
}

constexpr struct {
  std::string_view value;
  const char* written;
} kValues[] = {
    // range
    {"10.0.0.1 10.0.0.9", "10.0.0.1 10.0.0.9"},
    {"10.0.0.9 10.0.0.1", "10.0.0.1 10.0.0.9"},
    {"10.0.0.1", "10.0.0.1"},
    {"10.0.0.1 10.0.0.1", "10.0.0.1"},
    {"dynamic-bootp 10.0.0.1 10.0.0.9", "dynamic-bootp 10.0.0.1 10.0.0.9"},
    {"DYNAMIC-BOOTP 10.0.0.1", "dynamic-bootp 10.0.0.1"},
    {" 10.0.0.1\t10.0.0.9 ", "10.0.0.1 10.0.0.9"},
    {"10.0.0.1 # low\r\n  10.0.0.9 # high", "10.0.0.1 10.0.0.9"},
    {"10.0.0.1# low\n10.0.0.9", "10.0.0.1 10.0.0.9"},
    {"010.0.0.001 10.0.0.009", "10.0.0.1 10.0.0.9"},

    // range6
    {"2001:db8::1 2001:db8::9", "2001:db8::1 2001:db8::9"},
    {"2001:db8::9 2001:DB8:0::1", "2001:db8::1 2001:db8::9"},
    {"2001:db8::5 2001:db8::5", "2001:db8::5 2001:db8::5"},
    {"2001:db8::/64", "2001:db8:: 2001:db8::ffff:ffff:ffff:ffff"},
    {"2001:db8::1/64", "2001:db8:: 2001:db8::ffff:ffff:ffff:ffff"},
    {"2001:db8:: / 126", "2001:db8:: 2001:db8::3"},
    {"2001:db8::7/128", "2001:db8::7 2001:db8::7"},
    {"2001:db8::/80 temporary", "2001:db8::/80 temporary"},
    {"2001:db8:: # office\n/80 # those\nTemporary", "2001:db8::/80 temporary"},
    {"2001:db8:: temporary", "2001:db8::/64 temporary"},
    {"2001:db8::7 temporary", "2001:db8::/64 temporary"},

    // no ranges
    {"", "none"},
    {"# 10.0.0.1", "none"},
    {"dynamic-bootp", "none"},
    {"temporary", "none"},
    {"10.0.0.1 dynamic-bootp", "none"},
    {"10.0.0.1 10.0.0.9 dynamic-bootp", "none"},
    {"dynamic-bootp dynamic-bootp 10.0.0.1", "none"},
    {"10.0.0.1, 10.0.0.9", "none"},
    {"10.0.0.1-10.0.0.9", "none"},
    {"10.0.0.1 - 10.0.0.9", "none"},
    {"10.0.0.1 10.0.0.2 10.0.0.3", "none"},
    {"10.0.0.0/24", "none"},
    {"10.0.0.1 10.0.0.9/24", "none"},
    {"10.0.0.1 temporary", "none"},
    {"10.0.0.1 pc9", "none"},
    {"10.0.0.1 10.0.0.256", "none"},
    {"\"10.0.0.1\" \"10.0.0.9\"", "none"},
    {"10.0.0.1 2001:db8::9", "none"},
    {"2001:db8::1 10.0.0.9", "none"},
    {"2001:db8::1", "none"},
    {"2001:db8::1 2001:db8::9 temporary", "none"},
    {"2001:db8::/64 2001:db8::9", "none"},
    {"2001:db8::/64 temporary temporary", "none"},
    {"2001:db8::/64temporary", "none"},
    {"2001:db8::/129", "none"},
    {"dynamic-bootp 2001:db8::1 2001:db8::9", "none"},
    {"dynamic-bootp 2001:db8::/64", "none"},
    {"2001:db8::1, 2001:db8::9", "none"},
};

TEST(AddressRange, IsReadFromAStatementAndWritten) {
  for (const auto& row : kValues) {
    EXPECT_EQ(TextOf(AddressRange::Parse(row.value)), row.written) << row.value;
  }
}

TEST(AddressRange, WrittenValueIsTheSameRange) {
  for (const auto& row : kValues) {
    const auto range = AddressRange::Parse(row.value);
    if (!range) continue;
    EXPECT_EQ(AddressRange::Parse(range->Text()), range) << row.value;
  }
}

TEST(AddressRange, KnowsWhenItWasWrittenFromHighToLow) {
  EXPECT_FALSE(Of("10.0.0.1 10.0.0.9").IsReversed());
  EXPECT_TRUE(Of("10.0.0.9 10.0.0.1").IsReversed());
  EXPECT_FALSE(Of("10.0.0.1").IsReversed());
  EXPECT_TRUE(Of("2001:db8::9 2001:db8::1").IsReversed());
  EXPECT_FALSE(Of("2001:db8::/64").IsReversed());
  EXPECT_EQ(Of("10.0.0.9 10.0.0.1"), Of("10.0.0.1 10.0.0.9"));
}

TEST(AddressRange, KnowsItsUse) {
  EXPECT_EQ(Of("10.0.0.1").GetUse(), AddressRange::Use::kAny);
  EXPECT_EQ(Of("dynamic-bootp 10.0.0.1").GetUse(), AddressRange::Use::kDynamicBootp);
  EXPECT_EQ(Of("2001:db8::/64").GetUse(), AddressRange::Use::kAny);
  EXPECT_EQ(Of("2001:db8::/64 temporary").GetUse(), AddressRange::Use::kTemporary);
  EXPECT_NE(Of("dynamic-bootp 10.0.0.1"), Of("10.0.0.1"));
}

TEST(AddressRange, IsMadeOfAddressesAndPrefixes) {
  EXPECT_EQ(AddressRange().Text(), "0.0.0.0");
  EXPECT_EQ(AddressRange(At("10.0.0.1")).Text(), "10.0.0.1");
  EXPECT_EQ(AddressRange(*Prefix::Parse("10.0.0.7/24")).Text(), "10.0.0.0 10.0.0.255");
  EXPECT_EQ(TextOf(AddressRange::Of(At("10.0.0.9"), At("10.0.0.1"))), "10.0.0.1 10.0.0.9");
  EXPECT_EQ(TextOf(AddressRange::Of(At("10.0.0.9"), At("::1"))), "none");
  EXPECT_EQ(
      TextOf(AddressRange::Of(At("2001:db8::1"), At("2001:db8::3"), AddressRange::Use::kTemporary)),
      "2001:db8::1 2001:db8::3");
}

constexpr struct {
  const char* range;
  const char* other;
  bool contains;
  bool isContained;
  bool overlaps;
} kPairs[] = {
    {"10.0.0.5 10.0.0.9", "10.0.0.5 10.0.0.9", true, true, true},
    {"10.0.0.5 10.0.0.9", "dynamic-bootp 10.0.0.9 10.0.0.5", true, true, true},
    {"10.0.0.5 10.0.0.9", "10.0.0.5", true, false, true},
    {"10.0.0.5 10.0.0.9", "10.0.0.9", true, false, true},
    {"10.0.0.5 10.0.0.9", "10.0.0.4", false, false, false},
    {"10.0.0.5 10.0.0.9", "10.0.0.10", false, false, false},
    {"10.0.0.5 10.0.0.9", "10.0.0.9 10.0.0.12", false, false, true},
    {"10.0.0.5 10.0.0.9", "10.0.0.6 10.0.0.12", false, false, true},
    {"10.0.0.5 10.0.0.9", "10.0.0.10 10.0.0.12", false, false, false},
    {"10.0.0.5 10.0.0.9", "2001:db8::5 2001:db8::9", false, false, false},
    {"0.0.0.0 255.255.255.255", "::/0", false, false, false},
    {"2001:db8::/64", "2001:db8::5 2001:db8::9", true, false, true},
};

TEST(AddressRange, ContainsAndOverlaps) {
  for (const auto& row : kPairs) {
    const AddressRange a = Of(row.range);
    const AddressRange b = Of(row.other);
    EXPECT_EQ(a.Contains(b), row.contains) << row.range << ", " << row.other;
    EXPECT_EQ(b.Contains(a), row.isContained) << row.range << ", " << row.other;
    EXPECT_EQ(a.Overlaps(b), row.overlaps) << row.range << ", " << row.other;
    EXPECT_EQ(b.Overlaps(a), row.overlaps) << row.range << ", " << row.other;
    EXPECT_EQ(a.Contains(b.First()) && a.Contains(b.Last()), row.contains) << row.other;
  }
}

constexpr struct {
  const char* range;
  std::uint64_t count;
} kCounts[] = {
    {"10.0.0.1", 1},
    {"10.0.0.1 10.0.0.9", 9},
    {"10.0.0.250 10.0.1.5", 12},
    {"0.0.0.0 255.255.255.255", 4294967296U},
    {"2001:db8::1 2001:db8::1", 1},
    {"2001:db8::ffff 2001:db8::1:0", 2},
    {"2001:db8::/112", 65536},
    {"2001:db8::/65", 9223372036854775808U},
    {"2001:db8:: 2001:db8::ffff:ffff:ffff:fffe", 18446744073709551615U},
    {"2001:db8::/64", 18446744073709551615U},  // one less than there are
    {"2001:db8::/48", 18446744073709551615U},
    {"::/0", 18446744073709551615U},
    {"2001:db8:0:1:ffff:ffff:ffff:fff0 2001:db8:0:2::f", 32},
};

TEST(AddressRange, CountsItsAddresses) {
  for (const auto& row : kCounts) EXPECT_EQ(Of(row.range).Count(), row.count) << row.range;
}

constexpr struct {
  const char* range;
  const char* prefix;
} kPrefixes[] = {
    {"10.0.0.0 10.0.0.255", "10.0.0.0/24"},   {"10.0.0.7", "10.0.0.7/32"},
    {"0.0.0.0 255.255.255.255", "0.0.0.0/0"}, {"10.0.0.1 10.0.0.255", "none"},
    {"10.0.0.0 10.0.0.254", "none"},          {"10.0.1.0 10.0.2.255", "none"},
    {"10.0.0.4 10.0.0.11", "none"},           {"2001:db8::/64 temporary", "2001:db8::/64"},
};

TEST(AddressRange, IsAPrefixWhenItHasJustItsAddresses) {
  for (const auto& row : kPrefixes) {
    const auto prefix = Of(row.range).AsPrefix();
    EXPECT_EQ(prefix ? prefix->Text() : "none", row.prefix) << row.range;
  }
}

TEST(AddressRange, ComparesByEnds) {
  EXPECT_LT(Of("10.0.0.1 10.0.0.9"), Of("10.0.0.2 10.0.0.3"));
  EXPECT_LT(Of("10.0.0.1 10.0.0.9"), Of("10.0.0.1 10.0.0.10"));
  EXPECT_LT(Of("10.0.0.1"), Of("dynamic-bootp 10.0.0.1"));
  const std::unordered_set<AddressRange> ranges = {Of("10.0.0.1 10.0.0.9")};
  EXPECT_EQ(ranges.count(Of("10.0.0.9 10.0.0.1")), 1U);
  EXPECT_EQ(ranges.count(Of("dynamic-bootp 10.0.0.1 10.0.0.9")), 0U);
}

TEST(AddressRange, AnyIsReadBackFromItsText) {
  RandomValues random(3);
  for (int i = 0; i < 2000; ++i) {
    const auto [low4, low6] = random.Addresses();
    const auto [high4, high6] = random.Addresses();
    const auto use =
        random.Below(2) == 0 ? AddressRange::Use::kAny : AddressRange::Use::kDynamicBootp;
    for (const auto& range : {AddressRange::Of(low4, high4, use), AddressRange::Of(low6, high6)}) {
      EXPECT_EQ(AddressRange::Parse(range->Text()), range) << range->Text();
    }
  }
}

TEST(AddressRange, PrefixAndItsRangeAreTheSame) {
  RandomValues random(4);
  for (int i = 0; i < 500; ++i) {
    const Prefix prefix = Prefix::Of(random.Addresses()[1], random.Below(129))->WithoutHostBits();
    EXPECT_EQ(AddressRange(prefix).AsPrefix(), prefix) << prefix.Text();
    EXPECT_EQ(AddressRange::Parse(prefix.Text() + " temporary")->Text(),
              prefix.Text() + " temporary");
  }
}

}  // namespace
}  // namespace klepur
