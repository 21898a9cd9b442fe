// A prefix with bits set behind its length, so a length that is too short: the server refuses it.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void PrefixHostBits(const Facts& facts, Report& report) {
  for (const auto& pool : facts.prefix_ranges) {
    if (!pool.value.HasHostBits()) continue;
    const Prefix& end = pool.value.First().HasHostBits() ? pool.value.First() : pool.value.Last();
    report.Add({.node = pool.statement,
                .message = end.GetAddress().Text() + " has bits behind the first " +
                           std::to_string(end.Length())});
  }
  for (const auto& prefix : facts.fixed_prefixes) {
    if (!prefix.value.HasHostBits()) continue;
    report.Add({.node = prefix.statement,
                .message = prefix.value.GetAddress().Text() + " has bits behind the first " +
                           std::to_string(prefix.value.Length())});
  }
}

}  // namespace klepur::internal
