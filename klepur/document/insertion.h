// Internal: adding statements, blocks and comments.
#ifndef KLEPUR_DOCUMENT_INSERTION_H
#define KLEPUR_DOCUMENT_INSERTION_H

#include <string_view>

#include <klepur/document/document_state.h>
#include <klepur/document/place.h>

namespace klepur::internal {

/// Adds what a text says, see Node::Add. Gives the first node that is no comment, if there is one.
NodeId Insert(DocumentState& state, NodeId parent, std::string_view text,
              const Placement& placement, NodeId anchor);

/// Reads text that was put in a place into nodes and hangs them there. Gives the first.
NodeId HangNodes(DocumentState& state, Gap gap, std::string_view text, TextAddress address);

}  // namespace klepur::internal

#endif
