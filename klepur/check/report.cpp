#include <klepur/check/report.h>

#include <algorithm>
#include <mutex>
#include <utility>

#include <klepur/document/node_access.h>

namespace klepur::internal {

void Report::AddOf(std::size_t rule, Draft draft) {
  if (rule == kRuleCount || silent_[rule]) return;
  CheckFinding finding;
  finding.message = std::move(draft.message);
  finding.mend = std::move(draft.mend);
  PieceText::Edge edge = state_.Begin(draft.node);
  if (!draft.at.empty()) {
    const std::string_view own = state_.OwnText(draft.node);
    edge = state_.text.Before(state_.tree[draft.node].begin +
                              static_cast<TextAddress>(draft.at.data() - own.data()));
  }
  finding.place = {state_.path, PositionOf(edge)};
  if (draft.other != kNoNode) {
    finding.other = FilePosition{state_.path, PositionOf(state_.Begin(draft.other))};
  }
  Enter(rule, std::move(finding));
}

void Report::AddAt(std::string_view rule, NodeId node, Position where, std::string message,
                   std::optional<Mend> mend) {
  const std::size_t number = RuleNumber(rule);
  if (number == kRuleCount || silent_[number]) return;
  CheckFinding finding;
  finding.message = std::move(message);
  finding.mend = std::move(mend);
  finding.place = {state_.path, where};
  Enter(number, std::move(finding));
  entries_.back().node = node;
}

void Report::Enter(std::size_t rule, CheckFinding finding) {
  finding.rule = kRules[rule].name;
  finding.severity = kRules[rule].severity;
  has_errors_ = has_errors_ || finding.severity == Severity::kError;
  entries_.push_back({static_cast<std::uint32_t>(rule), std::move(finding), kRoot});
}

Position Report::PositionOf(PieceText::Edge edge) const {
  const std::lock_guard<std::mutex> lock(state_.lazy);
  state_.positions.Update(state_.text);
  return state_.positions.Of(state_.text, edge);
}

Node Report::Handle(NodeId id) const {
  return NodeAccess::Make(&state_, id);
}

void Report::Allow(NodeId node, std::vector<std::size_t> rules) {
  allowed_.push_back(
      {PositionOf(state_.Begin(node)), PositionOf(state_.End(node)), std::move(rules)});
}

/// Whether a finding with a place of its own is about something below a comment that allows it.
bool Report::IsAllowedOf(const Entry& entry) const {
  if (entry.node == kRoot) return false;
  const Position begin = PositionOf(state_.Begin(entry.node));
  return std::any_of(allowed_.begin(), allowed_.end(), [&](const Allowed& allowed) {
    return !(begin < allowed.begin) && begin < allowed.end &&
           std::find(allowed.rules.begin(), allowed.rules.end(), entry.rule) != allowed.rules.end();
  });
}

/// What is allowed is a tree, as its nodes are: those around a place are a stack.
void Report::DropAllowed() {
  std::vector<const Allowed*> around;
  auto next = allowed_.begin();
  const auto is_allowed = [&](const Entry& entry) {
    const Position where = entry.finding.place.where;
    for (; next != allowed_.end() && !(where < next->begin); ++next) {
      while (!around.empty() && !(next->begin < around.back()->end)) around.pop_back();
      around.push_back(&*next);
    }
    while (!around.empty() && !(where < around.back()->end)) around.pop_back();
    return std::any_of(around.begin(), around.end(), [&](const Allowed* allowed) {
      return std::find(allowed->rules.begin(), allowed->rules.end(), entry.rule) !=
             allowed->rules.end();
    });
  };
  std::vector<Entry> kept;
  for (Entry& entry : entries_) {
    if (!is_allowed(entry) && !IsAllowedOf(entry)) kept.push_back(std::move(entry));
  }
  entries_ = std::move(kept);
}

Mend Report::Rewrite(NodeId id, std::string_view at, std::string_view instead) const {
  const std::string_view own = state_.OwnText(id);
  std::string text(own);
  text.replace(static_cast<std::size_t>(at.data() - own.data()), at.size(), instead);
  return Mend::Replace(Handle(id), std::move(text), "write \"" + std::string(instead) + "\"");
}

std::vector<CheckFinding> Report::Take() {
  std::stable_sort(entries_.begin(), entries_.end(), [](const Entry& left, const Entry& right) {
    if (left.finding.place.where != right.finding.place.where) {
      return left.finding.place.where < right.finding.place.where;
    }
    return left.rule < right.rule;
  });
  if (!allowed_.empty()) DropAllowed();
  // Reading the structure and reading a value may find the same.
  const auto same = [](const Entry& left, const Entry& right) {
    return left.rule == right.rule && left.finding.place.where == right.finding.place.where &&
           left.finding.message == right.finding.message;
  };
  entries_.erase(std::unique(entries_.begin(), entries_.end(), same), entries_.end());
  std::vector<CheckFinding> findings;
  findings.reserve(entries_.size());
  for (Entry& entry : entries_) findings.push_back(std::move(entry.finding));
  entries_.clear();
  return findings;
}

}  // namespace klepur::internal
