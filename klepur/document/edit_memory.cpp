#include <klepur/document/edit_memory.h>

#include <utility>

namespace klepur::internal {

void EditMemory::Remember(const Key& key, Remembered what) {
  const auto place = latest_.try_emplace(key, kNone).first;
  entries_.push_back({std::move(what), place, place->second});
  place->second = entries_.size() - 1;
}

const Remembered* EditMemory::Recall(const Key& key) const {
  const auto place = latest_.find(key);
  return place == latest_.end() || place->second == kNone ? nullptr : &entries_[place->second].what;
}

void EditMemory::RollBack(std::size_t mark) noexcept {
  while (entries_.size() > mark) {
    entries_.back().place->second = entries_.back().before;
    entries_.pop_back();
  }
}

}  // namespace klepur::internal
