#include <klepur/check/structure_rules.h>

#include <klepur/document/findings.h>
#include <klepur/document/node_access.h>
#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

// kEndInBlock only explains kUnclosedBlock, and has no rule.
constexpr std::pair<FindingCode, std::string_view> kRuleOfCode[] = {
    {FindingCode::kBranchWithoutIf, "branch-without-if"},
    {FindingCode::kByteOrderMark, "byte-order-mark"},
    {FindingCode::kEmptyStatement, "empty-statement"},
    {FindingCode::kMissingHeader, "missing-header"},
    {FindingCode::kMissingSemicolon, "missing-semicolon"},
    {FindingCode::kNul, "nul-byte"},
    {FindingCode::kSemicolonBehindBlock, "semicolon-behind-block"},
    {FindingCode::kStrayBrace, "stray-brace"},
    {FindingCode::kUnclosedBlock, "unclosed-block"},
    {FindingCode::kUnclosedQuote, "unclosed-quote"},
    {FindingCode::kUnclosedValue, "unclosed-value"},
};

std::string_view RuleOf(FindingCode code) {
  const auto* const found = std::find_if(std::begin(kRuleOfCode), std::end(kRuleOfCode),
                                         [&](const auto& row) { return row.first == code; });
  return found == std::end(kRuleOfCode) ? std::string_view() : found->second;
}

/// Whether words are what is left of a statement rather than one without its ";".
bool IsLeftOver(std::string_view text) {
  WordsOfText words(text);
  const StructureWord& first = WordOf(NumberOf(words.Next()));
  if (first.begins == Begins::kAlone) return false;
  return first.text.empty() || words.Next().empty();
}

}  // namespace

void ReportStructure(const Document& document, bool look, Report& report) {
  DocumentState& state = *NodeAccess::State(document.Root());
  if (!look && !HoldsNul(state) && state.Inside(kRoot) == state.text.Start()) return;
  std::vector<NodeFinding> findings;
  {
    const std::lock_guard<std::mutex> lock(state.lazy);
    state.positions.Update(state.text);
    findings = FindingsOf(state);
  }
  for (NodeFinding& finding : findings) {
    std::optional<Mend> mend;
    std::string_view rule = RuleOf(finding.code);
    const std::string_view text = state.OwnText(finding.node);
    if (finding.code == FindingCode::kMissingSemicolon) {
      const StructureWord& word = WordOf(NumberOf(FirstWord(text)));
      const NodeId next = state.tree[finding.node].next;
      const bool within = !state.tree[finding.node].unfinished;
      if (word.begins == Begins::kBlock || word.begins == Begins::kChain ||
          word.begins == Begins::kBranch) {
        continue;  // what is missing is its block
      }
      if (within) {
        rule = "swallowed-statement";
      } else if (next == kNoNode && state.tree[finding.node].parent != kRoot && IsLeftOver(text)) {
        rule = "text-before-brace";
        finding.message = "\"" + std::string(text) + "\" before the \"}\" is no whole statement";
      } else {
        mend = Mend::Replace(report.Handle(finding.node), std::string(text) + ";",
                             "write a \";\" behind it");
      }
    } else if (finding.code == FindingCode::kEmptyStatement) {
      mend = Mend::Remove(report.Handle(finding.node), "take out the \";\"");
    }
    report.AddAt(rule, finding.node, finding.where, std::move(finding.message), std::move(mend));
  }
}

}  // namespace klepur::internal
