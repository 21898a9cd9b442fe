#include <klepur/document/node_index.h>

#include <algorithm>

namespace klepur::internal {
namespace {

constexpr std::size_t kFewestSlots = 64;

std::uint32_t Folded(std::uint64_t hash) {
  return static_cast<std::uint32_t>(hash >> 32) ^ static_cast<std::uint32_t>(hash);
}

}  // namespace

void NodeIndex::Update(const SyntaxTree& tree, const KeysOf& keys_of) {
  changed_.ForEach(
      tree, [] {},
      [&](NodeId id) { keys_of(id, [&](std::uint64_t hash) { Insert(Folded(hash), id); }); });
}

std::vector<NodeId> NodeIndex::Candidates(std::uint64_t hash) const {
  std::vector<NodeId> found;
  if (slots_.empty()) return found;
  const Slot& slot = slots_[SlotOf(Folded(hash))];
  if (slot.id == kNoNode) return found;
  found.push_back(slot.id);
  for (std::uint32_t at = slot.more; at != kNoMore; at = more_[at].more) {
    found.push_back(more_[at].id);
  }
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

std::uint64_t NodeIndex::HashOf(std::string_view key, std::uint64_t seed) {
  std::uint64_t hash = 14695981039346656037U ^ (seed * 0x9E3779B97F4A7C15U);
  for (const char byte : key) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  }
  hash ^= hash >> 29;
  hash *= 0xBF58476D1CE4E5B9U;
  return hash ^ (hash >> 32);
}

std::size_t NodeIndex::SlotOf(std::uint32_t hash) const {
  std::size_t at = hash & (slots_.size() - 1);
  while (slots_[at].id != kNoNode && slots_[at].hash != hash) at = (at + 1) & (slots_.size() - 1);
  return at;
}

void NodeIndex::Insert(std::uint32_t hash, NodeId id) {
  if (used_ * 2 >= slots_.size()) Grow();
  Slot& slot = slots_[SlotOf(hash)];
  if (slot.id == id) return;
  if (slot.id == kNoNode) {
    slot = {hash, id, kNoMore};
    ++used_;
    return;
  }
  more_.push_back({slot.id, slot.more});
  slot.id = id;
  slot.more = static_cast<std::uint32_t>(more_.size() - 1);
}

void NodeIndex::Grow() {
  std::vector<Slot> old(slots_.empty() ? kFewestSlots : slots_.size() * 2);
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.id != kNoNode) slots_[SlotOf(slot.hash)] = slot;
  }
}

}  // namespace klepur::internal
