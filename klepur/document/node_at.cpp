#include <klepur/document/node_at.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool IsBlankByte(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r') || byte == '\0';
}

std::size_t OffsetOf(const DocumentState& state, PieceText::Edge edge) {
  return state.positions.OffsetOf(edge);
}

/// The child of a block that holds the byte at an offset, by walking over all of them.
NodeId ChildAt(const DocumentState& state, NodeId block, std::size_t offset) {
  for (NodeId child = state.tree.FirstChild(block); child != kNoNode;
       child = state.tree[child].next) {
    if (OffsetOf(state, state.Begin(child)) > offset) return kNoNode;
    if (OffsetOf(state, state.End(child)) > offset) return child;
  }
  return kNoNode;
}

/// The node that was made last of those that begin at or before an address, while no node was edited: nodes
/// are numbered in the order of the text then.
NodeId LastThatBegins(const DocumentState& state, TextAddress address) {
  NodeId low = 0;
  NodeId high = state.tree.Count();
  while (high - low > 1) {
    const NodeId middle = low + (high - low) / 2;
    if (state.tree[middle].begin <= address) {
      low = middle;
    } else {
      high = middle;
    }
  }
  return low;
}

NodeId InnermostAt(const DocumentState& state, PieceText::Edge edge) {
  if (state.edits == 0) {
    NodeId id = LastThatBegins(state, edge.address);
    while (id != kRoot && state.tree[id].end <= edge.address) id = state.tree[id].parent;
    return id;
  }
  const std::size_t offset = OffsetOf(state, edge);
  NodeId id = kRoot;
  for (NodeId child = ChildAt(state, id, offset); child != kNoNode;
       child = ChildAt(state, id, offset)) {
    id = child;
  }
  return id;
}

}  // namespace

NodeId NodeAtLine(const DocumentState& state, std::size_t line) {
  if (line == 0 || line > state.positions.Lines()) return kNoNode;
  PieceText::Edge edge = state.positions.LineBegin(state.text, line);
  while (!state.text.IsEnd(edge) && IsBlankByte(state.text.ByteAt(edge)) &&
         state.text.ByteAt(edge) != '\n') {
    state.text.Forward(edge);
  }
  if (state.text.IsEnd(edge)) return kRoot;
  return InnermostAt(state, edge);
}

}  // namespace klepur::internal
