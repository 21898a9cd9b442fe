// Internal: whose comment a comment is.
#ifndef KLEPUR_DOCUMENT_COMMENTS_H
#define KLEPUR_DOCUMENT_COMMENTS_H

#include <vector>

#include <klepur/document/document_state.h>

namespace klepur::internal {

// A comment behind a ";" or "}" on its line is that statement's or block's, and one behind a "{" the
// block's. Comments in lines of their own, one below the other, right above a statement and as deep as it,
// are that statement's. A comment that is part of a disabled statement is nobody's, and all others are
// of the block or file around them. All of this is worked out from the text each time.

/// The comment behind a node on its last line.
NodeId TrailingComment(const DocumentState& state, NodeId id);
/// The same, if it is of no other node on that line: the one that goes with the node.
NodeId OwnTrailingComment(const DocumentState& state, NodeId id);
/// Whether a comment stands behind something on its line: ";", "{" or "}".
bool IsTrailing(const DocumentState& state, NodeId comment);
/// The first of the comments right above a node that are its own; the node itself when there are none.
NodeId FirstOwnComment(const DocumentState& state, NodeId id);
/// All comments that belong to a node, in the order of the text.
std::vector<NodeId> CommentsOf(const DocumentState& state, NodeId id);
/// Whether it is the ";" that stands behind a key's "}" and the comments behind that.
bool IsLateSemicolon(const DocumentState& state, NodeId id);
/// The last node of an "if" and the "elsif" and "else" behind it, or of a key and its ";"; of all others the
/// node itself.
NodeId EndOfChain(const DocumentState& state, NodeId id);
/// The last node that goes with a node when that is removed: of an "if" the end of its chain.
NodeId LastGoingWith(const DocumentState& state, NodeId id);
/// The "if" of an "elsif" or "else", the key of its ";"; of all others the node itself.
NodeId StartOfChain(const DocumentState& state, NodeId id);

}  // namespace klepur::internal

#endif
