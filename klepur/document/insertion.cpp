#include <klepur/document/insertion.h>

#include <klepur/document/node_text.h>
#include <algorithm>
#include <vector>

#include <klepur/document/one_line_block.h>
#include <klepur/document/snippet.h>
#include <klepur/document/structure_reader.h>
#include <klepur/text/error.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

constexpr std::size_t kWidth = 100;

std::string CommentLines(std::string_view comment) {
  std::string lines;
  while (!comment.empty()) {
    const std::string_view line = comment.substr(0, comment.find('\n'));
    comment.remove_prefix(std::min(line.size() + 1, comment.size()));
    lines.append(line.empty() ? "#" : "# ").append(line).append("\n");
  }
  return lines;
}

std::string WithComments(std::string_view text, const Placement& placement) {
  std::string whole = CommentLines(placement.comment) + std::string(text);
  if (placement.trailing_comment.empty()) return whole;
  if (placement.trailing_comment.find('\n') != std::string::npos) {
    throw Error(ErrorCode::kBadText, "a comment behind a statement has one line");
  }
  whole.erase(whole.find_last_not_of(" \t\r\n") + 1);
  if (!whole.empty() && whole.back() != ';' && whole.back() != '}') whole += ';';
  return whole + " # " + placement.trailing_comment;
}

/// Whether a block that stands on one line may get so much longer.
bool FitsInBlock(const DocumentState& state, const Neighbours& neighbours, NodeId block,
                 std::string_view text, std::string_view key) {
  if (block == kRoot || !IsOnOneLine(state, block)) return true;
  const std::size_t limit = std::max(kWidth, neighbours.WidestOneLine(key));
  const std::size_t end = ColumnOf(state, state.End(block));
  return end == kFar ? limit == kFar : end + text.size() + 1 <= limit;
}

TextAddress Put(DocumentState& state, Place place, const Snippet& snippet, const Placed& what,
                std::string& text) {
  const NodeId block = place.gap.parent;
  if (IsMidLine(state, place)) {
    const Neighbours neighbours(state, place.gap);
    const bool in_one_line = block != kRoot && IsOnOneLine(state, block);
    const bool below_comment = place.gap.previous != kNoNode && state.IsComment(place.gap.previous);
    text = snippet.OnOneLine(neighbours);
    const std::string key = block == kRoot ? std::string() : KeyOf(state.OwnText(block));
    if (!text.empty() && !below_comment && !(in_one_line && snippet.IsBlock()) &&
        FitsInBlock(state, neighbours, block, text, key)) {
      return PutInLine(state, place, text);
    }
    if (in_one_line) {
      OpenOneLineBlock(state, block);
    } else {
      const std::string indent = IndentAt(state, place, neighbours);
      text = snippet.InLines(neighbours, indent, LineEndAt(state, BeginOf(state, place.gap)));
      return PutBetweenLines(state, place, text, indent);
    }
  }
  const Neighbours neighbours(state, place.gap);
  const std::string indent = IndentAt(state, place, neighbours);
  text = snippet.InLines(neighbours, indent, LineEndAt(state, BeginOf(state, place.gap)));
  return PutLines(state, place, text, indent, what, !what.key.empty());
}

}  // namespace

NodeId Insert(DocumentState& state, NodeId parent, std::string_view text,
              const Placement& placement, NodeId anchor) {
  if (!state.HoldsNodes(parent)) {
    throw Error(ErrorCode::kBadPlace, "only blocks and the file hold statements");
  }
  const Snippet snippet(WithComments(text, placement), state.tree[parent].word);
  const Placed what = {snippet.Key(), snippet.IsBlock(), snippet.IsBranch(),
                       snippet.EndsInCommentLine()};
  const Place place = FindPlace(state, parent, what, placement.where, anchor);
  std::string laid_out;
  const TextAddress address = Put(state, place, snippet, what, laid_out);
  NodeId first = HangNodes(state, place.gap, laid_out, address);
  while (!what.key.empty() && state.IsComment(first)) first = state.tree[first].next;
  if (placement.where == Placement::Where::kAuto && snippet.IsOneNode()) {
    RememberPlace(state, place, what, first);
  } else {
    ForgetPlaces(state, parent, what);
  }
  return first;
}

NodeId HangNodes(DocumentState& state, Gap gap, std::string_view text, TextAddress address) {
  const TextBuffer buffer(text);
  state.tree.KeepHead(gap.parent);
  const NodeId first = state.tree.Count();
  StructureReader(state.tree, buffer.view(), address).Read(gap.parent);
  std::vector<NodeId> nodes;
  for (NodeId id = first; id != kNoNode; id = state.tree[id].next) nodes.push_back(id);
  NodeId previous = gap.previous;
  for (const NodeId id : nodes) {
    state.tree.Link(id, gap.parent, previous);
    state.tree.Note(id);
    previous = id;
  }
  return first;
}

}  // namespace klepur::internal
