// Blocks with nothing in them, and what stands behind their braces.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class EmptyBlock : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(EmptyBlock);

TEST_P(EmptyBlock, OnOneLineOpensForABlock) {
  Given(
      "group {}\n"
      "host a { fixed-address 10.0.0.1; }\n"
      "host b { fixed-address 10.0.0.2; }\n");
  Node added;
  Edit([&] { added = Find("group").Add("host c { fixed-address 10.0.0.3; }"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "\thost c { fixed-address 10.0.0.3; }\n"
            "}\n"
            "host a { fixed-address 10.0.0.1; }\n"
            "host b { fixed-address 10.0.0.2; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, OnOneLineWithABlankOpensForABlockAndClosesAgain) {
  Given(
      "group   { }   # ground floor\n"
      "host a { fixed-address 10.0.0.1; }\n");
  Node added;
  Edit([&] { added = Find("group").Add("host c { fixed-address 10.0.0.3; }"); });
  EXPECT_EQ(Text(),
            "group   {\n"
            "\thost c { fixed-address 10.0.0.3; }\n"
            "}   # ground floor\n"
            "host a { fixed-address 10.0.0.1; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, OnOneLineStaysOnItForAStatement) {
  Given(
      "host a {}\n"
      "host b { fixed-address 10.0.0.2; }\n");
  Node added;
  Edit([&] { added = Find("host a").Add("fixed-address 10.0.0.1;"); });
  EXPECT_EQ(Text(),
            "host a { fixed-address 10.0.0.1; }\n"
            "host b { fixed-address 10.0.0.2; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, OnTwoLinesIsIndentedAsItsNeighbour) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "}\n"
      "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
      "    option routers 10.0.1.1;\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("subnet 10.0.0.0 netmask 255.255.255.0").Add("option routers 10.0.0.1;");
  });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "    option routers 10.0.0.1;\n"
            "}\n"
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "    option routers 10.0.1.1;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, WithItsBracesOnLinesOfTheirOwn) {
  Given(
      "group\n"
      "{\n"
      "  host a\n"
      "  {\n"
      "  }\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("host a").Add("fixed-address 10.0.0.1;"); });
  EXPECT_EQ(Text(),
            "group\n"
            "{\n"
            "  host a\n"
            "  {\n"
            "    fixed-address 10.0.0.1;\n"
            "  }\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, WithACommentBehindItsBrace) {
  Given(
      "group { # ground floor\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("group").Add("filename \"a\";"); });
  EXPECT_EQ(Text(),
            "group { # ground floor\n"
            "\tfilename \"a\";\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, IsLeftBehindOnTwoLines) {
  Given(
      "host a {\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n");
  Edit([&] { Find("host a").Child("fixed-address").Remove(); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "}\n");
}

// A semicolon behind a brace.

TEST_P(EmptyBlock, SemicolonBehindABraceGoesWithItsBlock) {
  Given(
      "host a { fixed-address 10.0.0.1; };\n"
      "host b {\n"
      "  fixed-address 10.0.0.2;\n"
      "};\n"
      "authoritative;\n");
  Edit([&] {
    Find("host a").Remove();
    Root().Add("host c { fixed-address 10.0.0.3; }", Placement::After(Find("host b")));
  });
  EXPECT_EQ(Text(),
            "host b {\n"
            "  fixed-address 10.0.0.2;\n"
            "};\n"
            "host c {\n"
            "  fixed-address 10.0.0.3;\n"
            "}\n"
            "authoritative;\n");
  Edit([&] { Find("host c").Remove(); });
  EXPECT_EQ(Text(),
            "host b {\n"
            "  fixed-address 10.0.0.2;\n"
            "};\n"
            "authoritative;\n");
}

TEST_P(EmptyBlock, SemicolonBehindABraceIsCommentedOutWithIt) {
  Given(
      "key k {\n"
      "  algorithm hmac-md5;\n"
      "  secret aGVsbG8=;\n"
      "}; # old\n"
      "authoritative;\n");
  Node key = Find("key k");
  Edit([&] { key.CommentOut(); });
  EXPECT_EQ(Text(),
            "# key k {\n"
            "#   algorithm hmac-md5;\n"
            "#   secret aGVsbG8=;\n"
            "# }; # old\n"
            "authoritative;\n");
  Edit([&] { key.BringBack(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(EmptyBlock, SemicolonBehindABraceMovesWithIt) {
  Given(
      "group {\n"
      "}\n"
      "key k { algorithm hmac-md5; secret aGVsbG8=; };\n"
      "authoritative;\n");
  Node key = Find("key k");
  Edit([&] { key.MoveTo(Root(), Placement::Before(Find("group"))); });
  EXPECT_EQ(Text(),
            "key k { algorithm hmac-md5; secret aGVsbG8=; };\n"
            "group {\n"
            "}\n"
            "authoritative;\n");
  Edit([&] { key.MoveTo(Root(), Placement::After(Find("group"))); });
  EXPECT_EQ(Text(), First());
}

}  // namespace
}  // namespace klepur::test
