#include <klepur/network/scope_index.h>

#include <klepur/document/node_index.h>
#include <klepur/network/node_kinds.h>
#include <klepur/network/parameter.h>

#include <algorithm>
#include <cstdint>

namespace klepur::internal {
namespace {

/// Of the others the statements are found by walking: they hold few other things.
bool IsIndexed(const DocumentState& state, NodeId block) {
  if (block == kRoot) return true;
  const BlockKind kind = KindOf(state, block);
  return kind == BlockKind::kGroup || kind == BlockKind::kSharedNetwork ||
         kind == BlockKind::kSubnet || kind == BlockKind::kPool;
}

std::uint64_t HashOf(NodeId block, std::string_view key) {
  return NodeIndex::HashOf(key, block);
}

/// What all inherited statements of a block are entered under. No parameter has this key.
constexpr std::string_view kAllInherited = "*";

bool IsIn(const DocumentState& state, NodeId id, NodeId block) {
  return IsLiveStatement(state, id) && state.tree[id].parent == block;
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
  Update(state);
  std::vector<NodeId> found = table_.Find(
      HashOf(block, key), [&](NodeId id) { return IsIn(state, id, block) && sets(id); });
  SortByPlace(state, found);
  return found;
}

std::vector<NodeId> ScopeIndex::Inherited(const DocumentState& state, NodeId block) {
  const auto is_inherited = [&](NodeId id) { return ParameterOf(state, id).inherited; };
  if (!IsIndexed(state, block)) return Walked(state, block, is_inherited);
  Update(state);
  std::vector<NodeId> found = table_.Find(HashOf(block, kAllInherited), [&](NodeId id) {
    return IsIn(state, id, block) && is_inherited(id);
  });
  SortByPlace(state, found);
  return found;
}

void ScopeIndex::Update(const DocumentState& state) {
  upkeep_.Update(state.tree, table_, [&](NodeId id) {
    if (state.tree[id].kind != NodeKind::kStatement) return;
    const NodeId block = state.tree[id].parent;
    if (!IsIndexed(state, block)) return;
    const Parameter parameter = ParameterOf(state, id);
    table_.Insert(HashOf(block, parameter.key), id);
    if (parameter.inherited) table_.Insert(HashOf(block, kAllInherited), id);
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
