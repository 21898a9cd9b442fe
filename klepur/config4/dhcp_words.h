// Internal: the words of a DHCPv4 configuration file and the rules that only DHCPv4 has.
#ifndef KLEPUR_CONFIG4_DHCP_WORDS_H
#define KLEPUR_CONFIG4_DHCP_WORDS_H

#include <klepur/config/family_words.h>
#include <klepur/config/statement_table.h>
#include <klepur/config4/dhcp_vocabulary.h>

#include <string>

class DhcpConfigFile;

namespace klepur::internal {

template <>
struct FamilyWords<DhcpVocabulary> {
  using P = DhcpVocabulary;
  using Types = SectionTypes<P>;

  /// The class that callers use.
  using File = ::DhcpConfigFile;

  static constexpr Statement kStatements[] = {
      {P::PARAM_HARDWARE_ETHERNET, "hardware ethernet", Form::kPlain},
      {P::PARAM_FIXED_ADDRESS, "fixed-address", Form::kPlain},
      {P::PARAM_NEXT_SERVER, "next-server", Form::kPlain},
      {P::PARAM_FILENAME, "filename", Form::kQuoted},
      {P::PARAM_ROOT_PATH, "option root-path", Form::kQuoted},
      {P::PARAM_HOST_NAME, "option host-name", Form::kQuoted},
      {P::PARAM_BOOTFILE_NAME, "option bootfile-name", Form::kQuoted},
      {P::PARAM_TFTP_SERVER_NAME, "option tftp-server-name", Form::kQuoted},
      {P::PARAM_SERVER_NAME, "server-name", Form::kQuoted},
      {P::PARAM_ALLOW_BOOTP, "allow bootp", Form::kFlag},
      {P::PARAM_DENY_UNKNOWN_CLIENTS, "deny unknown-clients", Form::kFlag},
      {P::PARAM_ALLOW_UNKNOWN_CLIENTS, "allow unknown-clients", Form::kFlag},
      {P::PARAM_DOMAIN_NAME_SERVERS, "option domain-name-servers", Form::kCommaList},
      {P::PARAM_DOMAIN_NAME, "option domain-name", Form::kQuoted},
      {P::PARAM_NETBIOS_NAME_SERVERS, "option netbios-name-servers", Form::kCommaList},
      {P::PARAM_NTP_SERVERS, "option ntp-servers", Form::kCommaList},
      {P::PARAM_RANGE, "range", Form::kBlankList},
      {P::PARAM_AUTHORITATIVE, "authoritative", Form::kFlag},
      {P::PARAM_SUBNET_MASK, "option subnet-mask", Form::kPlain},
      {P::PARAM_BROADCAST_ADDRESS, "option broadcast-address", Form::kPlain},
      {P::PARAM_ROUTERS, "option routers", Form::kPlain},
      {P::PARAM_DEFAULT_LEASE_TIME, "default-lease-time", Form::kPlain},
      {P::PARAM_MAX_LEASE_TIME, "max-lease-time", Form::kPlain},
      {P::PARAM_CLIENT_IDENTIFIER, "option dhcp-client-identifier", Form::kQuoted},
      {P::PARAM_PING_CHECK, "ping-check", Form::kPlain},
      {P::PARAM_PING_TIMEOUT, "ping-timeout", Form::kPlain},
      {P::PARAM_IP_LINE, "IPLine", Form::kWholeLine},
      {P::PARAM_IP_LINE, "Special", Form::kWholeLine},
  };
  static_assert(EveryRowReachable(kStatements));

  static constexpr BlockTable kBlocks = MakeBlockTable<P>("subnet ");

  static constexpr int kHostName = P::PARAM_HOST_NAME;
  static constexpr int kFixedAddress = P::PARAM_FIXED_ADDRESS;
  static constexpr int kHardwareEthernet = P::PARAM_HARDWARE_ETHERNET;

  /// Lists start at the first digit: they hold addresses.
  static const char* ServerListStart(const char* line);

  /// "10.0.0.0:255.0.0.0" from "subnet 10.0.0.0 netmask 255.0.0.0".
  static std::string SubnetName(const std::string& header);

  /// The reverse; false when the name holds no ":".
  static bool MakeSubnetHeader(const std::string& name, std::string& header);

  /// Whether a ":" ends the address in the name of a subnet.
  static constexpr bool ColonEndsAddress(Types::SectionType /*type*/) { return true; }
};

}  // namespace klepur::internal

#endif
