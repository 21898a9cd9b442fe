// The files that benchmarks over sizes work on, and what the numbered things in them are called.
#ifndef KLEPUR_BENCHMARKS_INPUTS_H
#define KLEPUR_BENCHMARKS_INPUTS_H

#include <cstddef>
#include <string>

/// The names of the host with that number: "pc-000017", "00:16:3e:00:00:11", "10.0.0.17" and
/// "2001:db8:ffff::0:11".
std::string HostName(std::size_t number);
std::string MacAddress(std::size_t number);
std::string Address(std::size_t number);
std::string Address6(std::size_t number);

/// The DHCPv6 subnet with that number: "2001:db8:0:11::/64".
std::string Prefix(std::size_t number);

/// The header, behind its keyword, of the subnet that WriteHosts writes.
inline constexpr char kSubnet[] = "10.0.0.0 netmask 255.0.0.0";

/// Which of the hosts a file is to hold.
enum class Present { kAll, kHalf };

/// Whether the file with only half of its hosts holds the one with that number. The choice is
/// scattered, so that any selection of hosts in any order has about as many present as missing.
bool IsInHalf(std::size_t number);

/// A DHCPv4 file of one subnet with the hosts 0 to `count` - 1, or half of them; three statements
/// each.
void WriteHosts(const std::string& path, std::size_t count, Present present);

/// A DHCPv6 file of the subnets 0 to `count` - 1, with one host each that has the subnet's number.
void WriteSubnets(const std::string& path, std::size_t count);

/// A DHCPv6 leases file of `count` associations with one address each.
void WriteLeases(const std::string& path, std::size_t count);

#endif
