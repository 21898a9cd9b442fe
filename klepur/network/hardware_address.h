// The address of a network card.
#ifndef KLEPUR_NETWORK_HARDWARE_ADDRESS_H
#define KLEPUR_NETWORK_HARDWARE_ADDRESS_H

#include <klepur/export.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// A kind of network hardware and the address of a card of that kind.
///
///     auto card = HardwareAddress::Parse("ethernet 0:11:AA:bb:C:5");
///     card->Text();                                                      // "00:11:aa:bb:0c:05"
///     *card == *HardwareAddress::ParseAnySpelling("0011.aabb.0c05");     // true
///
/// Letter case and zeros in front of the numbers do not count. The same bytes on another kind of
/// hardware are another address. No member but TypeName(), Text() and Value() uses memory of its
/// own.
class KLEPUR_EXPORT HardwareAddress : public Ordered<HardwareAddress> {
 public:
  /// As many bytes as dhcpd takes.
  static constexpr std::size_t kMostBytes = 20;

  /// Kinds of hardware, by the numbers that stand in a packet.
  static constexpr unsigned char kEthernet = 1;
  static constexpr unsigned char kTokenRing = 6;
  static constexpr unsigned char kFddi = 8;
  static constexpr unsigned char kInfiniband = 32;

  /// Ethernet, without any bytes.
  HardwareAddress() noexcept = default;

  /// The value of a `hardware` statement, over lines and with comments.
  ///
  /// \param value  the kind and 1 to 20 numbers up to ff: "ethernet 0:11:aa:bb:C:5",
  ///               "token-ring ...", "fddi ...", "infiniband ...", in any letter case, and
  ///               "unknown-7 ..." for the other kinds of 0 to 255.
  /// \return nothing for any other text. That includes three that dhcpd lets pass: no number at all
  ///         ("ethernet"), negative ones, and "unknown-" with anything else behind it.
  static std::optional<HardwareAddress> Parse(std::string_view value) noexcept;

  /// The address that somebody typed, without the kind.
  ///
  /// \param text  "00:11:aa:bb:0c:05", "0:11:aa:bb:c:5", "00-11-AA-BB-0C-05", "0011.aabb.0c05",
  ///              "001122-aabb0c", "0011aabb0c05"; blanks around it do not count.
  /// \return nothing for any other text, also for one that mixes spellings.
  static std::optional<HardwareAddress> ParseAnySpelling(std::string_view text,
                                                         unsigned char type = kEthernet) noexcept;

  /// Nothing when there are more than kMostBytes.
  static std::optional<HardwareAddress> FromBytes(unsigned char type, const unsigned char* bytes,
                                                  std::size_t count) noexcept;

  unsigned char Type() const noexcept { return type_; }
  const unsigned char* Bytes() const noexcept { return bytes_; }
  std::size_t ByteCount() const noexcept { return byteCount_; }

  /// "ethernet", "unknown-7"
  std::string TypeName() const;
  /// The bytes alone: "00:11:aa:bb:0c:05".
  std::string Text() const;
  /// As a statement's value: "ethernet 00:11:aa:bb:0c:05". Parse gives the same address again,
  /// unless it is without bytes.
  std::string Value() const;

  /// By kind, then by bytes; see Ordered.
  int Compare(const HardwareAddress& other) const noexcept;
  std::size_t Hash() const noexcept;

 private:
  unsigned char type_ = kEthernet;
  unsigned char byteCount_ = 0;
  unsigned char bytes_[kMostBytes] = {};
};

}  // namespace klepur

template <>
struct std::hash<klepur::HardwareAddress> : klepur::Hashed<klepur::HardwareAddress> {};

#endif
