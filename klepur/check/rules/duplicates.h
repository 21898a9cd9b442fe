// Internal: what several hosts of one network have in common.
#ifndef KLEPUR_CHECK_RULES_DUPLICATES_H
#define KLEPUR_CHECK_RULES_DUPLICATES_H

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include <klepur/check/equal_values.h>
#include <klepur/check/facts.h>

namespace klepur::internal {

/// The first of the networks of a host that are not HostFact::network.
inline const HomeFact* MoreHomesOf(std::uint32_t host, const Facts& facts) {
  return std::lower_bound(
      facts.more_homes.begin(), facts.more_homes.end(), host,
      [](const HomeFact& home, std::uint32_t wanted) { return home.host < wanted; });
}

/// Calls `tell` with each value that an earlier host of the same network has, and the one of that host; once
/// for a statement. `values` are in the order of the text; `hash` and `equal` are asked of them, and `equal`
/// only where the hashes are the same. Cost: linear.
template <class Values, class Hash, class Equal, class Tell>
void ForEachDuplicate(const Facts& facts, const Values& values, const Hash& hash,
                      const Equal& equal, const Tell& tell) {
  struct AtHome {
    std::uint32_t value;
    NodeId network;  ///< One where its host gets addresses.
  };
  LargeArray<AtHome> all;
  LargeArray<std::uint32_t> hashes;
  all.reserve(values.size());
  hashes.reserve(values.size());
  for (std::uint32_t i = 0; i != values.size(); ++i) {
    const std::uint32_t host = values[i].host;
    const std::uint32_t value_hash = hash(values[i]);
    const auto add = [&](NodeId network) {
      all.push_back({i, network});
      hashes.push_back(value_hash ^ (network * 0x9E3779B1U));
    };
    add(facts.hosts[host].network);
    if (facts.more_homes.empty()) continue;
    for (const HomeFact* more = MoreHomesOf(host, facts);
         more != facts.more_homes.end() && more->host == host; ++more) {
      add(more->network);
    }
  }
  NodeId told = kNoNode;
  ForEachEqual(
      hashes,
      [&](std::uint32_t i, std::uint32_t j) {
        return all[i].network == all[j].network &&
               equal(values[all[i].value], values[all[j].value]);
      },
      [&](std::uint32_t earlier, std::uint32_t later) {
        const auto& before = values[all[earlier].value];
        const auto& here = values[all[later].value];
        if (before.host == here.host || here.statement == told) return;
        told = here.statement;
        tell(here, before);
      });
}

}  // namespace klepur::internal

#endif
