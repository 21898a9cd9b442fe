// Internal: intervals of addresses that are put in order once, and searched.
#ifndef KLEPUR_NETWORK_INTERVAL_LEVEL_H
#define KLEPUR_NETWORK_INTERVAL_LEVEL_H

#include <klepur/network/address.h>
#include <klepur/network/ordered.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace klepur::internal {

/// The addresses from `first` to `last`, and what they belong to.
struct Interval : Ordered<Interval> {
  klepur::Address first;
  klepur::Address last;  // of the same family, not below first
  std::uint32_t value = 0;

  Interval() = default;
  Interval(const klepur::Address& from, const klepur::Address& to, std::uint32_t what)
      : first(from), last(to), value(what) {}

  /// In the order of a walk from outer ones to inner ones: by first address, then the longer one
  /// before the shorter, then by value.
  int Compare(const Interval& other) const noexcept;
};

/// Intervals in order, under a tree that knows in every node which interval below ends last.
class IntervalLevel {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  /// Cost: O(n log n), and O(n) when they are in order.
  explicit IntervalLevel(std::vector<Interval> intervals);

  /// How many are in it.
  std::size_t Count() const noexcept { return count_; }
  /// As Count, with the removed ones that still take room, at most as many as the others.
  std::size_t Size() const noexcept { return intervals_.size(); }
  const Interval& operator[](std::size_t index) const noexcept { return intervals_[index]; }

  /// How many intervals begin at or below the address.
  std::size_t CountBeginningBy(const klepur::Address& address) const noexcept;

  /// The last of the first `count` intervals that ends at or above the address, or kNone.
  /// Cost: O(log n).
  std::size_t LastReaching(const klepur::Address& address, std::size_t count) const noexcept;

  /// Removes one interval equal to this; false when there is none. Cost: O(log n) on average over
  /// many, and the equal ones that were removed before.
  bool Remove(const Interval& interval) noexcept;

  /// Appends what is in it, in order.
  void AppendTo(std::vector<Interval>& out) const;

 private:
  std::size_t Leaf(std::size_t index) const noexcept { return leaves_ + index; }
  bool IsRemoved(std::size_t index) const noexcept;
  bool Reaches(std::size_t node, const klepur::Address& address) const noexcept;
  void BuildTree();
  void SetFromBelow(std::size_t node) noexcept;
  void Compact() noexcept;

  std::vector<Interval> intervals_;
  std::size_t leaves_ = 1;  // a power of two: where the leaves begin in the tree
  // Node i stands above the nodes 2i and 2i + 1. It holds the index of the interval that ends last
  // among its leaves, and a number that is no index when all of them are empty or removed.
  std::vector<std::uint32_t> tree_;
  std::size_t count_ = 0;
};

}  // namespace klepur::internal

#endif
