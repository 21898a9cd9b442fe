// _Dhcpv6LeaseStore: one lease of a DHCPv6 server.
#ifndef KLEPUR_LEASES_LEASE_STORE_H
#define KLEPUR_LEASES_LEASE_STORE_H

#include <string>

/// One identity association of the leases file. Every value is the text that the file holds; a
/// field is empty when the file says nothing.
///
/// An association with several addresses or prefixes is one record: each field holds the last value
/// met. Statements count in the blocks inside the association, not straight in it. That is where a
/// server writes the client's last time, so `cltt` is usually empty.
struct _Dhcpv6LeaseStore {  // NOLINT(bugprone-reserved-identifier): the name that callers know
  std::string address;      ///< an address, or a prefix with its length: "2001:db8:1::/64"
  std::string cltt;         ///< the last time the client was heard of: "4 2024/01/01 12:00:00"
  std::string duid;         ///< the whole identifier in lower-case hexadecimal: "0100000000014142"
  std::string preferredLife;  ///< seconds: "375"
  std::string maxLife;        ///< seconds: "600"
  std::string ends;           ///< "4 2024/01/01 12:10:00" or "never"
  std::string bindingState;   ///< "active"
};

#endif
