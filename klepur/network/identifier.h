// The identifier that a client gives of itself.
#ifndef KLEPUR_NETWORK_IDENTIFIER_H
#define KLEPUR_NETWORK_IDENTIFIER_H

#include <klepur/export.h>
#include <klepur/network/hashed.h>
#include <klepur/network/ordered.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace klepur {

/// The bytes of a client identifier of DHCPv4, or of a DUID of DHCPv6.
///
///     auto written = Identifier::Parse(R"("CLIENT\055FOO")");
///     *written == *Identifier::Parse("43:4c:49:45:4e:54:2d:46:4f:4f");     // true: the same bytes
///     written->Quoted();                                                  // "\"CLIENT-FOO\""
///
/// What dhcpd compares is the bytes, so a text is not the same as one with a zero byte in front,
/// which many clients send.
class KLEPUR_EXPORT Identifier : public Ordered<Identifier> {
 public:
  /// Without any bytes.
  Identifier() noexcept = default;

  /// These bytes: Identifier("CLIENT-FOO").
  explicit Identifier(std::string bytes) noexcept : bytes_(std::move(bytes)) {}

  /// The value of a statement, as behind `option dhcp-client-identifier`,
  /// `host-identifier option dhcp6.client-id` and `uid`, over lines and with comments.
  ///
  /// \param value  either numbers up to ff: "00:01:0:1:c:FF", "1"; or one text between quotes, in
  ///               which a backslash begins \n \t \r \b, \ooo (three octal digits, the first one 0
  ///               to 3), \xhh, and stands for whatever else follows it: "\"CLIENT\\x2dFOO\"".
  /// \return nothing for any other text: CLIENT-FOO without quotes, two texts, 1:2:"a", escapes
  ///         that are not complete, and two that dhcpd lets pass: expressions (= "a") and negative
  ///         numbers.
  static std::optional<Identifier> Parse(std::string_view value);

  /// The identifier that somebody typed: as Parse, and also as other programs write hexadecimal:
  /// "00-01-00-01", "00010001", "0001.0001". All digits are hexadecimal, so "1234" is two bytes.
  static std::optional<Identifier> ParseAnySpelling(std::string_view text);

  const std::string& Bytes() const noexcept { return bytes_; }

  /// "43:4c:49"; empty without bytes. Otherwise Parse gives the same identifier again.
  std::string Hex() const;
  /// "\"CLIENT-FOO\"": what is no printable ASCII as \ooo. Parse gives the same identifier again.
  std::string Quoted() const;

  /// By bytes; see Ordered.
  int Compare(const Identifier& other) const noexcept { return bytes_.compare(other.bytes_); }
  std::size_t Hash() const noexcept { return std::hash<std::string>{}(bytes_); }

 private:
  std::string bytes_;
};

}  // namespace klepur

template <>
struct std::hash<klepur::Identifier> : klepur::Hashed<klepur::Identifier> {};

#endif
