#include <klepur/network/address.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace klepur {
namespace {

using namespace std::string_view_literals;

Address At(std::string_view text) {
  return Address::Parse(text).value();
}

std::string TextOf(const std::optional<Address>& address) {
  return address ? address->Text() : "none";
}

const struct {
  std::string_view text;
  const char* exact;
  const char* lenient;
} kTexts[] = {
    {"10.0.0.1", "10.0.0.1", "10.0.0.1"},
    {"0.0.0.0", "0.0.0.0", "0.0.0.0"},
    {"255.255.255.255", "255.255.255.255", "255.255.255.255"},
    {"2001:db8::1", "2001:db8::1", "2001:db8::1"},
    {"2001:DB8:0:0::1", "2001:db8::1", "2001:db8::1"},
    {"2001:0db8:0000:0000:0000:0000:0000:0001", "2001:db8::1", "2001:db8::1"},
    {"::", "::", "::"},
    {"::ffff:10.0.0.1", "::ffff:10.0.0.1", "::ffff:10.0.0.1"},
    {"ffff:ffff:ffff:ffff:ffff:ffff:255.255.255.255", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff",
     "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff"},

    // zeros in front of numbers
    {"10.0.0.01", "none", "10.0.0.1"},
    {"010.000.00.001", "none", "10.0.0.1"},
    {"000000000000000000000000000000000000000000000000010.0.0.1", "none", "10.0.0.1"},
    {"192.168.001.100", "none", "192.168.1.100"},
    {"10.0.0.0256", "none", "none"},
    {"::ffff:10.0.0.01", "none", "none"},
    {"2001:db8::00001", "none", "none"},

    // no addresses
    {"", "none", "none"},
    {"10.0.0", "none", "none"},
    {"10.0.0.0.1", "none", "none"},
    {"10.0.0.256", "none", "none"},
    {"10..0.1", "none", "none"},
    {"10.0.0.1.", "none", "none"},
    {" 10.0.0.1", "none", "none"},
    {"10.0.0.1 ", "none", "none"},
    {"10.0.0.1\0"sv, "none", "none"},
    {"10.0.0.1\0.example"sv, "none", "none"},
    {"0x0a.0.0.1", "none", "none"},
    {"0xa000001", "none", "none"},
    {"-1.0.0.0", "none", "none"},
    {"10.0.0.0/24", "none", "none"},
    {"pc1", "none", "none"},
    {"localhost", "none", "none"},
    {":", "none", "none"},
    {":::", "none", "none"},
    {"2001:db8::1::2", "none", "none"},
    {"2001:db8::12345", "none", "none"},
    {"2001:db8::g", "none", "none"},
    {"fe80::1%eth0", "none", "none"},
    {"[2001:db8::1]", "none", "none"},
    {"ffff:ffff:ffff:ffff:ffff:ffff:255.255.255.2555", "none", "none"},
};

TEST(Address, IsReadAndWritten) {
  for (const auto& row : kTexts) {
    EXPECT_EQ(TextOf(Address::Parse(row.text)), row.exact) << row.text;
    EXPECT_EQ(TextOf(Address::ParseLenient(row.text)), row.lenient) << row.text;
  }
}

TEST(Address, WithoutTextIsTheLowest) {
  EXPECT_EQ(Address().Text(), "0.0.0.0");
}

TEST(Address, TellsItsFamilyAndBytes) {
  const Address v4 = At("10.0.1.2");
  EXPECT_TRUE(v4.IsV4());
  EXPECT_FALSE(v4.IsV6());
  EXPECT_EQ(v4.BitCount(), 32U);
  EXPECT_EQ(std::vector<int>(v4.Bytes(), v4.Bytes() + v4.ByteCount()),
            (std::vector<int>{10, 0, 1, 2}));
  const Address v6 = At("2001:db8::ff");
  EXPECT_FALSE(v6.IsV4());
  EXPECT_TRUE(v6.IsV6());
  EXPECT_EQ(v6.BitCount(), 128U);
  EXPECT_EQ(std::vector<int>(v6.Bytes(), v6.Bytes() + v6.ByteCount()),
            (std::vector<int>{0x20, 1, 0xd, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff}));
}

TEST(Address, OrderIsByValueAndIPv4ComesFirst) {
  const std::vector<Address> ordered = {
      At("0.0.0.0"),  At("9.255.255.255"),   At("10.0.0.0"),   At("10.0.0.9"), At("10.0.0.10"),
      At("10.0.1.0"), At("255.255.255.255"), At("::"),         At("::9"),      At("::10"),
      At("::1:0"),    At("::ffff:10.0.0.9"), At("2001:db8::"), At("fe80::"),
  };
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) {
      const Address& a = ordered[i];
      const Address& b = ordered[j];
      const std::string both = a.Text() + " " + b.Text();
      EXPECT_EQ(a == b, i == j) << both;
      EXPECT_EQ(a != b, i != j) << both;
      EXPECT_EQ(a < b, i < j) << both;
      EXPECT_EQ(a <= b, i <= j) << both;
      EXPECT_EQ(a > b, i > j) << both;
      EXPECT_EQ(a >= b, i >= j) << both;
    }
  }
}

const struct {
  const char* address;
  const char* next;
} kNeighbours[] = {
    {"0.0.0.0", "0.0.0.1"},
    {"10.0.0.255", "10.0.1.0"},
    {"10.255.255.255", "11.0.0.0"},
    {"255.255.255.254", "255.255.255.255"},
    {"255.255.255.255", "none"},
    {"none", "0.0.0.0"},
    {"::", "::1"},
    {"2001:db8::ffff", "2001:db8::1:0"},
    {"2001:db8:ffff:ffff:ffff:ffff:ffff:ffff", "2001:db9::"},
    {"ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", "none"},
    {"none", "::"},
};

TEST(Address, NextAndPreviousEndWithTheFamily) {
  for (const auto& row : kNeighbours) {
    if (const auto address = Address::Parse(row.address)) {
      EXPECT_EQ(TextOf(address->Next()), row.next) << row.address;
    }
    if (const auto next = Address::Parse(row.next)) {
      EXPECT_EQ(TextOf(next->Previous()), row.address) << row.next;
    }
  }
}

const struct {
  const char* address;
  unsigned length;
  const char* cleared;
  const char* set;
} kHostBits[] = {
    {"10.0.0.7", 24, "10.0.0.0", "10.0.0.255"},
    {"10.0.0.7", 32, "10.0.0.7", "10.0.0.7"},
    {"10.0.0.7", 31, "10.0.0.6", "10.0.0.7"},
    {"10.0.0.7", 30, "10.0.0.4", "10.0.0.7"},
    {"10.0.0.7", 0, "0.0.0.0", "255.255.255.255"},
    {"10.0.0.7", 1, "0.0.0.0", "127.255.255.255"},
    {"10.77.0.7", 12, "10.64.0.0", "10.79.255.255"},
    {"10.0.0.7", 33, "10.0.0.7", "10.0.0.7"},
    {"10.0.0.7", 4000000000, "10.0.0.7", "10.0.0.7"},
    {"2001:db8::7", 64, "2001:db8::", "2001:db8::ffff:ffff:ffff:ffff"},
    {"2001:db8::7", 0, "::", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff"},
    {"2001:db8::7", 127, "2001:db8::6", "2001:db8::7"},
    {"2001:db8::7", 128, "2001:db8::7", "2001:db8::7"},
    {"2001:db8:1234::", 36, "2001:db8:1000::", "2001:db8:1fff:ffff:ffff:ffff:ffff:ffff"},
};

TEST(Address, HostBitsAreThoseBehindThePrefix) {
  for (const auto& row : kHostBits) {
    EXPECT_EQ(At(row.address).WithHostBitsCleared(row.length).Text(), row.cleared) << row.length;
    EXPECT_EQ(At(row.address).WithHostBitsSet(row.length).Text(), row.set) << row.length;
  }
}

TEST(Address, EqualOnesHaveTheSameHash) {
  const std::unordered_set<Address> addresses = {At("10.0.0.1"), At("2001:db8::1"), At("::")};
  EXPECT_EQ(addresses.count(At("2001:DB8::0:1")), 1U);
  EXPECT_EQ(addresses.count(At("10.0.0.1")), 1U);
  EXPECT_EQ(addresses.count(At("::ffff:10.0.0.1")), 0U);
  EXPECT_EQ(addresses.count(At("0.0.0.0")), 0U);
}

TEST(Address, AnyIsReadBackFromItsText) {
  RandomValues random(1);
  for (int i = 0; i < 2000; ++i) {
    for (const Address& address : random.Addresses()) {
      EXPECT_EQ(Address::Parse(address.Text()), address) << address.Text();
      EXPECT_EQ(Address::ParseLenient(address.Text()), address) << address.Text();
      if (const auto next = address.Next()) {
        EXPECT_LT(address, *next);
        EXPECT_EQ(next->Previous(), address);
      }
    }
  }
}

}  // namespace
}  // namespace klepur
