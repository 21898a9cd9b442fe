// Internal: finding hosts by what they are recognised by.
#ifndef KLEPUR_NETWORK_HOST_INDEX_H
#define KLEPUR_NETWORK_HOST_INDEX_H

#include <klepur/document/document_state.h>
#include <klepur/document/key_table.h>
#include <klepur/document/upkeep.h>
#include <klepur/network/host_key.h>

#include <vector>

namespace klepur::internal {

/// The hosts of a document by their keys of one kind. It holds the statements of hosts that give them one.
class HostIndex {
 public:
  explicit HostIndex(HostKey::Kind kind) : kind_(kind) {}

  /// The hosts with a key of the kind, each once, in no order. Makes or completes the table first.
  std::vector<NodeId> Find(const DocumentState& state, std::string_view key);

 private:
  void Update(const DocumentState& state);
  KeyTable::Has Look(const DocumentState& state, NodeId id, std::string_view key) const;

  HostKey::Kind kind_;
  KeyTable table_;
  Upkeep upkeep_;
};

}  // namespace klepur::internal

#endif
