#include <klepur/network/interval_level.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::uint32_t kEmpty = std::numeric_limits<std::uint32_t>::max();

}  // namespace

int Interval::Compare(const Interval& other) const noexcept {
  if (const int order = first.Compare(other.first)) return order;
  if (const int order = other.last.Compare(last)) return order;
  return value == other.value ? 0 : value < other.value ? -1 : 1;
}

IntervalLevel::IntervalLevel(std::vector<Interval> intervals)
    : intervals_(std::move(intervals)), count_(intervals_.size()) {
  if (!std::is_sorted(intervals_.begin(), intervals_.end())) {
    std::sort(intervals_.begin(), intervals_.end());
  }
  BuildTree();
}

std::size_t IntervalLevel::CountBeginningBy(const Address& address) const noexcept {
  const auto behind = std::upper_bound(
      intervals_.begin(), intervals_.end(), address,
      [](const Address& a, const Interval& interval) { return a < interval.first; });
  return static_cast<std::size_t>(behind - intervals_.begin());
}

std::size_t IntervalLevel::LastReaching(const Address& address, std::size_t count) const noexcept {
  if (count == 0) return kNone;
  std::size_t node = Leaf(count);
  do {
    --node;
    while (node > 1 && node % 2 == 1) node /= 2;  // the highest node whose last leaf is the same
    if (Reaches(node, address)) {
      while (node < leaves_) {
        node = 2 * node + 1;
        if (!Reaches(node, address)) --node;
      }
      return node - leaves_;
    }
  } while ((node & (node - 1)) != 0);  // until the first node of its depth
  return kNone;
}

bool IntervalLevel::Remove(const Interval& interval) noexcept {
  const auto equal = std::equal_range(intervals_.begin(), intervals_.end(), interval);
  for (auto it = equal.first; it != equal.second; ++it) {
    const auto index = static_cast<std::size_t>(it - intervals_.begin());
    if (IsRemoved(index)) continue;
    tree_[Leaf(index)] = kEmpty;
    for (std::size_t node = Leaf(index) / 2; node > 0; node /= 2) SetFromBelow(node);
    --count_;
    if (2 * count_ < Size()) Compact();
    return true;
  }
  return false;
}

void IntervalLevel::AppendTo(std::vector<Interval>& out) const {
  for (std::size_t i = 0; i < Size(); ++i) {
    if (!IsRemoved(i)) out.push_back(intervals_[i]);
  }
}

bool IntervalLevel::IsRemoved(std::size_t index) const noexcept {
  return tree_[Leaf(index)] == kEmpty;
}

bool IntervalLevel::Reaches(std::size_t node, const Address& address) const noexcept {
  return tree_[node] != kEmpty && intervals_[tree_[node]].last >= address;
}

void IntervalLevel::BuildTree() {
  leaves_ = 1;
  while (leaves_ < Size()) leaves_ *= 2;
  tree_.assign(2 * leaves_, kEmpty);
  for (std::size_t i = 0; i < Size(); ++i) tree_[Leaf(i)] = static_cast<std::uint32_t>(i);
  for (std::size_t node = leaves_ - 1; node > 0; --node) SetFromBelow(node);
}

void IntervalLevel::SetFromBelow(std::size_t node) noexcept {
  const std::uint32_t left = tree_[2 * node];
  const std::uint32_t right = tree_[2 * node + 1];
  const bool takeLeft =
      right == kEmpty || (left != kEmpty && intervals_[right].last <= intervals_[left].last);
  tree_[node] = takeLeft ? left : right;
}

/// Drops what was removed. The tree only shrinks, so nothing is allocated.
void IntervalLevel::Compact() noexcept {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < Size(); ++i) {
    if (!IsRemoved(i)) intervals_[kept++] = intervals_[i];
  }
  intervals_.resize(kept);
  BuildTree();
}

}  // namespace klepur::internal
