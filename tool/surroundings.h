// The ranges, pools and subnets around an address.
#ifndef KLEPUR_TOOL_SURROUNDINGS_H
#define KLEPUR_TOOL_SURROUNDINGS_H

#include <klepur/document/document.h>
#include <klepur/network/address.h>

#include <vector>

namespace klepur::tool {

/// As Network::RangesOf, PoolsOf and SubnetsOf tell them.
struct Surroundings {
  std::vector<Node> ranges;
  std::vector<Node> pools;
  std::vector<Node> subnets;
};

/// The same without tables, for one question: a walk that goes into no host.
Surroundings SurroundingsOf(const Document& document, const Address& address);

}  // namespace klepur::tool

#endif
