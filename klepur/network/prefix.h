// A network: an address and the length of its prefix.
#ifndef KLEPUR_NETWORK_PREFIX_H
#define KLEPUR_NETWORK_PREFIX_H

#include <klepur/export.h>
#include <klepur/network/address.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// The addresses that begin with the same bits: 10.0.0.0/24, 2001:db8::/64.
///
///     std::optional<Prefix> office = Prefix::ParseSubnet("10.0.0.0 netmask 255.255.255.0");
///     office->Text();                                     // "10.0.0.0/24"
///     office->Contains(*Address::Parse("10.0.0.77"));     // true
///     office->Last().Text();                              // "10.0.0.255"
///
/// The address is kept as it was given. dhcpd refuses one with host bits, as in 10.0.0.7/24, so a
/// prefix can say that it has some; all else that it tells is the same as for 10.0.0.0/24. Prefixes
/// are equal when address and length are. No member but Text() uses memory of its own.
class KLEPUR_EXPORT Prefix : public Ordered<Prefix> {
 public:
  /// 0.0.0.0/0
  Prefix() noexcept = default;

  /// Nothing when the length is above 32 or 128.
  static std::optional<Prefix> Of(const Address& address, unsigned length) noexcept;

  /// \param text  "10.0.0.0/24", "2001:db8::/64"; as in a statement, blanks and comments may stand
  ///              around the slash and zeros in front of the numbers: "10.0.0.000 / 024".
  /// \return nothing for any other text: "10.0.0.0", "10.0.0.0/33", "10.0.0.0/255.0.0.0".
  static std::optional<Prefix> Parse(std::string_view text) noexcept;

  /// \param address, netmask  "10.0.0.0" and "255.255.255.0".
  /// \return nothing when one of them is no IPv4 address, and for a mask with holes, such as
  ///         255.0.255.0: dhcpd takes that, but it is no prefix.
  static std::optional<Prefix> ParseWithNetmask(std::string_view address,
                                                std::string_view netmask) noexcept;

  /// \param name  what stands in a subnet's header behind the keyword: of `subnet`
  ///              "10.0.0.0 netmask 255.255.255.0", of `subnet6` "2001:db8::/64".
  /// \return nothing for any other text, such as "10.0.0.0/24", and as ParseWithNetmask.
  static std::optional<Prefix> ParseSubnet(std::string_view name) noexcept;

  const Address& GetAddress() const noexcept { return address_; }
  unsigned Length() const noexcept { return length_; }

  /// The lowest and the highest address in it.
  Address First() const noexcept { return address_.WithHostBitsCleared(length_); }
  Address Last() const noexcept { return address_.WithHostBitsSet(length_); }

  /// The address that reaches all hosts of an IPv4 network: its last one. Nothing for IPv6, and for
  /// lengths of 31 and 32, where every address is a host's.
  std::optional<Address> Broadcast() const noexcept;

  /// 255.255.255.0 for a length of 24; ffff:ffff:ffff:ffff:: for one of 64 in IPv6.
  Address Netmask() const noexcept;

  /// True for 10.0.0.7/24: bits behind the prefix are set.
  bool HasHostBits() const noexcept { return address_ != First(); }
  /// 10.0.0.0/24 for 10.0.0.7/24.
  Prefix WithoutHostBits() const noexcept;

  bool Contains(const Address& address) const noexcept;
  /// True when every address of the other is in this one, so also for the same network.
  bool Contains(const Prefix& other) const noexcept;
  /// True when an address is in both; one then contains the other.
  bool Overlaps(const Prefix& other) const noexcept;

  /// "10.0.0.0/24"; Parse gives the same prefix again.
  std::string Text() const;

  /// By address, then by length; see Ordered.
  int Compare(const Prefix& other) const noexcept;
  std::size_t Hash() const noexcept;

 private:
  Prefix(const Address& address, unsigned length) noexcept
      : address_(address), length_(static_cast<unsigned char>(length)) {}

  Address address_;
  unsigned char length_ = 0;
};

}  // namespace klepur

template <>
struct std::hash<klepur::Prefix> : klepur::Hashed<klepur::Prefix> {};

#endif
