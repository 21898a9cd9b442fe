// Internal: what hosts are found by.
#ifndef KLEPUR_NETWORK_HOST_KEY_H
#define KLEPUR_NETWORK_HOST_KEY_H

#include <klepur/network/address.h>
#include <klepur/network/hardware_address.h>
#include <klepur/network/identifier.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace klepur::internal {

/// One thing that a host is found by, in bytes that are the same for all its spellings.
struct HostKey {
  enum class Kind : std::uint8_t { kHardware, kAddress, kClientIdentifier, kHostName };

  static HostKey Of(const HardwareAddress& hardware);
  static HostKey Of(const klepur::Address& address);
  static HostKey Of(const Identifier& identifier);
  static HostKey OfHostName(std::string name) { return {Kind::kHostName, std::move(name)}; }

  Kind kind;
  std::string bytes;
};

/// Uses the bytes of a key, which end with the call.
using UseKey = std::function<void(std::string_view bytes)>;

/// Calls `use` with each key of a kind that a statement of a host gives it. What is no address, identifier
/// or name gives none.
void ForEachHostKey(HostKey::Kind kind, std::string_view statement, const UseKey& use);

}  // namespace klepur::internal

#endif
