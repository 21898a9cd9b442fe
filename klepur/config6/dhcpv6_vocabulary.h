// The parameter types of a DHCPv6 configuration file.
#ifndef KLEPUR_CONFIG6_DHCPV6_VOCABULARY_H
#define KLEPUR_CONFIG6_DHCPV6_VOCABULARY_H

#include <klepur/config/section_record.h>

namespace klepur {

/// What DHCPv6 adds to a record: the statements that it tells apart.
///
/// A parameter's value is the statement's argument as text unless said otherwise. Quoted means that
/// the file has double quotes around it and the record has not; a text that holds spaces is not
/// read whole: only its last word, less one character at each end, is.
struct Dhcpv6Vocabulary {
  using Dhcpv6SectionType = SectionTypes<Dhcpv6Vocabulary>::SectionType;

  enum Dhcpv6ParamType : int {
    PARAM6_RAW = -1,  ///< any line, whole; only when raw reading is asked for
    PARAM6_NAME = 0,  ///< the block's name: "pc-17", of a subnet "2001:db8:1::/64"

    /// option dhcp6.name-servers. It is read with the keyword's second word as the first element,
    /// "dhcp6.name-servers, 2001:db8::1", and written as it stands: take that element off before
    /// adding it to another block. ChangeSection does not find such a line, so it can neither
    /// change nor remove it: SetSectionParams can.
    PARAM6_NAME_SERVERS = 1,
    PARAM6_SNTP_SERVERS = 2,  ///< option dhcp6.sntp-servers; read and written in the same way

    PARAM6_DENY_UNKNOWN_CLIENTS = 3,   ///< deny unknown-clients: "exist"
    PARAM6_ALLOW_UNKNOWN_CLIENTS = 4,  ///< allow unknown-clients: "exist"
    PARAM6_RANGE = 5,                  ///< range6: "2001:db8::100 2001:db8::200"
    PARAM6_DEFAULT_LEASE_TIME = 6,     ///< default-lease-time, seconds
    PARAM6_MAX_LEASE_TIME = 7,         ///< max-lease-time, seconds
    PARAM6_NEXT_SERVER = 8,            ///< next-server
    PARAM6_HARDWARE_ETHERNET = 10,     ///< hardware ethernet: "00:11:22:33:44:55"
    PARAM6_FIXED_ADDRESS = 11,         ///< fixed-address6; of several only the last is read
    PARAM6_FILENAME = 12,              ///< filename, quoted
    PARAM6_FQDN = 13,                  ///< option dhcp6.fqdn, quoted
    PARAM6_SERVER_NAME = 14,           ///< server-name, quoted
    PARAM6_AUTHORITATIVE = 15,         ///< authoritative: "exist"

    /// a line with a ";" and "IPLine" or "Special": the line without its last character
    PARAM6_IP_LINE = 16,
    PARAM6_PING_CHECK = 17,    ///< ping-check
    PARAM6_PING_TIMEOUT = 18,  ///< ping-timeout, seconds
  };
};

}  // namespace klepur

#endif
