// Prefixes that are given away and hold addresses which a range gives out.
#include <klepur/check/rules/range_table.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void PrefixPoolWithAddresses(const Facts& facts, Report& report) {
  const RangeTable table(RowsOf(facts.prefix_ranges));
  for (const auto& range : facts.ranges) {
    if (range.value.First().IsV4()) continue;
    const RangeRow* pool = table.Around(range.value.First());
    if (pool == nullptr) pool = table.Around(range.value.Last());
    if (pool == nullptr) continue;
    report.Add({.node = range.statement,
                .message = "addresses of the range " + range.value.Text() +
                           " are also in prefixes that are given away",
                .other = pool->statement});
  }
}

}  // namespace klepur::internal
