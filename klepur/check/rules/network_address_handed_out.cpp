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
  const SubnetFact* subnet = nullptr;
  AddressKey network = AddressKey::OfV4(0);
  AddressKey broadcast = network;
  for (const auto& address : facts.fixed_addresses) {
    if (const SubnetFact* const around = facts.SubnetOf(address); around != subnet) {
      subnet = around;
      if (!HasBroadcast(subnet)) continue;
      network = subnet->prefix.First();
      broadcast = subnet->prefix.Last();
    }
    const AddressKey value = facts.AddressOf(address);
    if (subnet == nullptr || (value != network && value != broadcast)) continue;
    if (!HasBroadcast(subnet)) continue;
    const char* const what = value == network ? "network" : "broadcast";
    ReportIf(true, what, value.ToAddress(), address.statement, *subnet, report);
  }
}

}  // namespace klepur::internal
