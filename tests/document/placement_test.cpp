// Where something new goes.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class Placing : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Placing);

constexpr char kGroup[] =
    "group {\n"
    "  filename \"a\";\n"
    "\n"
    "  # phones\n"
    "  host p { fixed-address 10.0.0.1; }\n"
    "  host q { fixed-address 10.0.0.2; } # q\n"
    "\n"
    "  pool {\n"
    "    range 10.0.0.10 10.0.0.20;\n"
    "  }\n"
    "  # the end\n"
    "}\n";

TEST_P(Placing, OfABlockBehindTheLastOfItsKind) {
  Given(kGroup);
  Edit([&] { Find("group").Add("host r { fixed-address 10.0.0.3; }"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "  host r { fixed-address 10.0.0.3; }\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  # the end\n"
            "}\n");
}

TEST_P(Placing, OfAStatementBehindTheLastBeforeTheFirstBlock) {
  Given(kGroup);
  Edit([&] { Find("group").Add("next-server 10.0.0.5;"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  next-server 10.0.0.5;\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  # the end\n"
            "}\n");
}

TEST_P(Placing, OfABlockOfANewKindBehindTheLastChild) {
  Given(kGroup);
  Edit([&] { Find("group").Add("group {\n  filename \"b\";\n}"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  group {\n"
            "    filename \"b\";\n"
            "  }\n"
            "  # the end\n"
            "}\n");
}

TEST_P(Placing, OfAStatementBehindTheLastOfItsKeywordEvenBelowBlocks) {
  Given(
      "group {\n"
      "  option routers 10.0.0.1;\n"
      "  host p { fixed-address 10.0.0.1; }\n"
      "  include \"one\";\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Add("include \"two\";"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  option routers 10.0.0.1;\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  include \"one\";\n"
            "  include \"two\";\n"
            "  filename \"a\";\n"
            "}\n");
}

TEST_P(Placing, FirstAndLast) {
  Given(kGroup);
  Node first;
  Node last;
  Edit([&] {
    first = Find("group").Add("next-server 10.0.0.5;", Placement::First());
    last = Find("group").Add("max-lease-time 600;", Placement::Last());
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  next-server 10.0.0.5;\n"
            "  filename \"a\";\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  max-lease-time 600;\n"
            "  # the end\n"
            "}\n");
  Edit([&] {
    first.Remove();
    last.Remove();
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Placing, BeforeAndAfterANode) {
  Given(kGroup);
  Node before;
  Node after;
  Edit([&] {
    before =
        Find("group").Add("host x { fixed-address 10.0.0.8; }", Placement::Before(Find("host p")));
    after =
        Find("group").Add("host y { fixed-address 10.0.0.9; }", Placement::After(Find("host p")));
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  host x { fixed-address 10.0.0.8; }\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host y { fixed-address 10.0.0.9; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  # the end\n"
            "}\n");
  Edit([&] {
    before.Remove();
    after.Remove();
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Placing, AfterANodeIsBehindItsComment) {
  Given(kGroup);
  Edit([&] {
    Find("group").Add("host y { fixed-address 10.0.0.9; }", Placement::After(Find("host q")));
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "  host y { fixed-address 10.0.0.9; }\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  # the end\n"
            "}\n");
}

TEST_P(Placing, BeforeTheFirstStatementOfABlockWithACommentBehindItsBrace) {
  Given(
      "group { # one\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] {
    Find("group").Add("next-server 10.0.0.5;", Placement::Before(Find("group").Child("filename")));
  });
  EXPECT_EQ(Text(),
            "group { # one\n"
            "  next-server 10.0.0.5;\n"
            "  filename \"a\";\n"
            "}\n");
}

TEST_P(Placing, AnchorOfAnotherBlockIsRefused) {
  Given(kGroup);
  EXPECT_EQ(Refused([&] { Root().Add("authoritative;", Placement::After(Find("host p"))); }),
            "bad place");
  EXPECT_EQ(Refused([&] { Root().Add("authoritative;", Placement::Before(Root())); }), "bad place");
  EXPECT_EQ(Refused([&] { Find("group").Add("authoritative;", Placement::After(Find("group"))); }),
            "bad place");
}

TEST_P(Placing, OfSeveralKeepsTheirOrder) {
  Given(kGroup);
  Node first;
  Edit([&] {
    first = Find("group").Add("max-lease-time 600;\nmin-lease-time 60;",
                              Placement::After(Find("group").Child("filename")));
  });
  EXPECT_EQ(first.Keyword(), "max-lease-time");
  EXPECT_EQ(first.Next().Keyword(), "min-lease-time");
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  max-lease-time 600;\n"
            "  min-lease-time 60;\n"
            "\n"
            "  # phones\n"
            "  host p { fixed-address 10.0.0.1; }\n"
            "  host q { fixed-address 10.0.0.2; } # q\n"
            "\n"
            "  pool {\n"
            "    range 10.0.0.10 10.0.0.20;\n"
            "  }\n"
            "  # the end\n"
            "}\n");
}

TEST_P(Placing, InAFileWithBlocksOnly) {
  Given(
      "host a { fixed-address 10.0.0.1; }\n"
      "\n"
      "host b { fixed-address 10.0.0.2; }\n");
  Edit([&] { Root().Add("authoritative;"); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "host a { fixed-address 10.0.0.1; }\n"
            "\n"
            "host b { fixed-address 10.0.0.2; }\n");
}

TEST_P(Placing, BehindTheLastOfItsKindThatIsNotCommentedOut) {
  Given("host a { next-server 10.0.0.1; }\nauthoritative;\n");
  Node b;
  Edit([&] { b = Root().Add("host b { next-server 10.0.0.1; }"); });
  Edit([&] { b.CommentOut(); });
  Edit([&] { Root().Add("host c { next-server 10.0.0.1; }"); });
  EXPECT_EQ(Text(),
            "host a { next-server 10.0.0.1; }\n"
            "host c { next-server 10.0.0.1; }\n"
            "# host b { next-server 10.0.0.1; }\n"
            "authoritative;\n");
  Edit([&] {
    b.BringBack();
    Root().Add("host d { next-server 10.0.0.1; }");
  });
  EXPECT_EQ(Text(),
            "host a { next-server 10.0.0.1; }\n"
            "host c { next-server 10.0.0.1; }\n"
            "host b { next-server 10.0.0.1; }\n"
            "host d { next-server 10.0.0.1; }\n"
            "authoritative;\n");
}

}  // namespace
}  // namespace klepur::test
