// Internal: what klepur::Network looks up in.
#ifndef KLEPUR_NETWORK_NETWORK_TABLES_H
#define KLEPUR_NETWORK_NETWORK_TABLES_H

#include <klepur/document/document_state.h>
#include <klepur/network/address.h>
#include <klepur/network/host_index.h>
#include <klepur/network/host_key.h>
#include <klepur/network/interval_index.h>
#include <klepur/network/scope_index.h>
#include <klepur/network/scopes.h>

#include <optional>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// The tables of one document. The caller holds the document's lock. Nodes are given in the order of the
/// text, or innermost first where they are around an address.
class NetworkTables {
 public:
  explicit NetworkTables(const DocumentState& state) : state_(state) {}

  std::vector<NodeId> Hosts(const HostKey& key);
  std::vector<NodeId> HostsByName(std::string_view name);
  std::vector<NodeId> Subnets(const klepur::Address& address);
  std::vector<NodeId> Ranges(const klepur::Address& address);
  std::vector<NodeId> Pools(const klepur::Address& address);

  /// The statement of a keyword that counts for a block, and all that count for it; see klepur::Network.
  ///
  /// \param address  what a host is taken to have got; when none is given, its fixed address.
  std::optional<NodeId> InForce(NodeId block, std::string_view keyword,
                                const std::optional<klepur::Address>& address);
  std::vector<NodeId> AllInForce(NodeId block, const std::optional<klepur::Address>& address);

 private:
  std::optional<klepur::Address> FixedAddressOf(NodeId host);
  Scopes ScopesOf(NodeId block, std::optional<klepur::Address> address);

  const DocumentState& state_;
  HostIndex hosts_[4] = {HostIndex(HostKey::Kind::kHardware), HostIndex(HostKey::Kind::kAddress),
                         HostIndex(HostKey::Kind::kClientIdentifier),
                         HostIndex(HostKey::Kind::kHostName)};  // in the order of the kinds
  IntervalIndex subnets_{IntervalOfSubnet};
  IntervalIndex ranges_{IntervalOfRange};
  ScopeIndex statements_;
};

}  // namespace klepur::internal

#endif
