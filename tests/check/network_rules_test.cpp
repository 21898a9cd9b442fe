// What is wrong with subnets, ranges and what is set for them.
#include <gtest/gtest.h>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

std::string Subnet(const std::string& statements) {
  return "subnet 10.0.0.0 netmask 255.255.255.0 {\n" + statements + "}\n";
}

std::string Subnet6(const std::string& statements) {
  return "subnet6 2001:db8::/64 {\n" + statements + "}\n";
}

TEST(NetworkAddressHandedOut, ByRangesAndHosts) {
  ExpectFoundIn(Subnet("range 10.0.0.0 10.0.0.9;\n"), "2:1 network-address-handed-out <- 1\n");
  ExpectFoundIn(Subnet("range 10.0.0.9 10.0.0.255;\n"), "2:1 network-address-handed-out <- 1\n");
  ExpectFoundIn(Subnet("range 10.0.0.0 10.0.0.255;\n"),
                "2:1 network-address-handed-out <- 1\n2:1 network-address-handed-out <- 1\n");
  ExpectFoundIn(Subnet("range 10.0.0.1 10.0.0.254;\n"), "");
  ExpectFoundIn(Subnet("range 10.0.0.1;\n") + "host a { uid 1; fixed-address 10.0.0.255; }\n",
                "4:17 network-address-handed-out <- 1\n");
  ExpectFoundIn(Subnet("range 10.0.0.1;\n") + "host a { uid 1; fixed-address 10.0.0.0; }\n",
                "4:17 network-address-handed-out <- 1\n");
  ExpectFoundIn("subnet 10.0.0.0 netmask 255.255.255.254 { range 10.0.0.0 10.0.0.1; }\n", "");
  ExpectFoundIn(Subnet6("range6 2001:db8::/64;\n"), "");
}

TEST(OverlappingSubnets, AreToldOfTheInnerAndTheSecond) {
  const CheckCase cases[] = {
      {"subnet 10.0.0.0 netmask 255.0.0.0 { range 10.1.1.1; }\n"
       "subnet 10.2.0.0 netmask 255.255.0.0 { range 10.2.1.1; }\n"
       "subnet 10.2.2.0 netmask 255.255.255.0 { range 10.2.2.1; }\n"
       "subnet 10.3.0.0 netmask 255.255.0.0 { range 10.3.1.1; }\n"
       "subnet 11.0.0.0 netmask 255.0.0.0 { range 11.1.1.1; }\n",
       "2:1 overlapping-subnets <- 1\n3:1 overlapping-subnets <- 2\n4:1 overlapping-subnets <- "
       "1\n"},
      {"subnet 10.0.0.0 netmask 255.255.255.0 { range 10.0.0.1; }\n"
       "subnet 10.0.0.0 netmask 255.255.255.0 { range 10.0.0.2; }\n"
       "subnet 10.0.0.0 netmask 255.255.255.0 { range 10.0.0.3; }\n",
       "2:1 overlapping-subnets <- 1\n3:1 overlapping-subnets <- 1\n"},
      {"subnet6 2001:db8::/64 { range6 2001:db8::/64; }\n"
       "subnet6 2001:db8:0:1::/64 { range6 2001:db8:0:1::/64; }\n",
       ""},
  };
  ExpectFound(cases);
}

TEST(SubnetWithoutAddresses, HasNeitherRangeNorHost) {
  ExpectFoundIn(Subnet(""), "1:1 subnet-without-addresses\n");
  ExpectFoundIn(Subnet("pool { range 10.0.0.1; }\n"), "");
  ExpectFoundIn(Subnet("") + "host a { uid 1; fixed-address 10.0.0.7; }\n", "");
  ExpectFoundIn(Subnet("host a { uid 1; }\n"), "");
  ExpectFoundIn("shared-network n {\n" + Subnet("") + "pool { range 10.0.0.1; }\n}\n", "");
  ExpectFoundIn(Subnet("include \"ranges\";\n"), "");
  ExpectFoundIn(Subnet6("prefix6 2001:db8:1:: 2001:db8:f:: /48;\n"), "");
}

TEST(RouterOutsideSubnet, IsTheOneInForce) {
  const std::string range = "range 10.0.0.9;\n";
  ExpectFoundIn(Subnet(range + "option routers 10.0.0.1;\n"), "");
  ExpectFoundIn(Subnet(range + "option routers 10.0.0.1, 10.0.1.1;\n"),
                "3:1 router-outside-subnet\n");
  ExpectFoundIn("option routers 10.0.1.1;\n" + Subnet(range), "1:1 router-outside-subnet <- 2\n");
  ExpectFoundIn("option routers 10.0.1.1;\n" + Subnet(range + "option routers 10.0.0.1;\n"), "");
  ExpectFoundIn(Subnet(range + "option routers 10.0.1.1;\noption routers 10.0.0.1;\n"), "");
  ExpectFoundIn(Subnet(range + "option routers gw.example.org;\n"), "");
  ExpectFoundIn("shared-network n {\noption routers 10.0.1.1;\n" + Subnet(range) +
                    "subnet 10.0.1.0 netmask 255.255.255.0 { range 10.0.1.9; }\n}\n",
                "");
  ExpectFoundIn(
      "subnet 10.0.0.1 netmask 255.255.255.255 { range 10.0.0.1; option routers 10.9.9.9; }\n", "");
}

TEST(RangeOutsideSubnet, IsNotWhollyInOne) {
  ExpectFoundIn(Subnet("range 10.0.0.9 10.0.1.9;\n"), "2:1 range-outside-subnet <- 1\n");
  ExpectFoundIn(Subnet("pool { range 10.0.1.9; }\n"), "2:8 range-outside-subnet <- 1\n");
  ExpectFoundIn(Subnet6("range6 2001:db8:1::1 2001:db8:1::9;\n"),
                "2:1 range-outside-subnet <- 1\n");
  ExpectFoundIn(
      "shared-network n {\n" + Subnet("range 10.0.0.8;\n") + "pool { range 10.0.0.9; }\n}\n", "");
  ExpectFoundIn(
      "shared-network n {\n" + Subnet("range 10.0.0.8;\n") + "pool { range 10.0.1.9; }\n}\n",
      "5:8 range-outside-subnet <- 1\n");
}

TEST(ReversedRange, IsTold) {
  ExpectFoundIn(Subnet("range dynamic-bootp 10.0.0.9 10.0.0.5;\n"), "2:1 reversed-range\n");
  ExpectFoundIn(Subnet("range 10.0.0.5 10.0.0.5;\n"), "");
  ExpectFoundIn(Subnet6("range6 2001:db8::9 2001:db8::1;\n"), "2:1 reversed-range\n");
  ExpectFoundIn(Subnet6("prefix6 2001:db8:f:: 2001:db8:1:: /48;\n"), "2:1 reversed-range\n");
}

TEST(OverlappingRanges, AreToldAtTheLaterOne) {
  ExpectFoundIn(Subnet("range 10.0.0.1 10.0.0.9;\nrange 10.0.0.9 10.0.0.20;\n"),
                "3:1 overlapping-ranges <- 2\n");
  ExpectFoundIn(Subnet("range 10.0.0.9 10.0.0.20;\nrange 10.0.0.1 10.0.0.9;\n"),
                "3:1 overlapping-ranges <- 2\n");
  ExpectFoundIn(Subnet("range 10.0.0.1 10.0.0.9;\nrange 10.0.0.10 10.0.0.20;\n"), "");
  ExpectFoundIn(Subnet("range 10.0.0.1 10.0.0.99;\npool { range 10.0.0.5; }\nrange 10.0.0.50;\n"),
                "3:8 overlapping-ranges <- 2\n4:1 overlapping-ranges <- 2\n");
  ExpectFoundIn(Subnet6("range6 2001:db8::1 2001:db8::9;\nrange6 2001:db8::5 2001:db8::7;\n"),
                "3:1 overlapping-ranges6 <- 2\n");
  ExpectFoundIn(
      Subnet6("prefix6 2001:db8:1:: 2001:db8:9:: /48;\nprefix6 2001:db8:9:: 2001:db8:b:: /48;\n"),
      "3:1 overlapping-prefix-pools <- 2\n");
}

TEST(PrefixPoolWithAddresses, HasSomeOfARange) {
  ExpectFoundIn(Subnet6("range6 2001:db8::/64;\nprefix6 2001:db8:: 2001:db8:f:: /48;\n"),
                "2:1 prefix-pool-with-addresses <- 3\n");
  ExpectFoundIn(Subnet6("range6 2001:db8::/64;\nprefix6 2001:db8:1:: 2001:db8:f:: /48;\n"), "");
}

TEST(LeaseTimesAtOdds, AreThoseInForce) {
  const CheckCase cases[] = {
      {"default-lease-time 600;\nmax-lease-time 500;\n", "1:1 lease-times-at-odds <- 2\n"},
      {"default-lease-time 600;\nmax-lease-time 600;\nmin-lease-time 600;\n", ""},
      {"min-lease-time 700;\ndefault-lease-time 600;\n", "1:1 lease-times-at-odds <- 2\n"},
      {"min-lease-time 700;\nmax-lease-time 600;\n", "1:1 lease-times-at-odds <- 2\n"},
      {"max-lease-time infinite;\ndefault-lease-time 600;\n", ""},
      {"max-lease-time 500;\nmax-lease-time 700;\ndefault-lease-time 600;\n", ""},
      {"group {\n  default-lease-time 600;\n  group {\n    max-lease-time 500;\n  }\n}\n",
       "4:5 lease-times-at-odds <- 2\n"},
      {"group {\n  default-lease-time 600;\n}\nmax-lease-time 500;\n",
       "2:3 lease-times-at-odds <- 4\n"},
      {"group {\n  default-lease-time 600;\n}\ngroup {\n  max-lease-time 500;\n}\n", ""},
  };
  ExpectFound(cases);
}

}  // namespace
}  // namespace klepur::test
