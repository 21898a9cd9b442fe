// Statements and blocks are made comments of and come back.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class CommentingOut : public EditTest {
 protected:
  static std::vector<std::string> DisabledIn(const Node& block) {
    std::vector<std::string> texts;
    for (const Node& comment : block.Disabled()) texts.push_back(comment.Text());
    return texts;
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(CommentingOut);

TEST_P(CommentingOut, StatementKeepsTheCommentBehindIt) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  option routers 10.0.0.1;  # core; do not move\n"
      "  default-lease-time 600;\n"
      "}\n");
  Node routers = Find("subnet 10.0.0.0 netmask 255.255.255.0").Child("option routers");
  Edit([&] { routers.CommentOut(); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  # option routers 10.0.0.1;  # core; do not move\n"
            "  default-lease-time 600;\n"
            "}\n");
  EXPECT_TRUE(routers.Is(NodeKind::kComment));
  EXPECT_TRUE(routers.IsDisabled());
  Edit([&] { routers.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_TRUE(routers.Is(NodeKind::kStatement));
  EXPECT_EQ(routers.Value(), "10.0.0.1");
}

TEST_P(CommentingOut, BlockKeepsItsCommentsAndBlankLines) {
  Given(
      "host a {\n"
      "  # spare NIC\n"
      "  hardware ethernet 00:00:00:00:00:01;\n"
      "\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n"
      "authoritative;\n");
  Node host = Find("host a");
  const Node address = host.Child("fixed-address");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "# host a {\n"
            "#   # spare NIC\n"
            "#   hardware ethernet 00:00:00:00:00:01;\n"
            "#\n"
            "#   fixed-address 10.0.0.1;\n"
            "# }\n"
            "authoritative;\n");
  EXPECT_TRUE(host.IsDisabled());
  EXPECT_TRUE(address.IsGone());
  EXPECT_TRUE(Root().Child("authoritative").Comments().empty());
  EXPECT_FALSE(Find("host a"));
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(Find("host a"), host);
}

TEST_P(CommentingOut, DisabledHostAmongProseComesBackAlone) {
  Given(
      "# Old lab. Hosts are kept; ask Eve before use.\n"
      "#host z1 {\n"
      "#  fixed-address 10.0.0.26;\n"
      "#}\n"
      "# host z2 was sold;\n"
      "host a { fixed-address 10.0.0.1; }\n");
  const std::vector<Node> disabled = Root().Disabled();
  ASSERT_EQ(disabled.size(), 1U);
  Node host = disabled[0];
  EXPECT_EQ(host.Text(), "#host z1 {");
  EXPECT_TRUE(host.IsDisabled());
  EXPECT_FALSE(host.Next().IsDisabled());
  EXPECT_FALSE(host.Previous().IsDisabled());
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(),
            "# Old lab. Hosts are kept; ask Eve before use.\n"
            "host z1 {\n"
            "  fixed-address 10.0.0.26;\n"
            "}\n"
            "# host z2 was sold;\n"
            "host a { fixed-address 10.0.0.1; }\n");
  EXPECT_TRUE(Find("host z1"));
}

TEST_P(CommentingOut, DisabledTextIsWhatWouldComeBack) {
  Given(
      "#host z1 {\n"
      "#  fixed-address 10.0.0.26;\n"
      "#}\n"
      "# max-lease-time 600;\n");
  const std::vector<Node> disabled = Root().Disabled();
  ASSERT_EQ(disabled.size(), 2U);
  EXPECT_EQ(disabled[1].DisabledText(), "max-lease-time 600;");
  const std::string line_end = carriage_returns_ ? "\r\n" : "\n";
  EXPECT_EQ(disabled[0].DisabledText(),
            "host z1 {" + line_end + "  fixed-address 10.0.0.26;" + line_end + "}");
}

TEST_P(CommentingOut, OnlyWholeStatementsOfKnownWordsAreDisabled) {
  Given(
      "# authoritative;\n"
      "# authoritative\n"
      "# see authoritative;\n"
      "# host z2 was sold;\n"
      "# max-lease-time 600; min-lease-time 60;\n"
      "# host a {\n"
      "\n"
      "# }\n"
      "group {\n"
      "  #option routers 10.0.0.1;\n"
      "  # pool { range 10.0.0.1 10.0.0.2; }\n"
      "}\n");
  EXPECT_EQ(DisabledIn(Root()).front(), "# authoritative;");
  for (const std::string& text : DisabledIn(Root())) {
    EXPECT_NE(text, "# authoritative");
    EXPECT_NE(text, "# see authoritative;");
    EXPECT_NE(text, "# host z2 was sold;");
    EXPECT_NE(text, "# host a {");
    EXPECT_NE(text, "# }");
  }
  EXPECT_EQ(DisabledIn(Find("group")),
            (std::vector<std::string>{"#option routers 10.0.0.1;",
                                      "# pool { range 10.0.0.1 10.0.0.2; }"}));
}

TEST_P(CommentingOut, LeavesTheCommentsAboveWhereTheyAre) {
  Given(
      "authoritative;\n"
      "# Bob's\n"
      "host b { fixed-address 10.0.0.2; }\n"
      "max-lease-time 600;\n");
  Node host = Find("host b");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "# Bob's\n"
            "# host b { fixed-address 10.0.0.2; }\n"
            "max-lease-time 600;\n");
  EXPECT_TRUE(Root().Child("max-lease-time").Comments().empty());
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(host.Comments().size(), 1U);
}

TEST_P(CommentingOut, BlockInsideAnotherIndentedWithTabs) {
  Given(
      "group {\n"
      "\thost a {\n"
      "\t\tfixed-address 10.0.0.1;\n"
      "\t}\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "\t# host a {\n"
            "\t# \tfixed-address 10.0.0.1;\n"
            "\t# }\n"
            "}\n");
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, WithoutABlankBehindTheMarkComesBack) {
  Given(
      "group {\n"
      "  #option routers 10.0.0.1;\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Disabled().at(0).BringBack(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  option routers 10.0.0.1;\n"
            "  filename \"a\";\n"
            "}\n");
}

TEST_P(CommentingOut, WithABlankBehindTheMarkComesBackWithoutIt) {
  Given(
      "group {\n"
      "  # option routers 10.0.0.1; # core\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Disabled().at(0).BringBack(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  option routers 10.0.0.1; # core\n"
            "  filename \"a\";\n"
            "}\n");
}

TEST_P(CommentingOut, StatementOverSeveralLines) {
  Given(
      "  option domain-name-servers\n"
      "      10.0.0.1,   # ns1\n"
      "      10.0.0.2;\n"
      "  authoritative;\n");
  Node statement = Root().FirstChild();
  Edit([&] { statement.CommentOut(); });
  EXPECT_EQ(Text(),
            "  # option domain-name-servers\n"
            "  #     10.0.0.1,   # ns1\n"
            "  #     10.0.0.2;\n"
            "  authoritative;\n");
  Edit([&] { statement.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, StringOverSeveralLinesComesBack) {
  Given(
      "group {\n"
      "  option domain-name \"a\n"
      "\n"
      "   b\";\n"
      "  authoritative;\n"
      "}\n");
  Node statement = Find("group").FirstChild();
  Edit([&] { statement.CommentOut(); });
  Edit([&] { statement.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(Find("group").FirstChild(), statement);
}

TEST_P(CommentingOut, LinesLessIndentedThanTheirBlockComeBack) {
  Given(
      "group {\n"
      "    host a {\n"
      "  fixed-address 10.0.0.1;\n"
      "\tnext-server 10.0.0.5;\n"
      "\n"
      "}\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.CommentOut(); });
  EXPECT_TRUE(host.IsDisabled());
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, BlockWithCommentsBehindItsBraces) {
  Given(
      "group { # one\n"
      "  filename \"a\";\n"
      "} # two\n"
      "authoritative;\n");
  Node group = Find("group");
  Edit([&] { group.CommentOut(); });
  EXPECT_EQ(Text(),
            "# group { # one\n"
            "#   filename \"a\";\n"
            "# } # two\n"
            "authoritative;\n");
  Edit([&] { group.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, DisabledStatementInsideStaysOneWhenTheBlockComesBack) {
  Given(
      "host a {\n"
      "  # next-server 10.0.0.5;\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "# host a {\n"
            "#   # next-server 10.0.0.5;\n"
            "#   fixed-address 10.0.0.1;\n"
            "# }\n");
  EXPECT_EQ(Root().Disabled().size(), 1U);
  Edit([&] { host.BringBack(); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(DisabledIn(host), std::vector<std::string>{"# next-server 10.0.0.5;"});
}

TEST_P(CommentingOut, TwoSideBySideComeBackInEitherOrder) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "  next-server 10.0.0.5;\n"
      "}\n");
  for (const bool first_comes_first : {true, false}) {
    Node one = Find("group").Child("filename");
    Node two = Find("group").Child("next-server");
    Edit([&] {
      one.CommentOut();
      two.CommentOut();
    });
    EXPECT_EQ(Text(),
              "group {\n"
              "  # filename \"a\";\n"
              "  # next-server 10.0.0.5;\n"
              "}\n");
    EXPECT_EQ(Find("group").Disabled(), (std::vector<Node>{one, two}));
    Edit([&] { (first_comes_first ? one : two).BringBack(); });
    Edit([&] { (first_comes_first ? two : one).BringBack(); });
    EXPECT_EQ(Text(), First()) << first_comes_first;
  }
}

TEST_P(CommentingOut, BothAStatementAndThenItsBlock) {
  Given(
      "host a {\n"
      "  fixed-address 10.0.0.1;\n"
      "  next-server 10.0.0.5;\n"
      "}\n");
  Edit([&] { Find("host a").Child("next-server").CommentOut(); });
  Node host = Find("host a");
  Edit([&] { host.CommentOut(); });
  EXPECT_EQ(Text(),
            "# host a {\n"
            "#   fixed-address 10.0.0.1;\n"
            "#   # next-server 10.0.0.5;\n"
            "# }\n");
  Edit([&] { host.BringBack(); });
  Edit([&] { host.Disabled().at(0).BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, WhatWasAddedCanBeCommentedOutBroughtBackAndRemoved) {
  Given("host a { hardware ethernet 00:00:00:00:00:01; }\n");
  Node added;
  Edit([&] { added = Find("host a").Add("fixed-address 10.0.0.1;"); });
  Edit([&] { added.CommentOut(); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "\thardware ethernet 00:00:00:00:00:01;\n"
            "\t# fixed-address 10.0.0.1;\n"
            "}\n");
  Edit([&] { added.BringBack(); });
  EXPECT_EQ(Text(), "host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, ProseCannotBeBroughtBack) {
  Given(
      "# host z2 was sold;\n"
      "authoritative;\n");
  EXPECT_EQ(Refused([&] { Root().FirstChild().BringBack(); }), "not found");
  EXPECT_EQ(Refused([&] { Root().Child("authoritative").BringBack(); }), "not found");
}

TEST_P(CommentingOut, DisabledStatementCanBeRemoved) {
  Given(
      "filename \"a\";\n"
      "# host z1 {\n"
      "#   fixed-address 10.0.0.26;\n"
      "# }\n"
      "authoritative;\n");
  Edit([&] { Root().Disabled().at(0).BringBack(); });
  Edit([&] { Find("host z1").Remove(); });
  EXPECT_EQ(Text(),
            "filename \"a\";\n"
            "authoritative;\n");
}

TEST_P(CommentingOut, LastOnASharedLineTakesTheCommentBehindIt) {
  Given(
      "max-lease-time 600; min-lease-time 60;  # times\n"
      "# gateway\n"
      "option routers 10.0.0.1;\n");
  Node last = Root().Child("min-lease-time");
  Edit([&] { last.CommentOut(); });
  EXPECT_EQ(Text(),
            "max-lease-time 600;\n"
            "# min-lease-time 60;  # times\n"
            "# gateway\n"
            "option routers 10.0.0.1;\n");
  EXPECT_EQ(Root().Child("option routers").Comments().size(), 1U);
  Edit([&] { last.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, FirstOnASharedLineLeavesTheCommentBehindTheLast) {
  Given(
      "max-lease-time 600; min-lease-time 60;  # times\n"
      "option routers 10.0.0.1;\n");
  Node first = Root().Child("max-lease-time");
  Edit([&] { first.CommentOut(); });
  EXPECT_EQ(Text(),
            "# max-lease-time 600;\n"
            "min-lease-time 60;  # times\n"
            "option routers 10.0.0.1;\n");
  Edit([&] { first.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, TwoOnASharedLineComeBackInEitherOrder) {
  Given(
      "group {\n"
      "  max-lease-time 600; min-lease-time 60;\n"
      "}\n");
  for (const bool out_first : {true, false}) {
    for (const bool back_first : {true, false}) {
      Node one = Find("group").Child("max-lease-time");
      Node two = Find("group").Child("min-lease-time");
      (out_first ? one : two).CommentOut();
      (out_first ? two : one).CommentOut();
      EXPECT_EQ(Text(),
                "group {\n"
                "  # max-lease-time 600;\n"
                "  # min-lease-time 60;\n"
                "}\n");
      (back_first ? one : two).BringBack();
      EXPECT_TRUE((back_first ? one : two).Is(NodeKind::kStatement));
      EXPECT_NE(Text(), First());
      (back_first ? two : one).BringBack();
      EXPECT_EQ(Text(), First()) << out_first << back_first;
    }
  }
}

TEST_P(CommentingOut, BlankLinesWithBlanksComeBack) {
  Given(
      "group {\n"
      " \n"
      "  filename \"a\";\n"
      "\t\t\n"
      "}\n"
      "if known {\n"
      " \n"
      "  filename \"a\";\n"
      "}\n"
      "else {\n"
      "   \n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.CommentOut(); });
  Edit([&] { group.BringBack(); });
  EXPECT_EQ(Text(), First());
  Node chain = Root().Child("if");
  Edit([&] { chain.CommentOut(); });
  Edit([&] { chain.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, DisabledStatementStaysOneWhenWhatOpenedItsBlockGoes) {
  Given(
      "group { authoritative; }\n"
      "max-lease-time 600;\n");
  Node group = Find("group");
  Node added;
  Edit([&] {
    added = group.Add("filename \"a\";", Placement::First().WithComment("one"));
    group.Child("authoritative").CommentOut();
  });
  Edit([&] { added.Remove(CommentsAbove::kTake); });
  EXPECT_EQ(group.Disabled().size(), 1U);
  Edit([&] { group.Disabled().at(0).BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(CommentingOut, StatementsAndBlocksWithBlanksBehindThem) {
  Given(
      "max-lease-time 600; \n"
      "host a { \t\n"
      "  fixed-address 10.0.0.1;  \n"
      "} \n"
      "authoritative;\t# one \t\n");
  for (const char* const keyword : {"max-lease-time", "host", "authoritative"}) {
    Node node = Root().Child(keyword);
    Edit([&] { node.CommentOut(); });
    EXPECT_TRUE(node.IsDisabled()) << keyword;
    EXPECT_NE(Text(), First());
    Edit([&] { node.BringBack(); });
    EXPECT_EQ(Text(), First()) << keyword;
  }
}

TEST_P(CommentingOut, WhatIsOnALineOfItsOwnNowStaysThereWhenANeighbourGoes) {
  Given("max-lease-time 60; authoritative;\n");
  Node minimum;
  Edit([&] {
    minimum = Root().Add("min-lease-time 60;", Placement::After(Root().Child("max-lease-time")));
  });
  Edit([&] { Root().Child("authoritative").CommentOut(); });
  Edit([&] { minimum.Remove(); });
  EXPECT_EQ(Text(), "max-lease-time 60;\n# authoritative;\n");
}

}  // namespace
}  // namespace klepur::test
