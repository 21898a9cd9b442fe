// Values, names and headers are set in place.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class Setting : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(Setting);

TEST_P(Setting, OfAStatementGivenTwiceChangesTheOneInForce) {
  Given(
      "group {\n"
      "  default-lease-time 600;\n"
      "  option routers 10.0.0.1;\n"
      "  default-lease-time 900;   # wins\n"
      "}\n");
  Node group = Find("group");
  EXPECT_EQ(group.InForce("default-lease-time").Value(), "900");
  EXPECT_EQ(group.Child("default-lease-time").Value(), "600");
  Edit([&] { group.Set("default-lease-time", "1200"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  default-lease-time 600;\n"
            "  option routers 10.0.0.1;\n"
            "  default-lease-time 1200;   # wins\n"
            "}\n");
  Edit([&] { group.Set("default-lease-time", "900"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, OneOfTwoIsRemovedByItsHandle) {
  Given(
      "group {\n"
      "  default-lease-time 600;\n"
      "  option routers 10.0.0.1;\n"
      "  default-lease-time 900;   # wins\n"
      "}\n");
  Node group = Find("group");
  Edit([&] { group.InForce("default-lease-time").Remove(); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  default-lease-time 600;\n"
            "  option routers 10.0.0.1;\n"
            "}\n");
  EXPECT_EQ(group.InForce("default-lease-time").Value(), "600");
  Edit([&] { group.Set("default-lease-time", "60"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  default-lease-time 60;\n"
            "  option routers 10.0.0.1;\n"
            "}\n");
}

TEST_P(Setting, OfAMissingStatementAddsIt) {
  Given(
      "group {\n"
      "  option routers 10.0.0.1;\n"
      "\n"
      "  host a { fixed-address 10.0.0.2; }\n"
      "}\n");
  Node group = Find("group");
  Node set;
  Edit([&] { set = group.Set("max-lease-time", "600"); });
  EXPECT_EQ(Text(),
            "group {\n"
            "  option routers 10.0.0.1;\n"
            "  max-lease-time 600;\n"
            "\n"
            "  host a { fixed-address 10.0.0.2; }\n"
            "}\n");
  EXPECT_EQ(set.Keyword(), "max-lease-time");
  EXPECT_EQ(set, group.Child("max-lease-time"));
  Edit([&] { set.Remove(); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, LooksAtTheBlocksOwnStatementsOnly) {
  Given(
      "max-lease-time 600;\n"
      "host a { max-lease-time 60; }\n");
  Edit([&] { Root().Set("max-lease-time", "7200"); });
  EXPECT_EQ(Text(),
            "max-lease-time 7200;\n"
            "host a { max-lease-time 60; }\n");
}

TEST_P(Setting, AsAWholeStatement) {
  Given("option routers 10.0.0.1;\n");
  Edit([&] {
    Root().Set("option routers 10.0.0.2;");
    Root().Set("max-lease-time 600");
    Root().Set("authoritative");
    Root().Set("authoritative;");
  });
  EXPECT_EQ(Text(),
            "option routers 10.0.0.2;\n"
            "max-lease-time 600;\n"
            "authoritative;\n");
}

TEST_P(Setting, TheSameValueChangesNothing) {
  Given("max-lease-time   600 ; # ten\n");
  Edit([&] { Root().Set("max-lease-time", "600"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, KeepsTheBlanksAroundTheValue) {
  Given(
      "group {\n"
      "  max-lease-time\t600 ;\n"
      "  option  domain-name   \"a\";\n"
      "}\n");
  Node group = Find("group");
  Edit([&] {
    group.Set("max-lease-time", "7200");
    group.Set("option domain-name", "\"b\"");
  });
  EXPECT_EQ(Text(),
            "group {\n"
            "  max-lease-time\t7200 ;\n"
            "  option  domain-name   \"b\";\n"
            "}\n");
}

TEST_P(Setting, OptionsAreToldApartByTheirNames) {
  Given(
      "option routers 10.0.0.1;\n"
      "option domain-name \"a\";\n"
      "option domain-name-servers 10.0.0.2;\n");
  Edit([&] { Root().Set("option domain-name", "\"b\""); });
  EXPECT_EQ(Text(),
            "option routers 10.0.0.1;\n"
            "option domain-name \"b\";\n"
            "option domain-name-servers 10.0.0.2;\n");
}

TEST_P(Setting, ValuesThatAreNoneAreRefused) {
  Given(
      "group {\n"
      "  max-lease-time 600;\n"
      "}\n");
  for (const char* const value : {"1; evil 2", "1 }", "{ 1", "\"open", "1 # c", "1;"}) {
    const std::string text = value;
    EXPECT_EQ(Refused([&] { Find("group").Set("max-lease-time", text); }), "bad text") << text;
    EXPECT_EQ(Refused([&] { Find("group").Child("max-lease-time").SetValue(text); }), "bad text")
        << text;
    EXPECT_EQ(Refused([&] { Find("group").Set("min-lease-time", text); }), "bad text") << text;
  }
}

// Names and headers.

TEST_P(Setting, NameKeepsTheRestOfItsLine) {
  Given("host  a  { fixed-address 10.0.0.1; } # desk 4\n");
  Node host = Find("host a");
  Edit([&] { host.Rename("pc-4"); });
  EXPECT_EQ(Text(), "host  pc-4  { fixed-address 10.0.0.1; } # desk 4\n");
  EXPECT_EQ(host.Name(), "pc-4");
  EXPECT_EQ(Find("host pc-4"), host);
  EXPECT_FALSE(Find("host a"));
  Edit([&] { host.Rename("a"); });
  EXPECT_EQ(Text(), First());
  EXPECT_EQ(Find("host a"), host);
}

TEST_P(Setting, NameBetweenQuotesKeepsThem) {
  Given(
      "class \"a\" {\n"
      "}\n");
  Node node = Root().FirstChild();
  Edit([&] { node.Rename("b"); });
  EXPECT_EQ(Text(),
            "class \"b\" {\n"
            "}\n");
  Edit([&] { node.Rename("a"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, NameThatNeedsQuotesGetsThemAndLosesThemAgain) {
  Given(
      "shared-network first\n"
      "{\n"
      "}\n");
  Node node = Root().FirstChild();
  Edit([&] { node.Rename("first floor; { # }"); });
  EXPECT_EQ(Text(),
            "shared-network \"first floor; { # }\"\n"
            "{\n"
            "}\n");
  EXPECT_EQ(node.Name(), "first floor; { # }");
  Edit([&] { node.Rename("first"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, HeaderIsReplacedAndPutBack) {
  Given(
      "subnet 10.0.0.0\n"
      "    netmask 255.255.255.0 { # office\n"
      "}\n");
  Node subnet = Root().FirstChild();
  EXPECT_EQ(subnet.Name(), "10.0.0.0 netmask 255.255.255.0");
  Edit([&] { subnet.SetHeader("subnet 10.0.1.0 netmask 255.255.255.0"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.1.0 netmask 255.255.255.0 { # office\n"
            "}\n");
  EXPECT_EQ(Find("subnet 10.0.1.0 netmask 255.255.255.0"), subnet);
  const std::string line_end = carriage_returns_ ? "\r\n" : "\n";
  Edit([&] { subnet.SetHeader("subnet 10.0.0.0" + line_end + "    netmask 255.255.255.0"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, HeadersThatAreNoneAreRefused) {
  Given("host a { }\n");
  for (const char* const header : {"host b {", "host b; host c", "host \"b", ""}) {
    const std::string text = header;
    EXPECT_EQ(Refused([&] { Find("host a").SetHeader(text); }), "bad text") << text;
  }
}

TEST_P(Setting, SubnetIsRenamedInItsWords) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "}\n");
  Node subnet = Root().FirstChild();
  Edit([&] { subnet.Rename("10.0.1.0 netmask 255.255.255.0"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.1.0 netmask 255.255.255.0 {\n"
            "}\n");
  Edit([&] { subnet.Rename("10.0.0.0 netmask 255.255.255.0"); });
  EXPECT_EQ(Text(), First());
}

TEST_P(Setting, NoBlankComesToStandBeforeTheEnd) {
  Given("host a { fixed-prefix6 2001:db8::/64; }\n");
  Node host = Find("host a");
  Edit([&] { host.Child("fixed-prefix6").SetValue("  2001:db8:1::/64 \n"); });
  EXPECT_EQ(Text(), "host a { fixed-prefix6 2001:db8:1::/64; }\n");
  Edit([&] { host.Set("fixed-prefix6 2001:db8:2::/64 ;"); });
  EXPECT_EQ(Text(), "host a { fixed-prefix6 2001:db8:2::/64; }\n");
  Edit([&] { host.Add("fixed-prefix6 2001:db8:3::/64\n  ;"); });
  Edit([&] { host.Add("fixed-prefix6 2001:db8:4::/64 "); });
  EXPECT_EQ(Text(),
            "host a {\n"
            "\tfixed-prefix6 2001:db8:2::/64;\n"
            "\tfixed-prefix6 2001:db8:3::/64;\n"
            "\tfixed-prefix6 2001:db8:4::/64;\n"
            "}\n");
}

TEST_P(Setting, BlockIsRenamedAndRenamedBackAmongComments) {
  Given(
      "host # which\n"
      "  a # formerly b\n"
      "{ fixed-address 10.0.0.1; }\n");
  Edit([&] { Find("host a").Rename("c"); });
  EXPECT_EQ(Text(),
            "host # which\n"
            "  c # formerly b\n"
            "{ fixed-address 10.0.0.1; }\n");
  Edit([&] { Find("host c").Rename("a"); });
  EXPECT_EQ(Text(), First());
}

}  // namespace
}  // namespace klepur::test
