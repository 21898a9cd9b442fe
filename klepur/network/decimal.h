// Internal: decimal numbers.
#ifndef KLEPUR_NETWORK_DECIMAL_H
#define KLEPUR_NETWORK_DECIMAL_H

#include <optional>
#include <string_view>

namespace klepur::internal {

/// The number that the text is, zeros in front of it or not; nothing for a text that is not all
/// decimal digits, and above `most`.
std::optional<unsigned> ParseDecimal(std::string_view text, unsigned most) noexcept;

}  // namespace klepur::internal

#endif
