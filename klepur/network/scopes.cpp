#include <klepur/network/scopes.h>

#include <klepur/network/node_kinds.h>

#include <algorithm>

namespace klepur::internal {
namespace {

std::vector<NodeId> Chain(const DocumentState& state, NodeId block) {
  std::vector<NodeId> chain = {block};
  if (block == kRoot || KindOf(state, block) == BlockRole::kService) return chain;
  for (NodeId id = state.tree[block].parent; id != kRoot; id = state.tree[id].parent) {
    const BlockRole kind = KindOf(state, id);
    if (kind != BlockRole::kOther && kind != BlockRole::kService) chain.push_back(id);
  }
  chain.push_back(kRoot);
  return chain;
}

}  // namespace

Scopes::Scopes(const DocumentState& state, NodeId block) : scopes_(Chain(state, block)) {}

void Scopes::AddBehind(const DocumentState& state, NodeId block) {
  const std::vector<NodeId> chain = Chain(state, block);
  const auto is_in_chain = [&](NodeId id) {
    return std::find(chain.begin(), chain.end(), id) != chain.end();
  };
  scopes_.erase(std::remove_if(scopes_.begin(), scopes_.end(), is_in_chain), scopes_.end());
  scopes_.insert(scopes_.end(), chain.begin(), chain.end());
}

}  // namespace klepur::internal
