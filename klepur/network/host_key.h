// Internal: what hosts are found by.
#ifndef KLEPUR_NETWORK_HOST_KEY_H
#define KLEPUR_NETWORK_HOST_KEY_H

#include <klepur/network/address.h>
#include <klepur/network/hardware_address.h>
#include <klepur/network/identifier.h>
#include <klepur/network/ordered.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace klepur::internal {

/// One thing that a host is found by, in bytes that are the same for all its spellings.
class HostKey : public Ordered<HostKey> {
 public:
  static HostKey Of(const HardwareAddress& hardware);
  static HostKey Of(const klepur::Address& address);
  static HostKey Of(const Identifier& identifier);
  static HostKey OfHostName(std::string name) { return {Kind::kHostName, std::move(name)}; }

  std::uint64_t Hash() const;
  int Compare(const HostKey& other) const noexcept;

 private:
  enum class Kind : std::uint8_t { kHardware, kAddress, kClientIdentifier, kHostName };
  HostKey(Kind kind, std::string bytes) : kind_(kind), bytes_(std::move(bytes)) {}

  Kind kind_;
  std::string bytes_;
};

/// Calls `use` with each key that a statement of a host gives it. What is no address, identifier or name
/// gives none.
void ForEachHostKey(std::string_view statement, const std::function<void(const HostKey&)>& use);

}  // namespace klepur::internal

#endif
