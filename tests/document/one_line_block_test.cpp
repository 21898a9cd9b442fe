// Blocks on one line, and statements that share a line.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class OneLineBlock : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(OneLineBlock);

TEST_P(OneLineBlock, StaysOnItsLineForAStatement) {
  Given(
      "host a { hardware ethernet 00:00:00:00:00:01; }\n"
      "host b { hardware ethernet 00:00:00:00:00:02; fixed-address 10.0.0.2; }\n"
      "host c {hardware ethernet 00:00:00:00:00:03;}\n");
  Node first;
  Node second;
  Edit([&] {
    first = Find("host a").Add("fixed-address 10.0.0.1;");
    second = Find("host c").Add("fixed-address 10.0.0.3;");
  });
  EXPECT_EQ(Text(),
            "host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; }\n"
            "host b { hardware ethernet 00:00:00:00:00:02; fixed-address 10.0.0.2; }\n"
            "host c {hardware ethernet 00:00:00:00:00:03; fixed-address 10.0.0.3;}\n");
  Edit([&] {
    first.Remove();
    second.Remove();
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, OpensForACommentBehindAStatement) {
  Given(
      "# kiosks\n"
      "host a { hardware ethernet 00:00:00:00:00:01; }\n"
      "host k {\n"
      "  hardware ethernet 00:00:00:00:00:0b;\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("host a").Add("fixed-address 10.0.0.1;",
                               Placement().WithTrailingComment("moved from VLAN 7"));
  });
  EXPECT_EQ(Text(),
            "# kiosks\n"
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01;\n"
            "  fixed-address 10.0.0.1; # moved from VLAN 7\n"
            "}\n"
            "host k {\n"
            "  hardware ethernet 00:00:00:00:00:0b;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, OpensForACommentAboveAStatement) {
  Given(
      "host a { hardware ethernet 00:00:00:00:00:01; }\n"
      "host k {\n"
      "  hardware ethernet 00:00:00:00:00:0b;\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("host a").Add("fixed-address 10.0.0.1;", Placement().WithComment("VLAN 7"));
  });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01;\n"
            "  # VLAN 7\n"
            "  fixed-address 10.0.0.1;\n"
            "}\n"
            "host k {\n"
            "  hardware ethernet 00:00:00:00:00:0b;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, OpensForABlockAndKeepsItsBrace) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0\n"
      "{\n"
      "    range 10.0.0.10 10.0.0.20;\n"
      "}\n"
      "subnet 10.0.1.0 netmask 255.255.255.0 { option routers 10.0.1.1; }\n");
  Node added;
  Edit([&] {
    added =
        Find("subnet 10.0.1.0 netmask 255.255.255.0").Add("pool { range 10.0.1.10 10.0.1.20; }");
  });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0\n"
            "{\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "}\n"
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "    option routers 10.0.1.1;\n"
            "    pool\n"
            "    {\n"
            "        range 10.0.1.10 10.0.1.20;\n"
            "    }\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

/// A subnet on one line, and what is done to it.
class OpenedTwice : public OneLineBlock {
 protected:
  void SetUp() override {
    Given(
        "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
        "  option routers 10.0.0.1;\n"
        "}\n"
        "subnet 10.0.1.0 netmask 255.255.255.0 { option routers 10.0.1.1; }\n");
    subnet_ = Find("subnet 10.0.1.0 netmask 255.255.255.0");
  }

  Node subnet_;
};
KLEPUR_WITH_BOTH_LINE_ENDS(OpenedTwice);

TEST_P(OpenedTwice, ByABlockAndAStatementItClosesWhenBothHaveGone) {
  for (const bool first_goes_first : {true, false}) {
    Node pool;
    Node range;
    Edit([&] {
      pool = subnet_.Add("pool {\n    range 10.0.1.10 10.0.1.20;\n  }");
      range = subnet_.Add("max-lease-time 600;");
    });
    EXPECT_EQ(Text(),
              "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
              "  option routers 10.0.0.1;\n"
              "}\n"
              "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
              "  option routers 10.0.1.1;\n"
              "  max-lease-time 600;\n"
              "  pool {\n"
              "    range 10.0.1.10 10.0.1.20;\n"
              "  }\n"
              "}\n");
    Edit([&] { (first_goes_first ? pool : range).Remove(); });
    Edit([&] { (first_goes_first ? range : pool).Remove(); });
    EXPECT_EQ(Text(), First()) << first_goes_first;
  }
}

TEST_P(OpenedTwice, ByTwoBlocksItClosesWhenBothHaveGone) {
  for (const bool first_goes_first : {true, false}) {
    Node one;
    Node two;
    Edit([&] {
      one = subnet_.Add("pool {\n    range 10.0.1.10 10.0.1.20;\n  }");
      two = subnet_.Add("pool {\n    range 10.0.1.30 10.0.1.40;\n  }");
    });
    EXPECT_EQ(Text(),
              "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
              "  option routers 10.0.0.1;\n"
              "}\n"
              "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
              "  option routers 10.0.1.1;\n"
              "  pool {\n"
              "    range 10.0.1.10 10.0.1.20;\n"
              "  }\n"
              "  pool {\n"
              "    range 10.0.1.30 10.0.1.40;\n"
              "  }\n"
              "}\n");
    Edit([&] { (first_goes_first ? one : two).Remove(); });
    Edit([&] { (first_goes_first ? two : one).Remove(); });
    EXPECT_EQ(Text(), First()) << first_goes_first;
  }
}

TEST_P(OpenedTwice, ByACommentedOutStatementItClosesWhenThatIsBack) {
  Node statement = subnet_.Child("option routers");
  Edit([&] { statement.CommentOut(); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option routers 10.0.0.1;\n"
            "}\n"
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "  # option routers 10.0.1.1;\n"
            "}\n");
  Edit([&] { statement.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, OpensForACommentedOutStatementAmongOthers) {
  Given(
      "group {\n"
      "  host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; }\n"
      "}\n");
  Node hardware = Find("host a").Child("hardware");
  Edit([&] { hardware.CommentOut(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host a {\n"
            "    # hardware ethernet 00:00:00:00:00:01;\n"
            "    fixed-address 10.0.0.1;\n"
            "  }\n"
            "}\n");
  Edit([&] { hardware.BringBack(); });
  EXPECT_EQ(Text(), First());
  Node address = Find("host a").Child("fixed-address");
  Edit([&] { address.CommentOut(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host a {\n"
            "    hardware ethernet 00:00:00:00:00:01;\n"
            "    # fixed-address 10.0.0.1;\n"
            "  }\n"
            "}\n");
  Edit([&] { address.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, TwoCommentedOutComeBackInEitherOrder) {
  Given(
      "group {\n"
      "  host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; }\n"
      "}\n");
  for (const bool first_comes_first : {true, false}) {
    Node hardware = Find("host a").Child("hardware");
    Node address = Find("host a").Child("fixed-address");
    Edit([&] {
      hardware.CommentOut();
      address.CommentOut();
    });
    EXPECT_EQ(Text(),
              "group {\n"
              "  host a {\n"
              "    # hardware ethernet 00:00:00:00:00:01;\n"
              "    # fixed-address 10.0.0.1;\n"
              "  }\n"
              "}\n");
    Edit([&] { (first_comes_first ? hardware : address).BringBack(); });
    Edit([&] { (first_comes_first ? address : hardware).BringBack(); });
    EXPECT_EQ(Text(), First()) << first_comes_first;
  }
}

TEST_P(OneLineBlock, OpensWhenItWouldGetTooLong) {
  Given(
      "group {\n"
      "    filename \"a\";\n"
      "}\n"
      "host a { hardware ethernet 00:00:00:00:00:01; }\n");
  const std::string name(80, 'x');
  Node added;
  Edit([&] { added = Find("host a").Add("option host-name \"" + name + "\";"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "    filename \"a\";\n"
            "}\n"
            "host a {\n"
            "    hardware ethernet 00:00:00:00:00:01;\n"
            "    option host-name \"" +
                name +
                "\";\n"
                "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, StaysOnItsLineUpToTheWidthOfItsNeighbours) {
  const std::string name(80, 'x');
  Given(
      "host a { hardware ethernet 00:00:00:00:00:01; }\n"
      "host b { hardware ethernet 00:00:00:00:00:02; option host-name \"" +
      name + "\"; }\n");
  Edit([&] { Find("host a").Add("option host-name \"" + name + "\";"); });
  EXPECT_EQ(Text(), "host a { hardware ethernet 00:00:00:00:00:01; option host-name \"" + name +
                        "\"; }\n"
                        "host b { hardware ethernet 00:00:00:00:00:02; option host-name \"" +
                        name + "\"; }\n");
}

TEST_P(OneLineBlock, GetsAStatementInsideAnother) {
  Given("group { host a { fixed-address 10.0.0.1; } }\n");
  Node added;
  Edit([&] { added = Find("host a").Add("next-server 10.0.0.5;"); });
  EXPECT_EQ(Text(), "group { host a { fixed-address 10.0.0.1; next-server 10.0.0.5; } }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, WithABlockInItOpensForAnother) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "group { host a { fixed-address 10.0.0.1; } }\n");
  Node added;
  Edit([&] { added = Find("host a").Parent().Add("host b { fixed-address 10.0.0.2; }"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "}\n"
            "group {\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "  host b { fixed-address 10.0.0.2; }\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, LosesStatementsOneByOne) {
  Given(
      "host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; filename \"a\"; }\n");
  Node host = Find("host a");
  Edit([&] { host.Child("fixed-address").Remove(); });
  EXPECT_EQ(Text(), "host a { hardware ethernet 00:00:00:00:00:01; filename \"a\"; }\n");
  Edit([&] { host.Child("hardware").Remove(); });
  EXPECT_EQ(Text(), "host a { filename \"a\"; }\n");
  Edit([&] { host.Child("filename").Remove(); });
  EXPECT_EQ(Text(), "host a { }\n");
}

TEST_P(OneLineBlock, LosesItsLastStatementFirst) {
  Given("host a {hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;}\n");
  Node host = Find("host a");
  Edit([&] { host.Child("fixed-address").Remove(); });
  EXPECT_EQ(Text(), "host a {hardware ethernet 00:00:00:00:00:01;}\n");
  Edit([&] { host.Child("hardware").Remove(); });
  EXPECT_EQ(Text(), "host a {}\n");
}

TEST_P(OneLineBlock, AddsAndLosesWithoutATrace) {
  Given("host a { hardware ethernet 00:01; }\n");
  Node host = Find("host a");
  Node one;
  Node two;
  Node three;
  Edit([&] {
    one = host.Add("fixed-address 10.0.0.1;");
    two = host.Add("next-server 10.0.0.5;");
    three = host.Add("server-name \"s\";", Placement::First());
  });
  EXPECT_EQ(Text(),
            "host a { server-name \"s\"; hardware ethernet 00:01; "
            "fixed-address 10.0.0.1; next-server 10.0.0.5; }\n");
  Edit([&] { one.Remove(); });
  EXPECT_EQ(Text(),
            "host a { server-name \"s\"; hardware ethernet 00:01; "
            "next-server 10.0.0.5; }\n");
  Edit([&] {
    three.Remove();
    two.Remove();
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, ThatGotTooLongClosesInAnyOrder) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "host a { hardware ethernet 00:00:00:00:00:01; }\n");
  const std::string name(40, 'x');
  Node host = Find("host a");
  std::vector<int> order = {0, 1, 2};
  do {
    std::vector<Node> added;
    added.push_back(host.Add("fixed-address 10.0.0.1;"));
    added.push_back(host.Add("option host-name \"" + name + "\";"));
    added.push_back(host.Add("server-name \"s\";", Placement::First()));
    ASSERT_EQ(Text(),
              "group {\n"
              "  filename \"a\";\n"
              "}\n"
              "host a {\n"
              "  server-name \"s\";\n"
              "  hardware ethernet 00:00:00:00:00:01;\n"
              "  fixed-address 10.0.0.1;\n"
              "  option host-name \"" +
                  name +
                  "\";\n"
                  "}\n");
    for (const int which : order) added[static_cast<std::size_t>(which)].Remove();
    ASSERT_EQ(Text(), First()) << order[0] << order[1] << order[2];
  } while (std::next_permutation(order.begin(), order.end()));
}

// Several on a line.

TEST_P(OneLineBlock, InsertedInTheMiddleOfALineIsAStatement) {
  Given(
      "host a {\n"
      "  hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;\n"
      "  option host-name \"a\";\n"
      "}\n");
  Node host = Find("host a");
  Node added;
  Edit(
      [&] { added = host.Add("next-server 10.0.0.5;", Placement::After(host.Child("hardware"))); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01; next-server 10.0.0.5; fixed-address 10.0.0.1;\n"
            "  option host-name \"a\";\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, InsertedBeforeTheSecondOnALineIsAStatement) {
  Given(
      "host a {\n"
      "  hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;\n"
      "}\n");
  Node host = Find("host a");
  Node added;
  Edit([&] {
    added = host.Add("next-server 10.0.0.5;", Placement::Before(host.Child("fixed-address")));
  });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01; next-server 10.0.0.5; fixed-address 10.0.0.1;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, BehindTheLastOnALineComesANewLine) {
  Given(
      "host a {\n"
      "  hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;\n"
      "}\n");
  Edit([&] { Find("host a").Add("next-server 10.0.0.5;"); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;\n"
            "  next-server 10.0.0.5;\n"
            "}\n");
}

TEST_P(OneLineBlock, CommentedOutOnASharedLineGetsALineOfItsOwn) {
  Given(
      "host a {\n"
      "  hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1;\n"
      "}\n");
  Node hardware = Find("host a").Child("hardware");
  Node address = Find("host a").Child("fixed-address");
  Edit([&] { hardware.CommentOut(); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  # hardware ethernet 00:00:00:00:00:01;\n"
            "  fixed-address 10.0.0.1;\n"
            "}\n");
  Edit([&] { hardware.BringBack(); });
  EXPECT_EQ(Text(), First());
  Edit([&] { address.CommentOut(); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  hardware ethernet 00:00:00:00:00:01;\n"
            "  # fixed-address 10.0.0.1;\n"
            "}\n");
  Edit([&] { address.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(OneLineBlock, BehindAnotherOnItsLineIsRemovedAlone) {
  Given(
      "host a { fixed-address 10.0.0.1; } host b { fixed-address 10.0.0.2; }\n"
      "host c { fixed-address 10.0.0.3; }\n");
  Edit([&] { Find("host b").Remove(); });
  EXPECT_EQ(Text(),
            "host a { fixed-address 10.0.0.1; }\n"
            "host c { fixed-address 10.0.0.3; }\n");
}

TEST_P(OneLineBlock, BeforeAnotherOnItsLineIsRemovedAlone) {
  Given(
      "host a { fixed-address 10.0.0.1; } host b { fixed-address 10.0.0.2; }\n"
      "host c { fixed-address 10.0.0.3; }\n");
  Edit([&] { Find("host a").Remove(); });
  EXPECT_EQ(Text(),
            "host b { fixed-address 10.0.0.2; }\n"
            "host c { fixed-address 10.0.0.3; }\n");
}

TEST_P(OneLineBlock, StatementBehindABraceIsRemovedAlone) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "} max-lease-time 600;\n"
      "authoritative;\n");
  Edit([&] { Root().Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "}\n"
            "authoritative;\n");
}

}  // namespace
}  // namespace klepur::test
