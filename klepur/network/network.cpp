#include <klepur/network/network.h>

#include <klepur/document/document_state.h>
#include <klepur/document/node_access.h>
#include <klepur/network/network_tables.h>

#include <mutex>
#include <optional>
#include <string>

namespace klepur {
namespace {

using internal::DocumentState;
using internal::HostKey;
using internal::NetworkTables;
using internal::NodeId;

Node FirstOf(const std::vector<Node>& nodes) {
  return nodes.empty() ? Node() : nodes.front();
}

}  // namespace

struct Network::Tables {
  explicit Tables(DocumentState* of) : state(of), tables(*of) {}

  /// Asks the tables, which no other thread then uses.
  template <class Ask>
  std::vector<Node> Nodes(const Ask& ask) {
    const std::lock_guard<std::mutex> lock(state->lazy);
    std::vector<Node> nodes;
    for (const NodeId id : ask(tables)) nodes.push_back(NodeAccess::Make(state, id));
    return nodes;
  }

  std::vector<Node> Hosts(const HostKey& key) {
    return Nodes([&](NetworkTables& in) { return in.Hosts(key); });
  }

  bool HoldsStatements(const Node& block) const {
    return block && NodeAccess::State(block) == state && state->HoldsNodes(NodeAccess::Id(block));
  }

  klepur::InForce FindInForce(const Node& block, std::string_view keyword,
                              const std::optional<Address>& address) {
    if (!HoldsStatements(block)) return {};
    const std::lock_guard<std::mutex> lock(state->lazy);
    const auto found = tables.InForce(NodeAccess::Id(block), keyword, address);
    return found ? WithOrigin(NodeAccess::Make(state, *found)) : klepur::InForce();
  }

  std::vector<klepur::InForce> FindAllInForce(const Node& block,
                                              const std::optional<Address>& address) {
    std::vector<klepur::InForce> all;
    if (!HoldsStatements(block)) return all;
    const NodeId id = NodeAccess::Id(block);
    for (const Node& statement :
         Nodes([&](NetworkTables& in) { return in.AllInForce(id, address); })) {
      all.push_back(WithOrigin(statement));
    }
    return all;
  }

  static klepur::InForce WithOrigin(const Node& statement) {
    return {statement, statement.Parent()};
  }

  DocumentState* state;
  NetworkTables tables;
};

Network::Network(const Document& document)
    : tables_(std::make_unique<Tables>(NodeAccess::State(document.Root()))) {}
Network::Network(Network&&) noexcept = default;
Network& Network::operator=(Network&&) noexcept = default;
Network::~Network() = default;

std::vector<Node> Network::HostsByHardwareAddress(const HardwareAddress& address) const {
  return tables_->Hosts(HostKey::Of(address));
}

std::vector<Node> Network::HostsByHardwareAddress(std::string_view text) const {
  auto address = HardwareAddress::Parse(text);
  if (!address) address = HardwareAddress::ParseAnySpelling(text);
  return address ? HostsByHardwareAddress(*address) : std::vector<Node>();
}

std::vector<Node> Network::HostsByAddress(const Address& address) const {
  return tables_->Hosts(HostKey::Of(address));
}

std::vector<Node> Network::HostsByAddress(std::string_view text) const {
  const auto address = Address::ParseLenient(text);
  return address ? HostsByAddress(*address) : std::vector<Node>();
}

std::vector<Node> Network::HostsByClientIdentifier(const Identifier& identifier) const {
  return tables_->Hosts(HostKey::Of(identifier));
}

std::vector<Node> Network::HostsByClientIdentifier(std::string_view text) const {
  const auto identifier = Identifier::ParseAnySpelling(text);
  return identifier ? HostsByClientIdentifier(*identifier) : std::vector<Node>();
}

std::vector<Node> Network::HostsByHostName(std::string_view name) const {
  return tables_->Hosts(HostKey::OfHostName(std::string(name)));
}

std::vector<Node> Network::HostsByName(std::string_view name) const {
  return tables_->Nodes([&](NetworkTables& in) { return in.HostsByName(name); });
}

std::vector<Node> Network::SubnetsOf(const Address& address) const {
  return tables_->Nodes([&](NetworkTables& in) { return in.Subnets(address); });
}

std::vector<Node> Network::RangesOf(const Address& address) const {
  return tables_->Nodes([&](NetworkTables& in) { return in.Ranges(address); });
}

std::vector<Node> Network::PoolsOf(const Address& address) const {
  return tables_->Nodes([&](NetworkTables& in) { return in.Pools(address); });
}

Node Network::SubnetOf(const Address& address) const {
  return FirstOf(SubnetsOf(address));
}

Node Network::RangeOf(const Address& address) const {
  return FirstOf(RangesOf(address));
}

Node Network::PoolOf(const Address& address) const {
  return FirstOf(PoolsOf(address));
}

Node Network::SubnetOf(std::string_view text) const {
  const auto address = Address::ParseLenient(text);
  return address ? SubnetOf(*address) : Node();
}

Node Network::RangeOf(std::string_view text) const {
  const auto address = Address::ParseLenient(text);
  return address ? RangeOf(*address) : Node();
}

Node Network::PoolOf(std::string_view text) const {
  const auto address = Address::ParseLenient(text);
  return address ? PoolOf(*address) : Node();
}

InForce Network::StatementInForce(const Node& block, std::string_view keyword) const {
  return tables_->FindInForce(block, keyword, std::nullopt);
}

InForce Network::StatementInForce(const Node& block, std::string_view keyword,
                                  const Address& address) const {
  return tables_->FindInForce(block, keyword, address);
}

std::vector<InForce> Network::StatementsInForce(const Node& block) const {
  return tables_->FindAllInForce(block, std::nullopt);
}

std::vector<InForce> Network::StatementsInForce(const Node& block, const Address& address) const {
  return tables_->FindAllInForce(block, address);
}

}  // namespace klepur
