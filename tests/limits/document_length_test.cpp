// Documents with one statement, comment, name or line of fifty megabytes, and texts that make a reader
// look at the same bytes over and over.
#include <gtest/gtest.h>
#include <klepur/document/document.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/limits/long_texts.h"
#include "tests/limits/sizes.h"

namespace klepur::test {
namespace {

constexpr std::size_t kHalf = kLong / 2;

/// The piece so often that the text has as many bytes as are wanted here.
std::string Long(std::string_view piece) {
  return Repeated(piece, kHalf / piece.size());
}

struct Case {
  const char* name;
  std::string_view before;
  std::string_view again;
  std::string_view behind;
  std::size_t nodes;  ///< How many statements, blocks and comments stand at the top; 0 for many.
  std::size_t findings;
};

std::ostream& operator<<(std::ostream& out, const Case& one) {
  return out << one.name;
}

class DocumentLength : public ::testing::TestWithParam<Case> {};

std::string NameOf(const ::testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DocumentLength,
    ::testing::Values(Case{"Statement", "option x ", "word ", "end;\n", 1, 0},
                      Case{"String", "option x \"", "a;{}#\\\"", "\";\n", 1, 0},
                      Case{"Comment", "# ", "#{};\" ", "\na 1;\n", 2, 0},
                      Case{"Header", "host ", "x", " {\n}\n", 1, 0},
                      Case{"List", "domain-name-servers ", "10.0.0.1, ", "10.0.0.1;\n", 1, 0},
                      Case{"Value", "option x = ", "{ = ", "", 1, 1},
                      Case{"ManyValues", "a ", "= {} ", ";\n", 1, 0},
                      Case{"Blanks", "a 1;", " \t\r", "b 1;\n", 2, 0},
                      Case{"BlankLines", "a 1;", "\n", "b 1;\n", 2, 0},
                      Case{"BlankLinesInAStatement", "a", "\n", "1;\n", 1, 0},
                      Case{"CommentsInAStatement", "a", "#\n", "1;\n", 1, 0},
                      Case{"CommentsThatLookLikeStatements", "", "# host a {\n", "a 1;\n", 0, 0},
                      Case{"LinesOfAnExpression", "if ", "exists a and\n", "exists b {\n}\n", 1, 0},
                      Case{"LabelsWithoutColon", "switch (a) {\n", "case 1\n", "}\n", 1, 1},
                      Case{"EscapedQuotesThatNothingCloses", "a ", "\\\"", "", 1, 2},
                      Case{"EscapedQuotesClosedBeforeAWord", "a \"\n", "\\\"", "\n\"b;\n", 1, 1},
                      Case{"NulsBetweenStatements", "a 1;", {"\0", 1}, "b 1;\n", 2, 1}),
    NameOf);

TEST_P(DocumentLength, IsKeptAndReadAndCheckedOnce) {
  const Case& one = GetParam();
  const std::string text = std::string(one.before) + Long(one.again) + std::string(one.behind);
  const Document document(text);
  ExpectSame(document.Text(), text);
  std::size_t nodes = 0;
  for (Node node = document.Root().FirstChild(); node; node = node.Next()) ++nodes;
  if (one.nodes != 0) {
    EXPECT_EQ(nodes, one.nodes);
  }
  EXPECT_EQ(document.Findings().size(), one.findings);
}

/// What is wrong many times, in many lines or in one.
struct Wrong {
  const char* name;
  const char* again;
  FindingCode code;
};

std::ostream& operator<<(std::ostream& out, const Wrong& one) {
  return out << one.name;
}

class DocumentFindings : public ::testing::TestWithParam<Wrong> {};

INSTANTIATE_TEST_SUITE_P(
    Texts, DocumentFindings,
    ::testing::Values(
        Wrong{"Semicolons", ";\n", FindingCode::kEmptyStatement},
        Wrong{"SemicolonsOnOneLine", ";", FindingCode::kEmptyStatement},
        Wrong{"BracesOnOneLine", "}", FindingCode::kStrayBrace},
        Wrong{"Headers", "{}\n", FindingCode::kMissingHeader},
        Wrong{"HeadersOnOneLine", "{}", FindingCode::kMissingHeader},
        Wrong{"MissingSemicolons", "max-lease-time 5\n", FindingCode::kMissingSemicolon},
        Wrong{"SemicolonsBehindBlocks", "pool {};\n", FindingCode::kSemicolonBehindBlock},
        Wrong{"Quotes", "log \"a\n\"b;\n", FindingCode::kUnclosedQuote}),
    [](const ::testing::TestParamInfo<Wrong>& wrong) { return std::string(wrong.param.name); });

TEST_P(DocumentFindings, AreOneForEachAndInOrder) {
  const Document document(Repeated(GetParam().again, kMany));
  const std::vector<Finding> findings = document.Findings();
  ASSERT_EQ(findings.size(), kMany);
  for (std::size_t i = 0; i != kMany; ++i) {
    ASSERT_EQ(findings[i].code, GetParam().code);
    if (i != 0) {
      ASSERT_LT(findings[i - 1].where, findings[i].where);
    }
  }
}

TEST(DocumentLine, BlocksOfOneLineAreFoundAndEdited) {
  constexpr std::size_t kBlocks = 300'000 / kPart;
  const std::string text = Numbered("host h% { a 1; } ", kBlocks) + "\n";
  Document document(text);
  for (const std::size_t i : {std::size_t{0}, kBlocks / 2, kBlocks - 1}) {
    Node host = document.Find("host h" + std::to_string(i));
    host.Child("a").SetValue("2");
    EXPECT_EQ(host.Text(), "host h" + std::to_string(i) + " { a 2; }");
    EXPECT_EQ(host.Begin().line, 1U);
    host.Child("a").SetValue("1");
  }
  ExpectSame(document.Text(), text);
}

TEST(DocumentLine, EditsBesideALongStatementAndCommentLeaveThem) {
  const std::string longOne = "a " + Long("word ") + "end; # " + Long("word ") + "end\n";
  Document document(longOne + "b 1;\n");
  document.Root().Set("b", "2");
  document.Root().Add("c 3");
  ExpectSame(document.Text(), longOne + "b 2;\nc 3;\n");
  document.Root().Child("a").Remove();
  EXPECT_EQ(document.Text(), "b 2;\nc 3;\n");
}

TEST(DocumentComments, RunThatLooksLikeStatementsIsLookedThroughOnce) {
  constexpr std::size_t kLines = 300'000 / kPart;
  const std::string comments = Repeated("# host a {\n", kLines);
  Document document(comments + "host b {\n}\n");
  EXPECT_TRUE(document.Root().Disabled().empty());
  Node host = document.Find("host b");
  EXPECT_EQ(host.Comments().size(), kLines);
  const Document::Mark mark = document.GetMark();
  host.CommentOut();
  host.BringBack();
  ExpectSame(document.Text(), comments + "host b {\n}\n");
  host.Remove();
  EXPECT_EQ(document.Text(), "");
  document.RollBack(mark);
  ExpectSame(document.Text(), comments + "host b {\n}\n");
}

TEST(DocumentComments, EachOfALongRunIsAskedAboutAndBroughtBack) {
  constexpr std::size_t kHosts = 30'000 / kPart;
  Document document(Repeated("# host a { }\n", kHosts));
  std::vector<Node> disabled;
  for (const Node& comment : document.Root().Children()) {
    if (comment.IsDisabled()) disabled.push_back(comment);
  }
  ASSERT_EQ(disabled.size(), kHosts);
  for (Node& host : disabled) host.BringBack();
  ExpectSame(document.Text(), Repeated("host a { }\n", kHosts));
}

TEST(DocumentLines, AreToldBetweenEdits) {
  constexpr std::size_t kHosts = 30'000 / kPart;
  Document document(Repeated("host a { next-server 10.0.0.1; }\n", kHosts));
  std::size_t line = 0;
  for (Node host : document.Root().Children()) {
    host.Set("next-server", "10.0.0.2");
    ++line;
    ASSERT_EQ(host.Begin().line, line);
    ASSERT_EQ(document.At(line), host);
  }
  EXPECT_EQ(line, kHosts);
}

}  // namespace
}  // namespace klepur::test
