// The prefixes from one to another.
#ifndef KLEPUR_NETWORK_PREFIX_RANGE_H
#define KLEPUR_NETWORK_PREFIX_RANGE_H

#include <klepur/export.h>
#include <klepur/network/address.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>
#include <klepur/network/prefix.h>
#include <klepur/network/range.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// The prefixes of one length that a `prefix6` statement gives out, both ends included.
///
///     auto customers = PrefixRange::Parse("2001:db8:0:100:: 2001:db8:0:f00:: /56");
///     customers->Count();                                     // 15
///     customers->First().Text();                              // "2001:db8:0:100::/56"
///     customers->Addresses().Last().Text();                   // "2001:db8:0:fff:ffff:ffff:ffff:ffff"
///
/// As with AddressRange the ends may stand in either order, and equality does not ask for it. No
/// member but Text() uses memory of its own.
class KLEPUR_EXPORT PrefixRange : public Ordered<PrefixRange> {
 public:
  /// ::/1 alone
  PrefixRange() noexcept;

  /// The value of a statement, over lines and with comments.
  ///
  /// \param value  "2001:db8:0:100:: 2001:db8:0:f00:: /56"; blanks around the slash do not count.
  /// \return nothing for any other text, and unless the ends are IPv6 addresses and the length is
  ///         between 1 and 127, as dhcpd wants it.
  static std::optional<PrefixRange> Parse(std::string_view value) noexcept;

  /// The lowest and the highest prefix, with the address that was given: its host bits, which dhcpd
  /// refuses, are kept.
  const Prefix& First() const noexcept { return first_; }
  const Prefix& Last() const noexcept { return last_; }
  unsigned Length() const noexcept { return first_.Length(); }
  /// True when the highest prefix was given first.
  bool IsReversed() const noexcept { return isReversed_; }
  bool HasHostBits() const noexcept { return first_.HasHostBits() || last_.HasHostBits(); }

  /// The addresses of all its prefixes.
  AddressRange Addresses() const noexcept;

  /// True when an address, or every address of a prefix of any length, is in one of its prefixes or
  /// in several.
  bool Contains(const Address& address) const noexcept { return Addresses().Contains(address); }
  bool Contains(const Prefix& prefix) const noexcept {
    return Addresses().Contains(AddressRange(prefix));
  }
  /// True when an address is in both.
  bool Overlaps(const PrefixRange& other) const noexcept {
    return Addresses().Overlaps(other.Addresses());
  }

  /// How many prefixes it has; 2^64 - 1 also stands for more.
  std::uint64_t Count() const noexcept;

  /// As a statement's value: "2001:db8:0:100:: 2001:db8:0:f00:: /56". Parse gives an equal range
  /// again.
  std::string Text() const;

  /// By lowest prefix, then by highest; see Ordered.
  int Compare(const PrefixRange& other) const noexcept;
  std::size_t Hash() const noexcept;

 private:
  PrefixRange(const Prefix& one, const Prefix& other) noexcept;

  Prefix first_;
  Prefix last_;
  bool isReversed_ = false;
};

}  // namespace klepur

template <>
struct std::hash<klepur::PrefixRange> : klepur::Hashed<klepur::PrefixRange> {};

#endif
