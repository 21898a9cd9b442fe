// Two subnets with addresses in common: the server cannot tell on which of them a client is.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void OverlappingSubnets(const Facts& facts, Report& report) {
  for (const SubnetFact& subnet : facts.subnets) {
    const SubnetFact* const around = facts.subnet_table.Around(subnet);
    if (around == nullptr) continue;
    report.Add({.node = subnet.node,
                .message = "the subnet " + subnet.prefix.Text() + " overlaps the subnet " +
                           around->prefix.Text(),
                .other = around->node});
  }
}

}  // namespace klepur::internal
