// Internal: finding subnets by address, by block and by shared network.
#ifndef KLEPUR_CHECK_SUBNET_TABLE_H
#define KLEPUR_CHECK_SUBNET_TABLE_H

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include <klepur/check/sorted_addresses.h>
#include <klepur/document/syntax_node.h>
#include <klepur/network/prefix.h>
#include <klepur/text/large_array.h>

namespace klepur::internal {

struct SubnetFact {
  Prefix prefix;
  NodeId node;
  NodeId shared_network;

  /// What hosts see of each other: the shared network, or the subnet itself.
  NodeId Network() const { return shared_network != kNoNode ? shared_network : node; }
};

class SubnetTable {
 public:
  /// Makes the table of subnets, which must stay where they are. Cost: sorting them.
  void Make(const LargeArray<SubnetFact>& subnets);

  /// The innermost subnet around an address; null when there is none.
  const SubnetFact* Around(const AddressKey& address) const;
  /// The smallest of the subnets that a subnet lies in; of several with the same addresses the later ones lie
  /// in the first. Null when there is none.
  const SubnetFact* Around(const SubnetFact& subnet) const;
  /// The subnet of a block; null for one whose header is malformed.
  const SubnetFact* Of(NodeId block) const;
  /// The subnets of a shared network, or one that stands in none, in the order of the text.
  const std::vector<const SubnetFact*>& InNetwork(NodeId network) const;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  struct Row {
    const SubnetFact* subnet;
    AddressKey last;
    std::size_t around;  ///< The row of the smallest one that it lies in.
  };

  std::vector<Row> rows_;  // by first address, those that contain others before these
  SortedAddresses firsts_;
  std::unordered_map<NodeId, std::size_t> row_of_;
  std::unordered_map<NodeId, std::vector<const SubnetFact*>> in_network_;
};

}  // namespace klepur::internal

#endif
