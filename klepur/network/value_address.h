// Internal: the addresses and prefixes in a statement's value.
#ifndef KLEPUR_NETWORK_VALUE_ADDRESS_H
#define KLEPUR_NETWORK_VALUE_ADDRESS_H

#include <klepur/network/address.h>
#include <klepur/network/value_words.h>

#include <optional>

namespace klepur::internal {

struct AddressAndLength {
  klepur::Address address;
  std::optional<unsigned> length;  // at most the address's BitCount()
};

/// Takes the address that is the next word; nothing when there is none. Zeros in front of its
/// numbers do not count, see Address::ParseLenient.
std::optional<klepur::Address> TakeAddress(ValueWords& words) noexcept;

/// Takes an address and the length behind it, if there is one: "2001:db8::/64",
/// "2001:db8:: / 064", "2001:db8::". Nothing when there is no address, or no length that fits
/// behind the slash. How far the words were taken then is not told.
std::optional<AddressAndLength> TakeAddressAndLength(ValueWords& words) noexcept;

}  // namespace klepur::internal

#endif
