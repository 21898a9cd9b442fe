// Internal: hashes of names, for finding those that are there twice.
#ifndef KLEPUR_CHECK_TEXT_HASH_H
#define KLEPUR_CHECK_TEXT_HASH_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace klepur::internal {

/// Takes eight bytes at once, and does not look at the bits of `without` in them.
inline std::uint32_t HashOf(std::string_view text, std::uint64_t without = 0) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t hash = text.size();
  const auto add = [&](std::uint64_t bytes) {
    hash = (hash ^ (bytes | without)) * kFactor;
    hash ^= hash >> 32U;
  };
  std::uint64_t eight = 0;
  for (; text.size() >= sizeof eight; text.remove_prefix(sizeof eight)) {
    std::memcpy(&eight, text.data(), sizeof eight);
    add(eight);
  }
  eight = 0;
  for (const char byte : text) eight = eight << 8U | static_cast<unsigned char>(byte);
  add(eight);
  return static_cast<std::uint32_t>(hash);
}

/// The same for texts that differ only in the case of letters.
inline std::uint32_t HashButForCase(std::string_view text) {
  return HashOf(text, 0x2020202020202020U);
}

/// Of some bytes and what kind of bytes they are.
inline std::uint32_t HashOfBytes(const unsigned char* bytes, std::size_t count, std::size_t kind) {
  std::uint64_t hash = count + (std::uint64_t{kind} << 8U);
  for (std::size_t i = 0; i != count; ++i) hash = std::rotl(hash, 8) ^ bytes[i];
  hash *= 0x9E3779B97F4A7C15U;
  return static_cast<std::uint32_t>(hash >> 32U);
}

}  // namespace klepur::internal

#endif
