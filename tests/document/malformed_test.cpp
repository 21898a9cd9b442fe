// Edits in files with something wrong in them change what they must, and nothing is repaired on the way.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

class Malformed : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Malformed);

TEST_P(Malformed, MissingBraceStaysMissing) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  range 10.0.0.10 10.0.0.20;\n"
      "host a { fixed-address 10.0.0.5; }\n"
      "host b { fixed-address 10.0.0.6; }\n");
  const std::vector<Finding> findings = Doc().Findings();
  ASSERT_FALSE(findings.empty());
  EXPECT_EQ(findings[0].code, FindingCode::kUnclosedBlock);
  EXPECT_EQ(findings[0].where, (Position{1, 39}));
  EXPECT_EQ(findings[0].severity, Severity::kError);
  EXPECT_NE(findings[0].message.find("line 3"), std::string::npos) << findings[0].message;
  Edit([&] { Find("host b").Set("fixed-address", "10.0.0.7"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  range 10.0.0.10 10.0.0.20;\n"
            "host a { fixed-address 10.0.0.5; }\n"
            "host b { fixed-address 10.0.0.7; }\n");
  EXPECT_EQ(Doc().Findings().size(), findings.size());
  Edit([&] { Find("host b").Set("fixed-address", "10.0.0.6"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Malformed, BraceTooManyStays) {
  Given(
      "group {\n"
      "  host a { fixed-address 10.0.0.1; }\n"
      "}\n"
      "}\n"
      "authoritative;\n");
  EXPECT_EQ(FindingsText(Doc()), "4:1 error stray brace\n");
  EXPECT_EQ(Root().Child("authoritative").Parent(), Root());
  Edit([&] {
    Find("host a").Set("fixed-address", "10.0.0.2");
    Root().Child("authoritative").Remove();
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  host a { fixed-address 10.0.0.2; }\n"
            "}\n"
            "}\n");
  EXPECT_EQ(FindingsText(Doc()), "4:1 error stray brace\n");
}

TEST_P(Malformed, OpenQuoteEndsWithItsStatement) {
  Given(
      "host a {\n"
      "  option host-name \"a;\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n"
      "host b { fixed-address 10.0.0.2; }\n");
  EXPECT_EQ(FindingsText(Doc()), "2:20 error unclosed quote\n");
  EXPECT_EQ(Find("host a").Child("option host-name").Value(), "\"a");
  Edit([&] { Find("host b").Set("fixed-address", "10.0.0.3"); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  option host-name \"a;\n"
            "  fixed-address 10.0.0.1;\n"
            "}\n"
            "host b { fixed-address 10.0.0.3; }\n");
  EXPECT_EQ(FindingsText(Doc()), "2:20 error unclosed quote\n");
  Edit([&] { Find("host b").Set("fixed-address", "10.0.0.2"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Malformed, OpenQuoteIsMendedByAnEditOfItsStatement) {
  Given(
      "host a {\n"
      "  option host-name \"a;\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n");
  Edit([&] { Find("host a").Set("option host-name", "\"a\""); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "  option host-name \"a\";\n"
            "  fixed-address 10.0.0.1;\n"
            "}\n");
  EXPECT_EQ(FindingsText(Doc()), "");
}

TEST_P(Malformed, QuoteThatWouldCloseAnOpenOneIsRefused) {
  Given(
      "option domain-name \"a;\n"
      "authoritative;\n");
  EXPECT_EQ(Refused([&] { Root().Add("filename \" b\";", Placement::Last()); }), "malformed");
  Edit([&] { Root().Add("filename \"b\";", Placement::Last()); });
  EXPECT_EQ(Text(),
            "option domain-name \"a;\n"
            "authoritative;\n"
            "filename \"b\";\n");
  EXPECT_EQ(FindingsText(Doc()), "1:20 error unclosed quote\n");
}

TEST_P(Malformed, NothingCanBeAddedBehindABlockThatIsNeverClosed) {
  Given(
      "authoritative;\n"
      "group {\n"
      "  filename \"a\";\n");
  EXPECT_EQ(Refused([&] { Root().Add("max-lease-time 600;", Placement::Last()); }), "malformed");
  Edit([&] { Root().Add("max-lease-time 600;", Placement::First()); });
  EXPECT_EQ(Text(),
            "max-lease-time 600;\n"
            "authoritative;\n"
            "group {\n"
            "  filename \"a\";\n");
}

TEST_P(Malformed, BlockThatIsNeverClosedCanBeAddedTo) {
  Given(
      "group {\n"
      "  filename \"a\";\n");
  Node added;
  Edit([&] { added = Find("group").Add("max-lease-time 600;"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  max-lease-time 600;\n");
  EXPECT_EQ(FindingsText(Doc()).substr(0, 25), "1:7 error unclosed block\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Malformed, StrayBraceCanBeRemoved) {
  Given(
      "authoritative;\n"
      "}\n"
      "max-lease-time 600;\n");
  Node stray = Root().FirstChild().Next();
  ASSERT_TRUE(stray.Is(NodeKind::kStray));
  Edit([&] { stray.Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n");
  EXPECT_EQ(FindingsText(Doc()), "");
}

TEST_P(Malformed, LoneSemicolonCanBeRemoved) {
  Given(
      "authoritative;;\n"
      "max-lease-time 600;\n");
  Node stray = Root().FirstChild().Next();
  ASSERT_TRUE(stray.Is(NodeKind::kStray));
  Edit([&] { stray.Remove(); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "max-lease-time 600;\n");
}

TEST_P(Malformed, MissingSemicolonStaysMissingForEditsElsewhere) {
  Given(
      "group {\n"
      "  max-lease-time 600\n"
      "  min-lease-time 60;\n"
      "}\n"
      "host a { fixed-address 10.0.0.1; }\n");
  Edit([&] {
    Find("group").Set("min-lease-time", "120");
    Find("host a").Set("fixed-address", "10.0.0.2");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time 600\n"
            "  min-lease-time 120;\n"
            "}\n"
            "host a { fixed-address 10.0.0.2; }\n");
}

TEST_P(Malformed, StatementWithoutItsSemicolonCanBeRemoved) {
  Given(
      "group {\n"
      "  max-lease-time 600\n"
      "  min-lease-time 60;\n"
      "}\n");
  Edit([&] { Find("group").Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  min-lease-time 60;\n"
            "}\n");
  EXPECT_EQ(FindingsText(Doc()), "");
}

TEST_P(Malformed, BlocksBeforeAnUnclosedOneCanBeEditedFreely) {
  Given(
      "host a { fixed-address 10.0.0.1; }\n"
      "host b { fixed-address 10.0.0.2; }\n"
      "group {\n"
      "  host c { fixed-address 10.0.0.3; }\n");
  Edit([&] {
    Find("host a").Remove();
    Find("host b").Rename("bb");
    Find("host c").Add("next-server 10.0.0.5;");
  });
  EXPECT_EQ(Text(),
            "host bb { fixed-address 10.0.0.2; }\n"
            "group {\n"
            "  host c { fixed-address 10.0.0.3; next-server 10.0.0.5; }\n");
}

TEST_P(Malformed, UnclosedBlockGoesWithAllBelow) {
  Given(
      "authoritative;\n"
      "group {\n"
      "  host c { fixed-address 10.0.0.3; }\n");
  Edit([&] { Find("group").Remove(); });
  EXPECT_EQ(Text(), "authoritative;\n");
}

TEST_P(Malformed, LoneSemicolonDoesNotComeToStandBehindABrace) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n"
      "authoritative;;\n"
      "max-lease-time 600;\n");
  const auto remove = [&] { Root().Child("authoritative").Remove(); };
  try {
    remove();
    EXPECT_TRUE(Root().Child("max-lease-time").Previous().Is(NodeKind::kStray));
  } catch (const Error& error) {
    EXPECT_EQ(error.Code(), ErrorCode::kMalformed);
    EXPECT_EQ(Text(), First());
  }
  EXPECT_EQ(Doc().Findings().size(), 1U);
  EXPECT_EQ(Doc().Findings()[0].code, FindingCode::kEmptyStatement);
}

TEST_P(Malformed, UnclosedBlockIsCommentedOutOrRefused) {
  Given(
      "authoritative;\n"
      "group {\n"
      "  filename \"a\";\n"
      "  # prose\n");
  try {
    Find("group").CommentOut();
    EXPECT_EQ(Text(),
              "authoritative;\n"
              "# group {\n"
              "#   filename \"a\";\n"
              "#   # prose\n");
  } catch (const Error&) {
    EXPECT_EQ(Text(), First());
  }
}

}  // namespace
}  // namespace klepur::test
