// What stands behind keywords. Each line was tried on the server: it takes those of which nothing is found, and
// refuses those with an error.
#include <gtest/gtest.h>

#include <string>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

TEST(Values, Times) {
  const CheckCase cases[] = {
      {"max-lease-time 7200;\n", ""},
      {"max-lease-time infinite;\n", ""},
      {"max-lease-time INFINITE;\n", ""},
      {"min-lease-time 0x10;\n", ""},
      {"min-lease-time 010;\n", ""},
      {"min-lease-time -5;\n", ""},
      {"max-lease-time = encode-int(5, 32);\n", ""},
      {"max-lease-time # an hour\n  3600 ;\n", ""},
      {"max-lease-time 7200s;\n", "1:16 malformed-time\n"},
      {"max-lease-time \"600\";\n", "1:16 malformed-time\n"},
      {"max-lease-time 1.5;\n", "1:16 malformed-time\n"},
      {"max-lease-time 09;\n", "1:16 malformed-time\n"},
      {"max-lease-time;\n", "1:1 missing-value\n"},
      {"max-lease-time 10 20;\n", "1:19 surplus-value\n"},
      {"load balance max seconds 3;\n", "1:1 misplaced-statement\n"},
  };
  ExpectFound(cases);
}

TEST(Values, Numbers) {
  const CheckCase cases[] = {
      {"option interface-mtu 1500;\n", ""},
      {"option interface-mtu -1;\n", ""},
      {"option interface-mtu 0xffff;\n", ""},
      {"option arp-cache-timeout 5000000000;\n", ""},
      {"option dhcp-parameter-request-list 1, 2, 255;\n", ""},
      {"option interface-mtu 65536;\n", "1:22 malformed-number\n"},
      {"option interface-mtu infinite;\n", "1:22 malformed-number\n"},
      {"option default-ip-ttl 256;\n", "1:23 malformed-number\n"},
      {"option dhcp-parameter-request-list 1, 300;\n", "1:39 malformed-number\n"},
      {"dynamic-bootp-lease-cutoff infinite;\noption dhcp6.info-refresh-time infinite;\n", ""},
      {"min-secs 256;\n", "1:10 malformed-number\n"},
      {"dynamic-bootp-lease-length infinite;\n", "1:28 malformed-number\n"},
      {"local-port 99999;\n", "1:12 malformed-number\n"},
      {"local-port http;\n", "1:12 malformed-number\n"},
      {"log-threshold-low 300;\n", "1:19 malformed-number\n"},
      {"option boot-size 99999999999999999999;\n", "1:18 malformed-number\n"},
  };
  ExpectFound(cases);
}

TEST(Values, Flags) {
  const CheckCase cases[] = {
      {"ping-check on;\nping-check OFF;\nping-check true;\nping-check False;\nping-check ignore;\n",
       ""},
      {"option ip-forwarding false;\n", ""},
      {"ping-check yes;\n", "1:12 malformed-flag\n"},
      {"ping-check \"on\";\n", "1:12 malformed-flag\n"},
      {"option ip-forwarding 1;\n", "1:22 malformed-flag\n"},
      {"ping-check on, off;\n", "1:14 surplus-value\n"},
      {"authoritative on;\n", "1:15 surplus-value\n"},
  };
  ExpectFound(cases);
}

TEST(Values, AddressesOfIPv4AndNames) {
  const CheckCase cases[] = {
      {"option routers 10.0.0.1;\n", ""},
      {"option routers 010.0.0.001, 0xa.0.0.2;\n", ""},
      {"option routers 10 . 0 . 0\n . 1;\n", ""},
      {"option routers rtr-1.example.org., foo_bar, 10a.example;\n", ""},
      {"option routers 10;\n", ""},
      {"next-server boot.example;\n", ""},
      {"host a { hardware ethernet 0:1:2:3:4:5; fixed-address a.example., 10.0.0.5; }\n", ""},
      {"option static-routes 10.0.0.0 10.0.0.1, 10.1.0.0 10.0.0.2;\n", ""},
      {"option slp-directory-agent true 10.0.0.1, 10.0.0.2;\n", ""},
      {"option routers a..b;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.0x1;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.256;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.1.2;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.a;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.1/24;\n", "1:16 malformed-address\n"},
      {"option routers \"10.0.0.1\";\n", "1:16 malformed-address\n"},
      {"option routers 2001:db8::1;\n", "1:16 malformed-address\n"},
      {"option routers 10.0.0.1 10.0.0.2;\n", "1:25 surplus-value\n"},
      {"option routers 10.0.0.1,;\n", "1:1 missing-value\n"},
      {"option policy-filter 10.0.0.1;\n", "1:1 missing-value\n"},
      {"next-server 10.0.0.1, 10.0.0.2;\n", "1:21 surplus-value\n"},
      {"append domain-name-servers 10.0.0.256;\n", "1:28 malformed-address\n"},
  };
  ExpectFound(cases);
}

TEST(Values, AddressesAndPrefixesOfIPv6) {
  const CheckCase cases[] = {
      {"option dhcp6.name-servers 2001:DB8::1, ::ffff:10.0.0.1;\n", ""},
      {"host a { fixed-prefix6 2001:db8:0:100::/56; hardware ethernet 0:1:2:3:4:5; }\n", ""},
      {"host a { fixed-prefix6 2001:db8:0:100::/56#c\n; hardware ethernet 0:1:2:3:4:5; }\n", ""},
      {"option dhcp6.name-servers ns.example;\n", "1:27 malformed-address\n"},
      {"option dhcp6.name-servers 10.0.0.1;\n", "1:27 malformed-address\n"},
      {"option dhcp6.name-servers 2001:db8::1::2;\n", "1:27 malformed-address\n"},
      {"subnet6 2001:db8::/64 { range6 2001:db8::1; }\n", "1:32 malformed-range\n"},
      {"subnet6 2001:db8::/64 { range6 2001:db8::1/80; }\n", "1:32 host-bits\n"},
      {"subnet6 2001:db8::/64 { prefix6 2001:db8:1::1 2001:db8:2:: /48; }\n", "1:33 host-bits\n"},
      {"subnet6 2001:db8::/64 { prefix6 2001:db8:1:: 2001:db8:2:: 48; }\n",
       "1:33 malformed-range\n"},
      {"subnet6 2001:db8:: { }\n", "1:9 malformed-subnet\n"},
      {"subnet6 2001:db8::1/64 { }\n", "1:9 host-bits\n"},
  };
  for (const auto& [text, found] : cases) {
    EXPECT_EQ(Found(text, {Family::kDhcp6, {"subnet-without-addresses"}}), found) << text;
  }
}

TEST(Values, HardwareAddresses) {
  const CheckCase cases[] = {
      {"host a { hardware ethernet 0:16:3E:0:0:1; }\n", ""},
      {"host a { hardware token-ring 0:1:2; }\n", ""},
      {"host a { hardware\n  ethernet # c\n  0:1:2:3:4:5; }\n", ""},
      {"host a { hardware ethernet 00-16-3e-00-00-01; }\n", "1:28 malformed-hardware-address\n"},
      {"host a { hardware ethernet 0016.3e00.0001; }\n", "1:28 malformed-hardware-address\n"},
      {"host a { hardware wifi 0:1:2:3:4:5; }\n", "1:24 malformed-hardware-address\n"},
      {"host a { hardware ethernet 0:1:2:3:4:5, 0:1:2:3:4:6; }\n",
       "1:28 malformed-hardware-address\n"},
      {"host a { hardware ethernet; }\n", "1:19 hardware-address-length\n"},
      {"host a { hardware ethernet 0:1:2:3:4; }\n", "1:19 hardware-address-length\n"},
      {"host a { hardware ethernet 0:1:2:3:4:5 fixed-address 10.0.0.5; }\n",
       "1:40 swallowed-statement\n"},
  };
  ExpectFound(cases);
}

TEST(Values, TextsAndData) {
  const CheckCase cases[] = {
      {"option domain-name \"a.example\";\nfilename boot;\nserver-name x-y;\n", ""},
      {"filename = concat(\"a\", \"b\");\n", ""},
      {"option domain-search \"a.example\", \"b.example\";\n", ""},
      {"option v4-lost a.example;\n", ""},
      {"option vendor-class-identifier 01:2:ff;\n", ""},
      {"option vendor-class-identifier \"x\";\noption vendor-class-identifier f0;\n", ""},
      {"filename 1a;\nserver-name 0x10;\noption host-name -a;\n", ""},
      {"option vendor-class-identifier 0001f:-1;\n", ""},
      {"option netbios-scope scope;\noption dhcp6.nis-domain-name \"a.\", \"b\";\n", ""},
      {"vendor-option-space foo;\nsite-option-space \"foo\";\n", ""},
      {"filename 5;\n", "1:10 malformed-text\n"},
      {"option netbios-scope 1:2;\n", "1:22 malformed-text\n"},
      {"option domain-search \".a\";\n", "1:22 malformed-text\n"},
      {"option v4-lost a:b;\n", "1:16 malformed-text\n"},
      {"vendor-option-space \"foo\";\n", "1:21 malformed-text\n"},
      {"site-option-space foo;\n", "1:19 malformed-data\n"},
      {"subnet 10.0.0.0 netmask 255.0.0.0 { interface eth0.5; range 10.0.0.5; }\n",
       "1:47 malformed-text\n"},
      {"filename a.b;\n", "1:10 malformed-text\n"},
      {"filename \"a\" b;\n", "1:14 surplus-value\n"},
      {"option domain-name \"a\", \"b\";\n", "1:23 surplus-value\n"},
      {"option domain-search a.b;\n", "1:22 malformed-text\n"},
      {"option domain-search \"a..b\";\n", "1:22 malformed-text\n"},
      {"option v4-lost \"a.example\";\n", "1:16 malformed-text\n"},
      {"include plain;\n", "1:9 malformed-text\n"},
      {"option vendor-class-identifier foo;\n", "1:32 malformed-data\n"},
      {"option vendor-class-identifier 1:2:zz;\n", "1:32 malformed-data\n"},
      {"option vendor-class-identifier 100:2;\n", "1:32 malformed-data\n"},
  };
  ExpectFound(cases);
}

TEST(Values, Choices) {
  const CheckCase cases[] = {
      {"ddns-update-style interim;\nlease-id-format HEX;\nlog-facility local7;\n", ""},
      {"ddns-update-style ad-hoc;\n", "1:19 unknown-choice\n"},
      {"ddns-update-style NONE;\n", "1:19 unknown-choice\n"},
      {"db-time-format utc;\n", "1:16 unknown-choice\n"},
      {"log-facility mark;\n", "1:14 unknown-choice\n"},
  };
  ExpectFound(cases);
}

TEST(Values, EventsOfLeases) {
  const CheckCase cases[] = {
      {"on commit { }\non release or EXPIRY or transmission { }\non commit;\n", ""},
      {"on renewal { }\n", "1:4 unknown-choice\n"},
      {"on renewal;\n", "1:4 unknown-choice\n"},
      {"on commit or { }\n", "1:1 missing-value\n"},
      {"on { }\n", "1:1 missing-value\n"},
      {"on commit, release { }\n", "1:10 surplus-value\n"},
  };
  ExpectFound(cases);
}

TEST(Values, Subclasses) {
  const CheckCase cases[] = {
      {"subclass \"p\" 1:00:16:3e;\nsubclass \"p\" \"x\" { }\nsubclass \"p\" 1 : 2 ;\n", ""},
      {"vendor-class \"p\" { }\nuser-class \"p\";\n", ""},
      {"subclass \"p\";\n", "1:1 missing-value\n"},
      {"subclass \"p\" { }\n", "1:1 missing-value\n"},
      {"subclass p 1:2;\n", "1:10 malformed-text\n"},
      {"subclass p 1:2 { }\n", "1:10 malformed-text\n"},
      {"subclass \"p\" phone;\n", "1:14 malformed-data\n"},
      {"subclass \"p\" 1:2 { }\nsubclass \"p\" 1:2 3;\n", "2:18 surplus-value\n"},
      {"user-class;\n", "1:1 missing-value\n"},
      {"user-class \"p\" \"x\";\n", "1:16 surplus-value\n"},
  };
  ExpectFound(cases, ByItself());
}

TEST(Values, Permits) {
  const CheckOptions options = {Family::kDhcp4, {"undeclared-class"}};
  const CheckCase cases[] = {
      {"allow dynamic bootp clients;", ""},
      {"allow known-clients; deny known clients; allow all clients; deny members of \"x\";", ""},
      {"allow after 6 2030/8/31 23:59:59; deny after 6 2030 / 8 / 31 23:59:59 -100;", ""},
      {"allow after epoch 1900000000;", ""},
      {"deny after NEVER;", ""},
      {"allow all;", "1:66 missing-value\n"},
      {"allow dynamic bootp;", "1:66 missing-value\n"},
      {"deny known;", "1:65 missing-value\n"},
      {"deny members \"x\";", "1:60 missing-value\n"},
      {"deny members of x;", "1:76 malformed-text\n"},
      {"deny members of;", "1:60 missing-value\n"},
      {"deny all clients now;", "1:77 surplus-value\n"},
      {"deny after 2030/08/31 23:59:59;", "1:71 malformed-date\n"},
      {"deny after 6 2030/08/31;", "1:71 malformed-date\n"},
      {"deny after never again;", "1:71 malformed-date\n"},
  };
  for (const auto& [text, found] : cases) {
    const std::string pool = "subnet 10.0.0.0 netmask 255.0.0.0 { pool { range 10.0.0.5; ";
    EXPECT_EQ(Found(pool + text + " } }\n", options), found) << text;
  }
}

TEST(Values, IdentifiersOfServersAndHosts) {
  const CheckCase cases[] = {
      {"server-duid LL;\n", ""},
      {"server-duid llt ethernet 9213982 00:16:6F:49:7D:9B;\n", ""},
      {"server-duid LL token-ring 1:2;\n", ""},
      {"server-duid EN 2495 \"a text\";\n", ""},
      {"server-duid 4 \"a text\";\n", ""},
      {"server-duid;\n", "1:1 missing-value\n"},
      {"server-duid EN 5 01:02;\n", "1:13 malformed-duid\n"},
      {"server-duid LL ethernet;\n", "1:13 malformed-duid\n"},
      {"server-duid LLT ethernet 00:11:22:33:44:55;\n", "1:13 malformed-duid\n"},
      {"server-duid LL ethernet 1:2 3;\n", "1:29 surplus-value\n"},
      {"server-duid LL ethernet 1:zz;\n", "1:25 malformed-data\n"},
      {"host a { host-identifier option agent.circuit-id 1:2; }\n", ""},
      {"host a { host-identifier v6relopt 1 dhcp6.remote-id 1:2; }\n", ""},
      {"host a { host-identifier option host-name pc; }\n", ""},
      {"host a { host-identifier 1:2; }\n", "1:26 unknown-choice\n"},
      {"host a { host-identifier v6relopt dhcp6.remote-id 1; }\n", "1:26 malformed-number\n"},
      {"host a { host-identifier option host-name; }\n", "1:10 missing-value\n"},
      {"host a { host-identifier option dhcp6.client-id 1:zz; }\n", "1:49 malformed-data\n"},
  };
  ExpectFound(cases, ByItself());
}

TEST(Values, OptionsWithoutAName) {
  const CheckCase cases[] = {
      {"option;\n", "1:1 missing-value\n"},
      {"option \"host-name\" \"a\";\n", "1:1 missing-value\n"},
      {"supersede;\n", "1:1 missing-value\n"},
      {"prepend \"a\";\n", "1:1 missing-value\n"},
  };
  ExpectFound(cases);
}

TEST(Values, SubnetHeaders) {
  const CheckOptions options = {Family::kDhcp4, {"subnet-without-addresses"}};
  const CheckCase cases[] = {
      {"subnet 10.0.0.0 netmask 255.255.255.0 { }\n", ""},
      {"subnet 010.0.0.0 netmask 255.000.0.0 { }\n", ""},
      {"SUBNET 10.0.0.0\n  NetMask 255.0.0.0 # c\n{ }\n", ""},
      {"subnet 10.0.0.0 netmask 255.0.255.0 { }\n", "1:25 netmask-with-holes\n"},
      {"subnet 10.0.0.0 netmask 255.255.255.256 { }\n", "1:25 malformed-subnet\n"},
      {"subnet 10.0.0.300 netmask 255.255.255.0 { }\n", "1:8 malformed-subnet\n"},
      {"subnet 10.0.0 netmask 255.255.255.0 { }\n", "1:8 malformed-subnet\n"},
      {"subnet \"10.0.0.0\" netmask 255.255.255.0 { }\n", "1:8 malformed-subnet\n"},
      {"subnet 10.0.0.0 255.255.255.0 { }\n", "1:1 malformed-subnet\n"},
      {"subnet 10.0.0.0/24 { }\n", "1:1 malformed-subnet\n"},
      {"subnet 10.0.0.1 netmask 255.255.255.0 { }\n", "1:8 host-bits\n"},
  };
  for (const auto& [text, found] : cases) EXPECT_EQ(Found(text, options), found) << text;
}

}  // namespace
}  // namespace klepur::test
