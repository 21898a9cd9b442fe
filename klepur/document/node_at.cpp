#include <klepur/document/node_at.h>

#include <algorithm>
#include <vector>

namespace klepur::internal {
namespace {

bool IsBlankByte(char byte) {
  return byte == ' ' || (byte >= '\t' && byte <= '\r') || byte == '\0';
}

std::size_t OffsetOf(const DocumentState& state, PieceText::Edge edge) {
  return state.positions.OffsetOf(state.text, edge);
}

/// The child of a block that holds the byte at an offset, by walking over its children from one of them on.
NodeId ChildAt(const DocumentState& state, NodeId from, std::size_t offset) {
  while (from != kNoNode && state.tree[from].previous != kNoNode &&
         OffsetOf(state, state.Begin(from)) > offset) {
    from = state.tree[from].previous;
  }
  for (NodeId child = from; child != kNoNode; child = state.tree[child].next) {
    if (OffsetOf(state, state.Begin(child)) > offset) return kNoNode;
    if (OffsetOf(state, state.End(child)) > offset) return child;
  }
  return kNoNode;
}

/// The first of some nodes that begins with bytes that were read, or else the last; it looks at a few only.
NodeId NextThatWasRead(const DocumentState& state, NodeId id, NodeId end) {
  constexpr NodeId kMost = 64;
  end = std::min(end, id + kMost);
  while (id + 1 < end && state.tree[id].begin >= state.text.BaseSize()) ++id;
  return id;
}

/// The last of the nodes that were read that begins at or before an address of what was read: they are numbered in
/// the order of the text. Of those whose text was written anew it passes over a few: where edits are many, what
/// it gives may be any node.
NodeId LastThatBegins(const DocumentState& state, TextAddress address) {
  NodeId low = 0;
  NodeId high = state.nodes_read;
  while (high - low > 1) {
    const NodeId middle = low + (high - low) / 2;
    const NodeId probe = NextThatWasRead(state, middle, high);
    if (state.tree[probe].begin <= address) {
      low = probe;
    } else {
      high = middle;
    }
  }
  return low;
}

/// A node that is likely near the byte behind an edge: from there the search begins.
NodeId NodeNear(const DocumentState& state, PieceText::Edge edge) {
  constexpr int kMost = 16;
  const PieceText& text = state.text;
  for (int i = 0; edge.address >= text.BaseSize(); ++i) {
    edge.piece = text.Previous(edge.piece);
    if (i == kMost || edge.piece == PieceText::kHead) return state.last_at;
    edge.address = text.SpanOf(edge.piece).end - 1;
  }
  NodeId id = LastThatBegins(state, edge.address);
  for (int i = 0; i != kMost && id != kRoot && state.tree.IsGone(id); ++i) --id;
  return id;
}

/// The nodes around a node and itself, the innermost first, without the file's; none when it is gone.
std::vector<NodeId> PathTo(const DocumentState& state, NodeId id) {
  std::vector<NodeId> path;
  if (state.tree.IsGone(id)) return path;
  for (; id != kRoot; id = state.tree[id].parent) path.push_back(id);
  return path;
}

NodeId InnermostAt(const DocumentState& state, PieceText::Edge edge) {
  if (state.edits == 0) {
    NodeId id = LastThatBegins(state, edge.address);
    while (id != kRoot && state.tree[id].end <= edge.address) id = state.tree[id].parent;
    return id;
  }
  const std::size_t offset = OffsetOf(state, edge);
  const std::vector<NodeId> path = PathTo(state, NodeNear(state, edge));
  auto step = path.rbegin();
  NodeId id = kRoot;
  for (;;) {
    const bool on_path = step != path.rend() && state.tree[*step].parent == id;
    const NodeId child = ChildAt(state, on_path ? *step : state.tree.FirstChild(id), offset);
    if (child == kNoNode) break;
    step = on_path && *step == child ? step + 1 : path.rend();
    id = child;
  }
  state.last_at = id;
  return id;
}

}  // namespace

NodeId NodeAtLine(const DocumentState& state, std::size_t line) {
  if (!state.positions.HasLine(line)) return kNoNode;
  PieceText::Edge edge = state.positions.LineBegin(state.text, line);
  while (!state.text.IsEnd(edge) && IsBlankByte(state.text.ByteAt(edge)) &&
         state.text.ByteAt(edge) != '\n') {
    state.text.Forward(edge);
  }
  if (state.text.IsEnd(edge)) return kRoot;
  return InnermostAt(state, edge);
}

}  // namespace klepur::internal
