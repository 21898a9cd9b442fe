#include <klepur/document/removal.h>

#include <algorithm>
#include <vector>

#include <klepur/document/comments.h>
#include <klepur/document/gaps.h>
#include <klepur/document/node_text.h>
#include <klepur/document/one_line_block.h>
#include <klepur/text/error.h>

namespace klepur::internal {
namespace {

/// Whether a node of the same key stands directly below, so that the comments above are for both.
bool HeadsRun(const DocumentState& state, NodeId end, std::string_view key) {
  const NodeId trailing = TrailingComment(state, end);
  const NodeId last = trailing == kNoNode ? end : trailing;
  const NodeId next = state.tree[last].next;
  return next != kNoNode && !state.IsComment(next) && HasKey(state.OwnText(next), key) &&
         CountLineEnds(ReadGap(state, GapBehind(state, last))) <= 1;
}

std::size_t BlankLines(std::string_view gap, bool at_text_start) {
  const std::size_t line_ends = CountLineEnds(gap);
  return at_text_start || line_ends == 0 ? line_ends : line_ends - 1;
}

std::string JoinLines(const GapsToJoin& gaps) {
  const bool at_text_start = gaps.in_file && gaps.at_block_start;
  const std::size_t above = BlankLines(gaps.before, at_text_start);
  const std::size_t below = BlankLines(gaps.behind, false);
  std::size_t blank_lines = std::max(above, below);
  if (gaps.at_block_start) blank_lines = std::min(blank_lines, above);
  if (gaps.at_block_end) blank_lines = std::min(blank_lines, below);
  if (gaps.at_block_end && !HasLineEnd(gaps.behind)) return std::string(FirstLine(gaps.before));
  if (blank_lines == above) {
    return std::string(WithoutLastLine(gaps.before)) + std::string(LastLine(gaps.behind));
  }
  if (at_text_start) return std::string(LastLine(gaps.behind));
  return std::string(FirstLine(gaps.before)) + gaps.behind.substr(FirstLine(gaps.behind).size());
}

}  // namespace

std::vector<NodeId> NodesOf(const DocumentState& state, NodeRun run) {
  std::vector<NodeId> nodes;
  for (NodeId id = run.first;; id = state.tree[id].next) {
    nodes.push_back(id);
    if (id == run.last) return nodes;
  }
}

NodeRun RunOf(const DocumentState& state, NodeId id, CommentsAbove comments) {
  if (state.IsComment(id)) return {id, id};
  const NodeId end = LastGoingWith(state, id);
  const bool keep =
      comments == CommentsAbove::kKeep ||
      (comments == CommentsAbove::kAuto && HeadsRun(state, end, KeyOf(state.OwnText(id))));
  const NodeId trailing = OwnTrailingComment(state, end);
  return {keep ? id : FirstOwnComment(state, id), trailing == kNoNode ? end : trailing};
}

RemovalReport RemoveNode(DocumentState& state, NodeId id, CommentsAbove comments) {
  if (id == kRoot) throw Error(ErrorCode::kBadPlace, "the whole file cannot be removed");
  const NodeRun run = RunOf(state, id, comments);
  const NodeId parent = state.tree[id].parent;
  RemovalReport report;
  const std::vector<NodeId> nodes = NodesOf(state, run);
  for (const NodeId node : nodes) {
    if (node != id && state.IsComment(node)) {
      report.comments.emplace_back(state.OwnText(node));
    }
  }
  TakeOut(state, run);
  for (const NodeId node : nodes) state.tree.MarkGone(node);
  state.last_of_key.clear();
  CloseOpenedBlocks(state, parent);
  return report;
}

void TakeOut(DocumentState& state, NodeRun run) {
  const Gap before = GapBefore(state, run.first);
  const Gap behind = GapBehind(state, run.last);
  const NodeId next = NextOf(state, behind);
  const bool in_file = before.parent == kRoot;
  GapsToJoin gaps = {ReadGap(state, before),
                     ReadGap(state, behind),
                     before.previous == kNoNode,
                     next == kNoNode,
                     in_file,
                     before.previous != kNoNode && state.IsComment(before.previous)};
  std::string joined = Join(gaps);
  const Remembered* memory =
      state.memory.Recall({EditMemory::About::kGap, before.previous, before.parent});
  const bool opened_since = memory != nullptr && !HasLineEnd(memory->texts.front()) &&
                            before.parent != kRoot && IsOpened(state, before.parent);
  const std::string sides = SidesOf(state, before).substr(0, 1) + SidesOf(state, behind)[1];
  if (memory != nullptr && memory->nodes.front() == next && memory->texts[1] == sides &&
      !opened_since) {
    joined = memory->texts.front();
  }
  state.memory.Remember(
      {EditMemory::About::kMoved, run.first, before.previous, std::to_string(before.parent)},
      {{next},
       {gaps.before, gaps.behind, sides,
        state.text.Read(state.Begin(run.first), state.End(run.last))}});
  const PieceText::Edge begin = BeginOf(state, before);
  const PieceText::Edge end = EndOf(state, behind);
  state.text.Replace(begin, end, state.text.Append(joined));
  for (const NodeId id : NodesOf(state, run)) state.tree.Unlink(id);
}

std::string Join(const GapsToJoin& gaps) {
  const bool begins_line = HasLineEnd(gaps.before) || (gaps.in_file && gaps.at_block_start);
  const bool ends_line = HasLineEnd(gaps.behind) || (gaps.in_file && gaps.at_block_end);
  if (begins_line && ends_line) return JoinLines(gaps);
  if (begins_line) {
    return gaps.at_block_end && !gaps.below_comment && !gaps.at_block_start ? gaps.behind
                                                                            : gaps.before;
  }
  if (ends_line || gaps.at_block_end) return gaps.behind;
  return gaps.before;
}

}  // namespace klepur::internal
