#include <klepur/network/key_table.h>

namespace klepur::internal {

void KeyTable::Insert(std::uint64_t hash, NodeId id) {
  if (first_free_ == kNone) {
    entries_.push_back({id, kNone});
    first_free_ = static_cast<std::uint32_t>(entries_.size() - 1);
    ++free_count_;
  }
  std::uint32_t& first = first_.try_emplace(hash, kNone).first->second;
  const std::uint32_t taken = first_free_;
  first_free_ = entries_[taken].next;
  --free_count_;
  entries_[taken] = {id, first};
  first = taken;
}

std::vector<NodeId> KeyTable::Entered(std::uint64_t hash) const {
  std::vector<NodeId> ids;
  const auto first = first_.find(hash);
  if (first == first_.end()) return ids;
  for (std::uint32_t at = first->second; at != kNone; at = entries_[at].next) {
    ids.push_back(entries_[at].id);
  }
  return ids;
}

/// Keeps as many entries as there are nodes; there were more.
void KeyTable::Replace(std::uint64_t hash, const std::vector<NodeId>& ids) noexcept {
  const auto first = first_.find(hash);
  std::uint32_t* link = &first->second;
  for (const NodeId id : ids) {
    entries_[*link].id = id;
    link = &entries_[*link].next;
  }
  std::uint32_t dropped = *link;
  *link = kNone;
  if (ids.empty()) first_.erase(first);
  while (dropped != kNone) {
    const std::uint32_t next = entries_[dropped].next;
    entries_[dropped] = {kNoNode, first_free_};
    first_free_ = dropped;
    ++free_count_;
    dropped = next;
  }
}

}  // namespace klepur::internal
