// Internal: what several hosts of one network have in common.
#ifndef KLEPUR_CHECK_RULES_DUPLICATES_H
#define KLEPUR_CHECK_RULES_DUPLICATES_H

#include <algorithm>
#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

#include <klepur/check/equal_values.h>
#include <klepur/check/facts.h>

namespace klepur::internal {

/// Calls `tell` with each value that an earlier host of the same network has, and the one of that host; once
/// for a statement. `values` are in the order of the text. Cost: linear.
template <class Values, class Tell>
void ForEachDuplicate(const Facts& facts, const Values& values, const Tell& tell) {
  using OfSome = std::decay_t<decltype(*values.begin())>;
  struct AtHome {
    const OfSome* of;
    NodeId network;  ///< One where its host gets addresses.
  };
  std::vector<AtHome> all;
  all.reserve(values.size());
  std::uint32_t home = 0;
  for (const OfSome& value : values) {
    if (facts.homes[home].host > value.host) {  // back in a host that has others in it
      home = static_cast<std::uint32_t>(
          std::lower_bound(
              facts.homes.begin(), facts.homes.begin() + home, value.host,
              [](const HomeFact& one, std::uint32_t host) { return one.host < host; }) -
          facts.homes.begin());
    }
    while (facts.homes[home].host != value.host) ++home;
    for (std::uint32_t at = home; at != facts.homes.size() && facts.homes[at].host == value.host;
         ++at) {
      all.push_back({&value, facts.homes[at].network});
    }
  }
  using Value = decltype(OfSome::value);
  NodeId told = kNoNode;
  ForEachEqual(
      static_cast<std::uint32_t>(all.size()),
      [&](std::uint32_t i) {
        return static_cast<std::uint32_t>(std::hash<Value>{}(all[i].of->value)) ^ all[i].network;
      },
      [&](std::uint32_t i, std::uint32_t j) {
        return all[i].of->value == all[j].of->value && all[i].network == all[j].network;
      },
      [&](std::uint32_t earlier, std::uint32_t later) {
        const OfSome& here = *all[later].of;
        if (all[earlier].of->host == here.host || here.statement == told) return;
        told = here.statement;
        tell(here, *all[earlier].of);
      });
}

}  // namespace klepur::internal

#endif
