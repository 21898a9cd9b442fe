// Internal: moving nodes to another place.
#ifndef KLEPUR_DOCUMENT_MOVING_H
#define KLEPUR_DOCUMENT_MOVING_H

#include <klepur/document/document_state.h>
#include <klepur/document/placement.h>

namespace klepur::internal {

/// Moves a node and the comments that belong to it below a parent, see Node::MoveTo.
void MoveNode(DocumentState& state, NodeId id, NodeId parent, Placement::Where where,
              NodeId anchor);

}  // namespace klepur::internal

#endif
