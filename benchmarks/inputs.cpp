#include "benchmarks/inputs.h"

#include <cstdint>
#include <cstdio>
#include <fstream>

#include "benchmarks/check.h"

namespace {

template <class... Values>
std::string Format(const char* form, Values... values) {
  char text[64];
  std::snprintf(text, sizeof text, form, values...);
  return text;
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  Check(file.good(), "the input is written");
}

std::string Host(std::size_t number, const std::string& address) {
  return "\thost " + HostName(number) + " {\n\t\thardware ethernet " + MacAddress(number) +
         ";\n\t\t" + address + ";\n\t\toption host-name \"" + HostName(number) + "\";\n\t}\n";
}

std::string Association(std::size_t number) {
  return "ia-na \"" + HostName(number) + "\" {\n  cltt 4 2026/11/19 07:58:12;\n  iaaddr " +
         Address6(number) +
         " {\n    binding state active;\n    preferred-life 375;\n    max-life 600;\n"
         "    ends 4 2026/11/19 08:08:12;\n  }\n}\n\n";
}

}  // namespace

std::string HostName(std::size_t number) {
  return Format("pc-%06zu", number);
}

std::string MacAddress(std::size_t number) {
  return Format("00:16:3e:%02zx:%02zx:%02zx", number >> 16 & 255, number >> 8 & 255, number & 255);
}

std::string Address(std::size_t number) {
  return Format("10.%zu.%zu.%zu", number >> 16 & 255, number >> 8 & 255, number & 255);
}

std::string Address6(std::size_t number) {
  return Format("2001:db8:ffff::%zx:%zx", number >> 16, number & 0xffff);
}

std::string Prefix(std::size_t number) {
  return Format("2001:db8:%zx:%zx::/64", number >> 16, number & 0xffff);
}

bool IsInHalf(std::size_t number) {
  auto mixed = static_cast<std::uint32_t>(number) * 0x9e3779b1U;
  mixed = (mixed ^ mixed >> 16) * 0x7feb352dU;
  return (mixed >> 31) == 0;
}

void WriteHosts(const std::string& path, std::size_t count, Present present) {
  std::string text = "authoritative;\nsubnet " + std::string(kSubnet) + " {\n";
  for (std::size_t number = 0; number < count; ++number) {
    if (present == Present::kHalf && !IsInHalf(number)) continue;
    text += Host(number, "fixed-address " + Address(number));
  }
  WriteFile(path, text + "}\n");
}

void WriteSubnets(const std::string& path, std::size_t count) {
  std::string text = "authoritative;\n";
  for (std::size_t number = 0; number < count; ++number) {
    text += "subnet6 " + Prefix(number) + " {\n\tdefault-lease-time 600;\n" +
            Host(number, "fixed-address6 " + Address6(number)) + "}\n";
  }
  WriteFile(path, text);
}

void WriteLeases(const std::string& path, std::size_t count) {
  std::string text;
  for (std::size_t number = 0; number < count; ++number) text += Association(number);
  WriteFile(path, text);
}
