#include <klepur/document/document_state.h>

#include <utility>

#include <klepur/document/structure_reader.h>

namespace klepur::internal {

DocumentState::DocumentState(TextBuffer bytes) : text(std::move(bytes)) {
  tree.ReserveFor(text.BaseSize());
  StructureReader reader(tree, text.View({0, text.BaseSize()}), 0);
  reader.Read(kRoot);
  malformed = reader.IsMalformed();
  nodes_read = tree.Count();
}

std::string_view DocumentState::OwnText(NodeId id) const {
  const SyntaxNode& node = tree[id];
  if (IsBlock(id)) return text.View({node.begin, node.begin + tree.BraceOf(id)});
  return id == kRoot ? std::string_view() : text.View({node.begin, node.end});
}

std::string DocumentState::WholeText(NodeId id) const {
  return text.Read(Begin(id), End(id));
}

PieceText::Edge DocumentState::Begin(NodeId id) const {
  return id == kRoot ? text.Start() : text.Before(tree[id].begin);
}

PieceText::Edge DocumentState::End(NodeId id) const {
  // What is never closed reaches to the end.
  if (id == kRoot || (IsBlock(id) && tree[id].unfinished)) return text.End();
  return text.Behind(tree[id].end);
}

PieceText::Edge DocumentState::Inside(NodeId block) const {
  if (block != kRoot) return text.Behind(tree[block].begin + tree.BraceOf(block) + 1);
  PieceText::Edge edge = text.Start();
  for (const char byte : kByteOrderMark) {
    if (text.IsEnd(edge) || text.ByteAt(edge) != byte) return text.Start();
    text.Forward(edge);
  }
  return edge;
}

PieceText::Edge DocumentState::InsideEnd(NodeId block) const {
  PieceText::Edge edge = End(block);
  if (block == kRoot || tree[block].unfinished) return edge;
  do {
    text.Back(edge);
  } while (text.ByteAt(edge) != '}');
  return edge;
}

}  // namespace klepur::internal
