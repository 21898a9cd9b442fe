// Any text, checked.
//
// What is checked:
// - A check of it comes to an end, for each family and for none.
// - Findings come in the order of the text and name places in it, with their rule and its severity.
// - A check in steps finds the same.
// - A rule that is off finds nothing, and the others what they found.
// - Each mend fits; applied by itself, the document is read again as what it holds, or the mend is refused and
//   leaves the text as it was.
#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>
#include <klepur/document/document.h>
#include <klepur/text/error.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/document_outline.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/text.h"

namespace klepur::fuzz {
namespace {

std::string Lines(const std::vector<CheckFinding>& findings, std::string_view without = {}) {
  std::string lines;
  for (const CheckFinding& finding : findings) {
    if (finding.rule != without) lines += ToText(finding) + "\n";
  }
  return lines;
}

void CheckFindings(const std::vector<CheckFinding>& findings, std::size_t lines) {
  Position before = {0, 0};
  for (const CheckFinding& finding : findings) {
    const Position where = finding.place.where;
    Require(!(where < before), "findings stand in the order of the text");
    Require(where.line >= 1 && where.line <= lines && where.column >= 1,
            "findings stand in the text");
    before = where;
    const auto rule = FindCheckRule(finding.rule);
    Require(rule.has_value(), "findings are of a rule");
    Require(rule->severity == finding.severity, "findings have the severity of their rule");
    Require(!finding.message.empty(), "findings say something");
    Require(!finding.other || finding.other->where.line <= lines, "the other place is in the text");
  }
}

void CheckMends(Document& document, const std::vector<CheckFinding>& findings,
                const std::string& text) {
  constexpr std::size_t kMost = 8;
  std::size_t tried = 0;
  for (const CheckFinding& finding : findings) {
    if (!finding.mend || ++tried > kMost) continue;
    Require(finding.mend->Fits(document), "a mend fits the document that it is for");
    const Document::Mark mark = document.GetMark();
    try {
      finding.mend->Apply(document);
      RequireSame("what is mended", OutlineOf(Document(document.Text())), OutlineOf(document));
      document.RollBack(mark);
    } catch (const Error&) {
    }
    RequireSame("the text of before", text, document.Text());
  }
}

void Check(const std::string& text) {
  Document document(text);
  const std::vector<CheckFinding> findings = klepur::Check(document);
  CheckFindings(findings, fuzz::Lines(text).size());
  for (const Family family : {Family::kDhcp4, Family::kDhcp6}) {
    CheckOptions options;
    options.family = family;
    CheckFindings(klepur::Check(document, options), fuzz::Lines(text).size());
  }
  Checker checker(document);
  while (checker.Step()) {
  }
  RequireSame("a check in steps", Lines(findings), Lines(checker.Findings()));
  // Not that of an error: without errors in the file, notes on what is not used are told.
  const auto other = std::find_if(
      findings.begin(), findings.end(),
      [](const CheckFinding& finding) { return finding.severity != Severity::kError; });
  if (other != findings.end()) {
    CheckOptions options;
    options.off.emplace_back(other->rule);
    RequireSame("without a rule", Lines(findings, other->rule),
                Lines(klepur::Check(document, options)));
  }
  CheckMends(document, findings, text);
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
