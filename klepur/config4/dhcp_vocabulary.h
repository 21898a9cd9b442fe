// The parameter types of a DHCPv4 configuration file.
#ifndef KLEPUR_CONFIG4_DHCP_VOCABULARY_H
#define KLEPUR_CONFIG4_DHCP_VOCABULARY_H

#include <klepur/config/section_record.h>

namespace klepur {

/// What DHCPv4 adds to a record: the statements that it tells apart.
///
/// A parameter's value is the statement's argument as text unless said otherwise. Quoted means that
/// the file has double quotes around it and the record has not; a text that holds spaces is not
/// read whole: only its last word, less one character at each end, is.
struct DhcpVocabulary {
  using DhcpSectionType = SectionTypes<DhcpVocabulary>::SectionType;

  enum DhcpParamType : int {
    PARAM_RAW = -1,                 ///< any line, whole; only when raw reading is asked for
    PARAM_NAME = 0,                 ///< the block's name: "pc-17"; of a subnet "10.0.0.0:255.0.0.0"
    PARAM_DOMAIN_NAME = 1,          ///< option domain-name, quoted
    PARAM_DOMAIN_NAME_SERVERS = 2,  ///< option domain-name-servers: "10.0.0.1, 10.0.0.2"
    PARAM_NETBIOS_NAME_SERVERS = 3,   ///< option netbios-name-servers, in the same form
    PARAM_NTP_SERVERS = 4,            ///< option ntp-servers, in the same form
    PARAM_ALLOW_BOOTP = 5,            ///< allow bootp: "exist"
    PARAM_DENY_UNKNOWN_CLIENTS = 6,   ///< deny unknown-clients: "exist"
    PARAM_ALLOW_UNKNOWN_CLIENTS = 7,  ///< allow unknown-clients: "exist"
    PARAM_RANGE = 8,                  ///< range: "10.0.0.10 10.0.0.20"
    PARAM_DEFAULT_LEASE_TIME = 9,     ///< default-lease-time, seconds
    PARAM_MAX_LEASE_TIME = 10,        ///< max-lease-time, seconds
    PARAM_NEXT_SERVER = 11,           ///< next-server
    PARAM_ROUTERS = 12,               ///< option routers; of several only the last is read
    PARAM_SUBNET_MASK = 14,           ///< option subnet-mask
    PARAM_BROADCAST_ADDRESS = 15,     ///< option broadcast-address
    PARAM_HARDWARE_ETHERNET = 16,     ///< hardware ethernet: "00:11:22:33:44:55"
    PARAM_FIXED_ADDRESS = 17,         ///< fixed-address; of several only the last is read
    PARAM_FILENAME = 18,              ///< filename, quoted
    PARAM_ROOT_PATH = 19,             ///< option root-path, quoted
    PARAM_HOST_NAME = 20,             ///< option host-name, quoted
    PARAM_BOOTFILE_NAME = 21,         ///< option bootfile-name, quoted
    PARAM_SERVER_NAME = 22,           ///< server-name, quoted
    PARAM_TFTP_SERVER_NAME = 23,      ///< option tftp-server-name, quoted
    PARAM_AUTHORITATIVE = 24,         ///< authoritative: "exist"
    PARAM_CLIENT_IDENTIFIER = 25,     ///< option dhcp-client-identifier, quoted

    /// a line with a ";" and "IPLine" or "Special": the line without its last character
    PARAM_IP_LINE = 26,
    PARAM_PING_CHECK = 27,    ///< ping-check
    PARAM_PING_TIMEOUT = 28,  ///< ping-timeout, seconds
  };
};

}  // namespace klepur

#endif
