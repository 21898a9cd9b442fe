// Internal: the identifiers of a leases file.
#ifndef KLEPUR_LEASES_DUID_H
#define KLEPUR_LEASES_DUID_H

#include <string>

namespace klepur::internal {

/// See Dhcpv6LeasesParser::ParseDuid.
std::string DuidInHex(const char* text);

}  // namespace klepur::internal

#endif
