#include <string>

#include "tests/support/navigation_fixture.h"

namespace klepur::test {
namespace {

class DhcpNavigation : public NavigationFixture<V4> {
 protected:
  void GivenHost(const std::string& line) {
    Given("subnet 10.0.0.0 netmask 255.0.0.0 {\n  host pc1 {\n    " + line + "\n  }\n}\n");
  }
};

TEST_F(DhcpNavigation, OpenStandsOnTheFirstNetworkAndItsSubnet) {
  Given("shared-network office {\n  subnet 10.0.0.0 netmask 255.0.0.0 {\n  }\n}\n");
  EXPECT_EQ(Cursors(), "shared-network office / subnet 10.0.0.0 netmask 255.0.0.0");
}

TEST_F(DhcpNavigation, SubnetIsReadWithItsAddressAndMaskJoinedByAColon) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\n}\nsubnet 10.0.1.0 {\n}\n");
  EXPECT_EQ(First(SECTION_SUBNET), "2 | 0=10.0.0.0:255.0.0.0");
  EXPECT_EQ(Next(SECTION_SUBNET), "2 | 0=10.0.1.0:10.0.1.0");
}

TEST_F(DhcpNavigation, GotoTakesASubnetAsItsHeaderReads) {
  Given("host a {\n}\nsubnet 10.0.0.0 netmask 255.0.0.0 {\n}\nsubnet 10.0.1.0 {\n}\n");
  EXPECT_EQ(Goto("10.0.0.0:255.0.0.0", SECTION_SUBNET), "miss");
  EXPECT_EQ(Goto("10.0.0.0", SECTION_SUBNET), "miss");
  EXPECT_EQ(Goto("10.0.0.0  netmask 255.0.0.0", SECTION_SUBNET), "miss");
  EXPECT_EQ(Goto("10.0.0.0 netmask 255.0.0.0", SECTION_SUBNET), "hit");
  EXPECT_EQ(Cursors(), "null / subnet 10.0.0.0 netmask 255.0.0.0");
  EXPECT_EQ(Goto("10.0.1.0", SECTION_SUBNET), "hit");
  EXPECT_EQ(Cursors(), "null / subnet 10.0.1.0");
}

TEST_F(DhcpNavigation, SectionByNameTakesASubnetAsItsHeaderReads) {
  Given("host a {\n}\nsubnet 10.0.0.0 netmask 255.0.0.0 {\n}\n");
  EXPECT_EQ(ByName(SECTION_SUBNET, "10.0.0.0:255.0.0.0"), "miss");
  EXPECT_EQ(ByName(SECTION_SUBNET, "10.0.0.0"), "miss");
  EXPECT_EQ(ByName(SECTION_SUBNET, "10.0.0.0 netmask 255.0.0.0"), "2 | 0=10.0.0.0:255.0.0.0");
  EXPECT_EQ(Cursors(), "null / subnet 10.0.0.0 netmask 255.0.0.0");
}

TEST_F(DhcpNavigation, Subnet6IsABlockOfNoKnownKind) {
  Given("subnet6 2001:db8:1::/64 {\n}\n");
  EXPECT_EQ(Cursors(), "null / subnet6 2001:db8:1::/64");
  EXPECT_EQ(First(SECTION_SUBNET), "0 | 0=subnet6 2001:db8:1::/64");
  EXPECT_EQ(Goto("2001:db8:1::/64", SECTION_SUBNET), "miss");
  EXPECT_EQ(ByName(SECTION_SUBNET, "2001:db8:1::/64"), "miss");
}

TEST_F(DhcpNavigation, NextHostIsTheOneBehindTheHeaderMadeOfTheName) {
  Given("subnet 10.0.0.0 netmask 255.0.0.0 {\n  host pc1 {\n  }\n  host pc2 {\n  }\n}\n");
  EXPECT_EQ(NextAfter(SECTION_HOST, "pc1"), "3 | 0=pc2");
}

TEST_F(DhcpNavigation, HostByIpFindsItsLineInTheCurrentSubnetOnly) {
  Given(R"(subnet 10.0.0.0 netmask 255.0.0.0 {
  host pc5 {
    fixed-address 10.0.0.5;
  }
}
subnet 11.0.0.0 netmask 255.0.0.0 {
  host pc6 {
    fixed-address 11.0.0.6;
  }
}
)");
  EXPECT_EQ(HostByIp("10.0.0.5"), "3 | 0=pc5 | 17=10.0.0.5");
  EXPECT_EQ(HostByIp("11.0.0.6"), "miss");
  ASSERT_EQ(Goto("11.0.0.0 netmask 255.0.0.0", SECTION_SUBNET), "hit");
  EXPECT_EQ(HostByIp("10.0.0.5"), "miss");
  EXPECT_EQ(HostByIp("11.0.0.6"), "3 | 0=pc6 | 17=11.0.0.6");
}

TEST_F(DhcpNavigation, HostByIpDoesNotFindAnIpv6Address) {
  GivenHost("fixed-address6 10.0.0.5;");
  EXPECT_EQ(HostByIp("10.0.0.5"), "miss");
}

TEST_F(DhcpNavigation, HostByNameFindsTheQuotedHostNameOption) {
  GivenHost("option host-name \"pc1.office\";");
  EXPECT_EQ(HostByName("pc1.office"), "3 | 0=pc1 | 20=pc1.office");
  EXPECT_EQ(HostByName("pc1"), "miss");
  EXPECT_EQ(HostByName("\"pc1.office\""), "miss");
}

TEST_F(DhcpNavigation, HostByNameDoesNotFindTheNameInTheHeaderOrInOtherOptions) {
  GivenHost("option dhcp6.fqdn \"pc1\";");
  EXPECT_EQ(HostByName("pc1"), "miss");
  GivenHost("option domain-name \"pc1\";");
  EXPECT_EQ(HostByName("pc1"), "miss");
}

TEST_F(DhcpNavigation, HostByMacAddressFindsTheHardwareStatement) {
  GivenHost("hardware ethernet 00:11:22:33:44:55;");
  EXPECT_EQ(HostByMac("00:11:22:33:44:55"), "3 | 0=pc1 | 16=00:11:22:33:44:55");
  EXPECT_EQ(HostByMac("00:11:22:33:44:5"), "miss");
}

}  // namespace
}  // namespace klepur::test
