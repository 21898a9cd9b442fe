// Documents with blocks nested far deeper than any call stack reaches.
#include <gtest/gtest.h>
#include <klepur/document/document.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "tests/limits/long_texts.h"
#include "tests/limits/on_stack.h"
#include "tests/limits/sizes.h"

namespace klepur::test {
namespace {

/// So many blocks in each other, the innermost with a statement in it.
std::string Nested(std::size_t depth) {
  return Numbered("group g% {\n", depth - 1) + "host innermost {\nlog x;\n" +
         Repeated("}\n", depth);
}

class DocumentDepth : public ::testing::TestWithParam<std::size_t> {
 protected:
  static void OnTheStack(const std::function<void()>& task) { OnStack(GetParam(), task); }
};

std::string StackName(const ::testing::TestParamInfo<std::size_t>& stack) {
  return stack.param == kUsualStack ? "Usual" : "Small";
}

INSTANTIATE_TEST_SUITE_P(Stack, DocumentDepth, ::testing::Values(kUsualStack, kSmallStack),
                         StackName);

TEST_P(DocumentDepth, BlocksAreReadWalkedFoundAndChecked) {
  const std::string text = Nested(kDeep);
  OnTheStack([&] {
    const Document document(text);
    ExpectSame(document.Text(), text);
    EXPECT_EQ(document.Walk("group").size(), kDeep - 1);
    EXPECT_EQ(document.Find("host innermost").Begin().line, kDeep);
    EXPECT_EQ(document.Find("group g0").End().line, 2 * kDeep + 1);
    EXPECT_EQ(document.At(kDeep + 1).Text(), "log x;");
    EXPECT_TRUE(document.Findings().empty());
  });
}

TEST_P(DocumentDepth, InnermostBlockIsEdited) {
  const std::string text = Nested(kDeep);
  OnTheStack([&] {
    Document document(text);
    Node innermost = document.Find("host innermost");
    const Document::Mark mark = document.GetMark();
    innermost.Set("log", "y");
    innermost.Add("next-server 10.0.0.1");
    innermost.Rename("renamed");
    const std::string edited = document.Text();
    EXPECT_NE(edited.find("\nhost renamed {\nlog y;\nnext-server 10.0.0.1;\n}\n"),
              std::string::npos);
    EXPECT_EQ(edited.size(), text.size() + std::string_view("next-server 10.0.0.1;\n").size() - 2);
    document.RollBack(mark);
    ExpectSame(document.Text(), text);
  });
}

TEST_P(DocumentDepth, OutermostBlockIsCommentedOutBroughtBackAndRemoved) {
  const std::string text = Nested(kDeep);
  OnTheStack([&] {
    Document document(text);
    Node outermost = document.Root().FirstChild();
    outermost.CommentOut();
    EXPECT_TRUE(document.Text().starts_with("# group g0 {\n# group g1 {\n"));
    outermost.BringBack();
    ExpectSame(document.Text(), text);
    outermost.Remove();
    EXPECT_EQ(document.Text(), "");
    EXPECT_TRUE(document.Find("host innermost").IsGone());
  });
}

TEST_P(DocumentDepth, BlocksThatNothingClosesAreOneFindingEachAndANote) {
  OnTheStack([] {
    const Document document(Repeated("group {\n", kDeep));
    const std::vector<Finding> findings = document.Findings();
    ASSERT_EQ(findings.size(), 2 * kDeep + 1);
    EXPECT_EQ(findings.front().code, FindingCode::kUnclosedBlock);
    EXPECT_EQ(findings.front().where, (Position{1, 7}));
    EXPECT_EQ(findings.back().where.line, kDeep);
  });
}

TEST_P(DocumentDepth, ClosingBracesWithoutABlockAreOneFindingEach) {
  OnTheStack([] {
    const Document document(Repeated("}\n", kDeep));
    const std::vector<Finding> findings = document.Findings();
    ASSERT_EQ(findings.size(), kDeep);
    EXPECT_EQ(findings.back().code, FindingCode::kStrayBrace);
    EXPECT_EQ(findings.back().where, (Position{kDeep, 1}));
  });
}

TEST_P(DocumentDepth, DeepTextIsAdded) {
  // Each line is indented, so that the text grows with the square of this.
  const std::string text = Nested(kDeepSaved);
  OnTheStack([&] {
    Document document("");
    document.Root().Add(text);
    EXPECT_EQ(document.Walk("group").size(), kDeepSaved - 1);
    EXPECT_EQ(document.Find("host innermost").Child("log").Begin(),
              (Position{kDeepSaved + 1, kDeepSaved + 1}));
  });
}

}  // namespace
}  // namespace klepur::test
