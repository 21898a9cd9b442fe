// What a test must say differently for each address family, so that one test runs for both.
#ifndef KLEPUR_TESTS_SUPPORT_FAMILY_H
#define KLEPUR_TESTS_SUPPORT_FAMILY_H

#include <gtest/gtest.h>
#include <klepur/klepur.h>

#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace klepur::test {

/// Each first text of `words` in `text` replaced by the second.
std::string Replace(std::string text,
                    const std::vector<std::pair<std::string_view, std::string_view>>& words);

/// A kind of block for tests that run for both families: it converts to the enumeration of each.
struct EitherKind {
  int number;

  template <class SectionType, class = std::enable_if_t<std::is_enum_v<SectionType>>>
  constexpr operator SectionType() const {
    return static_cast<SectionType>(number);
  }

  friend constexpr bool operator==(EitherKind, EitherKind) = default;
  friend std::ostream& operator<<(std::ostream& out, EitherKind kind) { return out << kind.number; }
};

inline constexpr EitherKind SECTION_GLOBAL = {0};
inline constexpr EitherKind SECTION_SHARED_NETWORK = {1};
inline constexpr EitherKind SECTION_SUBNET = {2};
inline constexpr EitherKind SECTION_HOST = {3};
inline constexpr EitherKind SECTION_IF = {4};

/// DHCPv4. Text() puts the family's words in place of these, in file texts and expected texts
/// alike:
///
///     @header1 @header2 @header3   a subnet's header     "subnet 10.0.1.0 netmask 255.255.255.0"
///     @bare1 ...                   behind its keyword    "10.0.1.0 netmask 255.255.255.0"
///     @name1 ...                   as the record has it  "10.0.1.0:255.255.255.0"
///     @ip1 ...                     an address            "10.0.0.1"
///     @subnet @range @fixed @fqdn  keywords              "subnet" "range" "fixed-address"
///                                                        "option host-name"
struct V4 {
  using File = DhcpConfigFile;
  using Section = DhcpConfigFile::DhcpSection;

  static constexpr int kName = Section::PARAM_NAME;
  static constexpr int kRange = Section::PARAM_RANGE;
  static constexpr int kMaxLeaseTime = Section::PARAM_MAX_LEASE_TIME;
  static constexpr int kDefaultLeaseTime = Section::PARAM_DEFAULT_LEASE_TIME;
  static constexpr int kHardwareEthernet = Section::PARAM_HARDWARE_ETHERNET;
  static constexpr int kFixedAddress = Section::PARAM_FIXED_ADDRESS;
  static constexpr int kHostName = Section::PARAM_HOST_NAME;
  static constexpr int kFilename = Section::PARAM_FILENAME;
  static constexpr int kServerName = Section::PARAM_SERVER_NAME;
  static constexpr int kAuthoritative = Section::PARAM_AUTHORITATIVE;
  static constexpr int kDenyUnknownClients = Section::PARAM_DENY_UNKNOWN_CLIENTS;
  static constexpr int kIpLine = Section::PARAM_IP_LINE;
  static constexpr int kReserved = 13;
  static constexpr int kLast = 28;

  static std::string Text(std::string_view text);
};

/// DHCPv6: "subnet6 2001:db8:1::/64", "2001:db8:1::/64", "2001:db8:1::/64", "2001:db8::1",
/// "subnet6", "range6", "fixed-address6", "option dhcp6.fqdn".
struct V6 {
  using File = Dhcpv6ConfigFile;
  using Section = Dhcpv6ConfigFile::Dhcpv6Section;

  static constexpr int kName = Section::PARAM6_NAME;
  static constexpr int kRange = Section::PARAM6_RANGE;
  static constexpr int kMaxLeaseTime = Section::PARAM6_MAX_LEASE_TIME;
  static constexpr int kDefaultLeaseTime = Section::PARAM6_DEFAULT_LEASE_TIME;
  static constexpr int kHardwareEthernet = Section::PARAM6_HARDWARE_ETHERNET;
  static constexpr int kFixedAddress = Section::PARAM6_FIXED_ADDRESS;
  static constexpr int kHostName = Section::PARAM6_FQDN;
  static constexpr int kFilename = Section::PARAM6_FILENAME;
  static constexpr int kServerName = Section::PARAM6_SERVER_NAME;
  static constexpr int kAuthoritative = Section::PARAM6_AUTHORITATIVE;
  static constexpr int kDenyUnknownClients = Section::PARAM6_DENY_UNKNOWN_CLIENTS;
  static constexpr int kIpLine = Section::PARAM6_IP_LINE;
  static constexpr int kReserved = 9;
  static constexpr int kLast = 18;

  static std::string Text(std::string_view text);
};

using Families = ::testing::Types<V4, V6>;

struct FamilyNames {
  template <class Family>
  static std::string GetName(int /*index*/) {
    return std::is_same_v<Family, V4> ? "V4" : "V6";
  }
};

}  // namespace klepur::test

#endif
