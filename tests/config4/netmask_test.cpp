#include <gtest/gtest.h>
#include <klepur/config4/netmask.h>

#include <string>
#include <string_view>

namespace klepur::internal {
namespace {

using namespace std::string_view_literals;

struct Row {
  const char* address;
  std::string_view mask;
};

constexpr Row kMasks[] = {
    // 255 for an octet that is not zero, 0 for one that is, and the zero byte behind the address
    {"10.0.0.0", "255.0.0.0\0"sv},
    {"10.1.0.0", "255.255.0.0\0"sv},
    {"1.0.0.0", "255.0.0.0\0"sv},
    {"0.0.0.0", "0.0.0.0\0"sv},
    {"0.0.0.12", "0.0.0.255\0"sv},
    {"10.20.30.40", "255.255.255.255\0"sv},

    // the digits of a longer octet before stay behind those of a shorter one
    {"192.168.1.0", "255.255.255.255\0"sv},
    {"172.16.0.0", "255.255.255.255\0"sv},
    {"255.255.255.0", "255.255.255.255\0"sv},
    {"12.0.0.0", "255.255.255.255\0"sv},
    {"0.12.0.34", "0.255.255.255\0"sv},
    {"100.0.0.0", "255.0.0.0\0"sv},
    {"100.20.0.0", "255.255.0.0\0"sv},
    {"000.0.0.1", "0.0.0.255\0"sv},

    // an empty octet reads as the one before
    {"10..0.0", "255.255.0.0\0"sv},
    {".10..", "0.255.255.255\0"sv},
    {"10.0.0.", "255.0.0.0\0"sv},
    {"...", "0.0.0.0\0"sv},

    // of a longer octet three digits are read, and the next one is copied in place of the dot
    {"1234.0.0.0", "2554255.255.255."sv},
    {"0000.0.0.0", "000.0.0."sv},
    {"0.0.0.1234", "0.0.0.2554"sv},
    {"0001.0.0.0", "010.0.0."sv},

    // what is no digit
    {"a.b.c.d", "0.0.0.0\0"sv},
    {"1a.0.0.0", "255.0.0.0\0"sv},
    {"-1.0.0.0", "255.255.255.255\0"sv},
    {"10/0.0.0", "2550255.0.0\0"sv},

    // a fifth octet is not reached
    {"10.1.2.3.4", "255.255.255.255."sv},

    // with fewer than four the mask ends where the address does
    {"10.0.0", "255.0.0\0"sv},
    {"10", "255\0"sv},
    {"", "0\0"sv},
};

TEST(NetmaskOf, GoesOctetByOctetAndKeepsTheZeroByte) {
  for (const auto& [address, mask] : kMasks) EXPECT_EQ(NetmaskOf(address), mask) << address;
}

std::string Padded(std::string address, std::size_t length) {
  address.resize(length, 'x');
  return address;
}

TEST(NetmaskOf, LengthIsCountedWithSixteenBitsAndASign) {
  EXPECT_EQ(NetmaskOf(Padded("10.0.0.7.", 32767).c_str()), "255.0.0.255.");
  EXPECT_EQ(NetmaskOf(Padded("1.2.3.4", 32768).c_str()), "010.255.255.");
  EXPECT_EQ(NetmaskOf(Padded("1.2.3.4", 65535).c_str()), "010.020.");
  EXPECT_EQ(NetmaskOf(Padded("1.2.3.4", 65536).c_str()), "010.020.");
  EXPECT_EQ(NetmaskOf(Padded("10.0.0.0", 65536 + 2).c_str()), "255.2550255.2550");
  EXPECT_EQ(NetmaskOf(Padded("1.2.3.4", 65536 + 7).c_str()), "255.255.255.255x");
}

}  // namespace
}  // namespace klepur::internal
