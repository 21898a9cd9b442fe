#include <gtest/gtest.h>
#include <klepur/config/subnet_address.h>
#include <klepur/config4/dhcp_words.h>
#include <klepur/config6/dhcpv6_words.h>

#include <initializer_list>
#include <stdexcept>
#include <string>

#include "tests/support/family.h"

namespace klepur::internal {
namespace {

using namespace klepur::test;
using Type = EitherKind;

constexpr Type kOtherKinds[] = {SECTION_GLOBAL, SECTION_SHARED_NETWORK, SECTION_HOST,
                                SECTION_IF,     static_cast<Type>(5),   static_cast<Type>(-1)};

template <class Vocabulary>
std::string AddressOf(Type type, std::initializer_list<SectionParam<Vocabulary>> params) {
  SectionRecord<Vocabulary> record;
  record.type = type;
  record.params = params;
  return SubnetAddressOf(record);
}

template <class Vocabulary>
std::string AddressOf(Type type, const char* name) {
  return AddressOf<Vocabulary>(type, {{false, 0, name}});
}

TEST(SubnetAddressOf, Dhcpv4CutsEveryRecordAtTheColon) {
  EXPECT_EQ(AddressOf<DhcpVocabulary>(SECTION_SUBNET, "10.0.0.0:255.0.0.0"), "10.0.0.0");
  for (const Type type : kOtherKinds) {
    EXPECT_EQ(AddressOf<DhcpVocabulary>(type, "10.0.0.0:255.0.0.0"), "10.0.0.0") << type;
  }
}

TEST(SubnetAddressOf, Dhcpv6CutsEveryRecordButASubnetAtTheColon) {
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, "2001:db8:1::/64"), "2001:db8:1::/64");
  for (const Type type : kOtherKinds) {
    EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(type, "2001:db8:1::/64"), "2001") << type;
  }
}

TEST(SubnetAddressOf, CommaComesBeforeTheColonAndTheBlankBehindIt) {
  EXPECT_EQ(AddressOf<DhcpVocabulary>(SECTION_SUBNET, "10.0.0.0:x, y"), "10.0.0.0:x");
  EXPECT_EQ(AddressOf<DhcpVocabulary>(SECTION_SUBNET, "10.0.0.0 x:y"), "10.0.0.0 x");
  EXPECT_EQ(AddressOf<DhcpVocabulary>(SECTION_SUBNET, "10.0.0.0 x"), "10.0.0.0");
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, "2001:db8:1::/64, x"), "2001:db8:1::/64");
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, "2001:db8:1::/64 x"), "2001:db8:1::/64");
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_HOST, "2001:db8:1::/64, x"), "2001:db8:1::/64");
}

TEST(SubnetAddressOf, FirstNameCounts) {
  EXPECT_EQ(AddressOf<DhcpVocabulary>(
                SECTION_SUBNET, {{false, 7, "9"}, {true, 0, "10.0.0.0"}, {false, 0, "11.0.0.0"}}),
            "10.0.0.0");
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, {{false, 0, ""}, {false, 0, "x"}}), "");
}

TEST(SubnetAddressOf, WithoutANameIsEmpty) {
  EXPECT_EQ(AddressOf<DhcpVocabulary>(SECTION_SUBNET, {}), "");
  EXPECT_EQ(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, {{false, -1, "2001:db8:1::/64"}}), "");
}

TEST(SubnetAddressOf, NameEndingInItsFirstCommaIsOutOfRange) {
  EXPECT_THROW(AddressOf<DhcpVocabulary>(SECTION_SUBNET, "10.0.0.0:255.0.0.0,"), std::out_of_range);
  EXPECT_THROW(AddressOf<Dhcpv6Vocabulary>(SECTION_SUBNET, "2001:db8:1::/64,"), std::out_of_range);
  EXPECT_THROW(AddressOf<Dhcpv6Vocabulary>(SECTION_HOST, "2001:db8:1::/64,"), std::out_of_range);
}

}  // namespace
}  // namespace klepur::internal
