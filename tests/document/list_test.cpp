// Elements of a list between commas come and go, and its layout stays.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"

namespace klepur::test {
namespace {

class List : public EditTest {};
KLEPUR_WITH_BOTH_LINE_ENDS(List);

TEST_P(List, OverSeveralLinesWithComments) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  option domain-name-servers\n"
      "      10.0.0.1,   # ns1\n"
      "      10.0.0.2,\n"
      "      # 10.0.0.3,\n"
      "      10.0.0.4;\n"
      "}\n");
  Node servers = Root().FirstChild().Child("option domain-name-servers");
  Edit([&] { EXPECT_TRUE(servers.RemoveFromList("10.0.0.2")); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option domain-name-servers\n"
            "      10.0.0.1,   # ns1\n"
            "      # 10.0.0.3,\n"
            "      10.0.0.4;\n"
            "}\n");
  Edit([&] { servers.AppendToList("10.0.0.5"); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option domain-name-servers\n"
            "      10.0.0.1,   # ns1\n"
            "      # 10.0.0.3,\n"
            "      10.0.0.4,\n"
            "      10.0.0.5;\n"
            "}\n");
  Edit([&] { EXPECT_TRUE(servers.RemoveFromList("10.0.0.5")); });
  EXPECT_EQ(Text(),
            "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
            "  option domain-name-servers\n"
            "      10.0.0.1,   # ns1\n"
            "      # 10.0.0.3,\n"
            "      10.0.0.4;\n"
            "}\n");
}

TEST_P(List, LosesAnyElement) {
  const struct {
    const char* element;
    const char* list;
  } cases[] = {
      {"10.0.0.1", "10.0.0.2, 10.0.0.3"},
      {"10.0.0.2", "10.0.0.1, 10.0.0.3"},
      {"10.0.0.3", "10.0.0.1, 10.0.0.2"},
  };
  for (const auto& [element, list] : cases) {
    Given("option domain-name-servers 10.0.0.1, 10.0.0.2, 10.0.0.3; # ns\n");
    const std::string sought = element;
    Edit([&] { EXPECT_TRUE(Root().FirstChild().RemoveFromList(sought)); });
    EXPECT_EQ(Text(), "option domain-name-servers " + std::string(list) + "; # ns\n");
  }
}

TEST_P(List, GrowsAsItIsWritten) {
  const struct {
    const char* before;
    const char* after;
  } cases[] = {
      {"option routers 10.0.0.1;\n", "option routers 10.0.0.1, 10.0.0.9;\n"},
      {"option routers 10.0.0.1, 10.0.0.2;\n", "option routers 10.0.0.1, 10.0.0.2, 10.0.0.9;\n"},
      {"option routers 10.0.0.1,10.0.0.2;\n", "option routers 10.0.0.1,10.0.0.2,10.0.0.9;\n"},
      {"option routers 10.0.0.1,  10.0.0.2;\n", "option routers 10.0.0.1,  10.0.0.2,  10.0.0.9;\n"},
      {"option routers\n\t10.0.0.1,\n\t10.0.0.2;\n",
       "option routers\n\t10.0.0.1,\n\t10.0.0.2,\n\t10.0.0.9;\n"},
  };
  for (const auto& [before, after] : cases) {
    Given(before);
    Edit([&] { Root().FirstChild().AppendToList("10.0.0.9"); });
    EXPECT_EQ(Text(), after);
    Edit([&] { EXPECT_TRUE(Root().FirstChild().RemoveFromList("10.0.0.9")); });
    EXPECT_EQ(Text(), before);
  }
}

TEST_P(List, LosesItsLastElementOnALineOfItsOwn) {
  Given(
      "option routers\n"
      "    10.0.0.1,   # ns1\n"
      "    10.0.0.2;\n");
  Edit([&] { EXPECT_TRUE(Root().FirstChild().RemoveFromList("10.0.0.2")); });
  EXPECT_EQ(Root().FirstChild().Next().Text(), "# ns1");
  EXPECT_EQ(Text(),
            "option routers\n"
            "    10.0.0.1;   # ns1\n");
}

TEST_P(List, OfStringsMayHoldCommas) {
  Given("option domain-search \"a,b\", \"c\";\n");
  Edit([&] { Root().FirstChild().AppendToList("\"d;e\""); });
  EXPECT_EQ(Text(), "option domain-search \"a,b\", \"c\", \"d;e\";\n");
  Edit([&] { EXPECT_TRUE(Root().FirstChild().RemoveFromList("\"a,b\"")); });
  EXPECT_EQ(Text(), "option domain-search \"c\", \"d;e\";\n");
}

TEST_P(List, WithoutTheElementStaysAsItIs) {
  Given(
      "option routers 10.0.0.1, # 10.0.0.3,\n"
      "  10.0.0.2;\n");
  Edit([&] {
    EXPECT_FALSE(Root().FirstChild().RemoveFromList("10.0.0.3"));
    EXPECT_FALSE(Root().FirstChild().RemoveFromList("10.0.0"));
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(List, KeepsItsLastElement) {
  Given("option routers 10.0.0.1;\n");
  EXPECT_EQ(Refused([&] { Root().FirstChild().RemoveFromList("10.0.0.1"); }), "bad text");
}

TEST_P(List, TakesNoHalfElements) {
  Given("option routers 10.0.0.1;\n");
  EXPECT_EQ(Refused([&] { Root().FirstChild().AppendToList("10.0.0.2; evil"); }), "bad text");
  EXPECT_EQ(Refused([&] { Root().FirstChild().AppendToList("\"open"); }), "bad text");
  EXPECT_EQ(Refused([&] { Root().FirstChild().AppendToList("# all"); }), "bad text");
  EXPECT_EQ(Refused([&] { Root().FirstChild().AppendToList(""); }), "bad text");
}

TEST_P(List, LosesItsLastElementBeforeAnotherStatement) {
  Given(
      "option routers\n"
      "    10.0.0.1,   # ns1\n"
      "    10.0.0.2; filename \"a\";\n");
  Edit([&] { EXPECT_TRUE(Root().FirstChild().RemoveFromList("10.0.0.2")); });
  EXPECT_EQ(Root().Child("option routers").Value().substr(0, 8), "10.0.0.1");
  EXPECT_EQ(Root().Child("filename").Value(), "\"a\"");
}

TEST_P(List, WhatWasAppendedIsTakenOutAgainBeforeAComment) {
  Given(
      "option routers 10.0.0.1,\n"
      "    10.0.0.2 # the last\n"
      "  ;\n");
  Node routers = Root().Child("option routers");
  Edit([&] {
    routers.AppendToList("10.0.0.3");
    EXPECT_TRUE(routers.RemoveFromList("10.0.0.3"));
  });
  EXPECT_EQ(Text(), First());
}

TEST_P(List, KeepsTheWayItsCommasStand) {
  const struct {
    const char* before;
    const char* after;
  } cases[] = {
      {"a", "a, new"},          {"a, b", "a, b, new"},
      {"a,b", "a,b,new"},       {"a,   b", "a,   b,   new"},
      {"a , b", "a , b , new"}, {"a, b,", "a, b, new,"},
  };
  for (const auto& row : cases) {
    Document document("option domain-search " + std::string(row.before) + ";\n");
    Node list = document.Root().FirstChild();
    list.AppendToList("new");
    EXPECT_EQ(list.Value(), row.after);
    EXPECT_TRUE(list.RemoveFromList("new"));
    EXPECT_EQ(list.Value(), row.before);
  }
}

}  // namespace
}  // namespace klepur::test
