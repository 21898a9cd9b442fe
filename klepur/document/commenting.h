// Internal: commenting out and bringing back.
#ifndef KLEPUR_DOCUMENT_COMMENTING_H
#define KLEPUR_DOCUMENT_COMMENTING_H

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// Makes comments of a statement or block, see Node::CommentOut.
void CommentOutNode(DocumentState& state, NodeId id);
/// Makes a statement or block of the comments that begin with this one, see Node::BringBack.
void BringBackNode(DocumentState& state, NodeId id);

}  // namespace klepur::internal

#endif
