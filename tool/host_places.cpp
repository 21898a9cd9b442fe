#include <tool/host_places.h>

#include <tool/addresses.h>
#include <tool/walk.h>

namespace klepur::tool {
namespace {

/// The subnet of a host's first address that lies in one.
Node SubnetOf(const Node& host, const Network& network) {
  for (const Address& address : FixedAddresses(host)) {
    if (const Node subnet = network.SubnetOf(address)) return subnet;
  }
  return Node();
}

}  // namespace

Node HostPlaces::PlaceFor(const Node& host) {
  const Node root = document_->Root();
  const Node subnet = SubnetOf(host, *network_);
  if (!subnet) return root;
  if (subnet.Child("host")) return subnet;
  Learn();
  for (const auto& [offset, known] : subnets_) {
    if (known != subnet) continue;
    const Node& place = places_[offset];
    if (place) return place;
  }
  return stand_in_subnets_ ? subnet : root;
}

void HostPlaces::Learn() {
  if (has_learnt_) return;
  has_learnt_ = true;
  const Node root = document_->Root();
  for (Node node = root.FirstChild(); node; node = NextBelow(node, root)) {
    if (!node.Is(NodeKind::kBlock) || node.Keyword() != "host") continue;
    const Node subnet = SubnetOf(node, *network_);
    if (!subnet) continue;
    const Node parent = node.Parent();
    subnets_[subnet.Offset()] = subnet;
    places_[subnet.Offset()] = parent;
    stand_in_subnets_ = parent == subnet;
  }
}

}  // namespace klepur::tool
