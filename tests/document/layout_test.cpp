// What is added takes the habits of its neighbours: indentation, braces, quotes.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class Layout : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Layout);

TEST_P(Layout, TabsInAFileWithBlanks) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "    option routers 10.0.0.1;\n"
      "}\n"
      "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
      "\toption routers 10.0.1.1;\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("subnet 10.0.1.0 netmask 255.255.255.0").Add("max-lease-time 600;"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "    option routers 10.0.0.1;\n"
            "}\n"
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "\toption routers 10.0.1.1;\n"
            "\tmax-lease-time 600;\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Layout, IrregularIndentationIsThatOfTheNearestSibling) {
  Given(
      "shared-network floor {\n"
      "  subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "     option routers 10.0.0.1;\n"
      "     default-lease-time 600;\n"
      "   }\n"
      "}\n");
  Node added;
  Edit([&] { added = Find("subnet 10.0.0.0 netmask 255.255.255.0").Add("max-lease-time 7200;"); });
  EXPECT_EQ(Text(),
            "shared-network floor {\n"
            "  subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "     option routers 10.0.0.1;\n"
            "     default-lease-time 600;\n"
            "     max-lease-time 7200;\n"
            "   }\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Layout, BlanksAndTabsTogetherAreCopiedAsTheyAre) {
  Given(
      "group {\n"
      " \t option routers 10.0.0.1;\n"
      "}\n");
  Edit([&] { Find("group").Add("max-lease-time 600;"); });
  EXPECT_EQ(Text(),
            "group {\n"
            " \t option routers 10.0.0.1;\n"
            " \t max-lease-time 600;\n"
            "}\n");
}

TEST_P(Layout, WithoutSiblingsTheNearestBlockShowsTheStep) {
  Given(
      "group {\n"
      "   host a {\n"
      "      fixed-address 10.0.0.1;\n"
      "   }\n"
      "   host b {\n"
      "   }\n"
      "}\n");
  Edit([&] { Find("host b").Add("fixed-address 10.0.0.2;"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "   host a {\n"
            "      fixed-address 10.0.0.1;\n"
            "   }\n"
            "   host b {\n"
            "      fixed-address 10.0.0.2;\n"
            "   }\n"
            "}\n");
}

TEST_P(Layout, WithNothingToLearnFromTheStepIsATab) {
  Given(
      "group {\n"
      "}\n");
  Edit([&] { Find("group").Add("filename \"a\";"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "\tfilename \"a\";\n"
            "}\n");
}

TEST_P(Layout, AFileWithoutAnyIndentationKeepsToThat) {
  Given(
      "group {\n"
      "host a {\n"
      "fixed-address 10.0.0.1;\n"
      "}\n"
      "}\n");
  Edit([&] { Find("host a").Add("next-server 10.0.0.5;"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "host a {\n"
            "fixed-address 10.0.0.1;\n"
            "next-server 10.0.0.5;\n"
            "}\n"
            "}\n");
}

TEST_P(Layout, FilesIndentationIsThatOfItsStatements) {
  Given(
      "  authoritative;\n"
      "  max-lease-time 600;\n");
  Edit([&] { Root().Add("min-lease-time 60;"); });
  EXPECT_EQ(Text(),
            "  authoritative;\n"
            "  max-lease-time 600;\n"
            "  min-lease-time 60;\n");
}

TEST_P(Layout, BraceStandsAsInTheSameKindOfBlock) {
  Given(
      "shared-network x\n"
      "{\n"
      "    subnet 10.0.0.0 netmask 255.255.255.0\n"
      "    {\n"
      "        host a { fixed-address 10.0.0.2; }\n"
      "    }\n"
      "}\n");
  Node added;
  Edit([&] {
    added = Find("shared-network x")
                .Add(
                    "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
                    "  host b { fixed-address 10.0.1.2; }\n"
                    "}");
  });
  EXPECT_EQ(Text(),
            "shared-network x\n"
            "{\n"
            "    subnet 10.0.0.0 netmask 255.255.255.0\n"
            "    {\n"
            "        host a { fixed-address 10.0.0.2; }\n"
            "    }\n"
            "    subnet 10.0.1.0 netmask 255.255.255.0\n"
            "    {\n"
            "        host b { fixed-address 10.0.1.2; }\n"
            "    }\n"
            "}\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Layout, BraceIsThatOfTheSameKindBeforeThatOfANearerOther) {
  Given(
      "host a\n"
      "{\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n"
      "group {\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Root().Add("host b { fixed-address 10.0.0.2; }", Placement::Last()); });
  EXPECT_EQ(Text(),
            "host a\n"
            "{\n"
            "  fixed-address 10.0.0.1;\n"
            "}\n"
            "group {\n"
            "  filename \"a\";\n"
            "}\n"
            "host b\n"
            "{\n"
            "  fixed-address 10.0.0.2;\n"
            "}\n");
}

TEST_P(Layout, SeveralLinesBecomeOneAsInTheSameKindOfBlock) {
  Given("host a { fixed-address 10.0.0.1; }\n");
  Edit([&] {
    Root().Add(
        "host b\n"
        "{\n"
        "    fixed-address 10.0.0.2;\n"
        "    next-server 10.0.0.5;\n"
        "}");
  });
  EXPECT_EQ(Text(),
            "host a { fixed-address 10.0.0.1; }\n"
            "host b { fixed-address 10.0.0.2; next-server 10.0.0.5; }\n");
}

TEST_P(Layout, OneLineBecomesSeveralAsInTheNearestOfTheKind) {
  Given(
      "host a { fixed-address 10.0.0.1; }\n"
      "host b {\n"
      "  fixed-address 10.0.0.2;\n"
      "}\n");
  Edit([&] { Root().Add("host c { fixed-address 10.0.0.3; next-server 10.0.0.5; }"); });
  EXPECT_EQ(Text(),
            "host a { fixed-address 10.0.0.1; }\n"
            "host b {\n"
            "  fixed-address 10.0.0.2;\n"
            "}\n"
            "host c {\n"
            "  fixed-address 10.0.0.3;\n"
            "  next-server 10.0.0.5;\n"
            "}\n");
}

TEST_P(Layout, QuotesStandAsInTheSameKindOfBlock) {
  Given(
      "zone \"a.example.\" { primary 10.0.0.1; key \"k1\"; }\n"
      "zone \"b.example.\" { primary 10.0.0.1; key \"k1\"; }\n"
      "include \"keys.conf\";\n");
  Node added;
  Edit([&] { added = Root().Add("zone c.example. { primary 10.0.0.1; key k1; }"); });
  EXPECT_EQ(Text(),
            "zone \"a.example.\" { primary 10.0.0.1; key \"k1\"; }\n"
            "zone \"b.example.\" { primary 10.0.0.1; key \"k1\"; }\n"
            "zone \"c.example.\" { primary 10.0.0.1; key \"k1\"; }\n"
            "include \"keys.conf\";\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Layout, WithoutQuotesAroundThereAreNone) {
  Given("zone a.example. { primary 10.0.0.1; key k1; }\n");
  Edit([&] { Root().Add("zone c.example. { primary 10.0.0.1; key k1; }"); });
  EXPECT_EQ(Text(),
            "zone a.example. { primary 10.0.0.1; key k1; }\n"
            "zone c.example. { primary 10.0.0.1; key k1; }\n");
}

TEST_P(Layout, OddLayoutOfTheGivenTextIsReplaced) {
  Given(
      "group {\n"
      "\thost a {\n"
      "\t\tfixed-address 10.0.0.1;\n"
      "\t}\n"
      "}\n");
  const char* const given[] = {
      "host b { fixed-address 10.0.0.2; next-server 10.0.0.5; }",
      "host b{fixed-address 10.0.0.2;next-server 10.0.0.5;}",
      "  host b {\n fixed-address 10.0.0.2;\n       next-server 10.0.0.5;\n   }  \n",
      "\n\n\thost b\n{\nfixed-address 10.0.0.2; next-server 10.0.0.5; }\n\n",
      "host b {\r\n  fixed-address 10.0.0.2;\r\n  next-server 10.0.0.5;\r\n}\r\n",
  };
  for (const char* const text : given) {
    Node added;
    Edit([&] { added = Find("group").Add(text); });
    EXPECT_EQ(Text(),
              "group {\n"
              "\thost a {\n"
              "\t\tfixed-address 10.0.0.1;\n"
              "\t}\n"
              "\thost b {\n"
              "\t\tfixed-address 10.0.0.2;\n"
              "\t\tnext-server 10.0.0.5;\n"
              "\t}\n"
              "}\n")
        << text;
    Edit([&] { added.Remove(); });
    EXPECT_EQ(Text(), First()) << text;
  }
}

TEST_P(Layout, SeveralStatementsAndBlocksAtOnce) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] {
    Find("group").Add(
        "max-lease-time 600; min-lease-time 60;\n"
        "host a {\n"
        "fixed-address 10.0.0.1;\n"
        "}",
        Placement::Last());
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  max-lease-time 600;\n"
            "  min-lease-time 60;\n"
            "  host a {\n"
            "    fixed-address 10.0.0.1;\n"
            "  }\n"
            "}\n");
}

TEST_P(Layout, LastSemicolonMayBeLeftOut) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] { Find("group").Add("max-lease-time 600"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  max-lease-time 600;\n"
            "}\n");
}

TEST_P(Layout, DeepBlocksAreIndentedAtEachLevel) {
  Given(
      "shared-network x {\n"
      "   subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "      option routers 10.0.0.1;\n"
      "   }\n"
      "}\n");
  Edit([&] {
    Find("shared-network x")
        .Add(
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "pool {\n"
            "range 10.0.1.10 10.0.1.20;\n"
            "allow unknown-clients;\n"
            "}\n"
            "}\n");
  });
  EXPECT_EQ(Text(),
            "shared-network x {\n"
            "   subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "      option routers 10.0.0.1;\n"
            "   }\n"
            "   subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "      pool {\n"
            "         range 10.0.1.10 10.0.1.20;\n"
            "         allow unknown-clients;\n"
            "      }\n"
            "   }\n"
            "}\n");
}

TEST_P(Layout, BracesInsideStringsAndOptionValuesAreNoBlocks) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}\n");
  Edit([&] {
    Find("group").Add("option domain-name \"a;{b}\"; option x code 200 = { integer 8, text };");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  filename \"a\";\n"
            "  option domain-name \"a;{b}\";\n"
            "  option x code 200 = { integer 8, text };\n"
            "}\n");
}

TEST_P(Layout, KeysKeepTheirSemicolon) {
  Given("authoritative;\n");
  Edit([&] { Root().Add("key k {\nalgorithm hmac-md5;\nsecret aGVsbG8=;\n};"); });
  EXPECT_EQ(Text(),
            "authoritative;\n"
            "key k {\n"
            "\talgorithm hmac-md5;\n"
            "\tsecret aGVsbG8=;\n"
            "};\n");
}

}  // namespace
}  // namespace klepur::test
