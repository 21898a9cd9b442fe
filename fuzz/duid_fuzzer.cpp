// Any bytes as an identifier of a leases file.
//
// What is checked:
// - The bytes taken as the text of an identifier give what the plain model says: lower-case
//   hexadecimal digits, those of the text up to its first NUL byte.
// - The bytes taken as the identifier itself, written as a leases file has them, come back as two
//   digits each. That holds for every byte but those from 0x80 on that stand for themselves, which
//   give eight digits; a leases file has them as octal numbers.
// - The two ways that a leases file can be written, only what must be escaped and everything as
//   octal numbers, mean the same.
#include <klepur/leases/leases_parser.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "fuzz/plain_leases.h"
#include "fuzz/require.h"
#include "fuzz/target.h"

namespace klepur::fuzz {
namespace {

std::string Formatted(const char* format, char byte) {
  char text[8];
  std::snprintf(text, sizeof text, format, static_cast<unsigned>(static_cast<unsigned char>(byte)));
  return text;
}

bool IsPrintable(char byte) {
  return byte >= ' ' && byte <= '~';
}

/// As a leases file has it between its double quotes.
std::string Escaped(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) {
    if (byte == '\\' || byte == '"') {
      text += std::string("\\") + byte;
    } else {
      text += IsPrintable(byte) ? std::string(1, byte) : Formatted("\\%03o", byte);
    }
  }
  return text;
}

std::string AllOctal(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) text += Formatted("\\%03o", byte);
  return text;
}

std::string InHex(const std::string& bytes) {
  std::string text;
  for (const char byte : bytes) text += Formatted("%02x", byte);
  return text;
}

void Check(const std::string& bytes) {
  Dhcpv6LeasesParser parser;
  const std::string hex = parser.ParseDuid(bytes);
  RequireSame("the identifier", PlainDuid(bytes), hex);
  Require(hex.find_first_not_of("0123456789abcdef") == std::string::npos, "only digits come out");
  RequireSame("the text behind a NUL byte is not read", hex, parser.ParseDuid(bytes.c_str()));
  RequireSame("the escaped bytes", InHex(bytes), parser.ParseDuid(Escaped(bytes)));
  RequireSame("the bytes as octal numbers", InHex(bytes), parser.ParseDuid(AllOctal(bytes)));
}

}  // namespace
}  // namespace klepur::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return klepur::fuzz::RunTarget(data, size, klepur::fuzz::Check);
}
