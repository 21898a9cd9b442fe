#include <klepur/network/network_tables.h>

#include <klepur/network/node_kinds.h>
#include <klepur/network/parameter.h>
#include <klepur/network/value_words.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <string>
#include <utility>

namespace klepur::internal {

std::vector<NodeId> NetworkTables::Hosts(const HostKey& key) {
  HostIndex& index = hosts_[static_cast<std::size_t>(key.kind)];
  std::vector<NodeId> hosts = index.Find(state_, key.bytes);
  SortByPlace(state_, hosts);
  return hosts;
}

std::vector<NodeId> NetworkTables::HostsByName(std::string_view name) {
  std::vector<NodeId> hosts = state_.headers.Find(state_, "host", name);
  SortByPlace(state_, hosts);
  return hosts;
}

std::vector<NodeId> NetworkTables::Subnets(const klepur::Address& address) {
  return subnets_.Around(state_, address);
}

std::vector<NodeId> NetworkTables::Ranges(const klepur::Address& address) {
  return ranges_.Around(state_, address);
}

std::vector<NodeId> NetworkTables::Pools(const klepur::Address& address) {
  std::vector<NodeId> pools;
  for (const NodeId range : Ranges(address)) {
    const NodeId block = state_.tree[range].parent;
    const bool is_new = std::find(pools.begin(), pools.end(), block) == pools.end();
    if (is_new && KindOf(state_, block) == BlockRole::kPool) pools.push_back(block);
  }
  return pools;
}

std::optional<NodeId> NetworkTables::InForce(NodeId block, std::string_view keyword,
                                             const std::optional<klepur::Address>& address) {
  const std::string key = ParameterKey(keyword);
  if (key.empty()) return std::nullopt;
  const Scopes scopes = ScopesOf(block, address);
  for (const NodeId scope : scopes.All()) {
    const std::vector<NodeId> found = statements_.Of(state_, scope, key);
    const auto last = std::find_if(found.rbegin(), found.rend(), [&](NodeId id) {
      return scope == block || ParameterOf(state_, id).inherited;
    });
    if (last != found.rend()) return *last;
  }
  return std::nullopt;
}

std::vector<NodeId> NetworkTables::AllInForce(NodeId block,
                                              const std::optional<klepur::Address>& address) {
  std::vector<NodeId> all;
  std::set<std::string> known;
  const Scopes scopes = ScopesOf(block, address);
  for (const NodeId scope : scopes.All()) {
    std::vector<NodeId> found =
        scope == block ? StatementsIn(state_, scope) : statements_.Inherited(state_, scope);
    // From the last one on, which outweighs those above it.
    const auto rest = std::remove_if(found.rbegin(), found.rend(), [&](NodeId id) {
      Parameter parameter = ParameterOf(state_, id);
      if (!parameter.inherited) return parameter.key.empty();
      return !known.insert(std::move(parameter.key)).second;
    });
    all.insert(all.end(), rest.base(), found.end());
  }
  return all;
}

/// The first one that lies in a subnet of the file.
std::optional<klepur::Address> NetworkTables::FixedAddressOf(NodeId host) {
  for (const NodeId id : StatementsIn(state_, host)) {
    const std::string key = ParameterOf(state_, id).key;
    if (key != "fixed-address" && key != "fixed-address6") continue;
    ValueWords words(ValueOf(state_.OwnText(id)));
    while (const std::optional<ValueWord> word = words.Next()) {
      const std::optional<klepur::Address> address = klepur::Address::ParseLenient(word->text);
      if (address && !Subnets(*address).empty()) return address;
    }
  }
  return std::nullopt;
}

Scopes NetworkTables::ScopesOf(NodeId block, std::optional<klepur::Address> address) {
  Scopes scopes(state_, block);
  if (!address && KindOf(state_, block) == BlockRole::kHost) address = FixedAddressOf(block);
  if (!address) return scopes;
  for (const std::vector<NodeId>& around : {Pools(*address), Subnets(*address)}) {
    if (!around.empty()) scopes.AddBehind(state_, around.front());
  }
  return scopes;
}

}  // namespace klepur::internal
