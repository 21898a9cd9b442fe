// Internal: finding hosts by what they are recognised by.
#ifndef KLEPUR_NETWORK_HOST_INDEX_H
#define KLEPUR_NETWORK_HOST_INDEX_H

#include <klepur/document/document_state.h>
#include <klepur/network/host_key.h>
#include <klepur/network/key_table.h>
#include <klepur/network/upkeep.h>

#include <vector>

namespace klepur::internal {

/// The hosts of a document by their keys. It holds the statements of hosts that give them one.
class HostIndex {
 public:
  /// The hosts with a key, each once, in no order. Makes or completes the table first.
  std::vector<NodeId> Find(const DocumentState& state, const HostKey& key);

 private:
  KeyTable table_;
  Upkeep upkeep_;
};

}  // namespace klepur::internal

#endif
