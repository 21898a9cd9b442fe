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

/// The first home of a host, sought from one of another host on: mostly it is the next one. Where hosts stand in
/// each other it may be anywhere.
inline const HomeFact* FirstHomeOf(std::uint32_t host, const HomeFact* from, const Facts& facts) {
  constexpr int kSteps = 8;
  for (int step = 0; step != kSteps && from->host < host; ++step) ++from;
  if (from->host == host) return from;
  return std::lower_bound(
      facts.homes.begin(), facts.homes.end(), host,
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
  std::vector<AtHome> all;
  std::vector<std::uint32_t> hashes;
  all.reserve(values.size());
  hashes.reserve(values.size());
  const HomeFact* home = facts.homes.begin();
  for (std::uint32_t i = 0; i != values.size(); ++i) {
    const std::uint32_t host = values[i].host;
    if (home->host != host) home = FirstHomeOf(host, home, facts);
    const auto value_hash = static_cast<std::uint32_t>(hash(values[i]));
    for (const HomeFact* at = home; at != facts.homes.end() && at->host == host; ++at) {
      all.push_back({i, at->network});
      hashes.push_back(value_hash ^ (at->network * 0x9E3779B1U));
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

/// The same of values that have a hash and can be compared.
template <class Values, class Tell>
void ForEachDuplicate(const Facts& facts, const Values& values, const Tell& tell) {
  ForEachDuplicate(
      facts, values, [](const auto& one) { return one.value.Hash(); },
      [](const auto& one, const auto& other) { return one.value == other.value; }, tell);
}

}  // namespace klepur::internal

#endif
