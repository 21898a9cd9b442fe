#include <klepur/network/prefix.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur {
namespace {

Prefix Of(std::string_view text) {
  return Prefix::Parse(text).value();
}

std::string TextOf(const std::optional<Prefix>& prefix) {
  return prefix ? prefix->Text() : "none";
}

struct Reading {
  std::string_view text;
  const char* prefix;
};

constexpr Reading kTexts[] = {
    {"10.0.0.0/24", "10.0.0.0/24"},
    {"0.0.0.0/0", "0.0.0.0/0"},
    {"10.0.0.7/32", "10.0.0.7/32"},
    {"10.0.0.7/24", "10.0.0.7/24"},
    {"2001:db8::/64", "2001:db8::/64"},
    {"2001:DB8:0::/064", "2001:db8::/64"},
    {"::/0", "::/0"},
    {"2001:db8::/128", "2001:db8::/128"},
    {"010.0.0.0/24", "10.0.0.0/24"},
    {"2001:db8::/00000000000064", "2001:db8::/64"},

    // blanks, line ends and comments
    {"2001:db8:: / 64", "2001:db8::/64"},
    {"2001:db8:: /64", "2001:db8::/64"},
    {"2001:db8::/ 64", "2001:db8::/64"},
    {" 2001:db8::/64\t", "2001:db8::/64"},
    {"2001:db8:: # the office\n/ # and\r\n64", "2001:db8::/64"},
    {"2001:db8::/64# the office", "2001:db8::/64"},

    // no prefixes
    {"", "none"},
    {"10.0.0.0", "none"},
    {"10.0.0.0/", "none"},
    {"/24", "none"},
    {"10.0.0.0/33", "none"},
    {"2001:db8::/129", "none"},
    {"2001:db8::/4294967360", "none"},
    {"10.0.0.0/-1", "none"},
    {"10.0.0.0/+24", "none"},
    {"10.0.0.0/0x18", "none"},
    {"10.0.0.0/24x", "none"},
    {"10.0.0.0/24/24", "none"},
    {"10.0.0.0//24", "none"},
    {"10.0.0.0/24 25", "none"},
    {"10.0.0.0/24,", "none"},
    {"10.0.0.0/255.255.255.0", "none"},
    {"10.0.0/24", "none"},
    {"\"10.0.0.0/24\"", "none"},
    {"10.0.0.0/\"24\"", "none"},
    {"10.0.0.0 24", "none"},
};

TEST(Prefix, IsReadAndWritten) {
  for (const auto& row : kTexts) EXPECT_EQ(TextOf(Prefix::Parse(row.text)), row.prefix) << row.text;
}

constexpr Reading kSubnets[] = {
    {"10.0.0.0 netmask 255.255.255.0", "10.0.0.0/24"},
    {"10.0.0.0 NetMask 255.255.255.0", "10.0.0.0/24"},
    {"10.0.0.0\tnetmask\n 255.255.255.128 ", "10.0.0.0/25"},
    {"10.0.0.0 # wired\n netmask 255.0.0.0 # class A", "10.0.0.0/8"},
    {"010.0.0.0 netmask 255.255.0255.000", "10.0.0.0/24"},
    {"0.0.0.0 netmask 0.0.0.0", "0.0.0.0/0"},
    {"10.0.0.7 netmask 255.255.255.255", "10.0.0.7/32"},
    {"10.0.0.7 netmask 255.255.255.0", "10.0.0.7/24"},
    {"2001:db8::/64", "2001:db8::/64"},
    {"2001:db8:: / 64", "2001:db8::/64"},

    // no subnets
    {"", "none"},
    {"10.0.0.0", "none"},
    {"10.0.0.0/24", "none"},
    {"10.0.0.0 netmask", "none"},
    {"10.0.0.0 255.255.255.0", "none"},
    {"10.0.0.0 netmask 24", "none"},
    {"10.0.0.0 netmask 255.0.255.0", "none"},
    {"10.0.0.0 netmask 0.0.0.255", "none"},
    {"10.0.0.0 netmask 255.255.255.1", "none"},
    {"10.0.0.0 netmask 255.255.255.0 x", "none"},
    {"10.0.0.0 netmask ffff::", "none"},
    {"2001:db8:: netmask 255.255.255.0", "none"},
    {"2001:db8:: netmask ffff::", "none"},
    {"2001:db8::", "none"},
    {"netmask 255.255.255.0", "none"},
};

TEST(Prefix, IsReadFromTheHeaderOfASubnet) {
  for (const auto& row : kSubnets) {
    EXPECT_EQ(TextOf(Prefix::ParseSubnet(row.text)), row.prefix) << row.text;
  }
}

const struct {
  const char* address;
  const char* netmask;
  const char* prefix;
} kNetmasks[] = {
    {"10.0.0.0", "255.255.255.0", "10.0.0.0/24"},
    {"10.0.0.0", "255.255.254.0", "10.0.0.0/23"},
    {"010.0.0.0", "255.255.255.000", "10.0.0.0/24"},
    {"10.0.0.0", "255.0.255.0", "none"},
    {"10.0.0.0", "254.255.255.0", "none"},
    {"10.0.0.0", "", "none"},
    {"", "255.255.255.0", "none"},
    {"2001:db8::", "ffff::", "none"},
    {"10.0.0.0", "ffff::", "none"},
};

TEST(Prefix, NetmaskWithHolesIsNone) {
  for (const auto& row : kNetmasks) {
    EXPECT_EQ(TextOf(Prefix::ParseWithNetmask(row.address, row.netmask)), row.prefix)
        << row.address << " " << row.netmask;
  }
}

TEST(Prefix, EveryLengthIsReadBackFromItsNetmask) {
  for (unsigned length = 0; length <= 32; ++length) {
    const auto prefix = Prefix::Of(*Address::Parse("10.1.2.3"), length);
    EXPECT_EQ(Prefix::ParseWithNetmask("10.1.2.3", prefix->Netmask().Text()), prefix) << length;
  }
}

TEST(Prefix, LengthFitsTheFamily) {
  const Address v4 = *Address::Parse("10.0.0.0");
  const Address v6 = *Address::Parse("2001:db8::");
  EXPECT_EQ(TextOf(Prefix::Of(v4, 32)), "10.0.0.0/32");
  EXPECT_EQ(TextOf(Prefix::Of(v4, 33)), "none");
  EXPECT_EQ(TextOf(Prefix::Of(v6, 128)), "2001:db8::/128");
  EXPECT_EQ(TextOf(Prefix::Of(v6, 129)), "none");
  EXPECT_EQ(Prefix().Text(), "0.0.0.0/0");
}

const struct {
  const char* prefix;
  const char* first;
  const char* last;
  const char* broadcast;
  const char* netmask;
  const char* withoutHostBits;  // the same text when there are none
} kParts[] = {
    {"10.0.0.0/24", "10.0.0.0", "10.0.0.255", "10.0.0.255", "255.255.255.0", "10.0.0.0/24"},
    {"10.0.0.77/24", "10.0.0.0", "10.0.0.255", "10.0.0.255", "255.255.255.0", "10.0.0.0/24"},
    {"10.0.0.4/30", "10.0.0.4", "10.0.0.7", "10.0.0.7", "255.255.255.252", "10.0.0.4/30"},
    {"10.0.0.4/31", "10.0.0.4", "10.0.0.5", "none", "255.255.255.254", "10.0.0.4/31"},
    {"10.0.0.5/31", "10.0.0.4", "10.0.0.5", "none", "255.255.255.254", "10.0.0.4/31"},
    {"10.0.0.4/32", "10.0.0.4", "10.0.0.4", "none", "255.255.255.255", "10.0.0.4/32"},
    {"0.0.0.0/0", "0.0.0.0", "255.255.255.255", "255.255.255.255", "0.0.0.0", "0.0.0.0/0"},
    {"2001:db8::/64", "2001:db8::", "2001:db8::ffff:ffff:ffff:ffff", "none",
     "ffff:ffff:ffff:ffff::", "2001:db8::/64"},
    {"2001:db8::1/64", "2001:db8::", "2001:db8::ffff:ffff:ffff:ffff", "none",
     "ffff:ffff:ffff:ffff::", "2001:db8::/64"},
};

TEST(Prefix, TellsItsParts) {
  for (const auto& row : kParts) {
    const Prefix prefix = Of(row.prefix);
    EXPECT_EQ(prefix.First().Text(), row.first) << row.prefix;
    EXPECT_EQ(prefix.Last().Text(), row.last) << row.prefix;
    const auto broadcast = prefix.Broadcast();
    EXPECT_EQ(broadcast ? broadcast->Text() : "none", row.broadcast) << row.prefix;
    EXPECT_EQ(prefix.Netmask().Text(), row.netmask) << row.prefix;
    EXPECT_EQ(prefix.WithoutHostBits().Text(), row.withoutHostBits) << row.prefix;
    EXPECT_EQ(prefix.HasHostBits(), std::string_view(row.prefix) != row.withoutHostBits)
        << row.prefix;
  }
}

const struct {
  const char* prefix;
  const char* address;
  bool contains;
} kAddresses[] = {
    {"10.0.0.0/24", "10.0.0.0", true},
    {"10.0.0.0/24", "10.0.0.255", true},
    {"10.0.0.77/24", "10.0.0.1", true},
    {"10.0.0.0/24", "10.0.1.0", false},
    {"10.0.0.0/24", "9.255.255.255", false},
    {"0.0.0.0/0", "255.255.255.255", true},
    {"0.0.0.0/0", "::", false},
    {"::/0", "10.0.0.1", false},
    {"::/0", "::ffff:10.0.0.1", true},
    {"2001:db8::/64", "2001:db8::1", true},
    {"2001:db8::/64", "2001:db8:0:1::", false},
};

TEST(Prefix, ContainsAddressesOfItsFamily) {
  for (const auto& row : kAddresses) {
    EXPECT_EQ(Of(row.prefix).Contains(*Address::Parse(row.address)), row.contains)
        << row.prefix << " " << row.address;
  }
}

const struct {
  const char* prefix;
  const char* other;
  bool contains;
  bool isContained;
} kPairs[] = {
    {"10.0.0.0/24", "10.0.0.0/24", true, true},
    {"10.0.0.0/24", "10.0.0.9/24", true, true},
    {"10.0.0.0/16", "10.0.7.0/24", true, false},
    {"10.0.0.0/24", "10.0.0.255/32", true, false},
    {"10.0.0.0/24", "10.0.1.0/24", false, false},
    {"0.0.0.0/0", "::/0", false, false},
    {"2001:db8::/32", "2001:db8:1::/48", true, false},
    {"2001:db8::/48", "2001:db8:1::/48", false, false},
};

TEST(Prefix, OverlapsWhatItContainsOrIsContainedIn) {
  for (const auto& row : kPairs) {
    const Prefix a = Of(row.prefix);
    const Prefix b = Of(row.other);
    EXPECT_EQ(a.Contains(b), row.contains) << row.prefix << " " << row.other;
    EXPECT_EQ(b.Contains(a), row.isContained) << row.prefix << " " << row.other;
    EXPECT_EQ(a.Overlaps(b), row.contains || row.isContained) << row.prefix << " " << row.other;
    EXPECT_EQ(b.Overlaps(a), row.contains || row.isContained) << row.prefix << " " << row.other;
  }
}

TEST(Prefix, ComparesAsGiven) {
  EXPECT_EQ(Of("2001:DB8::/64"), Of("2001:db8:: / 064"));
  EXPECT_NE(Of("10.0.0.7/24"), Of("10.0.0.0/24"));
  EXPECT_LT(Of("10.0.0.0/8"), Of("10.0.0.0/24"));
  EXPECT_LT(Of("10.0.0.0/24"), Of("10.0.1.0/8"));
  EXPECT_LT(Of("10.0.0.0/24"), Of("::/0"));
  const std::unordered_set<Prefix> prefixes = {Of("10.0.0.0/24")};
  EXPECT_EQ(prefixes.count(Of("10.0.0.0 / 24")), 1U);
  EXPECT_EQ(prefixes.count(Of("10.0.0.0/25")), 0U);
}

TEST(Prefix, AnyIsReadBackFromItsTextAndContainsItsEnds) {
  RandomValues random(2);
  for (int i = 0; i < 2000; ++i) {
    for (const Address& address : random.Addresses()) {
      const Prefix prefix = *Prefix::Of(address, random.Below(address.BitCount() + 1));
      EXPECT_EQ(Prefix::Parse(prefix.Text()), prefix) << prefix.Text();
      EXPECT_TRUE(prefix.Contains(prefix.First()) && prefix.Contains(prefix.Last()));
      const auto behind = prefix.Last().Next();
      EXPECT_FALSE(behind && prefix.Contains(*behind)) << prefix.Text();
      const auto before = prefix.First().Previous();
      EXPECT_FALSE(before && prefix.Contains(*before)) << prefix.Text();
    }
  }
}

}  // namespace
}  // namespace klepur
