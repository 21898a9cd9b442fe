#include <klepur/network/scope_index.h>

#include <klepur/document/key_table.h>
#include <klepur/network/node_kinds.h>
#include <klepur/network/parameter.h>

#include <algorithm>
#include <cstdint>

namespace klepur::internal {
namespace {

/// Of the others the statements are found by walking: they hold few other things.
bool IsIndexed(const DocumentState& state, NodeId block) {
  if (block == kRoot) return true;
  const BlockRole kind = KindOf(state, block);
  return kind == BlockRole::kGroup || kind == BlockRole::kSharedNetwork ||
         kind == BlockRole::kSubnet || kind == BlockRole::kPool;
}

std::uint64_t HashOf(NodeId block, std::string_view key) {
  return KeyTable::HashOf(key, block);
}

/// What all inherited statements of a block are entered under. No parameter has this key.
constexpr std::string_view kAllInherited = "*";

/// Calls `use` with the hash of each entry of a statement in the table.
template <class Use>
void ForEachEntry(NodeId block, const Parameter& parameter, const Use& use) {
  use(HashOf(block, parameter.key));
  if (parameter.inherited) use(HashOf(block, kAllInherited));
}

template <class IsWanted>
std::vector<NodeId> Walked(const DocumentState& state, NodeId block, const IsWanted& is_wanted) {
  std::vector<NodeId> found = StatementsIn(state, block);
  const auto others =
      std::remove_if(found.begin(), found.end(), [&](NodeId id) { return !is_wanted(id); });
  found.erase(others, found.end());
  return found;
}

}  // namespace

std::vector<NodeId> ScopeIndex::Of(const DocumentState& state, NodeId block, std::string_view key) {
  const auto sets = [&](NodeId id) { return ParameterOf(state, id).key == key; };
  if (!IsIndexed(state, block)) return Walked(state, block, sets);
  return Entered(state, block, key, [&](const Parameter& it) { return it.key == key; });
}

std::vector<NodeId> ScopeIndex::Inherited(const DocumentState& state, NodeId block) {
  const auto is_inherited = [&](NodeId id) { return ParameterOf(state, id).inherited; };
  if (!IsIndexed(state, block)) return Walked(state, block, is_inherited);
  return Entered(state, block, kAllInherited, [](const Parameter& it) { return it.inherited; });
}

/// The statements right in a block that are entered under a key and are wanted.
template <class IsWanted>
std::vector<NodeId> ScopeIndex::Entered(const DocumentState& state, NodeId block,
                                        std::string_view key, const IsWanted& is_wanted) {
  Update(state);
  const std::uint64_t hash = HashOf(block, key);
  std::vector<NodeId> found = table_.Find(hash, [&](NodeId id) {
    KeyTable::Has has = KeyTable::Has::kNeither;
    if (!IsLiveStatement(state, id)) return has;
    const NodeId parent = state.tree[id].parent;
    const Parameter parameter = ParameterOf(state, id);
    if (parent == block && is_wanted(parameter)) return KeyTable::Has::kKey;
    ForEachEntry(parent, parameter, [&](std::uint64_t other) {
      if (KeyTable::Folded(other) == KeyTable::Folded(hash)) has = KeyTable::Has::kHash;
    });
    return has;
  });
  SortByPlace(state, found);
  return found;
}

void ScopeIndex::Update(const DocumentState& state) {
  upkeep_.Update(state.tree, table_, [&](NodeId id) {
    if (state.tree[id].kind != NodeKind::kStatement) return;
    const NodeId block = state.tree[id].parent;
    if (!IsIndexed(state, block)) return;
    ForEachEntry(block, ParameterOf(state, id),
                 [&](std::uint64_t hash) { table_.Insert(hash, id); });
  });
}

std::vector<NodeId> StatementsIn(const DocumentState& state, NodeId block) {
  std::vector<NodeId> statements;
  for (NodeId id = state.tree.FirstChild(block); id != kNoNode; id = state.tree[id].next) {
    if (state.tree[id].kind == NodeKind::kStatement) statements.push_back(id);
  }
  return statements;
}

}  // namespace klepur::internal
