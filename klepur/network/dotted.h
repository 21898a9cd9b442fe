// Internal: reading addresses of IPv4 as numbers.
#ifndef KLEPUR_NETWORK_DOTTED_H
#define KLEPUR_NETWORK_DOTTED_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace klepur::internal {

/// Four decimal numbers up to 255 with dots between, the first one highest; zeros may stand in front of each.
/// Nothing for any other text.
inline std::optional<std::uint32_t> ReadDotted(std::string_view text) noexcept {
  std::uint32_t address = 0;
  std::size_t at = 0;
  for (int part = 0; part != 4; ++part) {
    if (part != 0 && (at == text.size() || text[at++] != '.')) return std::nullopt;
    const std::size_t begin = at;
    std::uint32_t number = 0;
    for (; at != text.size() && text[at] >= '0' && text[at] <= '9' && number <= 255; ++at) {
      number = number * 10 + static_cast<std::uint32_t>(text[at] - '0');
    }
    if (at == begin || number > 255) return std::nullopt;
    address = address << 8U | number;
  }
  return at == text.size() ? std::optional(address) : std::nullopt;
}

}  // namespace klepur::internal

#endif
