// Internal: letters and word bytes, as the DHCP server counts them, whatever the locale.
#ifndef KLEPUR_TEXT_LETTERS_H
#define KLEPUR_TEXT_LETTERS_H

#include <array>
#include <cstddef>
#include <string_view>

namespace klepur::internal {

constexpr bool IsLetter(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

constexpr bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// Which bytes something holds for, looked up faster than asked one after the other.
template <class Holds>
constexpr std::array<bool, 256> ByteTable(const Holds& holds) {
  std::array<bool, 256> table = {};
  for (std::size_t byte = 0; byte != table.size(); ++byte) {
    table[byte] = holds(static_cast<char>(static_cast<unsigned char>(byte)));
  }
  return table;
}

inline constexpr std::array<bool, 256> kWordBytes = ByteTable(
    [](char byte) { return IsLetter(byte) || IsDigit(byte) || byte == '-' || byte == '_'; });

/// A byte that a keyword or a number is made of; every other one ends it.
constexpr bool IsWordByte(char byte) {
  return kWordBytes[static_cast<unsigned char>(byte)];
}

/// A byte that cannot follow a string directly, if its quote was meant to close it: a word, or another string.
constexpr bool BeginsWordBehindString(char byte) {
  return IsWordByte(byte) || byte == '"' || byte == '.' || (byte & 0x80) != 0;
}

constexpr char ToSmallLetter(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// The word bytes that a text begins with.
constexpr std::string_view LeadingWord(std::string_view text) {
  std::size_t size = 0;
  while (size < text.size() && IsWordByte(text[size])) ++size;
  return text.substr(0, size);
}

constexpr bool EqualButForCase(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (left[i] != right[i] && ToSmallLetter(left[i]) != ToSmallLetter(right[i])) return false;
  }
  return true;
}

}  // namespace klepur::internal

#endif
