#include <klepur/network/hardware_address.h>

#include <gtest/gtest.h>
#include <tests/network/random_values.h>

#include <string>
#include <string_view>
#include <unordered_set>

namespace klepur {
namespace {

HardwareAddress Of(std::string_view value) {
  return HardwareAddress::Parse(value).value();
}

std::string ValueOf(const std::optional<HardwareAddress>& address) {
  return address ? address->Value() : "none";
}

struct Reading {
  std::string_view text;
  const char* value;
};

constexpr Reading kValues[] = {
    {"ethernet 00:11:aa:bb:0c:05", "ethernet 00:11:aa:bb:0c:05"},
    {"ethernet 0:11:aa:bb:C:5", "ethernet 00:11:aa:bb:0c:05"},
    {"ETHERNET 0:11:AA:Bb:C:005", "ethernet 00:11:aa:bb:0c:05"},
    {"Token-Ring 0:11:aa:bb:c:5", "token-ring 00:11:aa:bb:0c:05"},
    {"fddi 0:11:aa:bb:c:5", "fddi 00:11:aa:bb:0c:05"},
    {"infiniband 0:1:2:3:4:5:6:7:8:9:a:b:c:d:e:f:10:11:12:13",
     "infiniband 00:01:02:03:04:05:06:07:08:09:0a:0b:0c:0d:0e:0f:10:11:12:13"},
    {"unknown-7 1:2", "unknown-7 01:02"},
    {"unknown-6 1:2", "token-ring 01:02"},
    {"unknown-001 1:2", "ethernet 01:02"},
    {"unknown-0 1", "unknown-0 01"},
    {"unknown-255 1", "unknown-255 01"},
    {"ethernet ff", "ethernet ff"},
    {"ethernet 1:0000000ff", "ethernet 01:ff"},

    // blanks, line ends and comments
    {" ethernet\t0 : 11: aa :bb:c:5 ", "ethernet 00:11:aa:bb:0c:05"},
    {"ethernet # the old card\r\n 0:11:aa# or\n:bb:# so\nc:5 #", "ethernet 00:11:aa:bb:0c:05"},

    // no hardware addresses
    {"", "none"},
    {"ethernet", "none"},
    {"00:11:aa:bb:0c:05", "none"},
    {"wlan 00:11:aa:bb:0c:05", "none"},
    {"tokenring 00:11:aa:bb:0c:05", "none"},
    {"\"ethernet\" 00:11:aa:bb:0c:05", "none"},
    {"ethernet \"00:11:aa:bb:0c:05\"", "none"},
    {"ethernet: 00:11", "none"},
    {"ethernet 00-11-aa-bb-0c-05", "none"},
    {"ethernet 0011aabb0c05", "none"},
    {"ethernet 0011.aabb.0c05", "none"},
    {"ethernet 0:11:", "none"},
    {"ethernet :0:11", "none"},
    {"ethernet 0::11", "none"},
    {"ethernet 0:11 12", "none"},
    {"ethernet 0:11,12", "none"},
    {"ethernet 0:100", "none"},
    {"ethernet 0:1g", "none"},
    {"ethernet 0:0x1", "none"},
    {"ethernet 0:-1", "none"},
    {"ethernet 0:1:2:3:4:5:6:7:8:9:a:b:c:d:e:f:10:11:12:13:14", "none"},
    {"unknown-256 1:2", "none"},
    {"unknown- 1:2", "none"},
    {"unknown-x 1:2", "none"},
    {"unknown--1 1:2", "none"},
    {"UNKNOWN-7 1:2", "none"},
    {"unknown 1:2", "none"},
};

TEST(HardwareAddress, IsReadFromAStatementAndWritten) {
  for (const auto& row : kValues) {
    const auto address = HardwareAddress::Parse(row.text);
    EXPECT_EQ(ValueOf(address), row.value) << row.text;
    if (!address) continue;
    EXPECT_EQ(HardwareAddress::Parse(address->Value()), address) << row.text;
  }
}

constexpr Reading kTyped[] = {
    {"00:11:aa:bb:0c:05", "ethernet 00:11:aa:bb:0c:05"},
    {"0:11:AA:BB:C:5", "ethernet 00:11:aa:bb:0c:05"},
    {"00-11-AA-BB-0C-05", "ethernet 00:11:aa:bb:0c:05"},
    {"0-11-aa-bb-c-5", "ethernet 00:11:aa:bb:0c:05"},
    {"00.11.aa.bb.0c.05", "ethernet 00:11:aa:bb:0c:05"},
    {"00 11 aa bb 0c 05", "ethernet 00:11:aa:bb:0c:05"},
    {"0011.aabb.0c05", "ethernet 00:11:aa:bb:0c:05"},
    {"0011:AABB:0C05", "ethernet 00:11:aa:bb:0c:05"},
    {"001122-aabb0c", "ethernet 00:11:22:aa:bb:0c"},
    {"0011aabb0c05", "ethernet 00:11:aa:bb:0c:05"},
    {"  0011AABB0C05\r\n", "ethernet 00:11:aa:bb:0c:05"},
    {"ff", "ethernet ff"},
    {"000102030405060708090a0b0c0d0e0f10111213",
     "ethernet 00:01:02:03:04:05:06:07:08:09:0a:0b:0c:0d:0e:0f:10:11:12:13"},

    // no hardware addresses
    {"", "none"},
    {" ", "none"},
    {"f", "none"},
    {"0011aabb0c0", "none"},
    {"ethernet 00:11:aa:bb:0c:05", "none"},
    {"00:11-aa:bb-0c:05", "none"},
    {"00:11:aa:bb:0c:05:", "none"},
    {":00:11:aa:bb:0c:05", "none"},
    {"00::11", "none"},
    {"00:11:aabb:0c:05", "none"},
    {"0011.aabb.0c", "none"},
    {"0011.aabb.0c5", "none"},
    {"001.1aa.bb0", "none"},
    {"00:11:aa:bb:0c:0g", "none"},
    {"00:11:aa:bb:0c:005", "none"},
    {"00_11_aa_bb_0c_05", "none"},
    {"0x0011aabb0c05", "none"},
    {"00:-1:aa", "none"},
    {"00:11 # card", "none"},
    {"000102030405060708090a0b0c0d0e0f1011121314", "none"},
};

TEST(HardwareAddress, IsReadInAnySpellingThatPeopleType) {
  for (const auto& row : kTyped) {
    EXPECT_EQ(ValueOf(HardwareAddress::ParseAnySpelling(row.text)), row.value) << row.text;
  }
  EXPECT_EQ(ValueOf(HardwareAddress::ParseAnySpelling("0-1", HardwareAddress::kFddi)),
            "fddi 00:01");
}

TEST(HardwareAddress, TellsItsParts) {
  const HardwareAddress address = Of("token-ring 0:11:AA");
  EXPECT_EQ(address.Type(), HardwareAddress::kTokenRing);
  EXPECT_EQ(address.TypeName(), "token-ring");
  EXPECT_EQ(address.Text(), "00:11:aa");
  EXPECT_EQ(std::string(address.Bytes(), address.Bytes() + address.ByteCount()),
            (std::string{'\0', '\x11', '\xaa'}));
  EXPECT_EQ(HardwareAddress().Value(), "ethernet ");
}

TEST(HardwareAddress, IsMadeOfBytesThatFit) {
  const unsigned char bytes[HardwareAddress::kMostBytes + 1] = {1, 2, 3};
  EXPECT_EQ(ValueOf(HardwareAddress::FromBytes(1, bytes, 3)), "ethernet 01:02:03");
  EXPECT_TRUE(HardwareAddress::FromBytes(1, bytes, HardwareAddress::kMostBytes).has_value());
  EXPECT_FALSE(HardwareAddress::FromBytes(1, bytes, HardwareAddress::kMostBytes + 1).has_value());
}

TEST(HardwareAddress, ComparesByKindAndBytes) {
  EXPECT_EQ(Of("ethernet 0:11:aa:bb:C:5"), Of("Ethernet 00:11:AA:BB:0c:05"));
  EXPECT_EQ(Of("unknown-32 1:2"), Of("infiniband 1:2"));
  EXPECT_LT(Of("ethernet ff:ff"), Of("token-ring 0:0"));
  EXPECT_LT(Of("ethernet 1:2"), Of("ethernet 1:3"));
  EXPECT_LT(Of("ethernet 1:2"), Of("ethernet 1:2:0"));
  EXPECT_LT(Of("ethernet 1:2:ff"), Of("ethernet 1:3"));
  const std::unordered_set<HardwareAddress> addresses = {Of("ethernet 0:11:aa:bb:C:5")};
  EXPECT_EQ(addresses.count(Of("ethernet 00:11:AA:BB:0c:05")), 1U);
  EXPECT_EQ(addresses.count(Of("fddi 00:11:AA:BB:0c:05")), 0U);
  EXPECT_EQ(addresses.count(Of("ethernet 00:11:AA:BB:0c:05:00")), 0U);
}

std::string Without(std::string text, char unwanted) {
  std::erase(text, unwanted);
  return text;
}

std::string With(std::string text, char separator) {
  for (char& c : text) c = c == ':' ? separator : c;
  return text;
}

TEST(HardwareAddress, AnyIsReadBackFromItsText) {
  RandomValues random(5);
  for (int i = 0; i < 2000; ++i) {
    const auto type = static_cast<unsigned char>(random.Below(256));
    const std::string bytes = random.Bytes(1 + random.Below(HardwareAddress::kMostBytes));
    const auto address = HardwareAddress::FromBytes(
        type, reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    EXPECT_EQ(HardwareAddress::Parse(address->Value()), address) << address->Value();
    const std::string text = address->Text();
    for (const std::string& typed : {text, With(text, '-'), With(text, '.'), Without(text, ':')}) {
      EXPECT_EQ(HardwareAddress::ParseAnySpelling(typed, type), address) << typed;
    }
  }
}

}  // namespace
}  // namespace klepur
