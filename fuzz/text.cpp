#include "fuzz/text.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace klepur::fuzz {

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines(1);
  for (const char c : text) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back() += c;
    }
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

std::string WithCarriageReturns(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '\n') result += '\r';
    result += c;
  }
  return result;
}

std::string WithoutNulBytes(std::string text) {
  std::erase(text, '\0');
  return text;
}

int Number(std::string_view text, int most) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc::result_out_of_range) return most;
  return std::clamp(number, -most, most);
}

}  // namespace klepur::fuzz
