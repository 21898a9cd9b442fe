// A fixed address that a range gives out as well: two clients can come to have it.
#include <klepur/check/rules/range_table.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void FixedAddressInRange(const Facts& facts, Report& report) {
  const RangeTable ranges(RowsOf(facts.ranges));
  for (const auto& address : facts.fixed_addresses) {
    const RangeRow* const range = ranges.Around(facts.AddressOf(address));
    if (range == nullptr) continue;
    report.Add({.node = address.statement,
                .message = "the address " + facts.AddressOf(address).Text() +
                           " is also given out by range " + range->range.Text(),
                .other = range->statement});
  }
}

void FixedPrefixInPool(const Facts& facts, Report& report) {
  const RangeTable pools(RowsOf(facts.prefix_ranges));
  for (const auto& prefix : facts.fixed_prefixes) {
    const RangeRow* const pool = pools.Around(prefix.value.First());
    if (pool == nullptr) continue;
    report.Add({.node = prefix.statement,
                .message = "the prefix " + prefix.value.Text() + " is also given out by a pool",
                .other = pool->statement});
  }
}

}  // namespace klepur::internal
