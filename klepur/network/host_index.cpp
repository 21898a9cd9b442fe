#include <klepur/network/host_index.h>

#include <klepur/network/node_kinds.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool IsOfHost(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStatement &&
         KindOf(state, state.tree[id].parent) == BlockKind::kHost;
}

bool HasKey(const DocumentState& state, NodeId id, const HostKey& key) {
  if (!IsOfHost(state, id) || state.tree.IsGone(id)) return false;
  bool has = false;
  ForEachHostKey(state.OwnText(id), [&](const HostKey& other) { has = has || other == key; });
  return has;
}

}  // namespace

std::vector<NodeId> HostIndex::Find(const DocumentState& state, const HostKey& key) {
  upkeep_.Update(state.tree, table_, [&](NodeId id) {
    if (!IsOfHost(state, id)) return;
    ForEachHostKey(state.OwnText(id), [&](const HostKey& of) { table_.Insert(of.Hash(), id); });
  });
  std::vector<NodeId> hosts =
      table_.Find(key.Hash(), [&](NodeId id) { return HasKey(state, id, key); });
  for (NodeId& id : hosts) id = state.tree[id].parent;
  std::sort(hosts.begin(), hosts.end());
  hosts.erase(std::unique(hosts.begin(), hosts.end()), hosts.end());
  return hosts;
}

}  // namespace klepur::internal
