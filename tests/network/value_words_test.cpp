#include <klepur/network/value_words.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

using namespace std::string_view_literals;

/// The words with a letter for their kind, "p10.0.0.1|c,|q\"a\"".
std::string WordsOf(std::string_view value) {
  std::string all;
  ValueWords words(value);
  while (const auto word = words.Next()) {
    if (!all.empty()) all += '|';
    all += word->kind == ValueWord::kPlain ? 'p' : word->kind == ValueWord::kQuoted ? 'q' : 'c';
    all += word->text;
  }
  return all;
}

constexpr struct {
  std::string_view value;
  std::string_view words;
} kValues[] = {
    {"", ""},
    {"  \t\r\n\v\f ", ""},
    {"10.0.0.1", "p10.0.0.1"},
    {"10.0.0.1 10.0.0.9", "p10.0.0.1|p10.0.0.9"},
    {"\t10.0.0.1\r\n\v\f10.0.0.9 ", "p10.0.0.1|p10.0.0.9"},
    {"a\xa0z \x1b \0"sv, "pa\xa0z|p\x1b|p\0"sv},
    {"2001:db8::/64", "p2001:db8::/64"},
    {"= concat(\"a\", b)", "p=|pconcat(|q\"a\"|c,|pb)"},

    // commas
    {"a,b", "pa|c,|pb"},
    {"a , b,", "pa|c,|pb|c,"},
    {",,", "c,|c,"},

    // quoted text
    {R"("a b")", R"(q"a b")"},
    {R"(a"b"c)", R"(pa|q"b"|pc)"},
    {R"("a""b")", R"(q"a"|q"b")"},
    {R"("a\"b" c)", R"(q"a\"b"|pc)"},
    {R"("a\\" c)", R"(q"a\\"|pc)"},
    {"\"a\n # , b\" c", "q\"a\n # , b\"|pc"},
    {R"("a b)", R"(q"a b)"},
    {R"(")", R"(q")"},

    // comments
    {"# a", ""},
    {"a # b", "pa"},
    {"a# b, \"c\nd", "pa|pd"},
    {"a #\n#\n # x\r\n b", "pa|pb"},
    {"a,#b\n\"c\"#d", "pa|c,|q\"c\""},
};

TEST(ValueWords, AreBetweenBlanksCommasQuotesAndComments) {
  for (const auto& row : kValues) EXPECT_EQ(WordsOf(row.value), row.words) << row.value;
}

TEST(ValueWords, TakesAPlainWordOnlyWhenItIsNext) {
  ValueWords words("a \"b\" , c");
  EXPECT_EQ(words.NextPlain(), "a");
  EXPECT_EQ(words.NextPlain(), std::nullopt);
  EXPECT_EQ(words.Rest(), "\"b\" , c");
  EXPECT_EQ(words.Next()->text, "\"b\"");
  EXPECT_EQ(words.NextPlain(), std::nullopt);
  EXPECT_EQ(words.Next()->text, ",");
  EXPECT_FALSE(words.AtEnd());
  EXPECT_EQ(words.NextPlain(), "c");
  EXPECT_TRUE(words.AtEnd());
  EXPECT_EQ(words.NextPlain(), std::nullopt);
  EXPECT_FALSE(words.Next().has_value());
}

TEST(ValueWords, SkipsAKeywordInAnyLetterCase) {
  ValueWords words("NetMask netmasks \"netmask\"");
  EXPECT_TRUE(words.Skip("netmask"));
  EXPECT_FALSE(words.Skip("netmask"));
  EXPECT_EQ(words.NextPlain(), "netmasks");
  EXPECT_FALSE(words.Skip("netmask"));
  EXPECT_EQ(words.Rest(), "\"netmask\"");
}

TEST(ValueWords, KeywordsAreTheSameButForLetterCase) {
  EXPECT_TRUE(SameKeyword("Dynamic-BOOTP", "dynamic-bootp"));
  EXPECT_TRUE(SameKeyword("", ""));
  EXPECT_FALSE(SameKeyword("dynamic", "dynamic-bootp"));
  EXPECT_FALSE(SameKeyword("@[`{", "`{@["));
  EXPECT_FALSE(SameKeyword("\xc4", "\xe4"));
}

}  // namespace
}  // namespace klepur::internal
