#include <klepur/network/quoted_text.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

using namespace std::string_view_literals;

constexpr struct {
  std::string_view quoted;
  std::string_view bytes;
} kTexts[] = {
    {R"("")", ""},
    {R"("abc")", "abc"},
    {R"("a b;{}#'")", "a b;{}#'"},
    {"\"a\nb\r\nc\"", "a\nb\r\nc"},
    {"\"a\0b\xc3\xa4\""sv, "a\0b\xc3\xa4"sv},

    // letters
    {R"("\t\r\n\b")", "\t\r\n\b"},
    {R"("\a\f\v\e\q\N\X41")", "afveqNX41"},
    {R"("\\\"\'")", "\\\"'"},
    {"\"a\\\nb\"", "a\nb"},

    // octal numbers
    {R"("\101\060\377\000")", "A0\xff\0"sv},
    {R"("\0412")", "!2"},
    {R"("\400\777\8\9")", "40077789"},

    // hexadecimal numbers
    {R"("\x41\x4a\x4A\xff\x00")", "AJJ\xff\0"sv},
    {R"("\x411")", "A1"},
};

TEST(QuotedText, StandsForBytes) {
  for (const auto& row : kTexts) {
    EXPECT_EQ(Unquoted(row.quoted), row.bytes) << row.quoted;
    EXPECT_EQ(QuotedLength(row.quoted), row.quoted.size()) << row.quoted;
  }
}

constexpr std::string_view kMalformed[] = {
    "", "\"", "abc", "\"abc", "abc\"", R"("abc\")", R"("a"b")", R"("a" "b")",
    // incomplete numbers
    R"("\0")", R"("\01")", R"("\1")", R"("\09a")", R"("\19z")", R"("\01x")", R"("\x")", R"("\x4")",
    R"("\x4g")", R"("\xg4")"};

TEST(QuotedText, MalformedStandsForNothing) {
  for (const std::string_view quoted : kMalformed) EXPECT_FALSE(Unquoted(quoted)) << quoted;
}

constexpr struct {
  std::string_view text;
  std::size_t length;
} kLengths[] = {
    {R"("")", 2}, {R"("abc" "def")", 5}, {R"("a\"b" c)", 6}, {R"("a\\" c)", 5},   {R"("abc)", 4},
    {R"(")", 1},  {R"("abc\)", 5},       {R"("abc\")", 6},   {"\"a\n# b\" c", 7},
};

TEST(QuotedText, EndsAtTheFirstQuoteWithoutABackslash) {
  for (const auto& row : kLengths) EXPECT_EQ(QuotedLength(row.text), row.length) << row.text;
}

constexpr struct {
  std::string_view bytes;
  const char* quoted;
} kWritten[] = {
    {"", R"("")"},
    {"CLIENT-FOO", R"("CLIENT-FOO")"},
    {"a b;{}#'", R"("a b;{}#'")"},
    {"a\"b\\c", R"("a\"b\\c")"},
    {"\t\r\n\b\x7f", R"("\011\015\012\010\177")"},
    {"\0foo"sv, R"("\000foo")"},
    {"\0017"sv, R"("\0017")"},
    {"\xff\xc3\xa4", R"("\377\303\244")"},
};

TEST(QuotedText, IsWrittenInPrintableCharacters) {
  for (const auto& row : kWritten) EXPECT_EQ(Quoted(row.bytes), row.quoted);
}

TEST(QuotedText, AnyBytesAreReadBack) {
  RandomValues random(6);
  for (int i = 0; i < 2000; ++i) {
    std::string bytes = random.Bytes(random.Below(40));
    for (char& c : bytes) {
      if (random.Below(2) == 0) c = "\\\"01xn8"[random.Below(7)];
    }
    EXPECT_EQ(Unquoted(Quoted(bytes)), bytes) << Quoted(bytes);
  }
}

}  // namespace
}  // namespace klepur::internal
