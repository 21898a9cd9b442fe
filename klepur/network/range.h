// The addresses from one to another.
#ifndef KLEPUR_NETWORK_RANGE_H
#define KLEPUR_NETWORK_RANGE_H

#include <klepur/export.h>
#include <klepur/network/address.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>
#include <klepur/network/prefix.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// The addresses that a `range` or `range6` statement gives out, both ends included.
///
///     std::optional<AddressRange> pool = AddressRange::Parse("10.0.0.9 10.0.0.1");
///     pool->First().Text();                              // "10.0.0.1"
///     pool->IsReversed();                                // true: written from high to low
///     pool->Contains(*Address::Parse("10.0.0.5"));       // true
///     pool->Count();                                     // 9
///
/// dhcpd takes the ends in either order, and so does this class. Ranges are equal when their ends
/// and their use are, in whatever order and form they were written. No member but Text() uses
/// memory of its own.
class KLEPUR_EXPORT AddressRange : public Ordered<AddressRange> {
 public:
  /// Whom the addresses are for.
  enum class Use : unsigned char {
    kAny,
    kDynamicBootp,  ///< BOOTP clients too: `range dynamic-bootp ...`
    kTemporary,     ///< temporary addresses: `range6 ... temporary`
  };

  /// 0.0.0.0 alone
  AddressRange() noexcept = default;

  /// The addresses of a network, or one address.
  explicit AddressRange(const Prefix& prefix) noexcept
      : first_(prefix.First()), last_(prefix.Last()) {}
  explicit AddressRange(const Address& address) noexcept : first_(address), last_(address) {}

  /// The ends may stand in either order. Nothing when they are of different families.
  static std::optional<AddressRange> Of(const Address& one, const Address& other,
                                        Use use = Use::kAny) noexcept;

  /// The value of a statement, over lines and with comments.
  ///
  /// \param value  of `range`: "10.0.0.1 10.0.0.9", "dynamic-bootp 10.0.0.1 10.0.0.9", "10.0.0.1";
  ///               of `range6`: "2001:db8::1 2001:db8::9", "2001:db8::/64",
  ///               "2001:db8::/64 temporary", "2001:db8:: temporary" (then the length is 64).
  /// \return nothing for any other text: "10.0.0.0/24", "2001:db8::1",
  ///         "2001:db8::1 2001:db8::9 temporary", "10.0.0.1, 10.0.0.9". Host bits of a prefix,
  ///         which dhcpd refuses, do not count.
  static std::optional<AddressRange> Parse(std::string_view value) noexcept;

  /// The lower and the upper end.
  const Address& First() const noexcept { return first_; }
  const Address& Last() const noexcept { return last_; }
  Use GetUse() const noexcept { return use_; }
  /// True when the upper end was given first.
  bool IsReversed() const noexcept { return isReversed_; }

  bool Contains(const Address& address) const noexcept;
  /// True when every address of the other is in this one.
  bool Contains(const AddressRange& other) const noexcept;
  /// True when an address is in both.
  bool Overlaps(const AddressRange& other) const noexcept;

  /// How many addresses it has; 2^64 - 1 also stands for more.
  std::uint64_t Count() const noexcept;

  /// The network with exactly these addresses, if there is one.
  std::optional<Prefix> AsPrefix() const noexcept;

  /// As a statement's value, the lower end first: "dynamic-bootp 10.0.0.1 10.0.0.9", "10.0.0.1",
  /// "2001:db8::1 2001:db8::9", "2001:db8::/64 temporary". Parse gives an equal range again, unless
  /// it has a use that the statement cannot say of its addresses (Of takes any).
  std::string Text() const;

  /// By lower end, upper end, use; see Ordered.
  int Compare(const AddressRange& other) const noexcept;
  std::size_t Hash() const noexcept;

 private:
  Address first_;
  Address last_;
  Use use_ = Use::kAny;
  bool isReversed_ = false;
};

}  // namespace klepur

template <>
struct std::hash<klepur::AddressRange> : klepur::Hashed<klepur::AddressRange> {};

#endif
