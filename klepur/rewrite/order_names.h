// Internal: for which statements and blocks it counts which of them comes first.
#ifndef KLEPUR_REWRITE_ORDER_NAMES_H
#define KLEPUR_REWRITE_ORDER_NAMES_H

#include <array>
#include <cstddef>
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

/// The sorts of things: for most of them the first word of a statement tells whether it has to do with one.
enum class ThingSort : std::uint8_t {
  kClass,
  kKey,
  kZone,
  kPeer,
  kGroup,
  kSpace,       ///< Of options.
  kDefinition,  ///< Of an option.
  kInclude,     ///< What included files declare.
  kHardware,
  kSubnet,  ///< Of a shared network.
  kAuthority,
  // Of a scope:
  kIncluded,  ///< What included files set there.
  kValue,
  kVariable,
  kEvent,
  kDoing,
  kFlow,
  kSwitch,
};

struct OrderName {
  /// A number for the sort, the name and where it holds: of 64 bits, so that no two things have the same.
  std::uint64_t thing;
  OrderRole role;
  ThingSort sort;
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
  /// `disordered` says of which blocks the children change their order: in scopes without such blocks the order
  /// of what is set there stays. Keeps the state, which must not change meanwhile. Cost: linear.
  OrderNames(const DocumentState& state, const std::vector<bool>& disordered);

  /// From now on names are given of these sorts only, and of scopes that one of these nodes is in.
  void Limit(const std::vector<bool>& sorts, const std::vector<NodeId>& nodes);
  static constexpr std::size_t kSorts = static_cast<std::size_t>(ThingSort::kSwitch) + 1;

  /// The things that the order of a node counts for, until the next call. Those below it have their own.
  const std::vector<OrderName>& Of(NodeId id);

 private:
  void Survey(NodeId id);
  void SurveyStatement(NodeId id);
  bool IsBranch(NodeId id) const;
  bool IsInSwitch(NodeId id) const;
  bool Wants(ThingSort sort) const { return wanted_[static_cast<std::size_t>(sort)]; }
  void WantFirstWords();
  bool MayHaveNames(NodeId id) const;
  bool Matters(NodeId scope) const { return scope == kClasses || matters_[scope]; }
  NodeId ScopeAround(NodeId id) const { return scope_[state_.tree[id].parent]; }

  /// The scope of all classes, which a client can be in several of.
  static constexpr NodeId kClasses = kNoNode - 1;

  const DocumentState& state_;
  std::vector<NodeId> scope_;            ///< Where the values end up that are set in a block.
  std::vector<bool> matters_;            ///< The scopes that names are given of.
  std::vector<bool> wanted_;             ///< The sorts.
  std::unordered_set<NodeId> breaking_;  ///< The scopes that a "break" can end.
  std::unordered_set<NodeId>
      authorities_;  ///< The blocks that say whether the server is authoritative.
  std::unordered_set<std::string> options_;    ///< Those that the text defines.
  std::unordered_set<std::string> variables_;  ///< Those that are set.
  bool includes_ = false;
  bool anywhere_ = true;  ///< Whether any statement can have a name that is wanted.
  std::array<bool, 256> first_bytes_ = {};  ///< Of the statements elsewhere that can.
  std::vector<std::string_view> words_;
  std::vector<OrderName> names_;

  friend class NamesOfNode;
};

}  // namespace klepur::internal

#endif
