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

/// Of two ranges the later one is told; nodes are numbered in the order of the text unless it was edited.
template <class Message>
void ReportOverlaps(std::vector<RangeRow> rows, const Message& message, Report& report) {
  ForEachOverlap(std::move(rows), [&](const RangeRow& one, const RangeRow& other) {
    const RangeRow& here = one.statement > other.statement ? one : other;
    const RangeRow& before = one.statement > other.statement ? other : one;
    report.Add(
        {.node = here.statement, .message = message(here, before), .other = before.statement});
  });
}

std::string OfAddresses(const RangeRow& here, const RangeRow& before) {
  return "the range " + here.range.Text() + " overlaps the range " + before.range.Text();
}

std::string OfPrefixes(const RangeRow& /*here*/, const RangeRow& /*before*/) {
  return "prefixes of this pool are given out by another one too";
}

}  // namespace

void OverlappingRanges(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOfFamily(facts, true), OfAddresses, report);
}

void OverlappingRanges6(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOfFamily(facts, false), OfAddresses, report);
}

void OverlappingPrefixPools(const Facts& facts, Report& report) {
  ReportOverlaps(RowsOf(facts.prefix_ranges), OfPrefixes, report);
}

}  // namespace klepur::internal
