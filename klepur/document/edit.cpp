#include <klepur/document/edit.h>

#include <klepur/document/structure_reader.h>
#include <klepur/text/error.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

bool AreAlike(const DocumentState& state, NodeId id, const SyntaxTree& tree, NodeId other,
              const TextBuffer& text) {
  const SyntaxNode& node = state.tree[id];
  const SyntaxNode& read = tree[other];
  if (node.kind != read.kind || node.word != read.word || node.unfinished != read.unfinished ||
      node.open_quote != read.open_quote || node.late_semicolon != read.late_semicolon) {
    return false;
  }
  const TextAddress end =
      node.kind == NodeKind::kBlock ? read.begin + tree.BraceOf(other) : read.end;
  return state.OwnText(id) == text.view().substr(read.begin, end - read.begin);
}

/// Whether the bytes that the first node begins with would be read as the mark, which is nobody's.
bool IsTakenForByteOrderMark(const DocumentState& state) {
  const NodeId first = state.tree.FirstChild(kRoot);
  if (first == kNoNode || state.text.ByteAt(state.Begin(first)) != kByteOrderMark.front())
    return false;
  PieceText::Edge begin = state.Begin(first);
  if (state.text.Back(begin)) return false;
  return state.Inside(kRoot) != state.text.Start();
}

}  // namespace

Document::Mark MarkOf(const DocumentState& state) {
  const SyntaxTree::Mark tree = state.tree.GetMark();
  return {state.text.GetMark(), tree.log, state.memory.GetMark(), tree.count, state.malformed};
}

void RollBackTo(DocumentState& state, const Document::Mark& mark) noexcept {
  state.text.RollBack(mark.text);
  state.tree.RollBack({mark.log, mark.nodes});
  state.memory.RollBack(mark.memory);
  state.last_of_key.clear();
  state.malformed = mark.malformed;
  ++state.edits;
}

void Edit::Keep() {
  if (IsTakenForByteOrderMark(state_)) {
    throw Error(ErrorCode::kBadPlace,
                "what begins with the bytes of a byte order mark cannot be the first of a file");
  }
  if (state_.malformed) {
    if (state_.series == 0) {
      RequireReadsAsEdited(state_);
    } else {
      state_.unchecked = true;
    }
  }
  ++state_.edits;
  kept_ = true;
}

bool ReadsAsEdited(const DocumentState& state) {
  const TextBuffer text(state.text.All());
  SyntaxTree tree;
  StructureReader(tree, text.view(), 0).Read(kRoot);
  NodeId id = state.tree.NextInOrder(kRoot, kRoot);
  NodeId read = tree.NextInOrder(kRoot, kRoot);
  while (id != kNoNode && read != kNoNode) {
    if (!AreAlike(state, id, tree, read, text)) return false;
    const bool down = state.tree.FirstChild(id) != kNoNode;
    if (down != (tree.FirstChild(read) != kNoNode)) return false;
    if ((state.tree[id].next == kNoNode) != (tree[read].next == kNoNode)) return false;
    id = state.tree.NextInOrder(id, kRoot);
    read = tree.NextInOrder(read, kRoot);
  }
  return id == read;
}

void RequireReadsAsEdited(DocumentState& state) {
  state.unchecked = false;
  if (ReadsAsEdited(state)) return;
  throw Error(ErrorCode::kMalformed,
              "a block, quote or statement of the file has no end, and with this edit other text "
              "would become part of it");
}

}  // namespace klepur::internal
