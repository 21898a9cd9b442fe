#include <klepur/document/comments.h>

#include <algorithm>

#include <klepur/document/disabled.h>
#include <klepur/document/gaps.h>
#include <klepur/document/structure_words.h>

namespace klepur::internal {
namespace {

bool IsBranch(const DocumentState& state, NodeId id) {
  return state.IsBlock(id) && WordOf(state.tree[id].word).begins == Begins::kBranch;
}

bool IsChainPart(const DocumentState& state, NodeId id) {
  return IsBranch(state, id) ||
         (state.IsBlock(id) && WordOf(state.tree[id].word).begins == Begins::kChain);
}

bool IsKeyWithoutSemicolon(const DocumentState& state, NodeId id) {
  const SyntaxNode& node = state.tree[id];
  return node.kind == NodeKind::kBlock && node.word == kWordKey && !node.late_semicolon;
}

/// The next sibling that is no comment.
NodeId NextBehindComments(const DocumentState& state, NodeId id) {
  do {
    id = state.tree[id].next;
  } while (id != kNoNode && state.IsComment(id));
  return id;
}

NodeId PreviousBeforeComments(const DocumentState& state, NodeId id) {
  do {
    id = state.tree[id].previous;
  } while (id != kNoNode && state.IsComment(id));
  return id;
}

bool IsAsDeepAs(const DocumentState& state, NodeId comment, NodeId id) {
  const std::size_t comment_width = WidthOf(IndentOf(state, comment));
  const std::size_t width = WidthOf(IndentOf(state, id));
  return std::max(comment_width, width) - std::min(comment_width, width) <= 1;
}

/// Whether a node stands right below a comment that is in a line of its own, in the next line.
bool IsRightBelowComment(const DocumentState& state, NodeId id) {
  const NodeId above = state.tree[id].previous;
  return above != kNoNode && state.IsComment(above) && !IsTrailing(state, above) &&
         CountLineEnds(ReadGap(state, GapBefore(state, id))) == 1;
}

/// The first comment of a run behind the last disabled statement in it; none when that ends the run.
NodeId BehindDisabled(const DocumentState& state, NodeId last) {
  NodeId first = kNoNode;
  for (NodeId id = last; !IsPartOfDisabled(state, id); id = state.tree[id].previous) {
    first = id;
    const NodeId above = state.tree[id].previous;
    if (above == kNoNode || !AreInOneRun(state, above, id)) break;
  }
  return first;
}

}  // namespace

NodeId TrailingComment(const DocumentState& state, NodeId id) {
  const NodeId next = state.tree[id].next;
  if (next == kNoNode || !state.IsComment(next) || state.IsComment(id)) return kNoNode;
  return HasLineEnd(ReadGap(state, GapBehind(state, id))) ? kNoNode : next;
}

NodeId OwnTrailingComment(const DocumentState& state, NodeId id) {
  const NodeId previous = state.tree[id].previous;
  const bool shares_line = previous != kNoNode && !BeginsLine(state, id);
  // In a chain, "} else {" begins on the line of what it follows and still ends alone.
  const bool ends_other_line = state.IsBlock(id) && !IsOnOneLine(state, id);
  return shares_line && !ends_other_line ? kNoNode : TrailingComment(state, id);
}

bool IsTrailing(const DocumentState& state, NodeId comment) {
  return !BeginsLine(state, comment);
}

NodeId FirstOwnComment(const DocumentState& state, NodeId id) {
  if (state.IsComment(id) || !BeginsLine(state, id) || !IsRightBelowComment(state, id)) return id;
  const NodeId above = state.tree[id].previous;
  if (!IsAsDeepAs(state, above, id)) return id;
  const NodeId first = BehindDisabled(state, above);
  return first == kNoNode ? id : first;
}

std::vector<NodeId> CommentsOf(const DocumentState& state, NodeId id) {
  std::vector<NodeId> comments;
  for (NodeId at = FirstOwnComment(state, id); at != id; at = state.tree[at].next) {
    comments.push_back(at);
  }
  if (state.IsBlock(id)) {
    const NodeId first = state.tree.FirstChild(id);
    if (first != kNoNode && state.IsComment(first) && IsTrailing(state, first)) {
      comments.push_back(first);
    }
  }
  const NodeId trailing = TrailingComment(state, id);
  if (trailing != kNoNode) comments.push_back(trailing);
  return comments;
}

bool IsLateSemicolon(const DocumentState& state, NodeId id) {
  if (state.tree[id].kind != NodeKind::kStray || state.OwnText(id) != ";") return false;
  const NodeId previous = PreviousBeforeComments(state, id);
  return previous != kNoNode && IsKeyWithoutSemicolon(state, previous);
}

NodeId EndOfChain(const DocumentState& state, NodeId id) {
  if (IsKeyWithoutSemicolon(state, id)) {
    const NodeId next = NextBehindComments(state, id);
    return next != kNoNode && IsLateSemicolon(state, next) ? next : id;
  }
  if (!IsChainPart(state, id)) return id;
  for (;;) {
    const NodeId next = NextBehindComments(state, id);
    if (next == kNoNode || !IsBranch(state, next)) return id;
    id = next;
  }
}

NodeId LastGoingWith(const DocumentState& state, NodeId id) {
  return IsBranch(state, id) ? id : EndOfChain(state, id);
}

NodeId StartOfChain(const DocumentState& state, NodeId id) {
  if (IsLateSemicolon(state, id)) return PreviousBeforeComments(state, id);
  while (IsBranch(state, id)) {
    const NodeId previous = PreviousBeforeComments(state, id);
    if (previous == kNoNode || !IsChainPart(state, previous)) return id;
    id = previous;
  }
  return id;
}

}  // namespace klepur::internal
