#include <klepur/lookup/known_node.h>
#include <klepur/lookup/node_table.h>

#include <cstddef>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::size_t kFewestSlots = 16;

// Only its address counts.
alignas(KnownNode) constexpr std::byte kNoNode = {};

}  // namespace

KnownNode* const NodeTable::kSeveral =
    reinterpret_cast<KnownNode*>(const_cast<std::byte*>(&kNoNode));

bool NodeTable::FileOrder::operator()(const KnownNode* a, const KnownNode* b) const {
  const KnownNode* x = a;
  const KnownNode* y = b;
  while (x->depth > y->depth) x = x->parent;
  while (y->depth > x->depth) y = y->parent;
  if (x == y) return a->depth < b->depth;  // one is in the other, or they are the same
  while (x->parent != y->parent) {
    x = x->parent;
    y = y->parent;
  }
  return x->ordinal < y->ordinal;
}

void NodeTable::Reserve(std::size_t count) {
  std::size_t size = std::max(kFewestSlots, slots_.size());
  while (3 * count > 2 * size) size *= 2;
  if (size != slots_.size()) Resize(size);
}

void NodeTable::Insert(std::size_t hash, KnownNode* node) {
  Reserve(taken_ + 1);
  Slot& slot = slots_[Find(hash)];
  if (slot.node == nullptr) {
    slot = {hash, node};
    ++taken_;
  } else if (slot.node == kSeveral) {
    Same& nodes = same_.at(hash);
    nodes.insert(nodes.end(), node);
  } else if (slot.node != node) {
    same_.emplace(hash, Same{slot.node, node});
    slot.node = kSeveral;
  }
}

void NodeTable::Erase(std::size_t hash, KnownNode* node) {
  if (slots_.empty()) return;
  const std::size_t slot = Find(hash);
  if (slots_[slot].node == kSeveral) {
    const auto same = same_.find(hash);
    same->second.erase(node);
    if (!same->second.empty()) return;
    same_.erase(same);
    Empty(slot);
  } else if (slots_[slot].node == node) {
    Empty(slot);
  }
}

/// The slot of a hash, or the empty one where it would stand.
std::size_t NodeTable::Find(std::size_t hash) const {
  std::size_t slot = HomeOf(hash);
  while (slots_[slot].node != nullptr && slots_[slot].hash != hash) slot = Behind(slot);
  return slot;
}

void NodeTable::Resize(std::size_t size) {
  std::vector<Slot> slots(size);
  slots_.swap(slots);
  for (const Slot& slot : slots) {
    if (slot.node != nullptr) slots_[Find(slot.hash)] = slot;
  }
}

/// Empties a slot and moves the ones behind it up, so that no search stops at the gap.
void NodeTable::Empty(std::size_t slot) {
  for (std::size_t next = Behind(slot); slots_[next].node != nullptr; next = Behind(next)) {
    const std::size_t mask = slots_.size() - 1;
    const std::size_t probes = (next - HomeOf(slots_[next].hash)) & mask;
    if (probes < ((next - slot) & mask)) continue;
    slots_[slot] = slots_[next];
    slot = next;
  }
  slots_[slot] = {};
  --taken_;
}

}  // namespace klepur::internal
