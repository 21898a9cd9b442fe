// Internal: what stands in the header of a subnet.
#ifndef KLEPUR_CHECK_SUBNET_HEADER_H
#define KLEPUR_CHECK_SUBNET_HEADER_H

#include <klepur/check/item.h>
#include <klepur/network/address.h>
#include <klepur/network/prefix.h>

#include <optional>
#include <string_view>

namespace klepur::internal {

/// Of "subnet ADDRESS netmask MASK".
struct SubnetHeader {
  std::string_view address_text;
  std::string_view mask_text;
  std::optional<klepur::Address> address;
  std::optional<klepur::Address> mask;
  bool is_whole = false;  ///< Whether the words are as they must be, whatever the addresses.
};

/// Nothing for all but headers of "subnet", and of "subnet6".
std::optional<SubnetHeader> SubnetHeaderOf(const Item& item);
std::optional<std::string_view> Subnet6PrefixOf(const Item& item);

/// Whether ones stand behind zeros in a mask.
bool HasHoles(const klepur::Address& mask);
/// Whether an address has ones where its mask has zeros.
bool HasHostBits(const klepur::Address& address, const klepur::Address& mask);

}  // namespace klepur::internal

#endif
