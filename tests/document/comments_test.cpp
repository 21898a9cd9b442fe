// Whose a comment is, and where it stays, goes and moves with an edit.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

using Strings = std::vector<std::string>;

class Comments : public EditTest {
 protected:
  static Strings Of(const Node& node) {
    Strings texts;
    for (const Node& comment : node.Comments()) texts.push_back(comment.Text());
    return texts;
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Comments);

// Behind a statement.

TEST_P(Comments, BehindAStatementKeepsTheColumnThatItsNeighboursShare) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  option routers 10.0.0.1;      # core switch\n"
      "  default-lease-time 600;       # ten minutes\n"
      "  max-lease-time 7200;\n"
      "}\n");
  Node subnet = Find("subnet 10.0.0.0 netmask 255.255.255.0");
  Edit([&] { subnet.Set("default-lease-time", "86400"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option routers 10.0.0.1;      # core switch\n"
            "  default-lease-time 86400;     # ten minutes\n"
            "  max-lease-time 7200;\n"
            "}\n");
  Edit([&] { subnet.Set("default-lease-time", "60"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option routers 10.0.0.1;      # core switch\n"
            "  default-lease-time 60;        # ten minutes\n"
            "  max-lease-time 7200;\n"
            "}\n");
  Edit([&] { subnet.Set("default-lease-time", "600"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, BehindAStatementKeepsItsGapWhereNoNeighbourSharesItsColumn) {
  Given(
      "group {\n"
      "  default-lease-time 600;   # ten minutes\n"
      "  max-lease-time 7200; # two hours\n"
      "\tmin-lease-time 60;\t# one\n"
      "}\n");
  Node group = Find("group");
  Edit([&] {
    group.Set("default-lease-time", "86400");
    group.Set("min-lease-time", "120");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  default-lease-time 86400;   # ten minutes\n"
            "  max-lease-time 7200; # two hours\n"
            "\tmin-lease-time 120;\t# one\n"
            "}\n");
  Edit([&] {
    group.Set("min-lease-time", "60");
    group.Set("default-lease-time", "600");
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, MayHoldWhatLooksLikeStructure) {
  Given(
      "pool {\n"
      "  range 10.0.0.10 10.0.0.99;  # was 10.0.0.10 10.0.0.50; { old }\n"
      "  allow unknown-clients;\n"
      "}\n");
  Node pool = Find("pool");
  Edit([&] { pool.Set("range", "10.0.0.10 10.0.0.150"); });
  EXPECT_EQ(Text(),
            "pool {\n"
            "  range 10.0.0.10 10.0.0.150;  # was 10.0.0.10 10.0.0.50; { old }\n"
            "  allow unknown-clients;\n"
            "}\n");
  Edit([&] { pool.Set("range", "10.0.0.10 10.0.0.99"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, BehindAStatementGoesWithIt) {
  Given(
      "group {\n"
      "  max-lease-time 600; # ten minutes\n"
      "  min-lease-time 60; # one minute\n"
      "}\n");
  Strings taken;
  Edit([&] { taken = Find("group").Child("min-lease-time").Remove().comments; });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time 600; # ten minutes\n"
            "}\n");
  EXPECT_EQ(taken, Strings{"# one minute"});
}

TEST_P(Comments, BehindSeveralStatementsIsTheLastOnes) {
  Given(
      "group {\n"
      "  max-lease-time 600; min-lease-time 60; # times\n"
      "}\n");
  EXPECT_EQ(Of(Find("group").Child("max-lease-time")), Strings());
  EXPECT_EQ(Of(Find("group").Child("min-lease-time")), Strings{"# times"});
}

TEST_P(Comments, BehindSeveralStatementsStaysWhileOneOfThemDoes) {
  Given(
      "group {\n"
      "  max-lease-time 600; min-lease-time 60; # times\n"
      "  filename \"a\";\n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.Child("min-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time 600; # times\n"
            "  filename \"a\";\n"
            "}\n");
  Edit([&] { group.Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "}\n");
}

TEST_P(Comments, BehindSeveralStatementsStaysWhenTheFirstGoes) {
  Given(
      "group {\n"
      "  max-lease-time 600; min-lease-time 60; # times\n"
      "}\n");
  Edit([&] { Find("group").Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  min-lease-time 60; # times\n"
            "}\n");
}

TEST_P(Comments, BehindBothBracesOfABlockAreItsOwn) {
  Given(
      "authoritative;\n"
      "host a { # opening\n"
      "  fixed-address 10.0.0.1;\n"
      "} # end\n"
      "max-lease-time 600;\n");
  EXPECT_EQ(Of(Find("host a")), (Strings{"# opening", "# end"}));
  Edit([&] { Find("host a").Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n");
}

TEST_P(Comments, InsideAStatementArePartOfItsText) {
  Given(
      "option routers # the first\n"
      "  10.0.0.1;\n");
  const Node routers = Root().FirstChild();
  EXPECT_EQ(Of(routers), Strings());
  EXPECT_FALSE(routers.Next());
  EXPECT_EQ(routers.Keyword(), "option routers");
}

// Above a statement.

TEST_P(Comments, BannerStaysWhenTheFirstBelowItGoes) {
  Given(
      "##############################\n"
      "# Printers, third floor\n"
      "##############################\n"
      "\n"
      "host prn31 { hardware ethernet 00:11:22:33:44:31; }\n"
      "host prn32 { hardware ethernet 00:11:22:33:44:32; }\n");
  Edit([&] { Find("host prn31").Remove(); });
  EXPECT_EQ(Text(),
            "##############################\n"
            "# Printers, third floor\n"
            "##############################\n"
            "\n"
            "host prn32 { hardware ethernet 00:11:22:33:44:32; }\n");
}

TEST_P(Comments, AboveAHostGoesWithIt) {
  Given(
      "host a1 { fixed-address 10.0.0.1; }\n"
      "\n"
      "# Bob's laptop, leaves in May\n"
      "host b1 { fixed-address 10.0.0.2; }\n"
      "\n"
      "# Carol's phone\n"
      "host c1 { fixed-address 10.0.0.3; }\n");
  Strings taken;
  Edit([&] { taken = Find("host b1").Remove().comments; });
  EXPECT_EQ(Text(),
            "host a1 { fixed-address 10.0.0.1; }\n"
            "\n"
            "# Carol's phone\n"
            "host c1 { fixed-address 10.0.0.3; }\n");
  EXPECT_EQ(taken, Strings{"# Bob's laptop, leaves in May"});
}

TEST_P(Comments, AboveARunOfAKindStaysUntilItsLastGoes) {
  Given(
      "authoritative;\n"
      "\n"
      "# Cameras\n"
      "host cam1 { fixed-address 10.0.0.1; }\n"
      "host cam2 { fixed-address 10.0.0.2; }\n"
      "\n"
      "host door { fixed-address 10.0.0.9; }\n");
  Strings taken;
  Edit([&] { taken = Find("host cam1").Remove().comments; });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "\n"
            "# Cameras\n"
            "host cam2 { fixed-address 10.0.0.2; }\n"
            "\n"
            "host door { fixed-address 10.0.0.9; }\n");
  EXPECT_EQ(taken, Strings());
  Edit([&] { taken = Find("host cam2").Remove().comments; });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "\n"
            "host door { fixed-address 10.0.0.9; }\n");
  EXPECT_EQ(taken, Strings{"# Cameras"});
}

TEST_P(Comments, AboveTheFirstOfAFilesRunStays) {
  Given(
      "# Cameras\n"
      "host cam1 { fixed-address 10.0.0.1; }\n"
      "host cam2 { fixed-address 10.0.0.2; }\n"
      "\n"
      "host door { fixed-address 10.0.0.9; }\n");
  Edit([&] { Find("host cam1").Remove(); });
  EXPECT_EQ(Text(),
            "# Cameras\n"
            "host cam2 { fixed-address 10.0.0.2; }\n"
            "\n"
            "host door { fixed-address 10.0.0.9; }\n");
}

TEST_P(Comments, AboveARunIsTakenOrKeptAsTheCallerSays) {
  Given(
      "authoritative;\n"
      "# Bob's camera\n"
      "host cam1 { fixed-address 10.0.0.1; }\n"
      "host cam2 { fixed-address 10.0.0.2; }\n"
      "# The door\n"
      "host door { fixed-address 10.0.0.9; }\n"
      "group {\n"
      "}\n");
  Edit([&] { Find("host cam1").Remove(CommentsAbove::kTake); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "host cam2 { fixed-address 10.0.0.2; }\n"
            "# The door\n"
            "host door { fixed-address 10.0.0.9; }\n"
            "group {\n"
            "}\n");
  Edit([&] { Find("host door").Remove(CommentsAbove::kKeep); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "host cam2 { fixed-address 10.0.0.2; }\n"
            "# The door\n"
            "group {\n"
            "}\n");
}

TEST_P(Comments, AboveEachOfARunGoWithTheirOwn) {
  Given(
      "group {\n"
      "  # Bob\n"
      "  host b { fixed-address 10.0.0.2; }\n"
      "  # Carol\n"
      "  host c { fixed-address 10.0.0.3; }\n"
      "}\n");
  Edit([&] { Find("host b").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  # Carol\n"
            "  host c { fixed-address 10.0.0.3; }\n"
            "}\n");
}

TEST_P(Comments, AboveGoesWhenTheNextOfItsKindStandsBelowABlankLine) {
  Given(
      "authoritative;\n"
      "# Bob\n"
      "host b { fixed-address 10.0.0.2; }\n"
      "\n"
      "host c { fixed-address 10.0.0.3; }\n");
  Edit([&] { Find("host b").Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "\n"
            "host c { fixed-address 10.0.0.3; }\n");
}

TEST_P(Comments, AboveGoesWhenAnotherKindFollows) {
  Given(
      "group {\n"
      "  # gateway\n"
      "  option routers 10.0.0.1;\n"
      "  option domain-name \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Child("option routers").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  option domain-name \"a\";\n"
            "}\n");
}

TEST_P(Comments, AboveOverSeveralLinesAreAllIts) {
  Given(
      "authoritative;\n"
      "# Printer, do not touch.\n"
      "# Service contract 99-1.\n"
      "host prn { fixed-address 10.0.0.4; } # room 4\n"
      "max-lease-time 600;\n");
  EXPECT_EQ(Of(Find("host prn")),
            (Strings{"# Printer, do not touch.", "# Service contract 99-1.", "# room 4"}));
  Edit([&] { Find("host prn").Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n");
}

TEST_P(Comments, OfAnotherDepthAreTheBlocks) {
  Given(
      "group {\n"
      "# far out\n"
      "    host a { fixed-address 10.0.0.1; }\n"
      "        # far in\n"
      "    host b { fixed-address 10.0.0.2; }\n"
      "    filename \"a\";\n"
      "}\n");
  EXPECT_EQ(Of(Find("host a")), Strings());
  EXPECT_EQ(Of(Find("host b")), Strings());
  Edit([&] { Find("host b").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "# far out\n"
            "    host a { fixed-address 10.0.0.1; }\n"
            "        # far in\n"
            "    filename \"a\";\n"
            "}\n");
}

TEST_P(Comments, AChangeOfDepthEndsARun) {
  Given(
      "group {\n"
      "# the group's\n"
      "    # host a's\n"
      "    host a { fixed-address 10.0.0.1; }\n"
      "}\n");
  EXPECT_EQ(Of(Find("host a")), Strings{"# host a's"});
}

TEST_P(Comments, BehindAStatementIsNotTheNextOnes) {
  Given(
      "max-lease-time 600; # ten\n"
      "min-lease-time 60;\n");
  EXPECT_EQ(Of(Root().Child("max-lease-time")), Strings{"# ten"});
  EXPECT_EQ(Of(Root().Child("min-lease-time")), Strings());
  Edit([&] { Root().Child("min-lease-time").Remove(); });
  EXPECT_EQ(Text(), "max-lease-time 600; # ten\n");
}

TEST_P(Comments, SectionHeadStaysWhenAllBelowItGo) {
  Given(
      "authoritative;\n"
      "\n"
      "# Printers\n"
      "\n"
      "host a { fixed-address 10.0.0.1; }\n"
      "\n"
      "# Phones\n"
      "\n"
      "host b { fixed-address 10.0.0.2; }\n");
  Edit([&] { Find("host a").Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "\n"
            "# Printers\n"
            "\n"
            "# Phones\n"
            "\n"
            "host b { fixed-address 10.0.0.2; }\n");
}

// At the end of a block.

TEST_P(Comments, AtTheEndOfABlockStayBelowWhatIsAdded) {
  Given(
      "group {\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "  # end of the group\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("group").Add("host b { fixed-address 10.0.0.2; }"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "  host b { fixed-address 10.0.0.2; }\n"
            "  # end of the group\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, AtTheEndOfABlockStayWhenTheLastStatementGoes) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "  max-lease-time 600;\n"
      "\n"
      "  # host list is kept elsewhere\n"
      "}\n");
  EXPECT_EQ(Of(Find("group").Child("max-lease-time")), Strings());
  Edit([&] { Find("group").Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  # host list is kept elsewhere\n"
            "}\n");
}

TEST_P(Comments, AtTheEndOfAFileStayBelowABlockThatIsAdded) {
  Given(
      "host a { fixed-address 10.0.0.1; }\n"
      "\n"
      "# end of file\n");
  Node added;
  Edit([&] { added = Root().Add("group { host b { fixed-address 10.0.0.2; } }"); });
  EXPECT_EQ(Root().FirstChild().Next(), added);
  EXPECT_TRUE(added.Next().Is(NodeKind::kComment));
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

// What is added.

TEST_P(Comments, BehindTheLastOfItsKindIsNotTornFromIt) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  range 10.0.0.10 10.0.0.20;   # phones\n"
      "  range 10.0.0.50 10.0.0.60;   # guests\n"
      "\n"
      "  option routers 10.0.0.1;\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("subnet 10.0.0.0 netmask 255.255.255.0").Add("range 10.0.0.90 10.0.0.95;");
  });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  range 10.0.0.10 10.0.0.20;   # phones\n"
            "  range 10.0.0.50 10.0.0.60;   # guests\n"
            "  range 10.0.0.90 10.0.0.95;\n"
            "\n"
            "  option routers 10.0.0.1;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, BehindABraceStaysThereWhenAStatementIsAddedFirst) {
  Given(
      "group {   # ground floor\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("group").Add("filename \"g.img\";"); });
  EXPECT_EQ(Text(),
            "group {   # ground floor\n"
            "  filename \"g.img\";\n"
            "  host a { fixed-address 10.0.0.1; }\n"
            "}\n");
  EXPECT_EQ(Of(Find("group")), Strings{"# ground floor"});
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, AboveAreNotTornFromTheirsByWhatIsAddedBefore) {
  Given(
      "option domain-name \"a\";\n"
      "\n"
      "# Printer, do not touch.\n"
      "# Service contract 99-1.\n"
      "host prn { fixed-address 10.0.0.4; }\n");
  Node added;
  Edit([&] {
    added = Root().Add("host pc { fixed-address 10.0.0.3; }", Placement::Before(Find("host prn")));
  });
  EXPECT_EQ(Text(),
            "option domain-name \"a\";\n"
            "\n"
            "host pc { fixed-address 10.0.0.3; }\n"
            "# Printer, do not touch.\n"
            "# Service contract 99-1.\n"
            "host prn { fixed-address 10.0.0.4; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, AboveTheFirstBlockAreNotTornFromItByAStatement) {
  Given(
      "# Head of the file\n"
      "\n"
      "# Hosts of the first floor\n"
      "group {\n"
      "}\n");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "# Head of the file\n"
            "\n"
            "authoritative;\n"
            "# Hosts of the first floor\n"
            "group {\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, OfTheFileDoNotBecomeThoseOfAnAddedStatement) {
  Given(
      "# Managed by the network team.\n"
      "# Ask before editing.\n"
      "\n"
      "# (no scopes yet)\n");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "# Managed by the network team.\n"
            "# Ask before editing.\n"
            "\n"
            "# (no scopes yet)\n"
            "\n"
            "authoritative;\n");
  EXPECT_EQ(Of(added), Strings());
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, OfTheFileWithABlankLineBelowNeedNoOther) {
  Given(
      "# Managed by the network team.\n"
      "\n");
  Node added;
  Edit([&] { added = Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "# Managed by the network team.\n"
            "\n"
            "authoritative;\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, OfABlockWithNothingElseDoNotBecomeThoseOfAnAddedStatement) {
  Given(
      "group {\n"
      "  # nothing yet\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("group").Add("filename \"a\";"); });
  EXPECT_EQ(Of(added), Strings());
  EXPECT_EQ(Of(Find("group")), Strings());
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, GivenInThePlacementStandAboveAndBehind) {
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1;\n"
      "  }\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("group").Add(
        "host b {\n"
        "fixed-address 10.0.0.2;\n"
        "}",
        Placement().WithComment("Bob's laptop\nleaves in May").WithTrailingComment("desk 4"));
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host a {\n"
            "    fixed-address 10.0.0.1;\n"
            "  }\n"
            "  # Bob's laptop\n"
            "  # leaves in May\n"
            "  host b {\n"
            "    fixed-address 10.0.0.2;\n"
            "  } # desk 4\n"
            "}\n");
  EXPECT_EQ(Of(added), (Strings{"# Bob's laptop", "# leaves in May", "# desk 4"}));
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Comments, GivenInTheTextStandWhereTheyWere) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] {
    Find("group").Add(
        "# one hour\n"
        "max-lease-time 3600; # at most");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  # one hour\n"
            "  max-lease-time 3600; # at most\n"
            "}\n");
}

TEST_P(Comments, GivenInTheTextKeepToThemselvesBelowOthers) {
  Given("# Managed by the network team.\n");
  Edit([&] {
    Root().Add(
        "# one hour\n"
        "max-lease-time 3600;");
  });
  EXPECT_EQ(Text(),
            "# Managed by the network team.\n"
            "\n"
            "# one hour\n"
            "max-lease-time 3600;\n");
}

// Disabled statements.

TEST_P(Comments, WithAWholeStatementInThemBelongToNobody) {
  Given(
      "host x { fixed-address 10.0.0.1; }\n"
      "# host y { fixed-address 10.0.0.2; }\n"
      "host z { fixed-address 10.0.0.3; }\n");
  EXPECT_EQ(Of(Find("host z")), Strings());
  Edit([&] { Find("host z").Remove(); });
  EXPECT_EQ(Text(),
            "host x { fixed-address 10.0.0.1; }\n"
            "# host y { fixed-address 10.0.0.2; }\n");
  Edit([&] { Find("host x").Remove(); });
  EXPECT_EQ(Text(), "# host y { fixed-address 10.0.0.2; }\n");
}

TEST_P(Comments, BelowADisabledStatementAreTheNextOnes) {
  Given(
      "authoritative;\n"
      "# Old lab\n"
      "# host y { fixed-address 10.0.0.2; }\n"
      "# Zed's\n"
      "host z { fixed-address 10.0.0.3; }\n");
  EXPECT_EQ(Of(Find("host z")), Strings{"# Zed's"});
  Edit([&] { Find("host z").Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "# Old lab\n"
            "# host y { fixed-address 10.0.0.2; }\n");
}

TEST_P(Comments, OfUnknownWordsAreProse) {
  Given(
      "authoritative;\n"
      "# see Eve;\n"
      "host z { fixed-address 10.0.0.3; }\n");
  EXPECT_EQ(Of(Find("host z")), Strings{"# see Eve;"});
}

// Blank lines.

TEST_P(Comments, OfTwoGroupsOfBlankLinesTheLargerStays) {
  Given(
      "filename \"a\";\n"
      "\n"
      "max-lease-time 600;\n"
      "\t\n"
      "\n"
      "min-lease-time 60;\n"
      "next-server 10.0.0.1;\n");
  Edit([&] { Root().Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "filename \"a\";\n"
            "\t\n"
            "\n"
            "min-lease-time 60;\n"
            "next-server 10.0.0.1;\n");
  Edit([&] { Root().Child("min-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "filename \"a\";\n"
            "\t\n"
            "\n"
            "next-server 10.0.0.1;\n");
}

TEST_P(Comments, BlankLinesDoNotComeToStandAtTheEdgesOfABlock) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "\n"
      "  max-lease-time 600;\n"
      "\n"
      "  min-lease-time 60;\n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.Child("filename").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time 600;\n"
            "\n"
            "  min-lease-time 60;\n"
            "}\n");
  Edit([&] { group.Child("min-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time 600;\n"
            "}\n");
  Edit([&] { group.Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "}\n");
}

TEST_P(Comments, BlankLinesThatStoodAtTheEdgesOfABlockStay) {
  Given(
      "group {\n"
      "\n"
      "  filename \"a\";\n"
      "\n"
      "  max-lease-time 600;\n"
      "\n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.Child("filename").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "\n"
            "  max-lease-time 600;\n"
            "\n"
            "}\n");
}

TEST_P(Comments, BlankLinesDoNotComeToStandAtTheEndOfAFile) {
  Given(
      "filename \"a\";\n"
      "\n"
      "\n"
      "max-lease-time 600;\n");
  Edit([&] { Root().Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(), "filename \"a\";\n");
}

TEST_P(Comments, SemicolonBehindTheCommentOfAKeyGoesWithTheKey) {
  Given(
      "key a { secret aGk=; }\n"
      "key b { secret aGk=; } # spare\n"
      ";\n"
      "authoritative;\n");
  EXPECT_EQ(FindingsText(Doc()), "");
  Edit([&] { Root().Add("key c { secret aGk=; }"); });
  EXPECT_EQ(Text(),
            "key a { secret aGk=; }\n"
            "key b { secret aGk=; } # spare\n"
            ";\n"
            "key c { secret aGk=; }\n"
            "authoritative;\n");
  Edit([&] { Find("key c").Remove(); });
  EXPECT_EQ(Text(), First());
  Node key = Find("key b");
  Edit([&] { key.CommentOut(); });
  EXPECT_EQ(Text(),
            "key a { secret aGk=; }\n"
            "# key b { secret aGk=; } # spare\n"
            "# ;\n"
            "authoritative;\n");
  Edit([&] { key.BringBack(); });
  EXPECT_EQ(Text(), First());
  Edit([&] { key.Remove(); });
  EXPECT_EQ(Text(), "key a { secret aGk=; }\nauthoritative;\n");
}

}  // namespace
}  // namespace klepur::test
