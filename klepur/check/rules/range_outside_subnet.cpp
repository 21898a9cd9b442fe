// Addresses that are given out in a network that they are not of: the server refuses the file.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {
namespace {

/// Whether some subnets' prefixes are all known, and none of them contains a range.
bool IsOutside(const AddressRange& range, NodeId block, NodeId shared_network, const Facts& facts) {
  if (block != kNoNode) {
    const SubnetFact* const subnet = facts.subnet_table.Of(block);
    return subnet != nullptr && !AddressRange(subnet->prefix).Contains(range);
  }
  if (shared_network == kNoNode || facts.subnet_table.InNetwork(shared_network).empty())
    return false;
  const SubnetFact* const subnet = facts.subnet_table.Around(range.First());
  return subnet == nullptr || subnet->shared_network != shared_network ||
         !subnet->prefix.Contains(range.Last());
}

}  // namespace

void RangeOutsideSubnet(const Facts& facts, Report& report) {
  for (const auto& range : facts.ranges) {
    if (!IsOutside(range.value, range.subnet, range.shared_network, facts)) continue;
    const bool in_subnet = range.subnet != kNoNode;
    report.Add({.node = range.statement,
                .message = "the range " + range.value.Text() + " is not within the " +
                           (in_subnet ? "subnet" : "subnets of the shared network"),
                .other = in_subnet ? range.subnet : range.shared_network});
  }
}

}  // namespace klepur::internal
