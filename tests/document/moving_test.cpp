// Statements and blocks move with their comments, and change nothing but their indentation.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class Moving : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Moving);

TEST_P(Moving, IntoADeeperGroupAndBack) {
  Given(
      "group {\n"
      "\thost a {\n"
      "\t\tfixed-address 10.0.0.1; # desk 4\n"
      "\t}\n"
      "}\n"
      "shared-network s {\n"
      "\tgroup {\n"
      "\t\thost b { fixed-address 10.0.0.2; }\n"
      "\t}\n"
      "}\n");
  Node host = Find("host a");
  const Node address = host.Child("fixed-address");
  Edit([&] { host.MoveTo(Find("shared-network s").Child("group")); });
  EXPECT_EQ(Text(),
            "group {\n"
            "}\n"
            "shared-network s {\n"
            "\tgroup {\n"
            "\t\thost b { fixed-address 10.0.0.2; }\n"
            "\t\thost a {\n"
            "\t\t\tfixed-address 10.0.0.1; # desk 4\n"
            "\t\t}\n"
            "\t}\n"
            "}\n");
  EXPECT_EQ(address.Parent(), host);
  EXPECT_EQ(address.Value(), "10.0.0.1");
  EXPECT_EQ(host.Parent(), Find("host b").Parent());
  Edit([&] { host.MoveTo(Root().Child("group")); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, OutToTheFile) {
  Given(
      "group {\n"
      "    host a {\n"
      "        fixed-address 10.0.0.1;\n"
      "    }\n"
      "    host b { fixed-address 10.0.0.2; }\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.MoveTo(Root()); });
  EXPECT_EQ(Text(),
            "group {\n"
            "    host b { fixed-address 10.0.0.2; }\n"
            "}\n"
            "host a {\n"
            "    fixed-address 10.0.0.1;\n"
            "}\n");
  Edit([&] { host.MoveTo(Find("group"), Placement::Before(Find("host b"))); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, TakesItsCommentsAlong) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "\n"
      "  # Bob's laptop\n"
      "  host b { fixed-address 10.0.0.2; } # desk 4\n"
      "\n"
      "  # Carol's\n"
      "  host c { fixed-address 10.0.0.3; }\n"
      "}\n"
      "group {\n"
      "\thost d { fixed-address 10.0.0.4; }\n"
      "}\n");
  Node host = Find("host b");
  Edit([&] { host.MoveTo(Find("host d").Parent()); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  # Carol's\n"
            "  host c { fixed-address 10.0.0.3; }\n"
            "}\n"
            "group {\n"
            "\thost d { fixed-address 10.0.0.4; }\n"
            "\t# Bob's laptop\n"
            "\thost b { fixed-address 10.0.0.2; } # desk 4\n"
            "}\n");
  EXPECT_EQ(host.Comments().size(), 2U);
  Edit([&] { host.MoveTo(Find("host c").Parent(), Placement::Before(Find("host c"))); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, AmongItsSiblings) {
  Given(
      "max-lease-time 600;\n"
      "min-lease-time 60; # one\n"
      "next-server 10.0.0.5;\n");
  Node last = Root().Child("next-server");
  Edit([&] { last.MoveTo(Root(), Placement::First()); });
  EXPECT_EQ(Text(),
            "next-server 10.0.0.5;\n"
            "max-lease-time 600;\n"
            "min-lease-time 60; # one\n");
  Edit([&] { last.MoveTo(Root(), Placement::After(Root().Child("max-lease-time"))); });
  EXPECT_EQ(Text(),
            "max-lease-time 600;\n"
            "next-server 10.0.0.5;\n"
            "min-lease-time 60; # one\n");
  Edit([&] { last.MoveTo(Root(), Placement::After(Root().Child("min-lease-time"))); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, ToWhereItStandsChangesNothing) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "\n"
      "  # Bob's\n"
      "  host b { fixed-address 10.0.0.2; }\n"
      "  host c { fixed-address 10.0.0.3; }\n"
      "}\n");
  Edit([&] { Find("host b").MoveTo(Find("group"), Placement::Before(Find("host c"))); });
  EXPECT_EQ(Text(), First());
  Edit([&] {
    Find("host b").MoveTo(Find("group"), Placement::After(Find("group").Child("filename")));
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, LeavesStringsOverSeveralLinesAsTheyAre) {
  Given(
      "group {\n"
      "  host a {\n"
      "    option domain-name \"one\n"
      "  two\n"
      "three\";\n"
      "  }\n"
      "}\n"
      "shared-network s {\n"
      "  group {\n"
      "    filename \"a\";\n"
      "  }\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.MoveTo(Find("shared-network s").Child("group")); });
  EXPECT_EQ(Text(),
            "group {\n"
            "}\n"
            "shared-network s {\n"
            "  group {\n"
            "    filename \"a\";\n"
            "    host a {\n"
            "      option domain-name \"one\n"
            "  two\n"
            "three\";\n"
            "    }\n"
            "  }\n"
            "}\n");
  Edit([&] { host.MoveTo(Root().Child("group")); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, LeavesBlankLinesInItEmpty) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "host a {\n"
      "  hardware ethernet 00:00:00:00:00:01;\n"
      "\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n");
  Node host = Find("host a");
  Edit([&] { host.MoveTo(Find("group")); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  host a {\n"
            "    hardware ethernet 00:00:00:00:00:01;\n"
            "\n"
            "    fixed-address 10.0.0.1;\n"
            "  }\n"
            "}\n");
  Edit([&] { host.MoveTo(Root()); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, IntoABlockOnOneLineOpensIt) {
  Given(
      "group { filename \"a\"; }\n"
      "shared-network s {\n"
      "  filename \"b\";\n"
      "}\n"
      "host a { fixed-address 10.0.0.1; }\n");
  Node host = Find("host a");
  Edit([&] { host.MoveTo(Find("group")); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "}\n"
            "shared-network s {\n"
            "  filename \"b\";\n"
            "}\n");
  Edit([&] { host.MoveTo(Root()); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, StatementBetweenBlocksOnOneLine) {
  Given(
      "host a { hardware ethernet 00:00:00:00:00:01; fixed-address 10.0.0.1; }\n"
      "host b { hardware ethernet 00:00:00:00:00:02; }\n");
  Node address = Find("host a").Child("fixed-address");
  Edit([&] { address.MoveTo(Find("host b")); });
  EXPECT_EQ(Text(),
            "host a { hardware ethernet 00:00:00:00:00:01; }\n"
            "host b { hardware ethernet 00:00:00:00:00:02; fixed-address 10.0.0.1; }\n");
  Edit([&] { address.MoveTo(Find("host a")); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, TwoAwayAndBackInEitherOrder) {
  Given(
      "group {\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "  host b { fixed-address 10.0.0.2; }\n"
      "  host c { fixed-address 10.0.0.3; }\n"
      "}\n"
      "shared-network s {\n"
      "  filename \"a\";\n"
      "}\n");
  Node one = Find("host a");
  Node two = Find("host b");
  Node group = Find("group");
  Edit([&] {
    one.MoveTo(Find("shared-network s"));
    two.MoveTo(Find("shared-network s"));
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host c { fixed-address 10.0.0.3; }\n"
            "}\n"
            "shared-network s {\n"
            "  filename \"a\";\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "  host b { fixed-address 10.0.0.2; }\n"
            "}\n");
  Edit([&] {
    two.MoveTo(group, Placement::First());
    one.MoveTo(group, Placement::First());
  });
  EXPECT_EQ(Text(), First());
  Edit([&] {
    two.MoveTo(Find("shared-network s"));
    one.MoveTo(Find("shared-network s"));
    one.MoveTo(group, Placement::First());
    two.MoveTo(group, Placement::After(one));
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, LeavesNoBlankLineAtTheEndOfABlock) {
  Given(
      "group {\n"
      "  # a word on all of it\n"
      "\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Child("filename").MoveTo(Root()); });
  EXPECT_EQ(Text(),
            "filename \"a\";\n"
            "group {\n"
            "  # a word on all of it\n"
            "}\n");
}

TEST_P(Moving, IntoItselfOrAStatementIsRefused) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "}\n");
  Node group = Find("group");
  EXPECT_EQ(Refused([&] { group.MoveTo(Find("host a")); }), "bad place");
  EXPECT_EQ(Refused([&] { group.MoveTo(group); }), "bad place");
  EXPECT_EQ(Refused([&] { Find("host a").MoveTo(group.Child("filename")); }), "bad place");
  EXPECT_EQ(Refused([&] { Root().MoveTo(group); }), "bad place");
}

TEST_P(Moving, FromASharedLineAndBack) {
  Given(
      "host a {\n"
      "  hardware ethernet 00:01; fixed-address 10.0.0.1; filename \"a\";\n"
      "  next-server 10.0.0.5;\n"
      "}\n");
  Node host = Find("host a");
  Node one = host.Child("hardware");
  Node two = host.Child("fixed-address");
  Node three = host.Child("filename");
  Edit([&] { one.MoveTo(Root()); });
  Edit([&] { one.MoveTo(host, Placement::Before(two)); });
  EXPECT_EQ(Text(), First());
  Edit([&] { two.MoveTo(Root()); });
  Edit([&] { two.MoveTo(host, Placement::After(one)); });
  EXPECT_EQ(Text(), First());
  Edit([&] { three.MoveTo(Root()); });
  Edit([&] { three.MoveTo(host, Placement::After(two)); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, OutOfABlockOnOneLineAndBack) {
  Given(
      "group {\n"
      "  host a { authoritative; group { } option routers 10.0.0.1; }\n"
      "}\n");
  Node host = Find("host a");
  Node routers = host.Child("option routers");
  Node group = host.Child("group");
  Edit([&] { routers.MoveTo(Root()); });
  Edit([&] { routers.MoveTo(host, Placement::After(group)); });
  EXPECT_EQ(Text(), First());
  Edit([&] { group.MoveTo(Root()); });
  Edit([&] { group.MoveTo(host, Placement::Before(routers)); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, BlockOfSeveralLinesIntoOneOnOneLine) {
  Given(
      "key x {group { option domain-name \"a\"; next-server 10.0.0.5; }}\n"
      "host pc {\n"
      "    group {\n"
      "        # one\n"
      "        filename \"b\";\n"
      "    }\n"
      "    authoritative;\n"
      "}\n");
  Node target = Find("key x").Child("group");
  Node host = Find("host pc");
  Node group = host.Child("group");
  Edit([&] { group.MoveTo(target, Placement::Before(target.Child("next-server"))); });
  EXPECT_EQ(Text(),
            "key x {\n"
            "    group {\n"
            "        option domain-name \"a\";\n"
            "        group {\n"
            "            # one\n"
            "            filename \"b\";\n"
            "        }\n"
            "        next-server 10.0.0.5;\n"
            "    }\n"
            "}\n"
            "host pc {\n"
            "    authoritative;\n"
            "}\n");
  Edit([&] { group.MoveTo(host, Placement::First()); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, FirstOutOfABlockOnOneLineAndBack) {
  Given(
      "max-lease-time 600;\n"
      "host a { next-server 10.0.0.5; option routers 10.0.0.1; }   # one\n"
      "key b {option routers 10.0.0.1; option routers 10.0.0.2;}\n");
  for (const char* const header : {"host a", "key b"}) {
    Node block = Find(header);
    Node first = block.FirstChild();
    Node second = first.Next();
    Edit([&] { first.MoveTo(Root(), Placement::First()); });
    Edit([&] { first.MoveTo(block, Placement::Before(second)); });
    EXPECT_EQ(Text(), First()) << header;
  }
}

TEST_P(Moving, WhatOpenedABlockOutAndBack) {
  const std::string name(90, 'x');
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "host a { hardware ethernet 00:00:00:00:00:01; next-server 10.0.0.5; }\n");
  Node host = Find("host a");
  Node added;
  Edit([&] { added = host.Add("option host-name \"" + name + "\";", Placement::First()); });
  const std::string opened =
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "host a {\n"
      "  option host-name \"" +
      name +
      "\";\n"
      "  hardware ethernet 00:00:00:00:00:01;\n"
      "  next-server 10.0.0.5;\n"
      "}\n";
  EXPECT_EQ(Text(), opened);
  Edit([&] { added.MoveTo(Root()); });
  Edit([&] { added.MoveTo(host, Placement::First()); });
  EXPECT_EQ(Text(), opened);
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Moving, LinesOfABlockThatBeginsWithinALineComeBackAsTheyWere) {
  Given(
      "group {host a {\n"
      "  }authoritative;}\n"
      "group { option x \"x\"; host b {\n"
      "          filename \"b\n"
      "  c\";\n"
      "    # why\n"
      "\n"
      "\tnext-server 10.0.0.1;\n"
      "  } option y \"y\"; }\n");
  Node a = Find("host a");
  Node group = a.Parent();
  Edit([&] {
    a.MoveTo(Root());
    a.MoveTo(group, Placement::First());
  });
  EXPECT_EQ(Text(), First());
  Node b = Find("host b");
  group = b.Parent();
  Edit([&] {
    b.MoveTo(Root());
    b.MoveTo(group, Placement::After(group.Child("option x")));
  });
  EXPECT_EQ(Text(), First());
}

}  // namespace
}  // namespace klepur::test
