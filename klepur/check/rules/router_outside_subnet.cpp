// A router that the clients of a subnet cannot reach: it is not in their network.
#include <klepur/check/rules/rules.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace klepur::internal {
namespace {

bool IsReachable(const klepur::Address& router, const SubnetFact& subnet, const Facts& facts) {
  const auto& subnets = facts.subnet_table.InNetwork(subnet.Network());
  return subnet.prefix.Contains(router) ||
         std::any_of(subnets.begin(), subnets.end(),
                     [&](const SubnetFact* other) { return other->prefix.Contains(router); });
}

/// The routers of each block, those of its last statement.
class RoutersOfBlocks {
 public:
  explicit RoutersOfBlocks(const Facts& facts) : facts_(facts) {
    for (const RouterFact& router : facts.routers) {
      std::vector<const RouterFact*>& routers = of_block_[router.block];
      if (!routers.empty() && routers.back()->statement != router.statement) routers.clear();
      routers.push_back(&router);
    }
  }

  /// Those in force in a block; null when there are none.
  const std::vector<const RouterFact*>* InForce(NodeId block) const {
    for (; block != kNoNode; block = facts_.state.tree[block].parent) {
      const auto routers = of_block_.find(block);
      if (routers != of_block_.end()) return &routers->second;
    }
    return nullptr;
  }

 private:
  const Facts& facts_;
  std::unordered_map<NodeId, std::vector<const RouterFact*>> of_block_;
};

}  // namespace

void RouterOutsideSubnet(const Facts& facts, Report& report) {
  if (facts.routers.empty()) return;
  const RoutersOfBlocks blocks(facts);
  std::unordered_set<NodeId> told;
  for (const SubnetFact& subnet : facts.subnets) {
    const auto* const routers = blocks.InForce(subnet.node);
    if (routers == nullptr || !subnet.prefix.Broadcast()) continue;
    for (const RouterFact* const router : *routers) {
      if (router->address.IsV6() || IsReachable(router->address, subnet, facts)) continue;
      if (!told.insert(router->statement).second) continue;
      report.Add({.node = router->statement,
                  .message = "the router " + router->address.Text() + " is not in the subnet " +
                             subnet.prefix.Text() + ", whose clients are told of it",
                  .other = router->block == subnet.node ? kNoNode : subnet.node});
    }
  }
}

}  // namespace klepur::internal
