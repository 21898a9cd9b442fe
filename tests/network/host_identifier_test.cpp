#include <klepur/network/host_identifier.h>

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <string_view>

namespace klepur {
namespace {

std::string PartsOf(const std::optional<HostIdentifier>& host) {
  if (!host) return "none";
  const std::string relay = host->relay ? " of relay " + std::to_string(*host->relay) : "";
  return host->option + relay + " = " + host->identifier.Hex();
}

constexpr struct {
  std::string_view value;
  const char* parts;
} kValues[] = {
    {"option dhcp6.client-id 00:01:00:01:2a", "dhcp6.client-id = 00:01:00:01:2a"},
    {"Option DHCP6.Client-Id 0:1:0:1:2A", "dhcp6.client-id = 00:01:00:01:2a"},
    {"option # which\n dhcp6.client-id # is\n 0:1 # small", "dhcp6.client-id = 00:01"},
    {R"(option dhcp6.client-id "\000\001AB")", "dhcp6.client-id = 00:01:41:42"},
    {R"(option host-name "pc")", "host-name = 70:63"},
    {R"(option host-name"pc")", "host-name = 70:63"},
    {R"(v6relopt 1 dhcp6.interface-id "p7")", "dhcp6.interface-id of relay 1 = 70:37"},
    {"V6RELOPT 0 dhcp6.interface-id 1", "dhcp6.interface-id of relay 0 = 01"},
    {"v6relopt 33 dhcp6.interface-id 1", "dhcp6.interface-id of relay 33 = 01"},

    // no host identifiers
    {"", "none"},
    {"option", "none"},
    {"option dhcp6.client-id", "none"},
    {"option dhcp6.client-id 0001000a", "none"},
    {"option dhcp6.client-id 0:1, 0:2", "none"},
    {"option \"dhcp6.client-id\" 0:1", "none"},
    {"dhcp6.client-id 0:1", "none"},
    {"v6relopt dhcp6.interface-id 1", "none"},
    {"v6relopt -1 dhcp6.interface-id 1", "none"},
    {"v6relopt 0x10 dhcp6.interface-id 1", "none"},
    {"v6relopt 4294967296 dhcp6.interface-id 1", "none"},
    {"v6relopt \"1\" dhcp6.interface-id 1", "none"},
    {"v6relopt 1", "none"},
};

TEST(HostIdentifier, IsReadFromAStatement) {
  for (const auto& row : kValues) {
    EXPECT_EQ(PartsOf(HostIdentifier::Parse(row.value)), row.parts) << row.value;
  }
}

TEST(HostIdentifier, ComparesByOptionRelayAndBytes) {
  const char* const ordered[] = {"option a.b 1:2", "option a.b 1:3", "v6relopt 0 a.b 1:2",
                                 "v6relopt 1 a.b 1:2", "option a.c 1:2"};
  for (std::size_t i = 0; i < std::size(ordered); ++i) {
    for (std::size_t j = 0; j < std::size(ordered); ++j) {
      const auto a = HostIdentifier::Parse(ordered[i]).value();
      const auto b = HostIdentifier::Parse(ordered[j]).value();
      EXPECT_EQ(a == b, i == j) << ordered[i] << ", " << ordered[j];
      EXPECT_EQ(a < b, i < j) << ordered[i] << ", " << ordered[j];
    }
  }
}

}  // namespace
}  // namespace klepur
