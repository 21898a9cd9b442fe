#include <klepur/network/identifier.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur {
namespace {

using namespace std::string_literals;

std::string HexOf(const std::optional<Identifier>& identifier) {
  return identifier ? identifier->Hex() : "none";
}

struct Reading {
  std::string_view text;
  const char* hex;
};

constexpr Reading kValues[] = {
    // numbers
    {"00:01:00:01:2a", "00:01:00:01:2a"},
    {"0:1:0:1:2A", "00:01:00:01:2a"},
    {"1", "01"},
    {"ab", "ab"},
    {"001:0000000ff", "01:ff"},
    {" 0 : 1 # first\n: 2 # second", "00:01:02"},
    {"43:4c:49:45:4e:54:2d:46:4f:4f", "43:4c:49:45:4e:54:2d:46:4f:4f"},

    // text
    {R"("CLIENT-FOO")", "43:4c:49:45:4e:54:2d:46:4f:4f"},
    {R"("CLIENT\055F\x4fO" # its name)", "43:4c:49:45:4e:54:2d:46:4f:4f"},
    {R"( "\000foo")", "00:66:6f:6f"},
    {R"("")", ""},
    {"\"a\nb\"", "61:0a:62"},
    {R"("a # b")", "61:20:23:20:62"},

    // no identifiers
    {"", "none"},
    {"# 1:2", "none"},
    {"CLIENT-FOO", "none"},
    {"abc", "none"},
    {"100", "none"},
    {"1:100", "none"},
    {"1:2:", "none"},
    {":1:2", "none"},
    {"1 2", "none"},
    {"1:2 3", "none"},
    {"1:2, 3", "none"},
    {"1-2", "none"},
    {"1:-2", "none"},
    {"1:0x2", "none"},
    {"1:2:\"a\"", "none"},
    {R"("a" "b")", "none"},
    {R"("a", "b")", "none"},
    {R"("a" 1)", "none"},
    {R"("a)", "none"},
    {R"("a\1")", "none"},
    {"'a'", "none"},
    {"= \"a\"", "none"},
    {"concat(\"a\", \"b\")", "none"},
};

TEST(Identifier, IsReadFromAStatement) {
  for (const auto& row : kValues)
    EXPECT_EQ(HexOf(Identifier::Parse(row.text)), row.hex) << row.text;
}

constexpr Reading kTyped[] = {
    {"00:01:00:01:2a", "00:01:00:01:2a"},
    {"0:1:0:1:2A", "00:01:00:01:2a"},
    {"00-01-00-01-2A", "00:01:00:01:2a"},
    {"000100012a", "00:01:00:01:2a"},
    {"0001.0001", "00:01:00:01"},
    {"1234", "12:34"},
    {R"("CLIENT")", "43:4c:49:45:4e:54"},
    {"1", "01"},
    {"0 : 1", "00:01"},

    {"", "none"},
    {"CLIENT", "none"},
    {"123", "none"},
    {"00-01:00", "none"},
};

TEST(Identifier, IsReadInAnySpellingThatPeopleType) {
  for (const auto& row : kTyped) {
    EXPECT_EQ(HexOf(Identifier::ParseAnySpelling(row.text)), row.hex) << row.text;
  }
}

TEST(Identifier, ComparesByBytes) {
  const Identifier text = *Identifier::Parse(R"("foo")");
  EXPECT_EQ(text, *Identifier::Parse("66:6F:6f"));
  EXPECT_EQ(text, Identifier("foo"));
  EXPECT_NE(text, *Identifier::Parse(R"("\000foo")"));
  EXPECT_NE(text, *Identifier::Parse(R"("Foo")"));
  EXPECT_LT(Identifier(), text);
  EXPECT_LT(text, Identifier("fop"));
  EXPECT_LT(text, Identifier("foo\0"s));
  const std::unordered_set<Identifier> identifiers = {text};
  EXPECT_EQ(identifiers.count(*Identifier::Parse("66:6f:6f")), 1U);
  EXPECT_EQ(identifiers.count(Identifier("fo")), 0U);
}

TEST(Identifier, IsWrittenInBothForms) {
  const Identifier identifier("\0foo\n"s);
  EXPECT_EQ(identifier.Hex(), "00:66:6f:6f:0a");
  EXPECT_EQ(identifier.Quoted(), R"("\000foo\012")");
  EXPECT_EQ(identifier.Bytes(), "\0foo\n"s);
  EXPECT_EQ(Identifier().Hex(), "");
  EXPECT_EQ(Identifier().Quoted(), R"("")");
}

TEST(Identifier, AnyIsReadBackFromBothForms) {
  RandomValues random(7);
  for (int i = 0; i < 2000; ++i) {
    const Identifier identifier(random.Bytes(1 + random.Below(40)));
    EXPECT_EQ(Identifier::Parse(identifier.Hex()), identifier) << identifier.Hex();
    EXPECT_EQ(Identifier::ParseAnySpelling(identifier.Hex()), identifier) << identifier.Hex();
    EXPECT_EQ(Identifier::Parse(identifier.Quoted()), identifier) << identifier.Quoted();
  }
}

}  // namespace
}  // namespace klepur
