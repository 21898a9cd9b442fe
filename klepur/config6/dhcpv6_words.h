// Internal: the words of a DHCPv6 configuration file and the rules that only DHCPv6 has.
#ifndef KLEPUR_CONFIG6_DHCPV6_WORDS_H
#define KLEPUR_CONFIG6_DHCPV6_WORDS_H

#include <klepur/config/family_words.h>
#include <klepur/config/statement_table.h>
#include <klepur/config6/dhcpv6_vocabulary.h>

#include <string>

class Dhcpv6ConfigFile;

namespace klepur::internal {

template <>
struct FamilyWords<Dhcpv6Vocabulary> {
  using P = Dhcpv6Vocabulary;
  using Types = SectionTypes<P>;

  /// The class that callers use.
  using File = ::Dhcpv6ConfigFile;

  static constexpr Statement kStatements[] = {
      {P::PARAM6_HARDWARE_ETHERNET, "hardware ethernet", Form::kPlain},
      {P::PARAM6_FIXED_ADDRESS, "fixed-address6", Form::kPlain},
      {P::PARAM6_NEXT_SERVER, "next-server", Form::kPlain},
      {P::PARAM6_FILENAME, "filename", Form::kQuoted},
      {P::PARAM6_FQDN, "option dhcp6.fqdn", Form::kQuoted},
      {P::PARAM6_SERVER_NAME, "server-name", Form::kQuoted},
      {P::PARAM6_DENY_UNKNOWN_CLIENTS, "deny unknown-clients", Form::kFlag},
      {P::PARAM6_ALLOW_UNKNOWN_CLIENTS, "allow unknown-clients", Form::kFlag},
      {P::PARAM6_NAME_SERVERS, "option dhcp6.name-servers", Form::kCommaList},
      {P::PARAM6_SNTP_SERVERS, "option dhcp6.sntp-servers", Form::kCommaList},
      {P::PARAM6_RANGE, "range6", Form::kBlankList},
      {P::PARAM6_AUTHORITATIVE, "authoritative", Form::kFlag},
      {P::PARAM6_DEFAULT_LEASE_TIME, "default-lease-time", Form::kPlain},
      {P::PARAM6_MAX_LEASE_TIME, "max-lease-time", Form::kPlain},
      {P::PARAM6_PING_CHECK, "ping-check", Form::kPlain},
      {P::PARAM6_PING_TIMEOUT, "ping-timeout", Form::kPlain},
      {P::PARAM6_IP_LINE, "IPLine", Form::kWholeLine},
      {P::PARAM6_IP_LINE, "Special", Form::kWholeLine},
  };
  static_assert(EveryRowReachable(kStatements));

  static constexpr BlockTable kBlocks = MakeBlockTable<P>("subnet6 ");

  static constexpr int kHostName = P::PARAM6_FQDN;
  static constexpr int kFixedAddress = P::PARAM6_FIXED_ADDRESS;
  static constexpr int kHardwareEthernet = P::PARAM6_HARDWARE_ETHERNET;

  /// Lists start at the first blank, which is in the middle of a keyword of two words.
  static const char* ServerListStart(const char* line);

  /// "2001:db8:1::/64" from "subnet6 2001:db8:1::/64".
  static std::string SubnetName(const std::string& header);

  /// The reverse; true.
  static bool MakeSubnetHeader(const std::string& name, std::string& header);

  /// Whether a ":" ends the address in a name: not in that of a subnet, where it belongs to the
  /// address.
  static constexpr bool ColonEndsAddress(Types::SectionType type) {
    return type != Types::SECTION_SUBNET;
  }
};

}  // namespace klepur::internal

#endif
