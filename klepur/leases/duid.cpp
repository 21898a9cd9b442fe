#include <klepur/leases/duid.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace klepur::internal {
namespace {

/// Appends a value as "%02x" would print it.
void AppendHex(int value, std::string& out) {
  constexpr char kDigits[] = "0123456789abcdef";
  if (value >= 0 && value <= 0xff) {  // nearly always
    out += kDigits[value / 16];
    out += kDigits[value % 16];
    return;
  }
  char digits[2 * sizeof value];
  const char* const end =
      std::to_chars(digits, digits + sizeof digits, static_cast<unsigned int>(value), 16).ptr;
  out.append(digits, static_cast<std::size_t>(end - digits));
}

bool IsOctalDigit(char c) {
  return c >= '0' && c <= '7';
}

/// The value of up to three characters behind a backslash, read as an octal number.
int OctalValue(std::string_view text) {
  if (text.size() >= 3 && std::all_of(text.begin(), text.begin() + 3, IsOctalDigit)) {
    return (text[0] - '0') * 64 + (text[1] - '0') * 8 + (text[2] - '0');
  }
  const std::string digits(text.substr(0, 3));
  return static_cast<int>(std::strtol(digits.c_str(), nullptr, 8));
}

}  // namespace

std::string DuidInHex(const char* text) {
  std::string hex;
  hex.reserve(2 * std::strlen(text));
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view behind = rest.substr(1);
    std::size_t taken = 1;
    if (rest.front() != '\\') {
      AppendHex(static_cast<signed char>(rest.front()), hex);
    } else if (behind.starts_with('\\') || behind.starts_with('"')) {
      AppendHex(behind.front(), hex);
      taken = 2;
    } else {
      AppendHex(OctalValue(behind), hex);
      taken = 4;
    }
    rest.remove_prefix(std::min(taken, rest.size()));
  }
  return hex;
}

}  // namespace klepur::internal
