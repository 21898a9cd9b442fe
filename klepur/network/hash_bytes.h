// Internal: the hash of some bytes.
#ifndef KLEPUR_NETWORK_HASH_BYTES_H
#define KLEPUR_NETWORK_HASH_BYTES_H

#include <cstddef>
#include <functional>
#include <string_view>

namespace klepur::internal {

inline std::size_t HashBytes(const unsigned char* bytes, std::size_t count) noexcept {
  return std::hash<std::string_view>{}({reinterpret_cast<const char*>(bytes), count});
}

}  // namespace klepur::internal

#endif
