#include <klepur/document/child_index.h>

#include <cstdint>
#include <mutex>
#include <string>

#include <klepur/document/document_state.h>
#include <klepur/document/node_text.h>

namespace klepur::internal {
namespace {

std::uint64_t HashOf(NodeId block, std::string_view key) {
  return KeyTable::HashOf(key, block);
}

}  // namespace

std::vector<NodeId> ChildIndex::Find(const DocumentState& state, NodeId block,
                                     std::string_view key) {
  Update(state);
  if (blocks_.count(block) == 0) {
    for (NodeId id = state.tree.FirstChild(block); id != kNoNode; id = state.tree[id].next) {
      Enter(state, id);
    }
    blocks_.insert(block);
  }
  const std::uint64_t hash = HashOf(block, key);
  return table_.Find(hash, [&](NodeId id) {
    if (state.tree[id].gone || state.IsComment(id)) return KeyTable::Has::kNeither;
    const NodeId parent = state.tree[id].parent;
    const std::string_view text = state.OwnText(id);
    if (parent == block && HasKey(text, key)) return KeyTable::Has::kKey;
    return KeyTable::Folded(HashOf(parent, KeyOf(text))) == KeyTable::Folded(hash)
               ? KeyTable::Has::kHash
               : KeyTable::Has::kNeither;
  });
}

void ChildIndex::Update(const DocumentState& state) {
  if (generation_ != state.tree.Generation()) {
    *this = ChildIndex();
    generation_ = state.tree.Generation();
  }
  const std::vector<NodeId>& noted = state.tree.Noted();
  if (blocks_.empty()) seen_ = noted.size();
  for (; seen_ != noted.size(); ++seen_) {
    const NodeId top = noted[seen_];
    if (state.tree.IsGone(top)) continue;
    for (NodeId id = top; id != kNoNode; id = state.tree.NextInOrder(id, top)) {
      if (blocks_.count(state.tree[id].parent) != 0) Enter(state, id);
    }
  }
}

void ChildIndex::Enter(const DocumentState& state, NodeId id) {
  if (state.IsComment(id)) return;
  table_.Insert(HashOf(state.tree[id].parent, KeyOf(state.OwnText(id))), id);
}

std::vector<NodeId> ChildrenWithKey(const DocumentState& state, NodeId block,
                                    std::string_view key) {
  const std::lock_guard<std::mutex> lock(state.lazy);
  return state.children.Find(state, block, key);
}

}  // namespace klepur::internal
