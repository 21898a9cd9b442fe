// Two hosts with the same prefix: both route it.
#include <klepur/check/equal_values.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void DuplicateFixedPrefix(const Facts& facts, Report& report) {
  const auto& all = facts.fixed_prefixes;
  LargeArray<std::uint32_t> hashes;
  for (const auto& one : all) hashes.push_back(static_cast<std::uint32_t>(one.value.Hash()));
  ForEachEqual(
      hashes, [&](std::uint32_t i, std::uint32_t j) { return all[i].value == all[j].value; },
      [&](std::uint32_t earlier, std::uint32_t later) {
        if (all[earlier].host == all[later].host) return;
        report.Add({.node = all[later].statement,
                    .message = "the prefix " + all[later].value.Text() + " is that of another host",
                    .other = all[earlier].statement});
      });
}

}  // namespace klepur::internal
