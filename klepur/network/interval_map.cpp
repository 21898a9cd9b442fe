#include <klepur/network/interval_map.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace klepur::internal {
namespace {

/// Makes ordered intervals of both.
void MergeInto(std::vector<Interval>& ordered, const IntervalLevel& level) {
  const auto middle = static_cast<std::ptrdiff_t>(ordered.size());
  level.AppendTo(ordered);
  std::inplace_merge(ordered.begin(), ordered.begin() + middle, ordered.end());
}

}  // namespace

IntervalMap::IntervalMap(std::vector<Interval> intervals) {
  if (!intervals.empty()) levels_.emplace_back(std::move(intervals));
}

std::size_t IntervalMap::Count() const noexcept {
  std::size_t count = 0;
  for (const IntervalLevel& level : levels_) count += level.Count();
  return count;
}

void IntervalMap::Insert(const Interval& interval) {
  std::vector<Interval> ordered = {interval};
  std::size_t kept = levels_.size();
  for (; kept > 0 && levels_[kept - 1].Size() < 2 * ordered.size(); --kept) {
    MergeInto(ordered, levels_[kept - 1]);
  }
  levels_.emplace_back(std::move(ordered));
  std::swap(levels_[kept], levels_.back());
  levels_.erase(levels_.begin() + static_cast<std::ptrdiff_t>(kept) + 1, levels_.end());
}

bool IntervalMap::Remove(const Interval& interval) noexcept {
  for (auto level = levels_.begin(); level != levels_.end(); ++level) {
    if (!level->Remove(interval)) continue;
    if (level->Count() == 0) levels_.erase(level);
    return true;
  }
  return false;
}

const Interval* IntervalMap::Innermost(const Address& address) const noexcept {
  const Interval* innermost = nullptr;
  for (const IntervalLevel& level : levels_) {
    const std::size_t at = level.LastReaching(address, level.CountBeginningBy(address));
    if (at == IntervalLevel::kNone) continue;
    if (innermost == nullptr || *innermost < level[at]) innermost = &level[at];
  }
  return innermost;
}

void IntervalMap::AppendContaining(const Address& address, std::vector<Interval>& out) const {
  AppendOverlapping(address, address, out);
}

void IntervalMap::AppendOverlapping(const Address& first, const Address& last,
                                    std::vector<Interval>& out) const {
  const auto before = static_cast<std::ptrdiff_t>(out.size());
  for (const IntervalLevel& level : levels_) {
    std::size_t at = level.LastReaching(first, level.CountBeginningBy(last));
    for (; at != IntervalLevel::kNone; at = level.LastReaching(first, at)) out.push_back(level[at]);
  }
  if (levels_.size() > 1) std::sort(out.begin() + before, out.end(), std::greater<>());
}

}  // namespace klepur::internal
