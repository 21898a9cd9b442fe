// The operations whose cost is measured over sizes, each on the host or subnet with a number.
#ifndef KLEPUR_BENCHMARKS_OPERATIONS_H
#define KLEPUR_BENCHMARKS_OPERATIONS_H

#include <klepur/klepur.h>

#include <cstddef>

// Each returns whether the answer was right.

// On a file by WriteHosts, with `currentSubnet` on its subnet, where Open places it.

bool FindByMacAddress(DhcpConfigFile& file, std::size_t number);
bool FindByAddress(DhcpConfigFile& file, std::size_t number);
bool FindByHostName(DhcpConfigFile& file, std::size_t number);
bool GoToHost(DhcpConfigFile& file, std::size_t number);
bool FetchHost(DhcpConfigFile& file, std::size_t number);

/// Fetches the first host, or the one behind that of the number before: called for 0, 1, 2 and so
/// on it walks the subnet.
bool WalkToHost(DhcpConfigFile& file, std::size_t number);

bool AddHost(DhcpConfigFile& file, std::size_t number);
bool AddHostTwice(DhcpConfigFile& file, std::size_t number);  ///< It is there, and is refused.
bool RemoveHost(DhcpConfigFile& file, std::size_t number);
bool ChangeHost(DhcpConfigFile& file, std::size_t number);

/// Looks a machine up by its hardware address and adds it when it is missing, in a file with only
/// half of the hosts.
bool Provide(DhcpConfigFile& file, std::size_t number);

// On a file by WriteSubnets.

bool GoToSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool FetchSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool AddSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool RemoveSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool ChangeSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool AddHostToItsSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool RemoveHostFromItsSubnet(Dhcpv6ConfigFile& file, std::size_t number);
bool ChangeHostOfItsSubnet(Dhcpv6ConfigFile& file, std::size_t number);

#endif
