// Internal: finds the intervals of addresses that an address lies in.
#ifndef KLEPUR_NETWORK_INTERVAL_MAP_H
#define KLEPUR_NETWORK_INTERVAL_MAP_H

#include <klepur/network/address.h>
#include <klepur/network/interval_level.h>

#include <cstddef>
#include <vector>

namespace klepur::internal {

/// Any number of intervals, one in the other, overlapping, equal or apart, of both families.
///
/// They stand in levels, each of which was made at once and had at least twice the size of the next
/// one; an added interval is merged with the small levels into a new one. Looking up does not write,
/// so several threads may while none edits.
class IntervalMap {
 public:
  IntervalMap() = default;

  /// Cost: O(n log n).
  explicit IntervalMap(std::vector<Interval> intervals);

  std::size_t Count() const noexcept;

  /// Adds an interval, also when an equal one is there. On lack of memory std::bad_alloc is thrown
  /// and nothing has changed. Cost: O(log n) on average over many.
  void Insert(const Interval& interval);

  /// Removes one interval equal to this; false when there is none. Cost: as Insert.
  bool Remove(const Interval& interval) noexcept;

  /// The interval around the address that begins last, of several such the one that ends first,
  /// of equal ones the one with the highest value: the innermost, when they lie one in the other.
  /// Null when there is none. An edit makes the pointer wrong.
  /// Cost: O(log n), and O(log² n) after edits.
  const Interval* Innermost(const klepur::Address& address) const noexcept;

  /// Appends all intervals around an address, or all with an address from `first` to `last`,
  /// innermost first as above. Cost: that of Innermost for each.
  void AppendContaining(const klepur::Address& address, std::vector<Interval>& out) const;
  void AppendOverlapping(const klepur::Address& first, const klepur::Address& last,
                         std::vector<Interval>& out) const;

 private:
  std::vector<IntervalLevel> levels_;  // none is empty
};

}  // namespace klepur::internal

#endif
