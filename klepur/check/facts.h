// Internal: what a file says, gathered once for all rules.
#ifndef KLEPUR_CHECK_FACTS_H
#define KLEPUR_CHECK_FACTS_H

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <klepur/check/address_key.h>
#include <klepur/check/subnet_table.h>
#include <klepur/document/document_state.h>
#include <klepur/document/family.h>
#include <klepur/language/words.h>
#include <klepur/network/address.h>
#include <klepur/network/prefix.h>
#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>
#include <klepur/text/large_array.h>

namespace klepur::internal {

struct HostFact {
  NodeId node;
  std::uint32_t name_hash;
  NodeId subnet;  ///< The innermost subnet or subnet6 around it; kNoNode for none.
  /// Where it gets its addresses: the shared network, or else the subnet, that it stands in, or kRoot. Behind the
  /// walk that of its first fixed address which is in any.
  NodeId network;
  bool has_hardware = false;
  bool has_identifier = false;     ///< host-identifier, uid or option dhcp-client-identifier.
  bool has_fixed_address = false;  ///< fixed-address, fixed-address6 or fixed-prefix6.
};

/// A value that a statement of a host gives it, by its hash: the same for values that are equal.
struct HashOfHost {
  std::uint32_t hash;
  NodeId statement;
  std::uint32_t host;  ///< Its number in Facts::hosts.
};

/// A value that a statement of a host gives it, once for each element of a list.
template <class Value>
struct OfHost {
  Value value;
  NodeId statement;
  std::uint32_t host;  ///< Its number in Facts::hosts.
};

/// A fixed address of a host, as OfHost; Facts::AddressOf and SubnetOf say which and where. There are many.
struct FixedAddressFact {
  static constexpr std::uint32_t kNoSubnet = 0x7FFFFFFF;

  std::uint32_t
      number;  ///< The address of IPv4 itself, or where that of IPv6 stands in Facts::addresses6.
  NodeId statement;
  std::uint32_t host;
  std::uint32_t is_v6 : 1 = 0;
  std::uint32_t subnet : 31 = kNoSubnet;  ///< Its number in Facts::subnets.
};
static_assert(sizeof(FixedAddressFact) == 16);

template <class Value>
struct OfSubnet {
  Value value;
  NodeId statement;
  NodeId subnet;  ///< kNoNode when it stands in none.
  NodeId pool;    ///< kNoNode when it stands in none.
  NodeId shared_network;
};

/// Something with a name: the words of a header behind the keyword, or a statement's first word.
struct NamedFact {
  NodeId node;
  std::string_view name;  ///< As written, quotes and all.
};

/// Another network where a host gets addresses.
struct HomeFact {
  std::uint32_t host;
  NodeId network;
};

/// What a block sets, for all that is in it.
enum class Setting : std::uint8_t { kDefaultLeaseTime, kMaxLeaseTime, kMinLeaseTime };

struct SettingFact {
  Setting setting;
  std::uint32_t seconds;
  NodeId statement;
  NodeId block;
};

/// A router that a block gives to its clients.
struct RouterFact {
  klepur::Address address;
  NodeId statement;
  NodeId block;
};

/// A word that is known, in a place where it is not taken.
struct MisplacedFact {
  NodeId node;
  const Word* word;
  Scopes scope;
  bool by4;  ///< Whether the server of DHCPv4 refuses it there, and whether that of DHCPv6 does.
  bool by6;
};

/// All in the order of the text. What cannot be read, since its value is malformed, is not in it. Texts are
/// those of the document and good until it is edited.
struct Facts {
  explicit Facts(const DocumentState& document) : state(document) {}

  AddressKey AddressOf(const FixedAddressFact& address) const {
    return address.is_v6 != 0 ? addresses6[address.number] : AddressKey::OfV4(address.number);
  }
  /// The innermost subnet around a fixed address; null when there is none.
  const SubnetFact* SubnetOf(const FixedAddressFact& address) const {
    return address.subnet == FixedAddressFact::kNoSubnet ? nullptr : &subnets[address.subnet];
  }

  const DocumentState& state;
  Family family = Family::kUnknown;  ///< During the walk only what the caller said.
  bool seen4 = false;  ///< Whether a word told that it is a file of DHCPv4, of DHCPv6.
  bool seen6 = false;
  bool seems_malformed =
      false;  ///< Whether the document may have findings of its own in what was walked over.

  LargeArray<HostFact> hosts;
  LargeArray<HashOfHost> hardware;
  LargeArray<FixedAddressFact> fixed_addresses;
  LargeArray<AddressKey> addresses6;  ///< Those of fixed addresses of IPv6.
  LargeArray<OfHost<Prefix>> fixed_prefixes;
  LargeArray<OfHost<std::string_view>> identifiers;  ///< The values as written.
  LargeArray<HashOfHost>
      host_names;  ///< Those of "option host-name", whatever the case of letters.

  LargeArray<SubnetFact> subnets;
  LargeArray<OfSubnet<AddressRange>> ranges;        ///< range, range6
  LargeArray<OfSubnet<PrefixRange>> prefix_ranges;  ///< prefix6

  SubnetTable subnet_table;         ///< Made of the subnets behind the walk.
  LargeArray<HomeFact> more_homes;  ///< By host; the first network of each is HostFact::network.
  LargeArray<NodeId> subnets_with_ranges;  ///< The subnet of each range, also of malformed ones.
  LargeArray<SettingFact> settings;
  LargeArray<RouterFact> routers;

  std::vector<NamedFact> classes;
  std::vector<NamedFact> class_uses;  ///< By subclasses and pools.
  std::vector<NamedFact> groups;      ///< Those with a name.
  std::vector<NamedFact> group_uses;
  std::vector<NamedFact> key_uses;
  std::vector<NamedFact> failover_peer_uses;
  std::vector<NamedFact> keys;
  std::vector<NamedFact> failover_peers;
  std::vector<NamedFact> option_definitions;   ///< "space.name"
  std::vector<const Word*> redefined_options;  ///< Those of the server that the file defines anew.
  std::vector<NamedFact> option_spaces;
  std::vector<NamedFact> includes;
  /// Each use of an option, in a statement or an expression, that is not in the table of words.
  std::vector<NamedFact> option_uses;
  std::vector<MisplacedFact> misplaced;
};

}  // namespace klepur::internal

#endif
