// Where in a file hosts stand, so that a new one comes to stand beside its like.
#ifndef KLEPUR_TOOL_HOST_PLACES_H
#define KLEPUR_TOOL_HOST_PLACES_H

#include <klepur/document/document.h>
#include <klepur/network/network.h>

#include <cstddef>
#include <unordered_map>

namespace klepur::tool {

/// Tells where a host of an address belongs: to where the last host of its subnet stands; where that has
/// none yet, into the subnet if the hosts of other subnets stand in theirs, else at the top level.
class HostPlaces {
 public:
  HostPlaces(const Document& document, const Network& network)
      : document_(&document), network_(&network) {}

  /// \param host  a host that stands in another document.
  /// Cost: the children of the subnet; when there is no host among them, once a walk over the file.
  Node PlaceFor(const Node& host);

 private:
  void Learn();

  const Document* document_;
  const Network* network_;
  bool has_learnt_ = false;
  bool stand_in_subnets_ = false;
  std::unordered_map<std::size_t, Node>
      places_;  // by the offset of the subnet when they were learnt
  std::unordered_map<std::size_t, Node> subnets_;
};

}  // namespace klepur::tool

#endif
