#include <klepur/document/moving.h>

#include <algorithm>
#include <string>
#include <vector>

#include <klepur/document/comments.h>
#include <klepur/document/node_text.h>
#include <klepur/document/one_line_block.h>
#include <klepur/document/place.h>
#include <klepur/document/reindented.h>
#include <klepur/document/removal.h>
#include <klepur/document/structure_words.h>
#include <klepur/text/error.h>

namespace klepur::internal {
namespace {

/// Tells where in a run of pieces of the text a byte stands, by its address.
class OffsetsInRun {
 public:
  explicit OffsetsInRun(const std::vector<Span>& spans) {
    std::size_t offset = 0;
    for (const Span& span : spans) {
      begins_.push_back({span.begin, offset});
      offset += span.end - span.begin;
    }
    std::sort(begins_.begin(), begins_.end(), ByAddress);
  }

  std::size_t Of(TextAddress byte) const {
    const auto behind =
        std::upper_bound(begins_.begin(), begins_.end(), SpanBegin{byte, 0}, ByAddress);
    return behind[-1].offset + (byte - behind[-1].address);
  }

 private:
  struct SpanBegin {
    TextAddress address;
    std::size_t offset;
  };
  static bool ByAddress(const SpanBegin& left, const SpanBegin& right) {
    return left.address < right.address;
  }
  std::vector<SpanBegin> begins_;
};

/// Gives the nodes of a tree the addresses that their bytes have in the moved text.
void Readdress(DocumentState& state, NodeId top, const OffsetsInRun& offsets,
               const Reindented& moved, TextAddress base) {
  const auto new_address = [&](TextAddress old) {
    return base + static_cast<TextAddress>(moved.NewOffset(offsets.Of(old)));
  };
  for (NodeId id = top; id != kNoNode; id = state.tree.NextInOrder(id, top)) {
    const SyntaxNode old = state.tree[id];
    const TextAddress brace = state.IsBlock(id) ? old.begin + state.tree.BraceOf(id) : old.begin;
    SyntaxNode& node = state.tree.Change(id);
    node.begin = new_address(old.begin);
    node.end = new_address(old.end - 1) + 1;
    if (state.IsBlock(id)) state.tree.SetBrace(id, new_address(brace) - node.begin);
  }
}

Placed Describe(const DocumentState& state, NodeId id) {
  return {KeyOf(state.OwnText(id)), state.IsBlock(id),
          state.IsBlock(id) && WordOf(state.tree[id].word).begins == Begins::kBranch,
          state.IsComment(id)};
}

void Require(const DocumentState& state, NodeId id, NodeId parent, const Placed& what) {
  if (id == kRoot) throw Error(ErrorCode::kBadPlace, "the whole file cannot be moved");
  if (!state.HoldsNodes(parent)) {
    throw Error(ErrorCode::kBadPlace, "only blocks and the file hold statements");
  }
  if (state.IsBlock(id) && state.tree[id].unfinished) {
    throw Error(ErrorCode::kMalformed,
                "the block is not closed, and reaches to the end of the file");
  }
  if (what.is_branch) {
    throw Error(ErrorCode::kBadPlace,
                "an \"elsif\" or \"else\" cannot be moved without its \"if\"");
  }
}

/// The place as it is without the run that is moved.
Place Without(const DocumentState& state, Place place, const std::vector<NodeId>& nodes) {
  if (std::find(nodes.begin(), nodes.end(), place.gap.previous) != nodes.end()) {
    place.gap.previous = state.tree[nodes.front()].previous;
  }
  return place;
}

/// How a run stood at a place before, if the same stands around that now; null when it did not.
const Remembered* AsItStood(const DocumentState& state, NodeRun run, Place place) {
  const Remembered* memory = state.memory.Recall(
      {EditMemory::About::kMoved, run.first, place.gap.previous, std::to_string(place.gap.parent)});
  const bool fits = memory != nullptr && memory->nodes.front() == NextOf(state, place.gap) &&
                    memory->texts[2] == SidesOf(state, place.gap);
  return fits ? memory : nullptr;
}

/// The text with the indentation that it had at a place before, else with that of the place.
Reindented AtPlace(const DocumentState& state, NodeRun run, Place place, std::string_view text,
                   std::string_view indent) {
  if (const Remembered* memory = AsItStood(state, run, place)) {
    if (auto like = Reindented::Like(text, memory->texts[3])) return *std::move(like);
  }
  return Reindented(text, IndentOf(state, run.first), indent);
}

/// Whether what is moved needs lines of its own: as it had them when it stood at that place before.
bool WantsLines(const DocumentState& state, NodeRun run, Place place, std::string_view text,
                const Placed& what) {
  if (const Remembered* memory = AsItStood(state, run, place)) {
    return HasLineEnd(memory->texts[0]) || HasLineEnd(memory->texts[1]);
  }
  const bool below_comment = place.gap.previous != kNoNode && state.IsComment(place.gap.previous);
  const bool within = state.tree[run.first].parent == place.gap.parent;
  return HasLineEnd(text) || text.find('#') != std::string_view::npos || below_comment ||
         (what.is_block && !within);
}

TextAddress PutMoved(DocumentState& state, Place place, const std::string& text,
                     const std::string& indent, const Placed& what) {
  if (!IsMidLine(state, place)) {
    return PutLines(state, place, text, indent, what, !what.key.empty());
  }
  const bool below_comment = place.gap.previous != kNoNode && state.IsComment(place.gap.previous);
  if (HasLineEnd(text) || text.find('#') != std::string::npos || below_comment) {
    return PutBetweenLines(state, place, text, indent);
  }
  return PutInLine(state, place, text);
}

/// Where the run stood between the same neighbours before, the gaps around it become what they were.
void RestoreGaps(DocumentState& state, NodeRun run) {
  const Gap before = GapBefore(state, run.first);
  const Gap behind = GapBehind(state, run.last);
  const Remembered* memory = state.memory.Recall(
      {EditMemory::About::kMoved, run.first, before.previous, std::to_string(before.parent)});
  const std::string sides = SidesOf(state, before).substr(0, 1) + SidesOf(state, behind)[1];
  if (memory == nullptr || memory->nodes.front() != NextOf(state, behind) ||
      memory->texts[2] != sides) {
    return;
  }
  WriteGap(state, before, memory->texts[0]);
  WriteGap(state, behind, memory->texts[1]);
}

}  // namespace

void MoveNode(DocumentState& state, NodeId id, NodeId parent, Placement::Where where,
              NodeId anchor) {
  const Placed what = Describe(state, id);
  Require(state, id, parent, what);
  const NodeRun run = RunOf(state, id, CommentsAbove::kAuto);
  const std::vector<NodeId> nodes = NodesOf(state, run);
  if (std::any_of(nodes.begin(), nodes.end(),
                  [&](NodeId node) { return state.tree.IsBelow(parent, node); })) {
    throw Error(ErrorCode::kBadPlace, "a block cannot be moved into itself");
  }
  if (std::find(nodes.begin(), nodes.end(), anchor) != nodes.end()) return;
  const Place place = Without(state, FindPlace(state, parent, what, where, anchor), nodes);
  const NodeId old_parent = state.tree[id].parent;
  const NodeId above = state.tree[FirstOwnComment(state, id)].previous;
  if (old_parent == parent &&
      (place.gap.previous == state.tree[run.first].previous || place.gap.previous == above)) {
    return;
  }

  const std::string text = state.text.Read(state.Begin(run.first), state.End(run.last));
  // Opened before anything is taken out, which may be what shows the step.
  if (parent != kRoot && IsOnOneLine(state, parent) && WantsLines(state, run, place, text, what)) {
    OpenOneLineBlock(state, parent);
  }
  const std::string indent = IndentAt(state, place, Neighbours(state, place.gap));
  const Reindented moved = AtPlace(state, run, place, text, indent);
  const OffsetsInRun offsets(state.text.SpansOf(state.Begin(run.first), state.End(run.last)));
  TakeOut(state, run);
  const TextAddress address = PutMoved(state, place, moved.Text(), indent, what);
  NodeId previous = place.gap.previous;
  for (const NodeId node : nodes) {
    Readdress(state, node, offsets, moved, address);
    state.tree.Link(node, parent, previous);
    state.tree.Note(node);
    previous = node;
  }
  RestoreGaps(state, run);
  state.last_of_key.clear();
  CloseOpenedBlocks(state, old_parent);
  CloseOpenedBlocks(state, parent);
}

}  // namespace klepur::internal
