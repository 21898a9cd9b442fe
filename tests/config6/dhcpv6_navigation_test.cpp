#include <string>

#include "tests/support/navigation_fixture.h"

namespace klepur::test {
namespace {

class Dhcpv6Navigation : public NavigationFixture<V6> {
 protected:
  void GivenHost(const std::string& line) {
    Given("subnet6 2001:db8:1::/64 {\n  host pc1 {\n    " + line + "\n  }\n}\n");
  }
};

TEST_F(Dhcpv6Navigation, OpenStandsOnTheFirstNetworkAndItsSubnet) {
  Given("shared-network office {\n  subnet6 2001:db8:1::/64 {\n  }\n}\n");
  EXPECT_EQ(Cursors(), "shared-network office / subnet6 2001:db8:1::/64");
}

TEST_F(Dhcpv6Navigation, GotoFindsASubnetByItsPrefix) {
  Given("host a {\n}\nsubnet6 2001:db8:1::/64 {\n}\n");
  EXPECT_EQ(Goto("2001:db8:1::/64", SECTION_SUBNET), "hit");
  EXPECT_EQ(Cursors(), "null / subnet6 2001:db8:1::/64");
}

TEST_F(Dhcpv6Navigation, GotoDoesNotFindASubnetWithoutThe6) {
  Given("host a {\n}\nsubnet 2001:db8:1::/64 {\n}\n");
  EXPECT_EQ(Goto("2001:db8:1::/64", SECTION_SUBNET), "miss");
}

TEST_F(Dhcpv6Navigation, SectionByNameFindsASubnetByItsPrefixButNotWithoutThe6) {
  Given("host a {\n}\nsubnet6 2001:db8:1::/64 {\n}\nsubnet 2001:db8:2::/64 {\n}\n");
  EXPECT_EQ(ByName(SECTION_SUBNET, "2001:db8:1::/64"), "2 | 0=2001:db8:1::/64");
  EXPECT_EQ(Cursors(), "null / subnet6 2001:db8:1::/64");
  EXPECT_EQ(ByName(SECTION_SUBNET, "2001:db8:2::/64"), "miss");
}

TEST_F(Dhcpv6Navigation, NameOfASubnetRecordIsTheNameToGoTo) {
  Given("subnet6 2001:db8:1::/64 {\n}\nsubnet6 2001:db8:2::/64 {\n}\n");
  auto subnet = Record(SECTION_SUBNET, {});
  ASSERT_TRUE(Conf().GetFirstSection(subnet, false));
  ASSERT_TRUE(Conf().GetNextSection(subnet, subnet, false));
  ASSERT_EQ(RecordText(subnet), "2 | 0=2001:db8:2::/64");
  Place(nullptr, "subnet6 2001:db8:1::/64");
  EXPECT_EQ(Goto(subnet.params.front().value.c_str(), SECTION_SUBNET), "hit");
  EXPECT_EQ(Cursors(), "null / subnet6 2001:db8:2::/64");
}

TEST_F(Dhcpv6Navigation, Dhcpv4SubnetIsABlockOfNoKnownKind) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\n}\n");
  EXPECT_EQ(Cursors(), "null / subnet 10.0.0.0 netmask 255.0.0.0");
  EXPECT_EQ(First(SECTION_SUBNET), "0 | 0=subnet 10.0.0.0 netmask 255.0.0.0");
  EXPECT_EQ(Goto("10.0.0.0 netmask 255.0.0.0", SECTION_SUBNET), "miss");
  EXPECT_EQ(ByName(SECTION_SUBNET, "10.0.0.0 netmask 255.0.0.0"), "miss");
}

TEST_F(Dhcpv6Navigation, HostByIpFindsTheFixedAddress6Statement) {
  GivenHost("fixed-address6 2001:db8::5;");
  EXPECT_EQ(HostByIp("2001:db8::5"), "3 | 0=pc1 | 11=2001:db8::5");
  EXPECT_EQ(HostByIp("2001:db8::"), "miss");
  EXPECT_EQ(HostByIp("2001:DB8::5"), "miss");
}

TEST_F(Dhcpv6Navigation, HostByIpDoesNotFindAFixedAddressWithoutThe6) {
  GivenHost("fixed-address 2001:db8::5;");
  EXPECT_EQ(HostByIp("2001:db8::5"), "miss");
}

TEST_F(Dhcpv6Navigation, HostByNameFindsTheQuotedFqdnOption) {
  GivenHost("option dhcp6.fqdn \"pc1.office.lan\";");
  EXPECT_EQ(HostByName("pc1.office.lan"), "3 | 0=pc1 | 13=pc1.office.lan");
  EXPECT_EQ(HostByName("pc1"), "miss");
}

TEST_F(Dhcpv6Navigation, HostByNameDoesNotFindTheDhcpv4Option) {
  GivenHost("option host-name \"pc1\";");
  EXPECT_EQ(HostByName("pc1"), "miss");
}

TEST_F(Dhcpv6Navigation, HostByMacAddressFindsTheHardwareStatement) {
  GivenHost("hardware ethernet 00:11:22:33:44:55;");
  EXPECT_EQ(HostByMac("00:11:22:33:44:55"), "3 | 0=pc1 | 10=00:11:22:33:44:55");
}

}  // namespace
}  // namespace klepur::test
