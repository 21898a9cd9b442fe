// Internal: the node at a line.
#ifndef KLEPUR_DOCUMENT_NODE_AT_H
#define KLEPUR_DOCUMENT_NODE_AT_H

#include <cstddef>

#include <klepur/document/document_state.h>

namespace klepur::internal {

/// The innermost node that has bytes in a line, see Document::At; the positions must be up to date.
NodeId NodeAtLine(const DocumentState& state, std::size_t line);

}  // namespace klepur::internal

#endif
