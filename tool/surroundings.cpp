#include <tool/surroundings.h>

#include <klepur/network/prefix.h>
#include <klepur/network/range.h>

#include <algorithm>
#include <string>
#include <utility>

#include <tool/walk.h>

namespace klepur::tool {
namespace {

/// Nodes with the addresses that they stand for.
using Found = std::vector<std::pair<AddressRange, Node>>;

/// The innermost first, and of those with the same addresses the first one of the text.
std::vector<Node> InnermostFirst(Found found) {
  std::stable_sort(found.begin(), found.end(), [](const auto& left, const auto& right) {
    if (left.first.Count() != right.first.Count()) return left.first.Count() < right.first.Count();
    // Networks of 2^64 addresses and more, of which one lies in the other.
    return left.first != right.first && right.first.Contains(left.first);
  });
  std::vector<Node> nodes;
  for (const auto& each : found) {
    if (std::find(nodes.begin(), nodes.end(), each.second) == nodes.end())
      nodes.push_back(each.second);
  }
  return nodes;
}

}  // namespace

Surroundings SurroundingsOf(const Document& document, const Address& address) {
  Found ranges;
  Found pools;
  Found subnets;
  const Node root = document.Root();
  Node node = root.FirstChild();
  while (node) {
    const bool is_block = node.Is(NodeKind::kBlock);
    const std::string keyword = node.Keyword();
    if (keyword == "host") {
      node = NextBehind(node, root);
      continue;
    }
    if (is_block && (keyword == "subnet" || keyword == "subnet6")) {
      const auto network = Prefix::ParseSubnet(node.Name());
      if (network && network->Contains(address)) subnets.emplace_back(AddressRange(*network), node);
    }
    if (!is_block && (keyword == "range" || keyword == "range6")) {
      const auto range = AddressRange::Parse(node.Value());
      if (range && range->Contains(address)) {
        ranges.emplace_back(*range, node);
        const Node parent = node.Parent();
        const std::string around = parent.Keyword();
        if (around == "pool" || around == "pool6") pools.emplace_back(*range, parent);
      }
    }
    node = NextBelow(node, root);
  }
  return {InnermostFirst(std::move(ranges)), InnermostFirst(std::move(pools)),
          InnermostFirst(std::move(subnets))};
}

}  // namespace klepur::tool
