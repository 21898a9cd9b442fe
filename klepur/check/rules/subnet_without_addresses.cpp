// A subnet in which nobody can get an address.
#include <klepur/check/rules/rules.h>

#include <unordered_set>

namespace klepur::internal {

void SubnetWithoutAddresses(const Facts& facts, Report& report) {
  if (!facts.includes.empty()) return;  // which can hold ranges and hosts
  if (report.HasErrors() || facts.state.malformed) return;
  std::unordered_set<NodeId> served;
  NodeId last = kNoNode;  // hosts of a subnet often follow each other
  const auto serve = [&](NodeId subnet) {
    if (subnet != last) served.insert(subnet);
    last = subnet;
  };
  const auto serve_around = [&](const SubnetFact* subnet) {
    if (subnet != nullptr) serve(subnet->node);
  };
  for (const auto& range : facts.ranges)
    serve_around(facts.subnet_table.Around(range.value.First()));
  for (const NodeId subnet : facts.subnets_with_ranges) serve(subnet);
  for (const auto& address : facts.fixed_addresses) serve_around(facts.SubnetOf(address));
  for (const HostFact& host : facts.hosts) serve(host.subnet);
  for (const SubnetFact& subnet : facts.subnets) {
    if (served.count(subnet.node) != 0) continue;
    report.Add({.node = subnet.node,
                .message = "the subnet " + subnet.prefix.Text() + " has no range and no host"});
  }
}

}  // namespace klepur::internal
