// Internal: what several hosts of one network have in common.
#ifndef KLEPUR_CHECK_RULES_DUPLICATES_H
#define KLEPUR_CHECK_RULES_DUPLICATES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <unordered_set>
#include <vector>

#include <klepur/check/facts.h>

namespace klepur::internal {

/// A value of a host, in a network where it gets addresses.
template <class Value>
struct AtHome {
  const OfHost<Value>* of;
  NodeId network;
};

/// Calls `tell` with each value that an earlier host of the same network has, and the one of that host; once
/// for a statement. `values` are in the order of the text. Cost: sorting them.
template <class Values, class Tell>
void ForEachDuplicate(const Facts& facts, const Values& values, const Tell& tell) {
  using Entry = AtHome<std::decay_t<decltype(values[0].value)>>;
  std::vector<Entry> entries;
  entries.reserve(values.size());
  std::uint32_t home = 0;
  for (const auto& value : values) {
    while (facts.homes[home].host != value.host) ++home;
    for (std::uint32_t at = home; at != facts.homes.size() && facts.homes[at].host == value.host;
         ++at) {
      entries.push_back({&value, facts.homes[at].network});
    }
  }
  std::stable_sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
    if (left.of->value != right.of->value) return left.of->value < right.of->value;
    return left.network < right.network;
  });
  std::unordered_set<NodeId> told;
  for (std::size_t i = 1; i < entries.size(); ++i) {
    const Entry& before = entries[i - 1];
    const Entry& here = entries[i];
    if (before.of->value != here.of->value || before.network != here.network) continue;
    if (before.of->host == here.of->host) continue;
    if (told.insert(here.of->statement).second) tell(*here.of, *before.of);
  }
}

}  // namespace klepur::internal

#endif
