// Strings, comments and odd bytes do not lead an edit astray.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

using namespace std::string_literals;

class Lexical : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Lexical);

TEST_P(Lexical, StringsHoldWhatLooksLikeStructure) {
  Given(
      "class \"guests; { # }\" {\n"
      "  option domain-name \"a;b # \\\" }\";  # really\n"
      "  option host-name \"x{y\";\n"
      "}\n");
  Node guests = Root().FirstChild();
  EXPECT_EQ(guests.Name(), "guests; { # }");
  Edit([&] { guests.Set("option host-name", Quoted("z#1")); });
  EXPECT_EQ(Text(),
            "class \"guests; { # }\" {\n"
            "  option domain-name \"a;b # \\\" }\";  # really\n"
            "  option host-name \"z#1\";\n"
            "}\n");
  Edit([&] { guests.Set("option host-name", Quoted("x{y")); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Lexical, BytesThatAreNotAscii) {
  Given(
      "# B\xC3\xBCro, 3. \xE9tage\n"
      "host m\xFCller { option host-name \"m\xFCller\"; }   # \xA7 4\n"
      "host zo\xC3\xAB { fixed-address 10.0.0.9; }\n");
  Node host = Root().Child("host");
  Node added;
  Edit([&] { added = host.Add("fixed-address 10.0.0.8;"); });
  EXPECT_EQ(
      Text(),
      "# B\xC3\xBCro, 3. \xE9tage\n"
      "host m\xFCller { option host-name \"m\xFCller\"; fixed-address 10.0.0.8; }   # \xA7 4\n"
      "host zo\xC3\xAB { fixed-address 10.0.0.9; }\n");
  Edit([&] { added.Remove(); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(Find("host m\xFCller"), host);
  EXPECT_EQ(host.Name(), "m\xFCller");
}

TEST_P(Lexical, ColumnsAreBytes) {
  Given("host zo\xC3\xAB { fixed-address 10.0.0.9; }\n");
  EXPECT_EQ(Root().FirstChild().FirstChild().Begin(), (Position{1, 13}));
}

TEST_P(Lexical, NulInACommentStays) {
  Given(
      "# a\0b\n"
      "max-lease-time 600; # c\0\n"s);
  Edit([&] { Root().Set("max-lease-time", "7200"); });
  EXPECT_EQ(Text(),
            "# a\0b\n"
            "max-lease-time 7200; # c\0\n"s);
  Edit([&] { Root().Add("min-lease-time 60;"); });
  EXPECT_EQ(Text(),
            "# a\0b\n"
            "max-lease-time 7200; # c\0\n"
            "min-lease-time 60;\n"s);
}

TEST_P(Lexical, NulInAStringStays) {
  Given(
      "option domain-name \"a\0b\";\n"
      "max-lease-time 600;\n"s);
  Edit([&] { Root().Set("max-lease-time", "7200"); });
  EXPECT_EQ(Text(),
            "option domain-name \"a\0b\";\n"
            "max-lease-time 7200;\n"s);
}

TEST_P(Lexical, StringOverSeveralLinesIsOneValue) {
  Given(
      "option domain-name \"a\n"
      "} b;\n"
      "# c\";\n"
      "max-lease-time 600;\n");
  Edit([&] {
    Root().Set("max-lease-time", "7200");
    Root().Set("option domain-name", "\"d\"");
  });
  EXPECT_EQ(Text(),
            "option domain-name \"d\";\n"
            "max-lease-time 7200;\n");
}

TEST_P(Lexical, KeywordsMayBeOfAnyCaseAndFarApart) {
  Given(
      "OPTION   Routers\n"
      "    10.0.0.1 ;\n"
      "Host A { Fixed-Address 10.0.0.2; }\n");
  EXPECT_EQ(Root().FirstChild().Keyword(), "option routers");
  Edit([&] {
    Root().Set("option routers", "10.0.0.9");
    Root().Child("host").Set("fixed-address", "10.0.0.3");
  });
  EXPECT_EQ(Text(),
            "OPTION   Routers\n"
            "    10.0.0.9 ;\n"
            "Host A { Fixed-Address 10.0.0.3; }\n");
  Edit([&] {
    Root().Child("host").Set("fixed-address", "10.0.0.2");
    Root().Set("option routers", "10.0.0.1");
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(Lexical, NothingNeedsABlankAround) {
  Given("host a{max-lease-time 1;min-lease-time 2;}host b{}\n");
  Edit([&] { Find("host a").Set("min-lease-time", "3"); });
  EXPECT_EQ(Text(), "host a{max-lease-time 1;min-lease-time 3;}host b{}\n");
  Edit([&] { Find("host a").Child("max-lease-time").Remove(); });
  EXPECT_EQ(Text(), "host a{min-lease-time 3;}host b{}\n");
}

TEST_P(Lexical, CommentStraightBehindAWordIsNoPartOfIt) {
  Given(
      "max-lease-time#c\n"
      "600;#d\n"
      "host a#e\n"
      "{}\n");
  EXPECT_EQ(Root().FirstChild().Keyword(), "max-lease-time");
  EXPECT_TRUE(Find("host a"));
  Edit([&] { Root().FirstChild().Remove(); });
  EXPECT_EQ(Text(),
            "host a#e\n"
            "{}\n");
}

TEST_P(Lexical, OptionDefinitionsMayHoldBraces) {
  Given(
      "option x code 200 = { integer 8, ip-address };\n"
      "option y code 201 = array of {\n"
      "  integer 8, text\n"
      "};\n"
      "authoritative;\n");
  const Node first = Root().FirstChild();
  Node second = first.Next();
  EXPECT_TRUE(first.Is(NodeKind::kStatement));
  EXPECT_EQ(first.Value(), "code 200 = { integer 8, ip-address }");
  EXPECT_TRUE(second.Is(NodeKind::kStatement));
  EXPECT_EQ(second.Next().Keyword(), "authoritative");
  Edit([&] { second.SetValue("code 201 = array of { text }"); });
  EXPECT_EQ(Text(),
            "option x code 200 = { integer 8, ip-address };\n"
            "option y code 201 = array of { text };\n"
            "authoritative;\n");
  Edit([&] { Root().FirstChild().Remove(); });
  EXPECT_EQ(Text(),
            "option y code 201 = array of { text };\n"
            "authoritative;\n");
}

TEST_P(Lexical, QuotedPutsBackslashesWhereTheyAreNeeded) {
  EXPECT_EQ(Quoted(""), "\"\"");
  EXPECT_EQ(Quoted("z#1"), "\"z#1\"");
  EXPECT_EQ(Quoted("a\"b"), "\"a\\\"b\"");
  EXPECT_EQ(Quoted("a\\"), "\"a\\\\\"");
}

TEST_P(Lexical, QuotedTextIsReadAsOneString) {
  Given("filename \"a\";\n");
  Edit([&] { Root().Set("filename", Quoted("a\\\";}{#\"")); });
  EXPECT_EQ(Text(), "filename \"a\\\\\\\";}{#\\\"\";\n");
  EXPECT_FALSE(Root().FirstChild().Next());
}

TEST_P(Lexical, NoFailoverPeerEndsAtItsLastWord) {
  Given(
      "pool {\n"
      "  no failover peer\n"
      "  range 10.0.0.10 10.0.0.20;\n"
      "}\n");
  Node pool = Find("pool");
  EXPECT_EQ(pool.FirstChild().Text(), "no failover peer");
  EXPECT_EQ(pool.Child("range").Value(), "10.0.0.10 10.0.0.20");
  Edit([&] { pool.Add("allow unknown-clients;", Placement::First()); });
  Edit([&] { pool.FirstChild().Next().Remove(); });
  Edit([&] { pool.Add("no failover peer", Placement::Last()); });
  EXPECT_EQ(Text(),
            "pool {\n"
            "  allow unknown-clients;\n"
            "  range 10.0.0.10 10.0.0.20;\n"
            "  no failover peer\n"
            "}\n");
}

}  // namespace
}  // namespace klepur::test
