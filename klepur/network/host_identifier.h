// What a host is recognised by, other than its hardware address.
#ifndef KLEPUR_NETWORK_HOST_IDENTIFIER_H
#define KLEPUR_NETWORK_HOST_IDENTIFIER_H

#include <klepur/export.h>
#include <klepur/network/identifier.h>
#include <klepur/network/ordered.h>

#include <optional>
#include <string>
#include <string_view>

namespace klepur {

/// A `host-identifier` statement: the option that a client must send, and with which bytes.
///
///     auto host = HostIdentifier::Parse("option dhcp6.client-id 00:01:00:01:2a");
///     host->option;                     // "dhcp6.client-id"
///     host->identifier.Hex();           // "00:01:00:01:2a"
struct KLEPUR_EXPORT HostIdentifier : Ordered<HostIdentifier> {
  /// The value of a statement, over lines and with comments.
  ///
  /// \param value  "option NAME DATA" or "v6relopt NUMBER NAME DATA", the data as Identifier::Parse
  ///               takes it: "v6relopt 1 dhcp6.interface-id \"port 7\"".
  /// \return nothing for any other text, also when the option is of a type whose values are written
  ///         in another way, such as an address.
  static std::optional<HostIdentifier> Parse(std::string_view value);

  std::string option;  ///< its name in lower case
  /// The relay that must have sent the option, 1 for the one next to the client; nothing when the
  /// client itself must.
  std::optional<unsigned> relay;
  Identifier identifier;

  /// By option, relay and bytes; see Ordered.
  int Compare(const HostIdentifier& other) const noexcept;
};

}  // namespace klepur

#endif
