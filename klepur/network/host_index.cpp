#include <klepur/network/host_index.h>

#include <klepur/document/key_table.h>
#include <klepur/network/node_kinds.h>

#include <algorithm>
#include <cstdint>

namespace klepur::internal {
namespace {

bool IsOfHost(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStatement &&
         KindOf(state, state.tree[id].parent) == BlockRole::kHost;
}

std::uint64_t HashOf(std::string_view key) {
  return KeyTable::HashOf(key);
}

}  // namespace

std::vector<NodeId> HostIndex::Find(const DocumentState& state, std::string_view key) {
  Update(state);
  std::vector<NodeId> hosts =
      table_.Find(HashOf(key), [&](NodeId id) { return Look(state, id, key); });
  for (NodeId& id : hosts) id = state.tree[id].parent;
  std::sort(hosts.begin(), hosts.end());
  hosts.erase(std::unique(hosts.begin(), hosts.end()), hosts.end());
  return hosts;
}

void HostIndex::Update(const DocumentState& state) {
  NodeId entered = kNoNode;
  const UseKey enter = [&](std::string_view key) { table_.Insert(HashOf(key), entered); };
  upkeep_.Update(state.tree, table_, [&](NodeId id) {
    if (!IsOfHost(state, id)) return;
    entered = id;
    ForEachHostKey(kind_, state.OwnText(id), enter);
  });
}

KeyTable::Has HostIndex::Look(const DocumentState& state, NodeId id, std::string_view key) const {
  KeyTable::Has has = KeyTable::Has::kNeither;
  if (!IsOfHost(state, id) || state.tree.IsGone(id)) return has;
  const std::uint32_t hash = KeyTable::Folded(HashOf(key));
  ForEachHostKey(kind_, state.OwnText(id), [&](std::string_view other) {
    if (KeyTable::Folded(HashOf(other)) != hash) return;
    has = std::max(has, other == key ? KeyTable::Has::kKey : KeyTable::Has::kHash);
  });
  return has;
}

}  // namespace klepur::internal
