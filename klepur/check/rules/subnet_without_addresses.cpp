// A subnet in which nobody can get an address.
#include <klepur/check/rules/rules.h>

#include <unordered_set>

namespace klepur::internal {

void SubnetWithoutAddresses(const Facts& facts, Report& report) {
  if (!facts.includes.empty()) return;  // which can hold ranges and hosts
  if (report.HasErrors() || facts.state.malformed) return;
  std::unordered_set<NodeId> served;
  const auto serve = [&](const klepur::Address& address) {
    if (const SubnetFact* const subnet = facts.subnet_table.Around(address))
      served.insert(subnet->node);
  };
  for (const auto& range : facts.ranges) serve(range.value.First());
  for (const NodeId subnet : facts.subnets_with_ranges) served.insert(subnet);
  for (const auto& address : facts.fixed_addresses) serve(address.value);
  for (const HostFact& host : facts.hosts) served.insert(host.subnet);
  for (const SubnetFact& subnet : facts.subnets) {
    if (served.count(subnet.node) != 0) continue;
    report.Add({.node = subnet.node,
                .message = "the subnet " + subnet.prefix.Text() + " has no range and no host"});
  }
}

}  // namespace klepur::internal
