// What saving with the configuration classes would change: the reason and the place of each case.
#include <klepur/rewrite/rewrite_losses.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

/// "2:1 order (1:1); 3:1 one-line-block (note)": places and reasons, the severity unless it is an error.
std::string Told(const std::vector<RewriteLoss>& losses) {
  const auto place = [](Position at) {
    return std::to_string(at.line) + ':' + std::to_string(at.column);
  };
  std::string told;
  for (const RewriteLoss& loss : losses) {
    if (!told.empty()) told += "; ";
    told += place(loss.where) + ' ' + NameOf(loss.reason);
    if (loss.severity == Severity::kWarning) told += " (warning)";
    if (loss.severity == Severity::kNote) told += " (note)";
    if (loss.other != Position()) told += " behind " + place(loss.other);
  }
  return told;
}

struct Row {
  const char* what;
  const char* text;
  const char* losses;
};

const Row kRows[] = {
    // nothing is lost
    {"an empty text", "", ""},
    {"blank lines and indentation", "\n\n  a 1;\n\t b 2;  \n", ""},
    {"a statement over lines with blanks", "option routers 10.0.0.1,\n  10.0.0.2;\n", ""},
    {"two statements on a line", "a 1; b 2;\n", ""},
    {"a block with its brace on a line of its own", "host a\n{\n  x 1;\n}\n", ""},
    {"a statement behind a block", "host a {\n  x 1;\n}\ny 2;\n", ""},
    {"comments above statements", "# one\na 1;\n# two\n# more\nb 2;\n", ""},
    {"a comment above the only block", "a 1;\n# office\nhost a {\n  # in it\n  x 1;\n}\n", ""},
    {"a comment that ends a block", "host a {\n  x 1;\n  # end\n}\n", ""},
    {"an empty comment", "#\na 1;\n", ""},
    {"a chain", "if known {\n  a 1;\n} elsif b {\n  a 2;\n} else {\n  a 3;\n}\n", ""},
    {"a definition with braces", "option x code 200 = { integer 8, text };\n", ""},
    {"braces in a quoted text", "a \"{ ; } #\";\n", ""},
    {"a switch", "switch (x) {\ncase 1:\n  a 1;\n  break;\ndefault:\n  a 2;\n}\n", ""},
    {"a key with a semicolon on one line", "key k { secret a; };\n", "1:1 one-line-block (note)"},

    // blocks on one line
    {"a block on one line", "host a { x 1; }\n", "1:1 one-line-block (note)"},
    {"blocks on one line, one in the other", "group { host a { x 1; } }\n",
     "1:1 one-line-block (note)"},
    {"two blocks on one line", "host a { x 1; } host b { x 2; }\n",
     "1:1 one-line-block (note); 1:17 one-line-block (note)"},
    {"a statement behind a brace", "host a { x 1;\n  y 2;\n}\nz 3;\n",
     "1:1 one-line-block; 4:1 behind-stray-brace"},
    {"a statement behind a brace, in a block",
     "group {\n  host a { x 1;\n    y 2;\n  }\n  z 3;\n}\n",
     "1:1 lost-brace; 2:3 one-line-block; 5:3 other-block"},

    // behind a brace
    {"an empty block on one line", "host a { }\nx 1;\n", "1:1 text-behind-brace; 2:1 other-block"},
    {"a statement that ends on the next line", "host a { x\n 1;\n}\n",
     "1:1 text-behind-brace; 1:10 text-behind-brace"},
    {"a comment behind a brace", "host a { # main\n  x 1;\n}\n", "1:10 comment-in-name (warning)"},
    {"a comment with a semicolon behind a brace", "host a { # main; old\n  x 1;\n}\ny 2;\n",
     "1:1 one-line-block; 4:1 behind-stray-brace"},

    {"a block and the brace of another one", "group {\n  host a { x 1; } }\n",
     "1:1 swallowed-brace; 2:3 one-line-block (note)"},
    {"a block and the brace of another one before more", "group {\n  host a { x 1; } }\ny 2;\n",
     "1:1 swallowed-brace; 2:3 one-line-block (note)"},

    {"a value whose brace is not closed", "option a code 1 = {\n  integer 8;\nb 2;\n",
     "1:1 brace-in-value"},

    // text without a semicolon
    {"text before a brace", "host a {\n  x 1\n}\ny 2;\n", "2:3 text-before-brace; 4:1 behind-text"},
    {"text before a block", "x 1\nhost a {\n}\n", "1:1 missing-semicolon; 2:1 behind-text"},
    {"text at the end", "x 1;\ny 2\n", "2:1 unfinished-end"},
    {"a block that is not closed", "host a {\n  x 1;\n", "1:1 unclosed-block"},

    // too many
    {"a brace too many", "x 1;\n}\ny 2;\nhost a {\n  z 3;\n}\n",
     "2:1 stray-brace; 3:1 behind-stray-brace; 4:1 behind-stray-brace; 5:3 behind-stray-brace"},
    {"a brace too many and a comment", "}\n# lost\n",
     "1:1 stray-brace; 2:1 behind-stray-brace (warning)"},
    {"a semicolon behind a key", "key k {\n  secret a;\n};\n", "1:1 semicolon-behind-block"},

    // within a statement
    {"a comment within a statement", "option routers # which?\n  10.0.0.1;\n",
     "1:1 comment-inside"},
    {"a comment within a header", "host a # which?\n{\n  x 1;\n}\n",
     "1:1 comment-inside; 3:3 other-block"},
    {"lines that are joined", "range 10.0.0.10\n10.0.0.20;\n", "1:1 lines-joined"},
    {"a quoted text over lines", "option x \"a\nb\";\n", "1:1 quote-over-lines"},

    // comments
    {"a comment behind a statement", "a 1; # one\nb 2;\n", "1:6 comment-moves (warning)"},
    {"a comment behind the last statement", "a 1; # one\n", "1:6 comment-moves (warning)"},
    {"a comment behind a block", "host a {\n  x 1;\n} # old\n", "3:3 comment-moves (warning)"},
    {"a comment behind a block on one line", "host a { x 1; } # old\n",
     "1:1 one-line-block (note)"},
    {"a comment above the second block", "host a {\n}\n# b\nhost b {\n}\n",
     "3:1 comment-moves (warning)"},
    {"a comment below the blocks", "host a {\n}\n# end\n", "3:1 comment-moves (warning)"},

    // names
    {"a block named like the root", "x 1;\nTREE_ROOT_SECTION {\n  y 2;\n}\n",
     "2:1 root-name; 3:3 other-block"},
};

TEST(RewriteLosses, SayWhatChangesAndWhy) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(Told(FindRewriteLosses(row.text)), row.losses) << row.text;
  }
}

TEST(RewriteLosses, AreTheSameWithCarriageReturns) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(Told(FindRewriteLosses(WithCarriageReturns(row.text))), row.losses) << row.text;
  }
}

TEST(RewriteLosses, OfAQuotedTextWithASemicolonAreThoseOfItsLineEndsAndIndentation) {
  const struct {
    const char* text;
    const char* losses;
  } kQuotes[] = {
      {"a \"1;\n2\";\n", ""},
      {"a \"1;\r\n2\";\r\n", "1:1 quote-over-lines"},
      {"a \"1;\n  2\";\n", "1:1 quote-over-lines"},
      {"host a {\n  b \"1;\n2\";\n}\n", "2:3 quote-over-lines"},
      {"host a {\n  b \"1;\n\t2\";\n}\n", ""},
  };
  for (const auto& row : kQuotes)
    EXPECT_EQ(Told(FindRewriteLosses(row.text)), row.losses) << row.text;
}

TEST(RewriteLosses, AreThoseOfWhatStandsBehindANulByteToo) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Told(FindRewriteLosses("a 1;\n\0\nb 2;\nhost a {\n}\n"sv)),
            "3:1 behind-nul; 4:1 behind-nul");
}

TEST(RewriteLosses, OfADocumentAreThoseOfItsTextAsItIsNow) {
  Document document("a 1;\n");
  EXPECT_EQ(Told(FindRewriteLosses(document)), "");
  document.Root().FirstChild().SetValue("1 # one\n 2");
  EXPECT_EQ(Told(FindRewriteLosses(document)), "1:1 comment-inside");
}

TEST(RewriteLosses, AreSaidInSentences) {
  const std::vector<RewriteLoss> losses =
      FindRewriteLosses("host  a { x 1; }\ny 2; # two\nz 3;\noption w 1\n");
  ASSERT_EQ(losses.size(), 3U);
  EXPECT_EQ(losses[0].message,
            "\"host a\" has a \";\" on the line of its \"{\" and is no block to the configuration "
            "classes");
  EXPECT_EQ(losses[1].message, "this comment comes to stand with something else");
  EXPECT_EQ(losses[2].message,
            "\"option w\" has no \";\" before the end of the text and is left out");
}

}  // namespace
}  // namespace klepur::test
