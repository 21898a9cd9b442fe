// Classes, failover peers, groups, keys and options that are declared for nothing.
#include <klepur/check/rules/references.h>
#include <klepur/check/rules/rules.h>

#include <klepur/document/words_of_text.h>

namespace klepur::internal {
namespace {

/// Whether a class does no more than say who is in it.
bool OnlyMatches(const DocumentState& state, NodeId block) {
  for (NodeId id = state.tree.FirstChild(block); id != kNoNode; id = state.tree[id].next) {
    if (state.IsComment(id)) continue;
    const std::string_view word = FirstWord(state.OwnText(id));
    if (!EqualButForCase(word, "match") && !EqualButForCase(word, "spawn")) return false;
  }
  return true;
}

/// Whether a group has blocks of its own, which its statements are for.
bool HoldsBlocks(const DocumentState& state, NodeId block) {
  NodeId id = state.tree.FirstChild(block);
  while (id != kNoNode && !state.IsBlock(id)) id = state.tree[id].next;
  return id != kNoNode;
}

}  // namespace

void UnusedClass(const Facts& facts, Report& report) {
  std::vector<NamedFact> plain;
  for (const NamedFact& one : facts.classes) {
    if (OnlyMatches(facts.state, one.node)) plain.push_back(one);
  }
  ReportUnused(facts, plain, {&facts.class_uses}, Case::kMatters, "class", report);
}

void UnusedFailoverPeer(const Facts& facts, Report& report) {
  ReportUnused(facts, facts.failover_peers, {&facts.failover_peer_uses}, Case::kMatters,
               "failover peer", report);
}

void UnusedGroup(const Facts& facts, Report& report) {
  std::vector<NamedFact> empty;
  for (const NamedFact& one : facts.groups) {
    if (!HoldsBlocks(facts.state, one.node)) empty.push_back(one);
  }
  ReportUnused(facts, empty, {&facts.group_uses}, Case::kMatters, "group", report);
}

void UnusedKey(const Facts& facts, Report& report) {
  ReportUnused(facts, facts.keys, {&facts.key_uses}, Case::kIgnored, "key", report);
}

void UnusedOption(const Facts& facts, Report& report) {
  ReportUnused(facts, facts.option_definitions, {&facts.option_uses}, Case::kIgnored, "option",
               report);
}

}  // namespace klepur::internal
