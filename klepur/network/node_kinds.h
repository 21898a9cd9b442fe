// Internal: the blocks of a document that say how a network is made.
#ifndef KLEPUR_NETWORK_NODE_KINDS_H
#define KLEPUR_NETWORK_NODE_KINDS_H

#include <klepur/document/document_state.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace klepur::internal {

enum class BlockRole : std::uint8_t {
  kHost,
  kGroup,
  kSharedNetwork,
  kSubnet,   ///< subnet6 too
  kPool,     ///< pool6 too
  kService,  ///< zone, key, failover peer: what stands around does not concern them
  kOther,
};

/// Of a block in the document; kOther for all else.
BlockRole KindOf(const DocumentState& state, NodeId id);

/// Whether a node stands in the document and is a statement.
bool IsLiveStatement(const DocumentState& state, NodeId id);
/// The text between a statement's keyword and its ";".
std::string_view ValueOf(std::string_view statement);

/// Puts nodes in the order of the text. The caller holds the lock. Cost: n log n, for more than one node
/// after edits also linear in the number of edits.
void SortByPlace(const DocumentState& state, std::vector<NodeId>& nodes);

}  // namespace klepur::internal

#endif
