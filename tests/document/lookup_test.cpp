// Blocks and statements are found, whatever was edited before.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class Lookup : public EditTest {
 protected:
  static std::vector<std::string> Headers(const std::vector<Node>& nodes) {
    std::vector<std::string> headers;
    for (const Node& node : nodes) headers.push_back(node.Header());
    return headers;
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Lookup);

using Strings = std::vector<std::string>;

TEST_P(Lookup, HeadersAreFoundHoweverTheyAreSpelled) {
  Given(
      "host pc1 { }\n"
      "HOST  \"pc2\"{ }\n"
      "group { host pc3#c\n"
      "{ } }\n"
      "subnet 10.0.0.0\tnetmask\n"
      "  255.255.255.0 { pool { } }\n"
      "failover peer \"f\" { }\n"
      "subnet6 2001:db8::/32 { }\n");
  const struct {
    const char* sought;
    const char* header;
  } cases[] = {
      {"host pc1", "host pc1"},
      {"host \"pc1\"", "host pc1"},
      {"  Host \t pc1 ", "host pc1"},
      {"host pc2", "HOST  \"pc2\""},
      {"host \"pc2\"", "HOST  \"pc2\""},
      {"failover peer f", "failover peer \"f\""},
      {"failover  peer \"f\"", "failover peer \"f\""},
      {"subnet6 2001:db8::/32", "subnet6 2001:db8::/32"},
      {"group", "group"},
      {"pool", "pool"},
  };
  for (const auto& [sought, header] : cases) {
    EXPECT_EQ(Find(sought).Header(), header) << sought;
    EXPECT_EQ(Headers(Doc().FindAll(sought)), Strings{header}) << sought;
  }
  EXPECT_EQ(Find("host pc3").Name(), "pc3");
  EXPECT_TRUE(Find("subnet 10.0.0.0 netmask 255.255.255.0"));
}

TEST_P(Lookup, WhatIsNotThereIsNotFound) {
  Given("host pc1 { max-lease-time 600; }\n");
  for (const char* const sought :
       {"", "host", "pc1", "host pc", "host pc11", "host PC1", "group", "max-lease-time",
        "max-lease-time 600", "host pc1 {", "host \"pc1"}) {
    EXPECT_FALSE(Find(sought)) << sought;
    EXPECT_TRUE(Doc().FindAll(sought).empty()) << sought;
  }
}

TEST_P(Lookup, AllOfANameComeInTheOrderOfTheText) {
  Given(
      "group {\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "}\n"
      "host a { fixed-address 10.0.0.2; }\n"
      "group {\n"
      "  group { host \"a\" { fixed-address 10.0.0.3; } }\n"
      "}\n");
  const auto addresses = [&] {
    Strings values;
    for (const Node& host : Doc().FindAll("host a")) {
      values.push_back(host.Child("fixed-address").Value());
    }
    return values;
  };
  EXPECT_EQ(addresses(), (Strings{"10.0.0.1", "10.0.0.2", "10.0.0.3"}));
  EXPECT_EQ(Doc().FindAll("group").size(), 3U);
  Edit([&] {
    Root().Add("host a { fixed-address 10.0.0.0; }", Placement::First());
    Root().Add("host a { fixed-address 10.0.0.9; }", Placement::Last());
  });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.0", "10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.9"}));
  EXPECT_EQ(Find("host a").Child("fixed-address").Value(), "10.0.0.0");
  Edit([&] { Find("host a").MoveTo(Root(), Placement::Last()); });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.9", "10.0.0.0"}));
  Edit([&] { Doc().FindAll("host a")[1].Rename("b"); });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.1", "10.0.0.3", "10.0.0.9", "10.0.0.0"}));
  Edit([&] { Find("host b").Rename("a"); });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.9", "10.0.0.0"}));
  Edit([&] { Find("group").CommentOut(); });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.2", "10.0.0.3", "10.0.0.9", "10.0.0.0"}));
  Edit([&] { Root().Disabled().at(0).BringBack(); });
  EXPECT_EQ(addresses(), (Strings{"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.9", "10.0.0.0"}));
}

TEST_P(Lookup, WalksOverAKeyword) {
  Given(
      "max-lease-time 600;\n"
      "group {\n"
      "  option routers 10.0.0.1;\n"
      "  host a { option routers 10.0.0.2; max-lease-time 60; }\n"
      "  host b { }\n"
      "}\n"
      "# host c { }\n");
  EXPECT_EQ(Headers(Doc().Walk("host")), (Strings{"host a", "host b"}));
  EXPECT_EQ(Headers(Doc().Walk("Host")), (Strings{"host a", "host b"}));
  ASSERT_EQ(Doc().Walk("option routers").size(), 2U);
  EXPECT_EQ(Doc().Walk("option routers")[1].Value(), "10.0.0.2");
  EXPECT_EQ(Doc().Walk("max-lease-time").size(), 2U);
  EXPECT_TRUE(Doc().Walk("pool").empty());
  EXPECT_TRUE(Doc().Walk("").empty());
}

TEST_P(Lookup, ChildrenByKeywordAndName) {
  Given(
      "host a { }\n"
      "host \"b\" { fixed-address 10.0.0.1; fixed-address 10.0.0.2; }\n"
      "group { host c { } }\n"
      "option routers 10.0.0.1;\n");
  EXPECT_EQ(Root().Child("host").Name(), "a");
  EXPECT_EQ(Root().Child("host", "b").Header(), "host \"b\"");
  EXPECT_FALSE(Root().Child("host", "c"));
  EXPECT_EQ(Root().Child("Option  Routers").Value(), "10.0.0.1");
  EXPECT_EQ(Root().Child("host", "b").Child("fixed-address").Value(), "10.0.0.1");
  EXPECT_EQ(Root().Child("host", "b").InForce("fixed-address").Value(), "10.0.0.2");
  EXPECT_FALSE(Root().Child("option"));
}

TEST_P(Lookup, NodesAtALine) {
  Given(
      "# head\n"
      "\n"
      "group { filename \"a\"; # one\n"
      "  option routers\n"
      "    10.0.0.1;\n"
      "\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1; next-server 10.0.0.5;\n"
      "  } # end\n"
      "}\n");
  const auto at = [&](std::size_t line) { return Doc().At(line); };
  EXPECT_EQ(at(1).Text(), "# head");
  EXPECT_EQ(at(2), Root());
  EXPECT_EQ(at(4).Keyword(), "option routers");
  EXPECT_EQ(at(5).Keyword(), "option routers");
  EXPECT_EQ(at(7), Find("host a"));
  EXPECT_EQ(at(8).Keyword(), "fixed-address");
  EXPECT_EQ(at(10), Find("group"));
  EXPECT_FALSE(at(0));
  EXPECT_FALSE(at(12));
  Edit([&] { Root().Add("authoritative;", Placement::First()); });
  EXPECT_EQ(at(9).Keyword(), "fixed-address");
}

TEST_P(Lookup, PlacesFollowTheEdits) {
  Given(
      "host a { fixed-address 10.0.0.1; }\n"
      "host b {\n"
      "\tfixed-address 10.0.0.2;\n"
      "}\n");
  const Node a = Find("host a");
  const Node b = Find("host b");
  EXPECT_EQ(a.Begin(), (Position{1, 1}));
  EXPECT_EQ(a.End(), (Position{1, 35}));
  EXPECT_EQ(a.FirstChild().Begin(), (Position{1, 10}));
  EXPECT_EQ(a.FirstChild().End(), (Position{1, 33}));
  EXPECT_EQ(b.Begin(), (Position{2, 1}));
  EXPECT_EQ(b.End(), (Position{4, 2}));
  EXPECT_EQ(b.FirstChild().Begin(), (Position{3, 2}));
  EXPECT_EQ(b.Offset(), carriage_returns_ ? 36U : 35U);
  Edit([&] {
    Find("host a").Set("fixed-address", "10.0.0.100");
    Find("host a").Add("next-server 10.0.0.5;", Placement::First());
    Root().Add("# one\n\n# two\nauthoritative;");
  });
  EXPECT_EQ(a.FirstChild().Next().Begin(), (Position{a.Begin().line, 32}));
  EXPECT_EQ(b.Begin().column, 1U);
  EXPECT_EQ(b.FirstChild().Begin(), (Position{b.Begin().line + 1, 2}));
  EXPECT_EQ(Doc().Text().substr(b.Offset(), 6), "host b");
}

TEST_P(Lookup, FamilyIsToldFromTheContent) {
  const struct {
    const char* text;
    Family family;
  } cases[] = {
      {"", Family::kUnknown},
      {"# subnet6\nmax-lease-time 1;\n", Family::kUnknown},
      {"host a { fixed-address 10.0.0.1; }\n", Family::kUnknown},
      {"subnet 10.0.0.0 netmask 255.0.0.0 { }\n", Family::kDhcp4},
      {"shared-network a { pool { } }\n", Family::kDhcp4},
      {"range 10.0.0.1 10.0.0.2;\n", Family::kDhcp4},
      {"subnet6 2001:db8::/32 { }\n", Family::kDhcp6},
      {"shared-network a { pool6 { } }\n", Family::kDhcp6},
      {"shared-network a { SUBNET6 2001:db8::/32 { range6 2001:db8::1 2001:db8::2; } }\n",
       Family::kDhcp6},
      {"subnet 10.0.0.0 netmask 255.0.0.0 { }\nsubnet6 2001:db8::/32 { }\n", Family::kDhcp6},
      {"prefix6 2001:db8:: 2001:db8:1:: /48;\n", Family::kDhcp6},
  };
  for (const auto& [text, family] : cases) {
    Given(text);
    EXPECT_EQ(Doc().GetFamily(), family) << text;
  }
}

TEST_P(Lookup, FamilyFollowsTheEdits) {
  Given("authoritative;\n");
  Edit([&] { Root().Add("subnet6 2001:db8::/32 { }"); });
  EXPECT_EQ(Doc().GetFamily(), Family::kDhcp6);
  Edit([&] { Root().Child("subnet6").Remove(); });
  EXPECT_EQ(Doc().GetFamily(), Family::kUnknown);
}

TEST_P(Lookup, PlacesInALongLine) {
  const std::string longer = "filename \"" + std::string(3000, 'a') + "\";";
  Given("authoritative;\n  " + longer + " host a { }\nhost b { }\n");
  EXPECT_EQ(Find("host a").Begin(), (Position{2, 3 + longer.size() + 1}));
  EXPECT_EQ(Find("host b").Begin(), (Position{3, 1}));
  Edit([&] { Root().Child("filename").SetValue('"' + std::string(4000, 'b') + '"'); });
  EXPECT_EQ(Find("host a").Begin(), (Position{2, 3 + longer.size() + 1001}));
  EXPECT_EQ(Find("host b").Begin(), (Position{3, 1}));
}

TEST(LongText, HasItsPlacesWhenItWasAdded) {
  constexpr std::size_t kStatements = 3000;
  std::string added = "group {\n";
  for (std::size_t i = 0; i != kStatements; ++i) added += "\tword" + std::to_string(i) + " 1;\n";
  Document document("authoritative;\n");
  const Node group = document.Root().Add(added + "}");
  ASSERT_EQ(document.Text(), "authoritative;\n" + added + "}\n");
  std::size_t line = 3;
  for (const Node& child : group.Children()) ASSERT_EQ(child.Begin().line, line++);
  Node(group.FirstChild()).SetValue("2");
  line = 3;
  for (const Node& child : group.Children()) {
    ASSERT_EQ(child.Begin().line, line);
    ASSERT_EQ(child.Begin().column, 2U);
    ASSERT_EQ(document.At(line), child);
    ++line;
  }
}

}  // namespace
}  // namespace klepur::test
