// Internal: ranges that give out addresses, sorted.
#ifndef KLEPUR_CHECK_RULES_RANGE_TABLE_H
#define KLEPUR_CHECK_RULES_RANGE_TABLE_H

#include <algorithm>
#include <vector>

#include <klepur/check/facts.h>
#include <klepur/check/sorted_addresses.h>
#include <klepur/network/range.h>

namespace klepur::internal {

struct RangeRow {
  AddressRange range;
  NodeId statement;
};

inline std::vector<RangeRow> RowsOf(const LargeArray<OfSubnet<AddressRange>>& ranges) {
  std::vector<RangeRow> rows;
  rows.reserve(ranges.size());
  for (const auto& range : ranges) rows.push_back({range.value, range.statement});
  return rows;
}

inline std::vector<RangeRow> RowsOf(const LargeArray<OfSubnet<PrefixRange>>& ranges) {
  std::vector<RangeRow> rows;
  rows.reserve(ranges.size());
  for (const auto& range : ranges) rows.push_back({range.value.Addresses(), range.statement});
  return rows;
}

/// Sorts ranges by their first addresses, and calls `tell` with each that overlaps an earlier one and that
/// of these which reaches furthest.
template <class Tell>
void ForEachOverlap(std::vector<RangeRow> rows, const Tell& tell) {
  std::stable_sort(rows.begin(), rows.end(), [](const RangeRow& left, const RangeRow& right) {
    return left.range.First() < right.range.First();
  });
  const RangeRow* furthest = nullptr;
  for (const RangeRow& row : rows) {
    if (furthest != nullptr && row.range.First() <= furthest->range.Last()) tell(row, *furthest);
    if (furthest == nullptr || furthest->range.Last() < row.range.Last()) furthest = &row;
  }
}

/// Finds the range around an address among sorted ones.
class RangeTable {
 public:
  explicit RangeTable(std::vector<RangeRow> rows) : rows_(std::move(rows)) {
    std::stable_sort(rows_.begin(), rows_.end(), [](const RangeRow& left, const RangeRow& right) {
      return left.range.First() < right.range.First();
    });
    furthest_.reserve(rows_.size());
    firsts_.reserve(rows_.size());
    for (const RangeRow& row : rows_) {
      firsts_.push_back(row.range.First());
      const Furthest one = {row.range.Last(), &row};
      const bool further = furthest_.empty() || furthest_.back().last < one.last;
      furthest_.push_back(further ? one : furthest_.back());
    }
  }

  /// One that an address is in; null when it is in none.
  const RangeRow* Around(const AddressKey& address) const {
    const std::size_t rows = firsts_.UpTo(address);
    if (rows == 0 || furthest_[rows - 1].last < address) return nullptr;
    return furthest_[rows - 1].row;
  }

 private:
  struct Furthest {
    AddressKey last;
    const RangeRow* row;
  };
  std::vector<RangeRow> rows_;
  SortedAddresses firsts_;
  std::vector<Furthest> furthest_;  // of the rows so far the one with the highest end
};

}  // namespace klepur::internal

#endif
