// The addresses in a statement's value.
#ifndef KLEPUR_TOOL_ADDRESSES_H
#define KLEPUR_TOOL_ADDRESSES_H

#include <klepur/document/node.h>
#include <klepur/network/address.h>

#include <string>
#include <vector>

namespace klepur::tool {

/// The elements of a statement's list as people read them: "10.0.0.1", "10.0.0.9 - 10.0.0.20", a name.
std::vector<std::string> ElementsOf(const Node& statement);

/// What a host is given by fixed-address and fixed-address6, names left out.
std::vector<Address> FixedAddresses(const Node& host);

}  // namespace klepur::tool

#endif
