// Two hosts of one network with the same card: the server serves the one that it comes to first.
#include <klepur/check/rules/rules.h>

#include <algorithm>
#include <vector>

namespace klepur::internal {
namespace {

/// Where two hosts are at odds: in one shared network, in one subnet, or outside of all.
NodeId NetworkOf(const HostFact& host) {
  if (host.shared_network != kNoNode) return host.shared_network;
  return host.subnet != kNoNode ? host.subnet : kRoot;
}

}  // namespace

void DuplicateHardwareAddress(const Facts& facts, Report& report) {
  std::vector<const OfHost<HardwareAddress>*> sorted;
  sorted.reserve(facts.hardware.size());
  for (const auto& hardware : facts.hardware) sorted.push_back(&hardware);
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto* left, const auto* right) { return left->value < right->value; });
  for (std::size_t i = 1; i < sorted.size(); ++i) {
    const auto& before = *sorted[i - 1];
    const auto& here = *sorted[i];
    if (before.value != here.value || before.host == here.host) continue;
    if (NetworkOf(facts.hosts[before.host]) != NetworkOf(facts.hosts[here.host])) continue;
    report.Add({.node = here.statement,
                .message = "the hardware address " + here.value.Text() + " is that of another host",
                .other = before.statement});
  }
}

}  // namespace klepur::internal
