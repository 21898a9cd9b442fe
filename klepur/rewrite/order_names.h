// Internal: for which statements and blocks it counts which of them comes first.
#ifndef KLEPUR_REWRITE_ORDER_NAMES_H
#define KLEPUR_REWRITE_ORDER_NAMES_H

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// What a statement or block has to do with a thing.
enum class OrderRole : std::uint8_t {
  kUses,     ///< Must stand on its side of those that give the thing its meaning.
  kEnables,  ///< Gives it its meaning, as do others in whatever order.
  kSets,     ///< Gives it a meaning in place of what others gave it.
};

struct OrderName {
  std::string
      thing;  ///< `class printers`, `value option routers 17`: comparable, for nobody to read.
  OrderRole role;
};

/// - What is referred to stands before the reference: classes, keys, zones, failover peers, named groups,
///   option spaces and definitions; in a shared network the subnets before pools.
/// - The last of several statements that set the same thing counts, in branches of an "if" too.
/// - Subnets take over whether the server is authoritative where they begin.
/// - What is carried out happens in its order: variables, "break", "log", "execute", a switch.
/// - An earlier class comes before a later one where both set the same.
/// - An included file can hold all of these.
class OrderNames {
 public:
  /// Keeps the state, which must not change meanwhile. Cost: linear.
  explicit OrderNames(const DocumentState& state);

  /// The things that the order of a node counts for. Those below it have their own.
  std::vector<OrderName> Of(NodeId id) const;

 private:
  using Words = std::vector<std::string_view>;

  Words WordsOf(NodeId id) const;
  NodeId ScopeAround(NodeId id) const { return scope_[state_.tree[id].parent]; }
  void Survey(NodeId id);
  bool IsBranch(NodeId id) const;
  bool IsInSwitch(NodeId id) const;

  const DocumentState& state_;
  std::vector<NodeId> scope_;            ///< Where the values end up that are set in a block.
  std::unordered_set<NodeId> breaking_;  ///< The scopes that a "break" can end.
  std::unordered_set<NodeId>
      authorities_;  ///< The blocks that say whether the server is authoritative.
  std::unordered_set<std::string> options_;    ///< Those that the text defines.
  std::unordered_set<std::string> variables_;  ///< Those that are set.
  bool includes_ = false;

  friend class NamesOfNode;
};

}  // namespace klepur::internal

#endif
