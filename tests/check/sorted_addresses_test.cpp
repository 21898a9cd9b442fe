// Addresses as numbers, and finding them among others.
#include <klepur/check/sorted_addresses.h>

#include <gtest/gtest.h>

#include <vector>

namespace klepur::internal {
namespace {

// In their order.
constexpr const char* kTexts[] = {
    "0.0.0.0", "0.0.0.1",      "10.0.0.255",    "10.0.1.0",          "255.255.255.255", "::",
    "::1",     "::ffff:0:0:1", "2001:db8::1:0", "2001:db8::2:0:0:0", "ffff::"};

std::vector<klepur::Address> Addresses() {
  std::vector<klepur::Address> addresses;
  for (const char* const text : kTexts) addresses.push_back(*klepur::Address::Parse(text));
  return addresses;
}

TEST(AddressKey, IsOrderedAsTheAddressAndGivesItBack) {
  for (const klepur::Address& left : Addresses()) {
    EXPECT_EQ(AddressKey(left).ToAddress(), left);
    EXPECT_EQ(AddressKey(left).IsV6(), left.IsV6());
    for (const klepur::Address& right : Addresses()) {
      EXPECT_EQ(AddressKey(left) < AddressKey(right), left < right);
      EXPECT_EQ(AddressKey(left) == AddressKey(right), left == right);
    }
  }
  EXPECT_EQ(AddressKey::OfV4(0x0A000102).Text(), "10.0.1.2");
}

TEST(SortedAddresses, CountsThoseUpToAnAddressInWhateverOrderItIsAsked) {
  SortedAddresses sorted;
  EXPECT_EQ(sorted.UpTo(AddressKey::OfV4(7)), 0U);
  const std::vector<klepur::Address> all = Addresses();
  sorted.reserve(all.size());
  for (const klepur::Address& address : all) sorted.push_back(address);
  sorted.push_back(all.back());
  for (std::size_t i = 0; i != all.size(); ++i) {
    for (const std::size_t at : {i, all.size() - 1 - i}) {
      const std::size_t more = at + 1 == all.size() ? 1 : 0;  // the last one is there twice
      EXPECT_EQ(sorted.UpTo(all[at]), at + 1 + more) << all[at].Text();
    }
  }
  EXPECT_EQ(sorted.UpTo(*klepur::Address::Parse("10.0.0.254")), 2U);
}

}  // namespace
}  // namespace klepur::internal
