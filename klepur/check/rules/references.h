// Internal: names that statements refer to, and what declares them.
#ifndef KLEPUR_CHECK_RULES_REFERENCES_H
#define KLEPUR_CHECK_RULES_REFERENCES_H

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <klepur/check/facts.h>
#include <klepur/check/report.h>
#include <klepur/document/document.h>
#include <klepur/document/node_text.h>
#include <klepur/text/letters.h>

namespace klepur::internal {

enum class Case { kMatters, kIgnored };

/// A name without its quotes, in small letters where the case does not matter.
inline std::string Spelled(std::string_view name, Case letters) {
  std::string spelled = WithoutQuotes(name);
  if (letters == Case::kIgnored) {
    std::transform(spelled.begin(), spelled.end(), spelled.begin(), ToSmallLetter);
  }
  return spelled;
}

/// How many bytes of the text stand before a node.
inline std::size_t OffsetOf(const DocumentState& state, NodeId id) {
  const std::lock_guard<std::mutex> lock(state.lazy);
  state.positions.Update(state.text);
  return state.positions.OffsetOf(state.text, state.Begin(id));
}

/// The first declaration of each name.
class Declarations {
 public:
  Declarations(const std::vector<NamedFact>& facts, Case letters) : letters_(letters) {
    for (const NamedFact& fact : facts) nodes_.try_emplace(Spelled(fact.name, letters), fact.node);
  }

  /// kNoNode when there is none.
  NodeId Find(std::string_view name) const {
    const auto found = nodes_.find(Spelled(name, letters_));
    return found == nodes_.end() ? kNoNode : found->second;
  }

 private:
  Case letters_;
  std::unordered_map<std::string, NodeId> nodes_;
};

/// Reports each use of a name that nothing declares, or only something behind it. An included file before the
/// use may have declared it.
inline void ReportUndeclared(const Facts& facts, const std::vector<NamedFact>& uses,
                             const Declarations& declarations, std::string_view what,
                             Report& report) {
  if (uses.empty()) return;
  const std::size_t include = facts.includes.empty()
                                  ? facts.state.text.Size()
                                  : OffsetOf(facts.state, facts.includes.front().node);
  for (const NamedFact& use : uses) {
    const std::size_t offset = OffsetOf(facts.state, use.node);
    if (offset > include) break;
    const NodeId declared = declarations.Find(use.name);
    if (declared != kNoNode && OffsetOf(facts.state, declared) <= offset) continue;
    report.Add({.node = use.node,
                .message = "the " + std::string(what) + ' ' + WithoutQuotes(use.name) +
                           (declared == kNoNode ? " is not declared" : " is declared below only"),
                .at = use.name,
                .other = declared});
  }
}

/// Reports each whole declaration of a name that nothing uses. An included file may use it, and so may a
/// statement that is malformed.
inline void ReportUnused(const Facts& facts, const std::vector<NamedFact>& declarations,
                         const std::vector<const std::vector<NamedFact>*>& uses, Case letters,
                         std::string_view what, Report& report) {
  if (declarations.empty() || !facts.includes.empty()) return;
  if (report.HasErrors() || facts.state.malformed) return;
  std::unordered_set<std::string> used;
  for (const std::vector<NamedFact>* const some : uses) {
    for (const NamedFact& use : *some) used.insert(Spelled(use.name, letters));
  }
  for (const NamedFact& declaration : declarations) {
    const bool broken = facts.state.tree[declaration.node].unfinished != 0;
    if (broken || used.count(Spelled(declaration.name, letters)) != 0) continue;
    report.Add({.node = declaration.node,
                .message = "the " + std::string(what) + ' ' + WithoutQuotes(declaration.name) +
                           " is never used"});
  }
}

}  // namespace klepur::internal

#endif
