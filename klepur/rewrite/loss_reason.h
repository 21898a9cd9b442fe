// Internal: why a node does not come out as it went in.
#ifndef KLEPUR_REWRITE_LOSS_REASON_H
#define KLEPUR_REWRITE_LOSS_REASON_H

#include <string>

#include <klepur/rewrite/node_images.h>
#include <klepur/rewrite/rewrite_losses.h>

namespace klepur::internal {

/// The reason for a node that does not say the same any more or does not stay in its block.
RewriteReason ReasonOf(const NodeImages& images, NodeId id);
/// Whether a block that the classes take for a line has its "}" in a line below.
bool EndsBelowItsLine(const NodeImages& images, NodeId block);

/// A sentence: `"host pc1" stands on one line, ...`.
std::string SentenceOf(const DocumentState& state, NodeId id, RewriteReason reason);

}  // namespace klepur::internal

#endif
