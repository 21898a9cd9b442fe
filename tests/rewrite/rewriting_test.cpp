// What a text is taken to become is what a configuration class makes of it.
#include <klepur/rewrite/rewriting.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/rewrite/saved_text.h"

namespace klepur::test {
namespace {

using internal::RewrittenPiece;
using namespace std::string_view_literals;

std::string Rewritten(std::string_view text) {
  const internal::TextBuffer buffer(text);
  return std::string(internal::Rewrite(buffer.view()).text.view());
}

TEST(Rewriting, IsWhatTheClassesSave) {
  const struct {
    const char* what;
    std::string text;
  } kRows[] = {
      {"nothing", ""},
      {"blanks only", " \t\r\n\v\f\r\r\n"},
      {"statements and blocks", "a 1;\nhost b {\n  c 2;\n}\nd 3;\n"},
      {"blocks in blocks", "g {\n h {\n  i {\n   a 1;\n  }\n b 2;\n }\n}\nj {\n}\nc 3;\n"},
      {"a statement over lines", "a 1,\n  2,\r\n\t3;\n"},
      {"a carriage return in a line", "a\r1;\r\nb 2\r\r\n;\r"},
      {"a comment within a statement", "a 1 # why\n 2;\n"},
      {"blanks around a comment", "# \t\v a \v\t \n#\f b \f\n#\r\n#"},
      {"a header over lines", "host\n a\n  { \t\n x 1;\n}\n"},
      {"text behind a brace", "host a { } b\n x 1;\n}\n"},
      {"a block on one line", "host a { x 1; }\nb 2; host c { y 1; } d 3;\n"},
      {"a semicolon in a quoted name", "class \"a;b\" {\n x 1;\n}\n"},
      {"text before a brace", "host a {\n  x 1\n}\n y 2;\n}\nz 3"},
      {"a brace too many", "a 1;\n} }\nb 2;\nhost c {\n d 3;\n}\n}\n"},
      {"a block that is not closed", "host a {\n host b {\n x 1;\n}\n"},
      {"a block named like the root", "a 1;\nTREE_ROOT_SECTION {\n b 2;\n host c {\n}\n}\nd 3;\n"},
      {"quoted marks", "a \"; { } #\" 1;\nb \"\\\";\" 2;\n"},
      {"a quote that nothing closes", "a \"1; b 2;\nc \"3\" \"; d 4;\n"},
      {"a backslash at the end of a line", "a \"1\\\nb\"; c \"2\\"},
      {"a quote behind a backslash", "a \\\"; b 1;\" c 2;\n"},
      {"a brace behind 65536 bytes", std::string(65536 + 5, 'a') + " { b 1; }\n"},
      {"a brace behind 65535 bytes", std::string(65535, 'a') + "{ b 1; }\n"},
      {"a byte order mark", "\xEF\xBB\xBF# a\nb 1;\n"},
      {"a NUL byte between statements", std::string("a 1;\n\0b 2;\nc 3;\n"sv)},
      {"a NUL byte in a statement", std::string("a 1;\nb \0 2;\nc 3;\n"sv)},
      {"a NUL byte in quotes", std::string("a 1;\nb \"; \0\" 2;\nc 3;\n"sv)},
      {"a NUL byte behind a quote", std::string("a 1;\nb \"; c 1; \0 2;\nc 3;\n"sv)},
      {"a NUL byte in a comment", std::string("a 1;\n# b \0\nc 3;\n"sv)},
      {"a NUL byte behind a brace", std::string("a 1;\nhost b { \0\nc 3;\n}\n"sv)},
      {"a NUL byte below a brace", std::string("a 1;\nhost b {\n\0c 3;\n}\n"sv)},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(WithoutIndentation(Rewritten(row.text)), WithoutIndentation(Saved(row.text)));
  }
}

TEST(Rewriting, IsIndentedWhereAQuotedTextMayRunOverItsLines) {
  for (const std::string_view text : {
           "group {\n  a \"1;\n  b\" 2;\n  # c\n  host d {\n    e 1;\n  }\n}\n"sv,
           "group {\n  host d {\n    host e {\n      a \"1;\n}\n}\n}\n# b\"\nc 1;\n"sv,
           "group {\n  a 1;\n}\nb \"2;\nhost c {\n  d 1;\n}\n"sv,
           "TREE_ROOT_SECTION {\n  a 1;\n}\nhost b {\n TREE_ROOT_SECTION {\n c \"1;\n}\n}\n"sv,
           "host a { b \"; c 1;\nhost d {\n  e 1;\n}\n"sv,
       }) {
    EXPECT_EQ(Rewritten(text), Saved(text));
  }
}

TEST(Rewriting, SaysWhichBytesBecameWhich) {
  constexpr std::string_view kText = "host a {\n  x\n 1;\n# b\n}\ny 2; }\nz 3;\n";
  const internal::TextBuffer buffer(kText);
  const internal::Rewriting rewriting = internal::Rewrite(buffer.view());
  const std::string_view written = rewriting.text.view();
  const struct {
    RewrittenPiece::Sort sort;
    std::string_view source;
    std::string_view written;
  } kPieces[] = {
      {RewrittenPiece::Sort::kHeader, "host a {\n", "\nhost a\n{\n"},
      {RewrittenPiece::Sort::kStatement, "  x\n 1;", "x 1;\n"},
      {RewrittenPiece::Sort::kComment, "\n# b\n", "#b\n"},
      {RewrittenPiece::Sort::kStatement, "\ny 2;", "y 2;\n"},
      {RewrittenPiece::Sort::kStatement, "\nz 3;", ""},
  };
  ASSERT_EQ(rewriting.pieces.size(), std::size(kPieces));
  std::uint32_t i = 0;
  for (const auto& expected : kPieces) {
    const RewrittenPiece& piece = rewriting.pieces[i++];
    EXPECT_EQ(piece.sort, expected.sort);
    EXPECT_EQ(kText.substr(piece.source.begin, piece.source.end - piece.source.begin),
              expected.source);
    EXPECT_EQ(written.substr(piece.written.begin, piece.written.end - piece.written.begin),
              expected.written);
  }
  EXPECT_FALSE(rewriting.stopped);
}

}  // namespace
}  // namespace klepur::test
