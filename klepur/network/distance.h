// Internal: how far apart addresses are.
#ifndef KLEPUR_NETWORK_DISTANCE_H
#define KLEPUR_NETWORK_DISTANCE_H

#include <klepur/network/address.h>

#include <cstdint>

namespace klepur::internal {

/// How many prefixes of a length lie between two addresses, both counted: with 32 or 128 the
/// addresses themselves. 2^64 - 1 also stands for more.
///
/// \param first, last  of one family, not the other way round.
std::uint64_t CountPrefixes(const klepur::Address& first, const klepur::Address& last,
                            unsigned length) noexcept;

}  // namespace klepur::internal

#endif
