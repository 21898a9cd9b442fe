// Two hosts with the same prefix: both route it.
#include <klepur/check/rules/rules.h>

#include <algorithm>
#include <vector>

namespace klepur::internal {

void DuplicateFixedPrefix(const Facts& facts, Report& report) {
  std::vector<const OfHost<Prefix>*> sorted;
  for (const auto& prefix : facts.fixed_prefixes) sorted.push_back(&prefix);
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto* left, const auto* right) { return left->value < right->value; });
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    const auto& before = *sorted[i - 1];
    const auto& here = *sorted[i];
    if (before.value != here.value || before.host == here.host) continue;
    report.Add({.node = here.statement,
                .message = "the prefix " + here.value.Text() + " is that of another host",
                .other = before.statement});
  }
}

}  // namespace klepur::internal
