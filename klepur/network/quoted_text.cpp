#include <klepur/network/quoted_text.h>

#include <klepur/network/hex_bytes.h>

#include <algorithm>

namespace klepur::internal {
namespace {

/// Takes `count` digits of a base at the beginning of the text; nothing when one is missing.
std::optional<char> TakeDigits(std::string_view& text, std::size_t count, int base) {
  if (text.size() < count) return std::nullopt;
  int value = 0;
  for (const char c : text.substr(0, count)) {
    const int digit = HexDigitValue(c);
    if (digit < 0 || digit >= base) return std::nullopt;
    value = value * base + digit;
  }
  text.remove_prefix(count);
  return static_cast<char>(value);
}

/// Takes what stands behind a backslash; nothing when it is not complete.
std::optional<char> TakeEscape(std::string_view& text) {
  if (text.empty()) return std::nullopt;
  const char first = text.front();
  if (first >= '0' && first <= '3') return TakeDigits(text, 3, 8);
  text.remove_prefix(1);
  switch (first) {
    case 't':
      return '\t';
    case 'r':
      return '\r';
    case 'n':
      return '\n';
    case 'b':
      return '\b';
    case 'x':
      return TakeDigits(text, 2, 16);
    default:
      return first;
  }
}

bool IsPrintable(char c) {
  return c >= ' ' && c <= '~';
}

void AppendOctal(unsigned char byte, std::string& out) {
  out += '\\';
  for (const int shift : {6, 3, 0}) out += static_cast<char>('0' + ((byte >> shift) & 7));
}

}  // namespace

std::size_t QuotedLength(std::string_view text) noexcept {
  std::size_t at = 1;
  while (at < text.size() && text[at] != '"') at += text[at] == '\\' ? 2U : 1U;
  return std::min(at + 1, text.size());
}

std::optional<std::string> Unquoted(std::string_view quoted) {
  if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') return std::nullopt;
  std::string bytes;
  bytes.reserve(quoted.size() - 2);
  for (std::string_view rest = quoted.substr(1, quoted.size() - 2); !rest.empty();) {
    char c = rest.front();
    if (c == '"') return std::nullopt;
    rest.remove_prefix(1);
    if (c == '\\') {
      const std::optional<char> escaped = TakeEscape(rest);
      if (!escaped) return std::nullopt;
      c = *escaped;
    }
    bytes += c;
  }
  return bytes;
}

std::string Quoted(std::string_view bytes) {
  std::string quoted = "\"";
  quoted.reserve(bytes.size() + 2);
  for (const char c : bytes) {
    if (!IsPrintable(c)) {
      AppendOctal(static_cast<unsigned char>(c), quoted);
      continue;
    }
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted += '"';
}

}  // namespace klepur::internal
