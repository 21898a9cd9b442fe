#include <klepur/config/value_scan.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <stdexcept>

namespace klepur::internal {
namespace {

constexpr std::string_view kNetmask = " netmask ";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsListSeparator(char c) {
  return c == ',' || c == ' ' || c == ';';
}

/// Lengths are counted with 16 bits and a sign: callers rely on what that makes of long lines.
std::int16_t Narrow(std::size_t length) {
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(length));
}

template <class Predicate>
const char* FirstThat(const char* s, Predicate matches) {
  if (s == nullptr) return nullptr;
  const char* const end = s + std::max<int>(Narrow(std::strlen(s)), 0);
  return std::find_if(s, end, matches);
}

}  // namespace

const char* FirstDigit(const char* s) {
  return FirstThat(s, IsDigit);
}

const char* FirstLetter(const char* s) {
  return FirstThat(s, IsLetter);
}

const char* FirstOf(const char* s, char wanted) {
  return FirstThat(s, [wanted](char c) { return c == wanted; });
}

bool SplitList(const char* start, std::list<std::string>& out) {
  std::int16_t remaining = Narrow(std::strlen(start));
  while (remaining >= 1) {
    const char* end = start;
    while (*end != '\0' && !IsListSeparator(*end)) ++end;
    if (end != start) out.emplace_back(start, end);
    if (*end == ';') return true;
    if (*end == '\0') return false;
    const char* const next = end + 1;
    remaining = Narrow(static_cast<std::size_t>(remaining - (next - start)));
    start = next;
  }
  return false;
}

std::string Join(const std::list<std::string>& elements, std::string_view separator) {
  std::string joined;
  for (const std::string& element : elements) {
    if (&element != &elements.front()) joined += separator;
    joined += element;
  }
  return joined;
}

bool TextBehindFirstBlank(std::string_view line, std::string& out) {
  const std::size_t blank = line.find(' ');
  if (blank == std::string_view::npos) return false;
  out = line.substr(blank + 1);
  return true;
}

bool LastWordOfStatement(std::string_view line, std::string& out) {
  const std::size_t blank = line.rfind(' ');
  const std::size_t semicolon = line.find(';');
  if (blank == std::string_view::npos || semicolon == std::string_view::npos) return false;
  const std::size_t begin = blank + 1;
  out = line.substr(begin, semicolon < begin ? std::string_view::npos : semicolon - begin);
  return true;
}

std::string SubnetAddress(std::string_view header) {
  const std::size_t begin = header.find(' ') + 1;  // 0 when there is no blank
  const std::size_t netmask = header.find(kNetmask);
  const bool hasEnd = netmask != std::string_view::npos && netmask >= begin;
  return std::string(header.substr(begin, hasEnd ? netmask - begin : std::string_view::npos));
}

std::string AddressPart(const std::string& name, bool colonEndsAddress) {
  std::size_t end = name.find(',');
  // Behind a "," there is a blank to step over; callers know the error of there being nothing at
  // all.
  if (end != std::string::npos && end + 1 == name.size()) {
    throw std::out_of_range("basic_string::substr");
  }
  if (end == std::string::npos && colonEndsAddress) end = name.find(':');
  if (end == std::string::npos) end = name.find(' ');
  return name.substr(0, end);
}

std::string WithoutEnds(const std::string& text) {
  return text.size() <= 1 ? std::string() : text.substr(1, text.size() - 2);
}

}  // namespace klepur::internal
