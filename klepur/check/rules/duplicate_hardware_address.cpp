// Two hosts of one network with the same card: the server serves the one that it comes to first.
#include <klepur/check/equal_values.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {
namespace {

/// Where two hosts are at odds: in one shared network, in one subnet, or outside of all.
NodeId NetworkOf(const HostFact& host) {
  if (host.shared_network != kNoNode) return host.shared_network;
  return host.subnet != kNoNode ? host.subnet : kRoot;
}

}  // namespace

void DuplicateHardwareAddress(const Facts& facts, Report& report) {
  const auto& all = facts.hardware;
  const auto network = [&](std::uint32_t i) { return NetworkOf(facts.hosts[all[i].host]); };
  ForEachEqual(
      all.size(), [&](std::uint32_t i) { return all[i].value.Hash() ^ network(i); },
      [&](std::uint32_t i, std::uint32_t j) {
        return all[i].value == all[j].value && network(i) == network(j);
      },
      [&](std::uint32_t earlier, std::uint32_t later) {
        if (all[earlier].host == all[later].host) return;
        report.Add({.node = all[later].statement,
                    .message = "the hardware address " + all[later].value.Text() +
                               " is that of another host",
                    .other = all[earlier].statement});
      });
}

}  // namespace klepur::internal
