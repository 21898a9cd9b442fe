// Internal: a netmask made of an address.
#ifndef KLEPUR_CONFIG4_NETMASK_H
#define KLEPUR_CONFIG4_NETMASK_H

#include <string>

namespace klepur::internal {

/// See DhcpConfigFile::GetNetmaskBySubnet.
std::string NetmaskOf(const char* subnet);

}  // namespace klepur::internal

#endif
