// Addresses that two ranges give out. The server refuses those of IPv4.
#include <klepur/check/rules/range_table.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {
namespace {

std::vector<RangeRow> RowsOfFamily(const Facts& facts, bool is_v4) {
  std::vector<RangeRow> rows = RowsOf(facts.ranges);
  rows.erase(std::remove_if(rows.begin(), rows.end(),
                            [&](const RangeRow& row) { return row.range.First().IsV4() != is_v4; }),
             rows.end());
  return rows;
}

void ReportOverlaps(std::vector<RangeRow> rows, Report& report) {
  ForEachOverlap(std::move(rows), [&](const RangeRow& one, const RangeRow& other) {
    // Of two the later one is told; nodes are numbered in the order of the text unless it was edited.
    const auto [before, here] = std::minmax(one.statement, other.statement);
    const RangeRow& told = here == one.statement ? one : other;
    const RangeRow& kept = here == one.statement ? other : one;
    report.Add(
        {.node = here,
         .message = "the range " + told.range.Text() + " overlaps the range " + kept.range.Text(),
         .other = before});
  });
}

}  // namespace

void OverlappingRanges(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOfFamily(facts, true), report);
}

void OverlappingRanges6(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOfFamily(facts, false), report);
}

void OverlappingPrefixPools(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOf(facts.prefix_ranges), report);
}

}  // namespace klepur::internal
