#include "fuzz/plain_values.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace klepur::fuzz {
namespace {

/// A length, or what is left of one, as a 16-bit number with a sign holds it.
int Short(std::ptrdiff_t length) {
  const int low = static_cast<int>((length % 65536 + 65536) % 65536);
  return low < 32768 ? low : low - 65536;
}

int Short(std::size_t length) {
  return Short(static_cast<std::ptrdiff_t>(length));
}

}  // namespace

const std::string kDigits = "0123456789";
const std::string kLetters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";

std::size_t PlainFirst(const std::string& text, const std::string& wanted) {
  const auto scanned = static_cast<std::size_t>(std::max(Short(text.size()), 0));
  return std::min(text.find_first_of(wanted), scanned);
}

bool PlainNameServers(bool isV6, const std::string& line, std::list<std::string>& out) {
  std::size_t at = PlainFirst(line, isV6 ? " " : kDigits);
  int remaining = Short(line.size() - at);
  while (remaining >= 1) {
    const std::size_t end = std::min(line.find_first_of(", ;", at), line.size());
    const std::string element = line.substr(at, end - at);
    if (!element.empty()) out.push_back(element);
    at = end;
    if (at == line.size()) return false;
    if (line[at] == ';') return true;
    ++at;
    remaining = Short(remaining - static_cast<std::ptrdiff_t>(element.size() + 1));
  }
  return false;
}

void PlainValueFromString(const std::string& line, const std::string& separator, std::string& out) {
  if (separator == " ") {
    const std::size_t blank = line.find(' ');
    if (blank != std::string::npos) out = line.substr(blank + 1);
  } else if (separator == ";") {
    const std::size_t blank = line.rfind(' ');
    const std::size_t end = line.find(';');
    if (blank == std::string::npos || end == std::string::npos) return;
    out = line.substr(blank + 1);
    if (end > blank) out = out.substr(0, end - blank - 1);
  }
}

std::string PlainNetmask(const std::string& text) {
  std::string mask;
  std::string digits(4, '\0');
  int remaining = Short(text.size());
  std::size_t at = 0;
  for (int octet = 0; octet < 4 && at <= text.size(); ++octet) {
    for (std::size_t i = 0; i < 3 && remaining > 0 && text[at] != '.'; ++i) {
      digits[i] = text[at++];
      --remaining;
    }
    mask += std::strtol(digits.c_str(), nullptr, 10) % 65536 == 0 ? "0" : "255";
    mask += at < text.size() ? text[at] : '\0';
    ++at;
    remaining = Short(std::ptrdiff_t{remaining} - 1);
  }
  return mask;
}

}  // namespace klepur::fuzz
