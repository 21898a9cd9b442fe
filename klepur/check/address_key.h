// Internal: addresses as numbers.
#ifndef KLEPUR_CHECK_ADDRESS_KEY_H
#define KLEPUR_CHECK_ADDRESS_KEY_H

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>

#include <klepur/network/address.h>

namespace klepur::internal {

/// An address as numbers, which are compared faster than its bytes, with the same outcome.
class AddressKey {
 public:
  AddressKey(const klepur::Address& address)  // NOLINT(google-explicit-constructor): it is the same
      : is_v6_(address.IsV6() ? 1 : 0),
        high_(Number(address.Bytes())),
        low_(Number(address.Bytes() + sizeof high_)) {}

  /// That of IPv4 with these bytes, the first one highest.
  static AddressKey OfV4(std::uint32_t address) {
    return AddressKey(std::uint64_t{address} << 32U);
  }

  bool IsV6() const { return is_v6_ != 0; }

  klepur::Address ToAddress() const {
    unsigned char bytes[klepur::Address::kMostBytes];
    for (std::size_t i = 0; i != sizeof bytes; ++i) {
      bytes[i] = static_cast<unsigned char>((i < 8 ? high_ : low_) >> (56U - i % 8 * 8U));
    }
    return IsV6() ? klepur::Address::FromV6Bytes(bytes) : klepur::Address::FromV4Bytes(bytes);
  }
  std::string Text() const { return ToAddress().Text(); }

  std::uint32_t Hash() const {
    constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
    return static_cast<std::uint32_t>((low_ * kFactor ^ high_) * kFactor >> 32U);
  }

  // NOLINTNEXTLINE(modernize-use-nullptr): there is none
  friend auto operator<=>(const AddressKey&, const AddressKey&) = default;

 private:
  explicit AddressKey(std::uint64_t high) : is_v6_(0), high_(high), low_(0) {}

  static std::uint64_t Number(const unsigned char* bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i != sizeof number; ++i) number = number << 8U | bytes[i];
    return number;
  }

  std::uint32_t is_v6_;  // IPv4 comes before IPv6
  std::uint64_t high_;
  std::uint64_t low_;
};

}  // namespace klepur::internal

#endif
