#include <klepur/document/node_text.h>
#include <klepur/document/words_of_text.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

constexpr std::string_view kStatements[] = {
    "hardware ethernet 00:16:3e:00:00:01;",
    "HardWare\tethernet 1:2 ;",
    "hardware;",
    "hardware ;",
    "hardware",
    "",
    "hardware-type 1;",
    "hardware# a comment\n ethernet 1:2 # and another\n ;",
    "option host-name \"a # b\";",
    "option  # why\n  host-name \"a\" # ; \n;",
    "Option Host-Name pc1",
    "option;",
    "option host-name;",
    "option \"host-name\" a;",
    "option host-name-2 a;",
    "option hosts a;",
    "# first\noption host-name a;",
    "uid \"not closed # at all;",
    {"uid\0 1:2\0;", 10},
    "uid \v1\f\r\n;",
    "u;",
};

constexpr std::string_view kKeys[] = {"hardware",      "option host-name", "option", "uid",
                                      "hardware-type", "option hosts",     ""};

TEST(NodeText, ValueOfAKeyIsThatOfAStatementWithTheKeyOnly) {
  int of_key = 0;
  for (const std::string_view statement : kStatements) {
    for (const std::string_view key : kKeys) {
      std::optional<std::string_view> expected;
      if (KeyOf(statement) == key) {
        const ValuePlace place = ValueIn(statement);
        expected = statement.substr(place.begin, place.end - place.begin);
        ++of_key;
      }
      EXPECT_EQ(ValueOfKey(statement, key), expected) << statement << " | " << key;
    }
  }
  EXPECT_GT(of_key, 12);
}

TEST(NodeText, ValueGoesFromTheFirstWordBehindTheKeyToTheLast) {
  constexpr struct {
    std::string_view statement;
    std::string_view key;
    std::string_view value;
  } kRows[] = {
      {"hardware ethernet 0:1;", "hardware", "ethernet 0:1"},
      {"hardware\n # a ; comment\n ethernet # b\n ;", "hardware", "ethernet"},
      {"option host-name \"a # b\" ;", "option host-name", "\"a # b\""},
      {"uid \" # b\n;", "uid", "\""},
      {"uid;", "uid", ""},
  };
  for (const auto& row : kRows) EXPECT_EQ(ValueOfKey(row.statement, row.key), row.value);
}

TEST(NodeText, TextUpToTheLastWordHasNoGapBehind) {
  constexpr std::string_view kWords[][2] = {
      {"a b \t\r\n\v\f", "a b"},
      {"a \"b \" ", "a \"b \""},
      {"a \" b  ", "a \" b"},
      {" \n", ""},
      {"a # b", "a"},
      {"a # b\n c ", "a # b\n c"},
      {"# b", ""},
      {"", ""},
  };
  for (const auto& [text, up_to_last] : kWords) EXPECT_EQ(UpToLastWord(text), up_to_last) << text;
}

}  // namespace
}  // namespace klepur::internal
