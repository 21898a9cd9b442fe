// Internal: taking nodes out of the text.
#ifndef KLEPUR_DOCUMENT_REMOVAL_H
#define KLEPUR_DOCUMENT_REMOVAL_H

#include <string>
#include <vector>

#include <klepur/document/document_state.h>
#include <klepur/document/placement.h>

namespace klepur::internal {

/// Siblings from one to another.
struct NodeRun {
  NodeId first;
  NodeId last;
};

std::vector<NodeId> NodesOf(const DocumentState& state, NodeRun run);

/// A node, what goes with it, and the comments that belong to these.
NodeRun RunOf(const DocumentState& state, NodeId id, CommentsAbove comments);

/// Removes a node, see Node::Remove.
RemovalReport RemoveNode(DocumentState& state, NodeId id, CommentsAbove comments);

/// Takes the text of a run out, closes the gap, and unlinks the nodes, which stay as they are.
void TakeOut(DocumentState& state, NodeRun run);

/// What remains of two gaps when what stood between them is gone.
struct GapsToJoin {
  std::string before;
  std::string behind;
  bool at_block_start;  ///< A "{" stands before, or the text begins there.
  bool at_block_end;    ///< A "}" stands behind, or the text ends there.
  bool in_file;         ///< Right below the file, where the text's ends are those of lines.
  bool below_comment;   ///< A comment in a line of its own stands before.
};
std::string Join(const GapsToJoin& gaps);

}  // namespace klepur::internal

#endif
