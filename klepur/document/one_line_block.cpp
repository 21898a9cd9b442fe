#include <klepur/document/one_line_block.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include <klepur/document/gaps.h>
#include <klepur/document/neighbours.h>
#include <klepur/document/node_text.h>

namespace klepur::internal {
namespace {

Remembered GapsOf(const DocumentState& state, NodeId block) {
  Remembered gaps;
  gaps.texts.push_back(ReadGap(state, {block, kNoNode}));
  for (NodeId child = state.tree.FirstChild(block); child != kNoNode;
       child = state.tree[child].next) {
    gaps.nodes.push_back(child);
    gaps.texts.push_back(ReadGap(state, {block, child}));
  }
  return gaps;
}

/// The children of a block as places among those that it had when it was opened, in their order; nothing
/// when it holds others or they do not fit on a line.
std::optional<std::vector<std::size_t>> PlacesOf(const DocumentState& state, NodeId block,
                                                 const Remembered& gaps) {
  std::vector<std::size_t> places;
  auto next = gaps.nodes.begin();
  for (NodeId child = state.tree.FirstChild(block); child != kNoNode;
       child = state.tree[child].next) {
    next = std::find(next, gaps.nodes.end(), child);
    if (next == gaps.nodes.end() || state.IsComment(child) || !IsOnOneLine(state, child)) {
      return std::nullopt;
    }
    places.push_back(static_cast<std::size_t>(next - gaps.nodes.begin()));
    ++next;
  }
  return places;
}

}  // namespace

void OpenOneLineBlock(DocumentState& state, NodeId block) {
  const NodeId parent = state.tree[block].parent;
  if (parent != kRoot && IsOnOneLine(state, parent)) OpenOneLineBlock(state, parent);
  const std::string key = KeyOf(state.OwnText(block));
  const std::string step = Neighbours(state, GapBehind(state, block)).Step(key);
  const std::string line_end = LineEndAt(state, state.Begin(block));
  const std::string indent = IndentOf(state, block);
  Remembered gaps = GapsOf(state, block);
  const std::vector<NodeId> children = gaps.nodes;
  state.memory.Remember({EditMemory::About::kOneLine, block}, std::move(gaps));
  const std::string new_line = line_end + indent + step;
  NodeId previous = kNoNode;
  for (const NodeId child : children) {
    WriteGap(state, {block, previous}, new_line);
    previous = child;
  }
  WriteGap(state, {block, previous}, line_end + indent);
}

void CloseOpenedBlocks(DocumentState& state, NodeId block) {
  for (; block != kRoot; block = state.tree[block].parent) {
    const Remembered* gaps = state.memory.Recall({EditMemory::About::kOneLine, block});
    if (gaps == nullptr) return;
    const auto places = PlacesOf(state, block, *gaps);
    if (!places) return;
    WriteGap(state, {block, kNoNode}, places->empty() ? gaps->texts.back() : gaps->texts.front());
    for (std::size_t i = 0; i < places->size(); ++i) {
      const bool last = i + 1 == places->size();
      WriteGap(state, {block, gaps->nodes[(*places)[i]]},
               last ? gaps->texts.back() : gaps->texts[(*places)[i] + 1]);
    }
  }
}

bool IsOpened(const DocumentState& state, NodeId block) {
  return state.memory.Recall({EditMemory::About::kOneLine, block}) != nullptr &&
         !IsOnOneLine(state, block);
}

}  // namespace klepur::internal
