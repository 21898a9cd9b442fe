#include <klepur/network/network.h>

#include <gtest/gtest.h>

#include <string>

namespace klepur {
namespace {

// Values say where they stand.
constexpr const char* kCompany = R"(
authoritative;
option space vendor;
option vendor.size code 1 = integer 32;
option a "file"; option b "file"; option c "file"; option d "file"; option e "file"; option f "file";
max-lease-time 1; max-lease-time 2;
deny booting;
log(info, "file");
include "more.conf";
if known { option a "if"; option g "if"; }
class "phones" { option a "class"; }
subclass "phones" 1:2;
group {
  option a "group"; option b "group";
  host grouped {
    hardware ethernet 0:0:0:0:0:1;
    fixed-address names.example, 10.9.9.9, 10.0.0.5;
    option a "host";
    if known { option b "if"; }
  }
  host dynamic { hardware ethernet 0:0:0:0:0:2; }
}
group {
  option b "outer"; option c "outer"; option d "outer"; option e "outer";
  shared-network floor {
    option b "shared"; option c "shared"; option d "shared";
    subnet 10.0.0.0 netmask 255.255.255.0 {
      not authoritative;
      option b "subnet"; option c "subnet";
      allow booting;
      pool {
        range 10.0.0.1 10.0.0.9; range 10.0.0.100;
        option b "pool";
        allow unknown-clients;
        allow members of "a"; allow members of "b";
      }
      host inner { option b "inner"; }
    }
    pool { range 10.0.0.50; option b "pool2"; option c "pool2"; option d "pool2"; }
    host shared { fixed-address 10.0.0.200; option a "shared host"; }
    host pooled { fixed-address 10.0.0.50; }
  }
}
deny unknown-clients;
zone example.org { primary 127.0.0.1; }
)";

Node Block(const Document& document, const std::string& header) {
  if (header == "file") return document.Root();
  if (header.rfind("pool", 0) != 0) return document.Find(header);
  return document.Walk("pool").at(header == "pool" ? 0 : 1);
}

/// `"pool" of pool`; empty for none.
std::string Words(const InForce& found) {
  if (!found) return "";
  const std::string of = found.from.Name().empty() ? found.from.Keyword() : found.from.Name();
  return found.statement.Value() + " of " + (of.empty() ? "file" : of);
}

constexpr struct {
  const char* block;
  const char* keyword;
  const char* statement;
} kInForce[] = {
    {"file", "option a", "\"file\" of file"},
    {"file", "max-lease-time", "2 of file"},
    {"file", "MAX-Lease-Time", "2 of file"},
    {"file", "option g", ""},
    {"file", "", ""},
    {"file", "deny unknown-clients", " of file"},
    {"file", "subclass", "\"phones\" 1:2 of file"},
    {"file", "option vendor.size", ""},

    // a host in a group, with an address in a pool
    {"host grouped", "option a", "\"host\" of grouped"},
    {"host grouped", "option b", "\"group\" of group"},
    {"host grouped", "option c", "\"subnet\" of 10.0.0.0 netmask 255.255.255.0"},
    {"host grouped", "option d", "\"shared\" of floor"},
    {"host grouped", "option e", "\"outer\" of group"},
    {"host grouped", "option f", "\"file\" of file"},
    {"host grouped", "option g", ""},
    {"host grouped", "max-lease-time", "2 of file"},
    {"host grouped", "authoritative", " of 10.0.0.0 netmask 255.255.255.0"},
    {"host grouped", "ignore booting", " of 10.0.0.0 netmask 255.255.255.0"},
    {"host grouped", "allow unknown-clients", " of file"},
    {"host grouped", "range", ""},
    {"host grouped", "log", ""},
    {"host grouped", "include", ""},
    {"host grouped", "hardware", "ethernet 0:0:0:0:0:1 of grouped"},

    {"host dynamic", "option b", "\"group\" of group"},
    {"host dynamic", "option c", "\"file\" of file"},

    // what the host and its subnet both stand in is less than the subnet
    {"host shared", "option a", "\"shared host\" of shared"},
    {"host shared", "option b", "\"subnet\" of 10.0.0.0 netmask 255.255.255.0"},
    {"host shared", "option d", "\"shared\" of floor"},
    {"host inner", "option b", "\"inner\" of inner"},
    {"host inner", "option c", "\"subnet\" of 10.0.0.0 netmask 255.255.255.0"},

    // a pool beside its subnet
    {"host pooled", "option c", "\"pool2\" of pool"},
    {"host pooled", "option d", "\"pool2\" of pool"},
    {"host pooled", "authoritative", " of 10.0.0.0 netmask 255.255.255.0"},
    {"pool2", "option b", "\"pool2\" of pool"},
    {"pool2", "option e", "\"outer\" of group"},
    {"pool2", "authoritative", " of file"},

    {"pool", "option b", "\"pool\" of pool"},
    {"pool", "range", "10.0.0.100 of pool"},
    {"pool", "deny unknown-clients", " of pool"},
    {"pool", "option c", "\"subnet\" of 10.0.0.0 netmask 255.255.255.0"},
    {"class phones", "option a", "\"class\" of phones"},
    {"class phones", "option b", "\"file\" of file"},
    {"if known", "option g", "\"if\" of known"},
    {"if known", "option b", "\"file\" of file"},
    {"zone example.org", "primary", "127.0.0.1 of example.org"},
    {"zone example.org", "option a", ""},
};

TEST(StatementInForce, IsThatOfTheNearestBlock) {
  const Document document(kCompany);
  const Network network(document);
  for (const auto& row : kInForce) {
    const Node block = Block(document, row.block);
    ASSERT_TRUE(block) << row.block;
    EXPECT_EQ(Words(network.StatementInForce(block, row.keyword)), row.statement)
        << row.block << ": " << row.keyword;
  }
}

TEST(StatementInForce, IsThatOfTheAddressThatAHostGot) {
  const Document document(kCompany);
  const Network network(document);
  const Address pool = *Address::Parse("10.0.0.100");
  const Address nowhere = *Address::Parse("192.0.2.1");
  EXPECT_EQ(Words(network.StatementInForce(document.Find("host dynamic"), "option c", pool)),
            "\"subnet\" of 10.0.0.0 netmask 255.255.255.0");
  EXPECT_EQ(Words(network.StatementInForce(document.Find("host grouped"), "option c", nowhere)),
            "\"file\" of file");
}

TEST(StatementInForce, IsNoneForOtherNodes) {
  const Document document(kCompany);
  const Document other(kCompany);
  const Network network(document);
  EXPECT_FALSE(network.StatementInForce(Node(), "option a"));
  EXPECT_FALSE(network.StatementInForce(other.Root(), "option a"));
  EXPECT_FALSE(network.StatementInForce(document.Root().FirstChild(), "option a"));
  EXPECT_TRUE(network.StatementsInForce(other.Root()).empty());
  EXPECT_FALSE(network.StatementInForce(document.Root(), "option none").from);
}

TEST(StatementsInForce, AreOneOfEachKeywordNearestFirst) {
  const Document document(
      "option b 5; max-lease-time 1; max-lease-time 2; option a 4; option c 1;\n"
      "subnet 10.0.0.0 netmask 255.0.0.0 {\n"
      "  option c 2;\n"
      "  range 10.0.0.1; range 10.0.0.2;\n"
      "  allow bootp;\n"
      "}\n"
      "host pc1 { fixed-address 10.1.1.1; hardware ethernet 1:2:3:4:5:6; option a 1; option a 2; "
      "}\n"
      "deny bootp;\n");
  const Network network(document);
  const auto texts = [&](const Node& block) {
    std::string all;
    for (const InForce& found : network.StatementsInForce(block)) all += found.statement.Text();
    return all;
  };
  EXPECT_EQ(texts(document.Find("host pc1")),
            "fixed-address 10.1.1.1;hardware ethernet 1:2:3:4:5:6;option a 2;option c 2;"
            "allow bootp;option b 5;max-lease-time 2;");
  EXPECT_EQ(texts(network.SubnetOf("10.0.0.1")),
            "option c 2;range 10.0.0.1;range 10.0.0.2;allow bootp;option b 5;max-lease-time 2;"
            "option a 4;");
  EXPECT_EQ(texts(document.Root()),
            "option b 5;max-lease-time 2;option a 4;option c 1;deny bootp;");
}

TEST(StatementInForce, FollowsEdits) {
  Document document(
      "option a 1;\ngroup {\n  host pc1 {\n    fixed-address 10.0.0.1;\n  }\n}\n"
      "subnet 10.0.0.0 netmask 255.0.0.0 {\n  option b 2;\n}\n");
  const Network network(document);
  const Node host = document.Find("host pc1");
  Node group = host.Parent();
  Node subnet = network.SubnetOf("10.0.0.1");
  const auto value = [&](const char* keyword) {
    return Words(network.StatementInForce(host, keyword));
  };
  EXPECT_EQ(value("option a"), "1 of file");
  EXPECT_EQ(value("option b"), "2 of 10.0.0.0 netmask 255.0.0.0");
  Node added = group.Add("option a 3;");
  EXPECT_EQ(value("option a"), "3 of group");
  added.MoveTo(subnet);
  EXPECT_EQ(value("option a"), "3 of 10.0.0.0 netmask 255.0.0.0");
  added.CommentOut();
  EXPECT_EQ(value("option a"), "1 of file");
  document.Root().Add("option a 4;");
  EXPECT_EQ(value("option a"), "4 of file");
  const Document::Mark mark = document.GetMark();
  document.Root().Child("option a").MoveTo(document.Root(), Placement::Last());
  EXPECT_EQ(value("option a"), "1 of file");
  subnet.Remove();
  EXPECT_EQ(value("option b"), "");
  document.RollBack(mark);
  EXPECT_EQ(value("option a"), "4 of file");
  EXPECT_EQ(value("option b"), "2 of 10.0.0.0 netmask 255.0.0.0");
}

}  // namespace
}  // namespace klepur
