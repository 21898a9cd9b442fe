#include <klepur/network/prefix_range.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur {
namespace {

PrefixRange Of(std::string_view value) {
  return PrefixRange::Parse(value).value();
}

constexpr struct {
  std::string_view value;
  const char* written;
} kValues[] = {
    {"2001:db8:0:100:: 2001:db8:0:f00:: /56", "2001:db8:0:100:: 2001:db8:0:f00:: /56"},
    {"2001:db8:0:f00:: 2001:db8:0:100:: /56", "2001:db8:0:100:: 2001:db8:0:f00:: /56"},
    {"2001:db8:0:100:: 2001:db8:0:f00::/56", "2001:db8:0:100:: 2001:db8:0:f00:: /56"},
    {"2001:DB8:0:100:: 2001:db8:0:F00:: / 056", "2001:db8:0:100:: 2001:db8:0:f00:: /56"},
    {"2001:db8:0:100:: # low\n2001:db8:0:f00:: # high\n/ # of\n56 # bits",
     "2001:db8:0:100:: 2001:db8:0:f00:: /56"},
    {"2001:db8:0:101:: 2001:db8:0:fff:: /56", "2001:db8:0:101:: 2001:db8:0:fff:: /56"},
    {"2001:db8:: 2001:db8:: /48", "2001:db8:: 2001:db8:: /48"},
    {":: 8000:: /1", ":: 8000:: /1"},
    {"2001:db8:: 2001:db8::fe /127", "2001:db8:: 2001:db8::fe /127"},

    // no ranges of prefixes
    {"", "none"},
    {"2001:db8:0:100::/56", "none"},
    {"2001:db8:0:100::", "none"},
    {"2001:db8:0:100:: /56", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00::", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: 56", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: /", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: /0", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: /128", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: /129", "none"},
    {"2001:db8:0:100:: 2001:db8:0:f00:: /56 /57", "none"},
    {"2001:db8:0:100::/56 2001:db8:0:f00::/56", "none"},
    {"10.0.0.0 10.0.7.0 /24", "none"},
    {"2001:db8:: 10.0.7.0 /24", "none"},
};

TEST(PrefixRange, IsReadFromAStatementAndWritten) {
  for (const auto& row : kValues) {
    const auto range = PrefixRange::Parse(row.value);
    EXPECT_EQ(range ? range->Text() : "none", row.written) << row.value;
    if (!range) continue;
    EXPECT_EQ(PrefixRange::Parse(range->Text()), range) << row.value;
  }
}

constexpr struct {
  const char* value;
  const char* addresses;
  std::uint64_t count;
  bool isReversed;
  bool hasHostBits;
} kParts[] = {
    {"2001:db8:0:100:: 2001:db8:0:f00:: /56", "2001:db8:0:100:: 2001:db8:0:fff:ffff:ffff:ffff:ffff",
     15, false, false},
    {"2001:db8:0:f00:: 2001:db8:0:100:: /56", "2001:db8:0:100:: 2001:db8:0:fff:ffff:ffff:ffff:ffff",
     15, true, false},
    {"2001:db8:0:101:: 2001:db8:0:f00:: /56", "2001:db8:0:100:: 2001:db8:0:fff:ffff:ffff:ffff:ffff",
     15, false, true},
    {"2001:db8:0:100:: 2001:db8:0:f01:: /56", "2001:db8:0:100:: 2001:db8:0:fff:ffff:ffff:ffff:ffff",
     15, false, true},
    {"2001:db8:: 2001:db8:: /48", "2001:db8:: 2001:db8:0:ffff:ffff:ffff:ffff:ffff", 1, false,
     false},
    {":: 8000:: /1", ":: ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", 2, false, false},
    {":: ffff:ffff:ffff:ffff:: /64", ":: ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff",
     18446744073709551615U, false, false},  // one less than there are
    {":: ffff:ffff:ffff:fffe:: /63", ":: ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff",
     9223372036854775808U, false, false},
};

TEST(PrefixRange, TellsItsParts) {
  for (const auto& row : kParts) {
    const PrefixRange range = Of(row.value);
    EXPECT_EQ(range.Addresses().Text(), row.addresses) << row.value;
    EXPECT_EQ(range.Count(), row.count) << row.value;
    EXPECT_EQ(range.IsReversed(), row.isReversed) << row.value;
    EXPECT_EQ(range.HasHostBits(), row.hasHostBits) << row.value;
  }
}

TEST(PrefixRange, GivesItsEndsAsPrefixes) {
  const PrefixRange range = Of("2001:db8:0:f00:: 2001:db8:0:100:: /56");
  EXPECT_EQ(range.First().Text(), "2001:db8:0:100::/56");
  EXPECT_EQ(range.Last().Text(), "2001:db8:0:f00::/56");
  EXPECT_EQ(range.Length(), 56U);
  EXPECT_EQ(PrefixRange().Text(), ":: :: /1");
}

constexpr struct {
  const char* prefix;
  bool contains;
} kContained[] = {
    {"2001:db8:0:100::/56", true},  {"2001:db8:0:f00::/56", true},   {"2001:db8:0:fff::/64", true},
    {"2001:db8:0:200::/55", true},  {"2001:db8:0:1000::/56", false}, {"2001:db8::/56", false},
    {"2001:db8:0:000::/52", false}, {"10.0.0.0/24", false},
};

TEST(PrefixRange, ContainsPrefixesAndAddresses) {
  const PrefixRange range = Of("2001:db8:0:100:: 2001:db8:0:f00:: /56");
  for (const auto& row : kContained) {
    EXPECT_EQ(range.Contains(*Prefix::Parse(row.prefix)), row.contains) << row.prefix;
  }
  EXPECT_TRUE(range.Contains(*Address::Parse("2001:db8:0:fff::1")));
  EXPECT_FALSE(range.Contains(*Address::Parse("2001:db8:0:1000::")));
}

TEST(PrefixRange, OverlapsWhereAddressesAreInBoth) {
  const PrefixRange range = Of("2001:db8:0:100:: 2001:db8:0:f00:: /56");
  EXPECT_TRUE(range.Overlaps(Of("2001:db8:0:fff:: 2001:db8:0:1001:: /64")));
  EXPECT_FALSE(range.Overlaps(Of("2001:db8:0:1000:: 2001:db8:0:1001:: /64")));
}

TEST(PrefixRange, ComparesByEndsInOrder) {
  EXPECT_EQ(Of("2001:db8:1:: 2001:db8:: /48"), Of("2001:db8:: 2001:db8:1:: /48"));
  EXPECT_NE(Of("2001:db8:: 2001:db8:1:: /48"), Of("2001:db8:: 2001:db8:1:: /49"));
  EXPECT_LT(Of("2001:db8:: 2001:db8:1:: /48"), Of("2001:db8:: 2001:db8:2:: /48"));
  const std::unordered_set<PrefixRange> ranges = {Of("2001:db8:: 2001:db8:1:: /48")};
  EXPECT_EQ(ranges.count(Of("2001:db8:1:: 2001:db8:: /48")), 1U);
}

}  // namespace
}  // namespace klepur
