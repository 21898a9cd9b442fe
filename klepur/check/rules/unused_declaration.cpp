// Classes, failover peers, groups, keys and options that are declared for nothing.
#include <klepur/check/rules/references.h>
#include <klepur/check/rules/rules.h>

#include <klepur/check/option_names.h>
#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>

#include <algorithm>
#include <string>

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

/// The space that a definition encapsulates, or else the one that its option is of; empty when it is that of all.
std::string SpaceAround(std::string_view definition, std::string_view name) {
  WordsOfText words(definition);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (EqualButForCase(word, "encapsulate"))
      return OptionNames::SpaceOf(std::string(words.Next()) + ".");
  }
  return name.find('.') == std::string_view::npos ? std::string() : OptionNames::SpaceOf(name);
}

bool IsOptionOfServer(std::string_view name) {
  return FindTwoWords("option", name) != nullptr;
}

/// Whether an option holds those of a space, or is one of a space, of which some option is in use.
bool IsForOthers(const Facts& facts, const NamedFact& option) {
  const std::string space = SpaceAround(facts.state.OwnText(option.node), option.name);
  return !space.empty() &&
         std::any_of(facts.option_uses.begin(), facts.option_uses.end(), [&](const NamedFact& use) {
           return use.name.find('.') != std::string_view::npos &&
                  OptionNames::SpaceOf(use.name) == space;
         });
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
  std::vector<NamedFact> own;
  for (const NamedFact& option : facts.option_definitions) {
    if (!IsOptionOfServer(option.name) && !IsForOthers(facts, option)) own.push_back(option);
  }
  ReportUnused(facts, own, {&facts.option_uses}, Case::kIgnored, "option", report);
}

}  // namespace klepur::internal
