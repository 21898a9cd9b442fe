// One network address, IPv4 or IPv6.
#ifndef KLEPUR_NETWORK_ADDRESS_H
#define KLEPUR_NETWORK_ADDRESS_H

#include <klepur/export.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// A network address: 10.0.0.1, 2001:db8::1.
///
///     std::optional<Address> router = Address::Parse("2001:DB8:0:0::1");
///     router->Text();                                  // "2001:db8::1"
///     *router == *Address::Parse("2001:db8::1");       // true: compared by value
///
/// Every IPv4 address stands before every IPv6 address, also before an IPv6 address that holds an
/// IPv4 one (::ffff:10.0.0.1): these are different addresses. No member but Text() uses memory of
/// its own.
class KLEPUR_EXPORT Address : public Ordered<Address> {
 public:
  static constexpr std::size_t kMostBytes = 16;

  /// 0.0.0.0
  Address() noexcept = default;

  /// The address that the text spells, or nothing.
  ///
  /// \param text  as inet_pton takes it and nothing around it: "10.0.0.1", "2001:db8::1",
  ///              "2001:DB8:0::1", "::ffff:10.0.0.1". Not taken: "10.0.0.01", "10.0.1", " 10.0.0.1",
  ///              "fe80::1%eth0", "10.0.0.0/24", host names.
  static std::optional<Address> Parse(std::string_view text) noexcept;

  /// As Parse, and also takes zeros in front of the numbers of an IPv4 address, as dhcpd does. The
  /// numbers are decimal all the same: "010.000.0.001" is 10.0.0.1.
  static std::optional<Address> ParseLenient(std::string_view text) noexcept;

  /// The address with these 4 or 16 bytes, the first one first.
  static Address FromV4Bytes(const unsigned char* bytes) noexcept;
  static Address FromV6Bytes(const unsigned char* bytes) noexcept;

  bool IsV4() const noexcept { return byteCount_ == 4; }
  bool IsV6() const noexcept { return !IsV4(); }

  /// The bytes as they stand in a packet, 4 or 16.
  const unsigned char* Bytes() const noexcept { return bytes_; }
  std::size_t ByteCount() const noexcept { return byteCount_; }
  /// 32 or 128.
  unsigned BitCount() const noexcept { return 8U * byteCount_; }

  /// As inet_ntop writes it: "10.0.0.1", "2001:db8::1". Parse gives the same address again.
  std::string Text() const;

  /// The address behind and the one before; nothing behind 255.255.255.255 and ffff:...:ffff, or
  /// before 0.0.0.0 and ::.
  std::optional<Address> Next() const noexcept;
  std::optional<Address> Previous() const noexcept;

  /// The address with all bits behind the first `length` cleared, or set. With 24, 10.0.0.7 gives
  /// 10.0.0.0 and 10.0.0.255. A length of BitCount() or more gives the address itself.
  Address WithHostBitsCleared(unsigned length) const noexcept;
  Address WithHostBitsSet(unsigned length) const noexcept;

  /// Negative, zero or positive, see Ordered.
  int Compare(const Address& other) const noexcept;
  std::size_t Hash() const noexcept;

 private:
  unsigned char byteCount_ = 4;
  unsigned char bytes_[kMostBytes] = {};  // behind byteCount_ they are zero
};

}  // namespace klepur

template <>
struct std::hash<klepur::Address> : klepur::Hashed<klepur::Address> {};

#endif
