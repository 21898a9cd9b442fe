#include <klepur/network/network.h>

#include <gtest/gtest.h>
#include <klepur/document/placement.h>
#include <tests/network/node_words.h>

#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace klepur {
namespace {

constexpr const char* kOffice = R"(
# host ghost { hardware ethernet 00:16:3e:00:00:01; fixed-address 10.0.0.1; }
option host-name "pc1";
subnet 10.0.0.0 netmask 255.255.0.0 {
  range 10.0.9.1 10.0.9.9;
  group {
    host pc1 {
      hardware ethernet 00:16:3e:00:00:01;
      # fixed-address 10.0.0.99;
      fixed-address 10.0.0.1, 10.0.0.2,  # both cards
                    printer.example, 10.0.0.03;
      option host-name "pc1";
    }
  }
  pool { range 10.0.1.1 10.0.1.99; host pc2 { HARDWARE ethernet 0:16:3E:0:0:2; } }
}
shared-network "two floors" {
  subnet 10.1.0.0 netmask 255.255.255.0 { }
  pool { range 10.1.0.9 10.1.0.5; range dynamic-bootp 10.1.0.100; }
  subnet 10.0.1.0 netmask 255.255.255.0 { }
  subnet 10.2.0.0 netmask 255.0.255.0 { }
}
host pc3 { option dhcp-client-identifier "CLIENT\055FOO"; fixed-address 10.0.0.2; }
host pc4 { option dhcp-client-identifier 43:4c:49:45:4e:54:2d:46:4f:4f; option host-name pc1; }
host pc5 { uid "CLIENT-FOO"; hardware token-ring 00:16:3e:00:00:01; option host-name "P\"5"; }
host pc6 { hardware ethernet 0:16:3e:0:0:2; option host-name "a", "b"; fixed-address none; }
host pc7 { hardware ethernet 0:16:3e:0:0:2; hardware ethernet 00:16:3e:00:00:02; }
host pc7 { if known { hardware ethernet 0:16:3e:0:0:9; } option host-name = "pc1"; }
)";

constexpr const char* kOffice6 = R"(subnet6 2001:db8::/32 {
  range6 2001:db8:0:1::/64;
  subnet6 2001:db8:0:2:: / 64 { pool6 { range6 2001:db8:0:2::10 2001:db8:0:2::1f; prefix6 2001:db8:1:: 2001:db8:2:: /48; } }
}
host six { host-identifier option dhcp6.client-id 00:01:0:1:2A; fixed-address6 2001:DB8::7, 2001:db8::8; fixed-prefix6 2001:db8:9::/48; }
host seven { host-identifier option Dhcp6.Client-ID "a"; }
host eight { host-identifier v6relopt 1 dhcp6.client-id "a"; }
host nine { host-identifier option dhcp6.remote-id "a"; }
)";

struct Question {
  const char* asked;
  const char* answer;
};

constexpr Question kHardwareAddresses[] = {
    {"00:16:3e:00:00:01", "pc1"},
    {"ethernet 0:16:3E:0:0:1", "pc1"},
    {"0016.3e00.0001", "pc1"},
    {"token-ring 0:16:3e:0:0:1", "pc5"},
    {"00-16-3E-00-00-02", "pc2 pc6 pc7"},
    {"0:16:3e:0:0:9", ""},
    {"00:16:3e:00:00", ""},
    {"printer", ""},
    {"", ""},
};

TEST(Network, FindsHostsByHardwareAddressInAnySpelling) {
  const Document document(kOffice);
  const Network network(document);
  for (const Question& row : kHardwareAddresses) {
    EXPECT_EQ(NamesOf(network.HostsByHardwareAddress(row.asked)), row.answer) << row.asked;
  }
}

constexpr Question kAddresses[] = {
    {"10.0.0.1", "pc1"}, {"10.0.0.2", "pc1 pc3"}, {"10.0.0.3", "pc1"}, {"010.0.0.003", "pc1"},
    {"10.0.0.99", ""},   {"10.0.0.4", ""},        {"::", ""},          {"none", ""},
};

TEST(Network, FindsHostsByAnyOfTheirAddresses) {
  const Document document(kOffice);
  const Network network(document);
  for (const Question& row : kAddresses) {
    EXPECT_EQ(NamesOf(network.HostsByAddress(row.asked)), row.answer) << row.asked;
  }
}

TEST(Network, FindsHostsByClientIdentifierInTextAndNumbers) {
  const Document document(kOffice);
  const Network network(document);
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier(Identifier("CLIENT-FOO"))), "pc3 pc4 pc5");
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier("\"CLIENT-FOO\"")), "pc3 pc4 pc5");
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier("434C4945-4E542D46-4F4F0000")), "");
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier("434c49454e542d464f4f")), "pc3 pc4 pc5");
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier("CLIENT-FOO")), "");
}

TEST(Network, FindsHostsByTheNameTheyAreGiven) {
  const Document document(kOffice);
  const Network network(document);
  EXPECT_EQ(NamesOf(network.HostsByHostName("pc1")), "pc1 pc4");
  EXPECT_EQ(NamesOf(network.HostsByHostName("P\"5")), "pc5");
  EXPECT_EQ(NamesOf(network.HostsByHostName("PC1")), "");
  EXPECT_EQ(NamesOf(network.HostsByHostName("a")), "");
}

TEST(Network, FindsHostsByTheNameTheyAreDeclaredBy) {
  const Document document("host pc7 { } class \"pc7\" { } group { host \"pc7\" { } } host a.b { }");
  const Network network(document);
  EXPECT_EQ(NamesOf(network.HostsByName("pc7")), "pc7 pc7");
  EXPECT_EQ(NamesOf(network.HostsByName("a.b")), "a.b");
  EXPECT_EQ(NamesOf(network.HostsByName("ghost")), "");
}

TEST(Network, FindsHostsOfDhcp6) {
  const Document document(kOffice6);
  const Network network(document);
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier("00:01:00:01:2a")), "six");
  EXPECT_EQ(NamesOf(network.HostsByClientIdentifier(Identifier("a"))), "seven");
  EXPECT_EQ(NamesOf(network.HostsByAddress("2001:db8:0::8")), "six");
  EXPECT_EQ(NamesOf(network.HostsByAddress("2001:db8:9::")), "");
}

constexpr struct {
  const char* address;
  const char* subnets;  // the innermost first
  const char* pool;     // its first range
  const char* range;
} kPlaces[] = {
    {"10.0.0.1", "10.0.0.0 netmask 255.255.0.0", "", ""},
    {"10.0.1.7", "10.0.1.0 netmask 255.255.255.0|10.0.0.0 netmask 255.255.0.0",
     "10.0.1.1 10.0.1.99", "10.0.1.1 10.0.1.99"},
    {"10.0.9.9", "10.0.0.0 netmask 255.255.0.0", "", "10.0.9.1 10.0.9.9"},
    {"10.1.0.7", "10.1.0.0 netmask 255.255.255.0", "10.1.0.9 10.1.0.5", "10.1.0.9 10.1.0.5"},
    {"10.1.0.100", "10.1.0.0 netmask 255.255.255.0", "10.1.0.9 10.1.0.5",
     "dynamic-bootp 10.1.0.100"},
    {"10.2.0.1", "", "", ""},
    {"192.0.2.1", "", "", ""},
    {"2001:db8::1", "2001:db8::/32", "", ""},
    {"2001:db8:0:1::5", "2001:db8::/32", "", "2001:db8:0:1::/64"},
    {"2001:db8:0:2::10", "2001:db8:0:2:: / 64|2001:db8::/32", "2001:db8:0:2::10 2001:db8:0:2::1f",
     "2001:db8:0:2::10 2001:db8:0:2::1f"},
    {"2001:db8:1::1", "2001:db8::/32", "", ""},
    {"nowhere", "", "", ""},
};

TEST(Network, FindsSubnetPoolAndRangeOfAnAddress) {
  const Document document(std::string(kOffice) + kOffice6);
  const Network network(document);
  for (const auto& row : kPlaces) {
    const std::string subnets = row.subnets;
    EXPECT_EQ(network.SubnetOf(row.address).Name(), subnets.substr(0, subnets.find('|')))
        << row.address;
    const Node pool = network.PoolOf(row.address);
    EXPECT_EQ(pool.FirstChild().Value(), row.pool) << row.address;
    EXPECT_EQ(network.RangeOf(row.address).Value(), row.range) << row.address;
    const auto address = Address::Parse(row.address);
    if (!address) continue;
    std::string all;
    for (const Node& subnet : network.SubnetsOf(*address)) {
      all += (all.empty() ? "" : "|") + subnet.Name();
    }
    EXPECT_EQ(all, subnets) << row.address;
  }
}

TEST(Network, FindsWhatOverlapsInnermostFirstThenByPlace) {
  Document document(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  pool { range 10.0.0.1 10.0.0.9; range 10.0.0.5 10.0.0.6; }\n"
      "  pool { range 10.0.0.5 10.0.0.9; }\n"
      "}\n"
      "subnet 10.0.0.0 netmask 255.255.255.0 { option a 2; }\n");
  const Network network(document);
  const Address address = *Address::Parse("10.0.0.5");
  EXPECT_EQ(ValuesOf(network.RangesOf(address)),
            "10.0.0.5 10.0.0.6|10.0.0.5 10.0.0.9|10.0.0.1 10.0.0.9");
  const std::vector<Node> pools = network.PoolsOf(address);
  ASSERT_EQ(pools.size(), 2U);
  EXPECT_EQ(pools[0].Begin().line, 2U);
  EXPECT_EQ(pools[1].Begin().line, 3U);
  EXPECT_EQ(network.SubnetOf(address).Begin().line, 1U);
  document.Root().FirstChild().MoveTo(document.Root(), Placement::Last());
  EXPECT_EQ(network.SubnetOf(address).FirstChild().Keyword(), "option a");
}

TEST(Network, FollowsEdits) {
  Document document(
      "group {\n  host pc1 {\n    hardware ethernet 0:0:0:0:0:1;\n  }\n}\n"
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n  pool {\n    range 10.0.0.1;\n  }\n}\n");
  const Network network(document);
  Node host = network.HostsByName("pc1").front();
  EXPECT_EQ(NamesOf(network.HostsByHardwareAddress("00:00:00:00:00:01")), "pc1");

  host.Set("hardware", "ethernet 0:0:0:0:0:2");
  EXPECT_EQ(NamesOf(network.HostsByHardwareAddress("00:00:00:00:00:01")), "");
  EXPECT_EQ(NamesOf(network.HostsByHardwareAddress("00:00:00:00:00:02")), "pc1");

  Node statement = host.Add("fixed-address 10.0.0.7");
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.7")), "pc1");
  statement.AppendToList("10.0.0.8");
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "pc1");
  statement.CommentOut();
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "");
  statement.BringBack();
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "pc1");

  Node group = host.Parent();
  group.CommentOut();
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "");
  group.BringBack();
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "pc1");
  host = network.HostsByAddress("10.0.0.8").front();
  host.SetHeader("class \"x\"");
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "");
  host.SetHeader("host pc2");
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.8")), "pc2");

  Node subnet = network.SubnetOf("10.0.0.1");
  subnet.Rename("10.0.0.0 netmask 255.255.255.128");
  EXPECT_FALSE(network.SubnetOf("10.0.0.200"));
  EXPECT_EQ(network.SubnetOf("10.0.0.1"), subnet);
  network.RangeOf("10.0.0.1").SetValue("10.0.0.2 10.0.0.3");
  EXPECT_FALSE(network.PoolOf("10.0.0.1"));
  EXPECT_EQ(network.PoolOf("10.0.0.3").Parent(), subnet);
  subnet.Remove();
  EXPECT_FALSE(network.SubnetOf("10.0.0.1"));
  EXPECT_FALSE(network.PoolOf("10.0.0.3"));
}

TEST(Network, FollowsRollingBack) {
  Document document(
      "host pc1 { fixed-address 10.0.0.1; }\nsubnet 10.0.0.0 netmask 255.0.0.0 { }\n");
  const Network network(document);
  ASSERT_EQ(NamesOf(network.HostsByAddress("10.0.0.1")), "pc1");
  const Document::Mark mark = document.GetMark();
  network.SubnetOf("10.0.0.1").Remove();
  network.HostsByName("pc1").front().Remove();
  document.Root().Add("host pc2 { fixed-address 10.0.0.1; }");
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.1")), "pc2");
  EXPECT_FALSE(network.SubnetOf("10.0.0.1"));
  document.RollBack(mark);
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.1")), "pc1");
  EXPECT_TRUE(network.SubnetOf("10.0.0.1"));
}

TEST(Network, GivesHostsInTheOrderOfTheText) {
  Document document("host a { fixed-address 10.0.0.1; }\nhost b { fixed-address 10.0.0.1; }\n");
  const Network network(document);
  network.HostsByName("a").front().MoveTo(document.Root(), Placement::Last());
  document.Root().Add("host c { fixed-address 10.0.0.1; }", Placement::First());
  EXPECT_EQ(NamesOf(network.HostsByAddress("10.0.0.1")), "c b a");
}

TEST(Network, FindsHostsWhoseNamesHaveTheSameHash) {
  const Document document(
      "host a { option host-name pc71201; }\n"
      "host b { option host-name pc110890; }\n"
      "host pc33509 { }\n"
      "host pc72456 { }\n");
  const Network network(document);
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(NamesOf(network.HostsByHostName("pc71201")), "a");
    EXPECT_EQ(NamesOf(network.HostsByHostName("pc110890")), "b");
    EXPECT_EQ(NamesOf(network.HostsByName("pc33509")), "pc33509");
    EXPECT_EQ(NamesOf(network.HostsByName("pc72456")), "pc72456");
  }
}

TEST(Network, GoesOnWhenItOrTheDocumentMoved) {
  Document document(kOffice);
  Network first(document);
  const Document moved = std::move(document);
  const Network second = std::move(first);
  EXPECT_EQ(NamesOf(second.HostsByName("pc4")), "pc4");
}

TEST(Network, AnswersSeveralThreadsAtOnce) {
  const Document document(kOffice);
  const Network network(document);
  std::vector<std::string> answers(4);
  std::vector<std::thread> threads;
  for (std::string& answer : answers) {
    threads.emplace_back([&network, &answer] {
      answer = NamesOf(network.HostsByAddress("10.0.0.2")) + " " +
               network.SubnetOf("10.1.0.7").Name() + " " +
               network.StatementInForce(network.HostsByName("pc1").front(), "option host-name")
                   .from.Name();
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const std::string& answer : answers) {
    EXPECT_EQ(answer, "pc1 pc3 10.1.0.0 netmask 255.255.255.0 pc1");
  }
}

}  // namespace
}  // namespace klepur
