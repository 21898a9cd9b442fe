#include <klepur/network/decimal.h>

#include <charconv>

namespace klepur::internal {

std::optional<unsigned> ParseDecimal(std::string_view text, unsigned most) noexcept {
  unsigned number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || number > most) return std::nullopt;
  return number;
}

}  // namespace klepur::internal
