// What is wrong with hosts.
#include <gtest/gtest.h>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

TEST(DuplicateHost, IsASecondBlockOfAName) {
  const CheckCase cases[] = {
      {"host a { hardware ethernet 0:0:0:0:0:1; }\nhost \t a { hardware ethernet 0:0:0:0:0:2; }\n",
       "2:1 duplicate-host <- 1\n"},
      {"host a { hardware ethernet 0:0:0:0:0:1; }\nhost A { hardware ethernet 0:0:0:0:0:2; }\n",
       ""},
      {"group {\n  host a { hardware ethernet 0:0:0:0:0:1; }\n}\n"
       "group {\n  host a { hardware ethernet 0:0:0:0:0:2; }\n}\n",
       "5:3 duplicate-host <- 2\n"},
  };
  ExpectFound(cases);
}

/// Two subnets that know nothing of each other, and a third in a shared network with a fourth.
const std::string kNets =
    "subnet 10.0.1.0 netmask 255.255.255.0 { range 10.0.1.100; }\n"
    "subnet 10.0.2.0 netmask 255.255.255.0 { range 10.0.2.100; }\n"
    "shared-network n {\n"
    "  subnet 10.0.3.0 netmask 255.255.255.0 { range 10.0.3.100; }\n"
    "  subnet 10.0.4.0 netmask 255.255.255.0 { range 10.0.4.100; }\n"
    "}\n";

TEST(DuplicateHardwareAddress, CountsInOneNetwork) {
  const auto hosts = [](const std::string& one, const std::string& other) {
    return kNets + "host a { hardware ethernet 00:16:3e:00:00:01; " + one + "}\n" +
           "host b { hardware ethernet 0:16:3E:0:0:1; " + other + "}\n";
  };
  const std::string found = "8:10 duplicate-hardware-address <- 7\n";
  ExpectFoundIn(hosts("", ""), found);
  ExpectFoundIn(hosts("fixed-address 10.0.1.5; ", "fixed-address 10.0.1.6; "), found);
  ExpectFoundIn(hosts("fixed-address 10.0.1.5; ", "fixed-address 10.0.2.6; "), "");
  ExpectFoundIn(hosts("fixed-address 10.0.3.5; ", "fixed-address 10.0.4.6; "), found);
  ExpectFoundIn(hosts("fixed-address 10.0.1.5, 10.0.3.5; ", "fixed-address 10.0.4.6, 10.0.2.6; "),
                found);
  ExpectFoundIn(hosts("", "fixed-address 10.0.1.5; "), "");
}

TEST(DuplicateHardwareAddress, IsToldOfHostsInEachOtherToo) {
  ExpectFoundIn(
      "host a {\n"
      "  host b { hardware ethernet 0:0:0:0:0:1; }\n"
      "  hardware ethernet 0:0:0:0:0:1;\n"
      "  host c { hardware ethernet 0:0:0:0:0:2; }\n"
      "  uid 1:2;\n"
      "}\n"
      "host d { hardware ethernet 0:0:0:0:0:2; uid 1:2; }\n",
      "2:3 misplaced-statement\n"
      "3:3 duplicate-hardware-address <- 2\n"
      "4:3 misplaced-statement\n"
      "7:10 duplicate-hardware-address <- 4\n"
      "7:41 duplicate-identifier <- 5\n");
}

TEST(DuplicateHardwareAddress, CountsInTheNetworkAround) {
  const CheckCase cases[] = {
      {"subnet 10.0.1.0 netmask 255.255.255.0 {\n  host a { hardware ethernet 0:0:0:0:0:1; }\n}\n"
       "subnet 10.0.2.0 netmask 255.255.255.0 {\n  host b { hardware ethernet 0:0:0:0:0:1; }\n}\n",
       ""},
      {"shared-network n {\n"
       "subnet 10.0.1.0 netmask 255.255.255.0 {\n  host a { hardware ethernet 0:0:0:0:0:1; }\n}\n"
       "subnet 10.0.2.0 netmask 255.255.255.0 {\n  host b { hardware ethernet 0:0:0:0:0:1; "
       "}\n}\n}\n",
       "6:12 duplicate-hardware-address <- 3\n"},
      {"host a { hardware ethernet 0:0:0:0:0:1; }\nhost b { hardware fddi 0:0:0:0:0:1; }\n", ""},
  };
  ExpectFound(cases);
}

TEST(DuplicateIdentifier, IsTheSameBytes) {
  const CheckCase cases[] = {
      {"host a { option dhcp-client-identifier \"ab\"; }\nhost b { uid 61:62; }\n",
       "2:10 duplicate-identifier <- 1\n"},
      {"host a { option dhcp-client-identifier \"ab\"; }\nhost b { uid 0:61:62; }\n", ""},
      {"host a { host-identifier option dhcp6.client-id 0:1:2; }\n"
       "host b { host-identifier  option  dhcp6.client-id  0:1:2; }\n",
       "2:10 duplicate-identifier <- 1\n"},
  };
  ExpectFound(cases);
}

TEST(DuplicateHostName, IsTheSameInAnyLetters) {
  const CheckCase cases[] = {
      {"host a { uid 1; option host-name \"pc\"; }\nhost b { uid 2; option host-name \"Pc\"; }\n",
       "2:17 duplicate-host-name <- 1\n"},
      {"host a { uid 1; option host-name \"pc\"; }\nhost b { uid 2; option host-name \"pc2\"; }\n",
       ""},
  };
  ExpectFound(cases);
}

TEST(DuplicateFixedAddress, IsToldAtEachButTheFirst) {
  ExpectFoundIn(kNets +
                    "host a { uid 1; fixed-address 10.0.1.5; }\n"
                    "host b { uid 2; fixed-address 10.0.2.5, 10.0.1.5; }\n"
                    "host c { uid 3; fixed-address 10.0.1.05; }\n",
                "8:17 duplicate-fixed-address <- 7\n9:17 duplicate-fixed-address <- 8\n");
}

TEST(DuplicateFixedPrefix, IsTheSamePrefix) {
  const CheckCase cases[] = {
      {"host a { host-identifier option dhcp6.client-id 1:2; fixed-prefix6 2001:db8::/48; }\n"
       "host b { host-identifier option dhcp6.client-id 1:3; fixed-prefix6 2001:DB8:0::/48; }\n"
       "host c { host-identifier option dhcp6.client-id 1:4; fixed-prefix6 2001:db8:1::/48; }\n",
       "2:54 duplicate-fixed-prefix <- 1\n"},
  };
  ExpectFound(cases);
}

TEST(HostWithoutIdentity, HasNeitherHardwareNorIdentifier) {
  const CheckCase cases[] = {
      {"host a { }\n", "1:1 host-without-identity\n"},
      {"host a { uid 1; }\nhost b { hardware ethernet 0:0:0:0:0:1; }\n", ""},
      {"host a { option dhcp-client-identifier 1; }\n", ""},
  };
  ExpectFound(cases);
}

TEST(FixedAddress, IsInASubnetAndInNoRange) {
  const auto host = [](const std::string& address) {
    return kNets + "host a { uid 1; fixed-address " + address + "; }\n";
  };
  ExpectFoundIn(host("10.0.1.5"), "");
  ExpectFoundIn(host("10.0.9.5"), "7:17 fixed-address-outside-subnets\n");
  ExpectFoundIn(host("10.0.4.100"), "7:17 fixed-address-in-range <- 5\n");
  ExpectFoundIn(host("10.0.4.101, pc.example.org"), "");
  ExpectFoundIn(host("10.0.1.5, 10.0.9.5") + "include \"more\";\n", "");
  ExpectFoundIn("host a { uid 1; fixed-address 10.0.9.5; }\n", "");
}

TEST(FixedAddress, IsFoundInOneOfManyRanges) {
  ExpectFoundIn(
      "subnet 10.0.0.0 netmask 255.255.0.0 {\n"
      "  range 10.0.0.10 10.0.0.20;\n  range 10.0.5.1 10.0.5.9;\n  range 10.0.3.1 10.0.3.9;\n}\n"
      "host a { uid 1; fixed-address 10.0.5.9; }\n"
      "host b { uid 2; fixed-address 10.0.4.9; }\n",
      "6:17 fixed-address-in-range <- 3\n");
}

TEST(FixedPrefixInPool, IsTold) {
  ExpectFoundIn(
      "subnet6 2001:db8::/64 { prefix6 2001:db8:1:: 2001:db8:f:: /48; }\n"
      "host a { host-identifier option dhcp6.client-id 1:2; fixed-prefix6 2001:db8:f::/48; }\n"
      "host b { host-identifier option dhcp6.client-id 1:3; fixed-prefix6 2001:db8:10::/48; }\n",
      "2:54 fixed-prefix-in-pool <- 1\n");
}

TEST(Hosts, MayStandInEachOther) {
  const char* const text =
      "host a {\n  hardware ethernet 0:1:2:3:4:5;\n  host b {\n    hardware ethernet 0:1:2:3:4:6;\n"
      "    fixed-address 10.0.0.5;\n  }\n  fixed-address 10.0.0.6;\n}\n"
      "host c { hardware ethernet 0:1:2:3:4:7; fixed-address 10.0.0.6; }\n";
  ExpectFoundIn(text, "3:3 misplaced-statement\n9:41 duplicate-fixed-address <- 7\n");
}

}  // namespace
}  // namespace klepur::test
