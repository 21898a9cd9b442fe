#include <klepur/text/structural_bytes.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "tests/text/padded_text.h"

namespace klepur::internal {
namespace {

using test::Chance;
using test::EveryByte;
using test::PaddedText;
using test::RandomText;

using Search = const char* (*)(const char* from, const char* end);

struct TwoWays {
  const char* name;
  Search search;
  Search plainly;
};

constexpr TwoWays kSearches[] = {
    {"FindStructural", FindStructural, FindStructuralPlainly},
    {"SkipBlanks", SkipBlanks, SkipBlanksPlainly},
    {"FindStringMark", FindStringMark, FindStringMarkPlainly},
};

/// Searches from each byte on.
void ExpectSame(const TwoWays& ways, const std::string& bytes) {
  const PaddedText text(bytes);
  for (const char* from = text.begin(); from <= text.end(); ++from) {
    ASSERT_EQ(ways.search(from, text.end()) - from, ways.plainly(from, text.end()) - from)
        << ways.name << " from " << from - text.begin() << " of "
        << ::testing::PrintToString(bytes);
  }
}

struct Case {
  std::string_view text;
  std::ptrdiff_t structural;
  std::ptrdiff_t behindBlanks;
  std::ptrdiff_t stringMark;
  std::ptrdiff_t lineEnd;
};

constexpr Case kCases[] = {
    {"", 0, 0, 0, 0},
    {";", 0, 0, 1, 1},
    {"a", 1, 0, 1, 1},
    {" ", 1, 1, 1, 1},
    // each byte that matters, and its neighbours in the character set
    {"abc;", 3, 0, 4, 4},
    {"abc{", 3, 0, 4, 4},
    {"abc}", 3, 0, 4, 4},
    {"abc#", 3, 0, 4, 4},
    {"abc\"", 3, 0, 3, 4},
    {"abc\n", 3, 0, 4, 3},
    {"abc\\\"", 4, 0, 3, 5},
    {":<z|~!$\t\v", 9, 0, 9, 9},
    // blanks
    {" \t\v\f\r\n x", 5, 7, 8, 5},
    {"\r\r", 2, 2, 2, 2},
    {"  \b", 3, 2, 3, 3},
    {"  \x0e", 3, 2, 3, 3},
    {"  \xa0", 3, 2, 3, 3},
    {"  \x89", 3, 2, 3, 3},
    {"                                        x;\n", 41, 40, 43, 42},
    // bytes with the highest bit set are no others
    {"\xbb\xfb\xfd\xa3\xa2\x8a\xdc;", 7, 0, 8, 8},
    // far away
    {"hardware ethernet 00:16:3e:00:00:01;\n", 35, 0, 37, 36},
    {"0123456789abcde;", 15, 0, 16, 16},
    {"0123456789abcdef;", 16, 0, 17, 17},
    {"0123456789abcdef0123456789abcdef\"", 32, 0, 32, 33},
    // the first of several
    {"option host-name \"a;b\";\n", 17, 0, 17, 23},
};

TEST(StructuralBytes, SearchesFindTheFirstByteTheyLookFor) {
  for (const Case& one : kCases) {
    SCOPED_TRACE(::testing::PrintToString(one.text));
    const PaddedText text(one.text);
    const auto found = [&](Search search) {
      return search(text.begin(), text.end()) - text.begin();
    };
    EXPECT_EQ(found(FindStructural), one.structural);
    EXPECT_EQ(found(FindStructuralPlainly), one.structural);
    EXPECT_EQ(found(SkipBlanks), one.behindBlanks);
    EXPECT_EQ(found(SkipBlanksPlainly), one.behindBlanks);
    EXPECT_EQ(found(FindStringMark), one.stringMark);
    EXPECT_EQ(found(FindStringMarkPlainly), one.stringMark);
    EXPECT_EQ(found(FindLineEnd), one.lineEnd);
  }
}

TEST(StructuralBytes, BothWaysAgreeOnEachByteAtEachPlace) {
  for (const TwoWays& ways : kSearches) {
    for (const char byte : EveryByte()) {
      for (const std::size_t before : {0U, 1U, 15U, 16U, 31U, 32U}) {
        const char other = ways.search == SkipBlanks ? ' ' : 'a';
        ExpectSame(ways, std::string(before, other) + byte + other);
      }
    }
  }
}

TEST(StructuralBytes, BothWaysAgreeOnRandomTexts) {
  const std::string_view mixtures[] = {"abcdefgh;{}#\"\n\\", " \t\n\r\v\fa;", ":<z|~!;", "a\"\\"};
  Chance chance(20260301);
  for (int round = 0; round != 200; ++round) {
    const std::size_t size = chance.Below(150);
    for (const TwoWays& ways : kSearches) {
      ExpectSame(ways, RandomText(chance, size, EveryByte()));
      for (const std::string_view bytes : mixtures) {
        ExpectSame(ways, RandomText(chance, size, bytes));
      }
    }
  }
}

}  // namespace
}  // namespace klepur::internal
