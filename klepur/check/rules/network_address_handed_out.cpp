// The first and the last address of an IPv4 subnet are those of the network itself and of all its hosts.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {
namespace {

/// Neither in a subnet of one or two addresses nor in one of IPv6.
bool HasBroadcast(const SubnetFact* subnet) {
  return subnet != nullptr && subnet->prefix.Broadcast().has_value();
}

void ReportIf(bool handed_out, const char* what, const klepur::Address& address, NodeId statement,
              const SubnetFact& subnet, Report& report) {
  if (!handed_out) return;
  report.Add({.node = statement,
              .message = address.Text() + " is the " + what + " address of the subnet",
              .other = subnet.node});
}

}  // namespace

void NetworkAddressHandedOut(const Facts& facts, Report& report) {
  for (const auto& range : facts.ranges) {
    const SubnetFact* const subnet = facts.subnet_table.Around(range.value.First());
    if (!HasBroadcast(subnet) || !subnet->prefix.Contains(range.value.Last())) continue;
    const klepur::Address network = subnet->prefix.First();
    const klepur::Address broadcast = subnet->prefix.Last();
    ReportIf(range.value.Contains(network), "network", network, range.statement, *subnet, report);
    ReportIf(range.value.Contains(broadcast), "broadcast", broadcast, range.statement, *subnet,
             report);
  }
  for (const auto& address : facts.fixed_addresses) {
    const SubnetFact* const subnet = facts.subnet_table.Around(address.value);
    if (!HasBroadcast(subnet)) continue;
    ReportIf(address.value == subnet->prefix.First(), "network", address.value, address.statement,
             *subnet, report);
    ReportIf(address.value == subnet->prefix.Last(), "broadcast", address.value, address.statement,
             *subnet, report);
  }
}

}  // namespace klepur::internal
