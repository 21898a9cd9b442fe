// Internal: bytes in hexadecimal.
#ifndef KLEPUR_NETWORK_HEX_BYTES_H
#define KLEPUR_NETWORK_HEX_BYTES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace klepur::internal {

/// Room for bytes that are read.
struct ByteRoom {
  unsigned char* bytes;
  std::size_t size;
};

/// 0 to 15 for a hexadecimal digit of either case, -1 for anything else.
int HexDigitValue(char c) noexcept;

/// Reads the bytes of a list as it stands in a value, "0:11:aa:BB:c:5": numbers up to ff, zeros in
/// front of them do not count, between them a colon and any blanks and comments.
///
/// \return how many there are, at least 1; nothing when the text is anything else or does not fit.
///         A text of n characters has at most (n + 1) / 2 bytes.
std::optional<std::size_t> ReadHexList(std::string_view text, ByteRoom room) noexcept;

/// Reads the bytes of a text as people type them: "00:11:aa:bb:0c:05", "0-11-AA-BB-C-5",
/// "0011.aabb.0c05", "001122-aabb0c", "0011aabb0c05". Blanks around it do not count.
///
/// The digits are one group, or groups with the same one of ":", "-", "." or " " between them.
/// Groups of one or two digits are a byte each, other groups must be of the same even number of
/// digits; a single group needs an even number.
///
/// \return as ReadHexList.
std::optional<std::size_t> ReadTypedHex(std::string_view text, ByteRoom room) noexcept;

/// "00:11:aa:bb:0c:05"
std::string HexList(const unsigned char* bytes, std::size_t count);

}  // namespace klepur::internal

#endif
