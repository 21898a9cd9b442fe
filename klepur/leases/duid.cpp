#include <klepur/leases/duid.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace klepur::internal {
namespace {

/// Appends a value as "%02x" would print it.
void AppendHex(int value, std::string& out) {
  char digits[2 * sizeof value];
  const char* const end =
      std::to_chars(digits, digits + sizeof digits, static_cast<unsigned int>(value), 16).ptr;
  if (end - digits == 1) out += '0';
  out.append(digits, static_cast<std::size_t>(end - digits));
}

/// The value of up to three characters behind a backslash, read as an octal number.
int OctalValue(std::string_view text) {
  const std::string digits(text.substr(0, 3));
  return static_cast<int>(std::strtol(digits.c_str(), nullptr, 8));
}

}  // namespace

std::string DuidInHex(const char* text) {
  std::string hex;
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
