// What the server refuses for its structure has a finding where the server says that it is wrong.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "tests/server/judged_files.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

// Refused for what words mean or for single bytes, and not for where braces, semicolons and quotes stand.
constexpr std::string_view kNotForTheirStructure[] = {
    "refused4/case_without_colon.conf", "refused4/no_break_space.conf",
    "refused4/single_quotes.conf",      "refused6/blank_in_address6.conf",
    "refused6/missing_slash6.conf",     "refused4/slashes_for_a_comment.conf",
};

bool IsForItsStructure(const RefusedFile& refused) {
  return std::find(std::begin(kNotForTheirStructure), std::end(kNotForTheirStructure),
                   refused.file.name) == std::end(kNotForTheirStructure);
}

/// The line of the last word before a place; 0 when there is none.
std::size_t LineOfWordBefore(const std::string& text, Position where) {
  std::size_t line = 0;
  std::size_t at = 1;
  std::istringstream lines(text);
  for (std::string bytes; std::getline(lines, bytes) && at < where.line; ++at) {
    const std::size_t word = bytes.find_first_not_of(" \t\r");
    if (word != std::string::npos && bytes[word] != '#') line = at;
  }
  return line;
}

// The server names the line of the word at which it saw that something is wrong, or of the word before that.
TEST(RefusedFiles, HaveAFindingInTheLineThatTheServerNames) {
  for (const RefusedFile& refused : RefusedFiles()) {
    if (!IsForItsStructure(refused)) continue;
    const Document document = Document::Read(refused.file.path);
    const std::vector<Finding> findings = document.Findings();
    EXPECT_TRUE(std::any_of(findings.begin(), findings.end(),
                            [&](const Finding& finding) {
                              return finding.where.line == refused.named ||
                                     finding.where.line == refused.mistake ||
                                     LineOfWordBefore(document.Text(), finding.where) ==
                                         refused.named;
                            }))
        << refused.file.name << ": the server names line " << refused.named
        << ", the mistake is in line " << refused.mistake << "\n"
        << FindingsText(document);
  }
}

TEST(RefusedFiles, HaveAnErrorAndNotOnlyNotes) {
  for (const RefusedFile& refused : RefusedFiles()) {
    if (!IsForItsStructure(refused)) continue;
    const std::vector<Finding> findings = Document::Read(refused.file.path).Findings();
    EXPECT_TRUE(std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
      return finding.severity == Severity::kError;
    })) << refused.file.name;
  }
}

}  // namespace
}  // namespace klepur::test
