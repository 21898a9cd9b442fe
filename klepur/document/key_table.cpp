#include <klepur/document/key_table.h>

#include <algorithm>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::size_t kFewestSlots = 64;

/// How many entries ahead memory is fetched.
constexpr std::uint32_t kAhead = 16;

}  // namespace

std::uint64_t KeyTable::HashOf(std::string_view key, std::uint64_t seed) {
  std::uint64_t hash = 14695981039346656037U ^ (seed * 0x9E3779B97F4A7C15U);
  for (const char byte : key) {
    hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
  }
  hash ^= hash >> 29;
  hash *= 0xBF58476D1CE4E5B9U;
  return hash ^ (hash >> 32);
}

void KeyTable::Settle() {
  if (waiting_.empty()) return;
  ReserveSlots(taken_ + waiting_.size() - settled_);
  for (; settled_ < waiting_.size(); ++settled_) {
    if (waiting_.size() - settled_ > kAhead) {
      __builtin_prefetch(&slots_[HomeOf(waiting_[settled_ + kAhead].hash)], 1);
    }
    Put(waiting_[settled_]);
  }
  waiting_ = {};
  settled_ = 0;
}

void KeyTable::Put(const Waiting& entry) {
  Slot& slot = slots_[SlotOf(entry.hash)];
  if (slot.id == kNoNode) {
    slot = {entry.hash, entry.id, kNone};
    ++taken_;
  } else {
    if (first_free_ == kNone) {
      more_.push_back({kNoNode, kNone});
      first_free_ = static_cast<std::uint32_t>(more_.size() - 1);
    }
    const std::uint32_t more = std::exchange(first_free_, more_[first_free_].more);
    more_[more] = {slot.id, slot.more};
    slot.id = entry.id;
    slot.more = more;
  }
  ++count_;
}

/// The nodes of a hash in the order of their making, as often as they were entered.
std::vector<NodeId> KeyTable::Entered(std::uint32_t hash) const {
  std::vector<NodeId> ids;
  if (slots_.empty()) return ids;
  const Slot& slot = slots_[SlotOf(hash)];
  if (slot.id == kNoNode) return ids;
  ids.push_back(slot.id);
  for (std::uint32_t at = slot.more; at != kNone; at = more_[at].more) ids.push_back(more_[at].id);
  std::sort(ids.begin(), ids.end());
  return ids;
}

/// Keeps these of the nodes of a hash, of which there were more.
void KeyTable::Replace(std::uint32_t hash, const std::vector<NodeId>& ids) noexcept {
  const std::uint32_t at = SlotOf(hash);
  std::uint32_t dropped = slots_[at].more;
  --count_;
  if (ids.empty()) {
    Empty(at);
  } else {
    slots_[at].id = ids.front();
    std::uint32_t* link = &slots_[at].more;
    for (auto id = ids.begin() + 1; id != ids.end(); ++id) {
      more_[*link].id = *id;
      link = &more_[*link].more;
    }
    dropped = std::exchange(*link, kNone);
    ++count_;
  }
  while (dropped != kNone) {
    const std::uint32_t next = more_[dropped].more;
    more_[dropped] = {kNoNode, first_free_};
    first_free_ = std::exchange(dropped, next);
    --count_;
  }
}

/// The slot of a hash, or the empty one where it would stand.
std::uint32_t KeyTable::SlotOf(std::uint32_t hash) const {
  std::uint32_t slot = HomeOf(hash);
  while (slots_[slot].id != kNoNode && slots_[slot].hash != hash) slot = Behind(slot);
  return slot;
}

/// Empties a slot and moves the ones behind it up, so that no search stops at the gap.
void KeyTable::Empty(std::uint32_t slot) noexcept {
  for (std::uint32_t next = Behind(slot); slots_[next].id != kNoNode; next = Behind(next)) {
    const std::uint32_t mask = slots_.size() - 1;
    if (((next - HomeOf(slots_[next].hash)) & mask) < ((next - slot) & mask)) continue;
    slots_[slot] = slots_[next];
    slot = next;
  }
  slots_[slot] = {};
  --taken_;
}

/// Makes room for so many hashes.
void KeyTable::ReserveSlots(std::size_t count) {
  std::size_t size = std::max<std::size_t>(kFewestSlots, slots_.size());
  while (size < 2 * count) size *= 2;
  if (size == slots_.size()) return;
  LargeArray<Slot> slots;
  slots.reserve(size);
  for (std::size_t i = 0; i != size; ++i) slots.push_back({});
  std::swap(slots_, slots);
  for (const Slot& slot : slots) {
    if (slot.id != kNoNode) slots_[SlotOf(slot.hash)] = slot;
  }
}

}  // namespace klepur::internal
