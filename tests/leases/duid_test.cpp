#include <klepur/leases/duid.h>

#include <gtest/gtest.h>
#include <klepur/leases/leases_parser.h>

#include <cstdio>
#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

using namespace std::string_view_literals;

const struct {
  const char* text;
  const char* hex;
} kIdentifiers[] = {
    // whole identifiers
    {R"(\001\000\000\000\000\001AB)", "0100000000014142"},
    {R"(\001\000\000\000\000\003\000\001)", "0100000000030001"},
    {R"(\021\000>\026\000\001\000\001-\342\014\001\000\026>\020\000\021)",
     "11003e16000100012de20c0100163e100011"},
    {"", ""},
    // bytes that stand for themselves
    {"AB", "4142"},
    {"abcxyz", "61626378797a"},
    {"0", "30"},
    {" ", "20"},
    {"~", "7e"},
    {"\x01", "01"},
    {"\t\n\r", "090a0d"},
    {"\x0f\x10", "0f10"},
    {"\x7f", "7f"},
    {"'{};#", "277b7d3b23"},
    {"a\"b", "612262"},
    // bytes with a sign
    {"\x80", "ffffff80"},
    {"\xfe", "fffffffe"},
    {"\xff", "ffffffff"},
    {"a\xc3\xa4z", "61ffffffc3ffffffa47a"},
    // backslash and double quote behind a backslash
    {R"(a\\b)", "615c62"},
    {R"(\\)", "5c"},
    {R"(\\\\)", "5c5c"},
    {R"(\")", "22"},
    {R"(\"\")", "2222"},
    {R"(a\"b)", "612262"},
    {R"(\\")", "5c22"},
    {R"(\\001)", "5c303031"},
    {R"(\\\001)", "5c01"},
    {R"(\"001)", "22303031"},
    // three octal digits
    {R"(\000)", "00"},
    {R"(\007)", "07"},
    {R"(\010)", "08"},
    {R"(\012)", "0a"},
    {R"(\177)", "7f"},
    {R"(\200)", "80"},
    {R"(\342)", "e2"},
    {R"(\377)", "ff"},
    {R"(\0011)", "0131"},
    {R"(\001\\\")", "015c22"},
    // a number above a byte
    {R"(\400)", "100"},
    {R"(\777)", "1ff"},
    {R"(\777a)", "1ff61"},
    // three characters are taken, whatever they are
    {R"(\12a)", "0a"},
    {R"(\12ab)", "0a62"},
    {R"(\1ab)", "01"},
    {R"(\19a)", "01"},
    {R"(\129)", "0a"},
    {R"(\abc)", "00"},
    {R"(\abcd)", "0064"},
    {R"(\x41)", "00"},
    {R"(\0x1)", "00"},
    {R"(\n12A)", "0041"},
    {R"(\1\2A)", "0141"},
    {R"(\1"2A)", "0141"},
    {R"(\1\\A)", "0141"},
    {"\\\xc3\xa4zA", "0041"},
    // blanks in front of the number
    {R"(\ 12)", "0a"},
    {R"(\  7)", "07"},
    {R"(\   )", "00"},
    {"\\\t12", "0a"},
    {"\\\n12", "0a"},
    {R"(\1 2)", "01"},
    // a sign in front of the number
    {R"(\+12)", "0a"},
    {R"(\+1A)", "01"},
    {R"(\-1A)", "ffffffff"},
    {R"(\-77)", "ffffffc1"},
    {R"(\-00)", "00"},
    {R"(\ -1)", "ffffffff"},
    {R"(\--1)", "00"},
    {R"(\- 1)", "00"},
    // fewer than three characters left
    {R"(\9)", "00"},
    {R"(\1)", "01"},
    {R"(\12)", "0a"},
    {R"(\a)", "00"},
    {R"(\-1)", "ffffffff"},
    {R"(\-)", "00"},
    {R"(A\77)", "413f"},
    // nothing left
    {R"(\)", "00"},
    {R"(x\)", "7800"},
    {R"(\\\)", "5c00"},
    {R"(\001\)", "0100"},
};

TEST(Duid, IdentifiersInHexadecimal) {
  for (const auto& row : kIdentifiers) EXPECT_EQ(DuidInHex(row.text), row.hex) << row.text;
}

TEST(Duid, ParserGivesTheSameAsTheFunction) {
  Dhcpv6LeasesParser parser;
  for (const auto& row : kIdentifiers) EXPECT_EQ(parser.ParseDuid(row.text), row.hex) << row.text;
}

TEST(Duid, EveryByteAsThreeOctalDigitsIsTwoHexadecimalOnes) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    char escape[8];
    char hex[4];
    std::snprintf(escape, sizeof escape, "\\%03o", byte);
    std::snprintf(hex, sizeof hex, "%02x", byte);
    EXPECT_EQ(DuidInHex(escape), hex) << escape;
  }
}

TEST(Duid, NulByteEndsTheIdentifier) {
  const struct {
    std::string_view text;
    const char* hex;
  } rows[] = {
      {"\0"sv, ""},
      {"\0AB"sv, ""},
      {"AB\0CD"sv, "4142"},
      {"AB\0"sv, "4142"},
      // in an escape
      {"A\\\0B"sv, "4100"},
      {"A\\1\000234"sv, "4101"},
      {"A\\12\0007"sv, "410a"},
      {"A\\\\\0B"sv, "415c"},
  };
  Dhcpv6LeasesParser parser;
  for (const auto& row : rows) {
    EXPECT_EQ(parser.ParseDuid(std::string(row.text)), row.hex) << row.hex;
  }
}

TEST(Duid, LongIdentifierIsReadWhole) {
  std::string text;
  std::string hex;
  for (int i = 0; i < 70000; ++i) {
    text += R"(\377A)";
    hex += "ff41";
  }
  EXPECT_EQ(DuidInHex(text.c_str()), hex);
}

}  // namespace
}  // namespace klepur::internal
