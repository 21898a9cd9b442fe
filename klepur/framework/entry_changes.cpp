#include <klepur/framework/entry_changes.h>

#include <atomic>

namespace klepur::internal {
namespace {

// Relaxed will do: whoever hands a tree to another thread makes what was done to it visible there.
std::atomic<std::uint64_t> changes = 0;

}  // namespace

std::uint64_t EntryChanges() noexcept {
  return changes.load(std::memory_order_relaxed);
}

void CountEntryChange() noexcept {
  changes.fetch_add(1, std::memory_order_relaxed);
}

}  // namespace klepur::internal
