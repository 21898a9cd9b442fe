#include <klepur/document/one_line_block.h>

#include <algorithm>

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

bool HoldsSameNodes(const DocumentState& state, NodeId block, const Remembered& gaps) {
  auto remembered = gaps.nodes.begin();
  for (NodeId child = state.tree.FirstChild(block); child != kNoNode;
       child = state.tree[child].next) {
    if (remembered == gaps.nodes.end() || *remembered != child || state.IsComment(child) ||
        !IsOnOneLine(state, child)) {
      return false;
    }
    ++remembered;
  }
  return remembered == gaps.nodes.end();
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
  NodeId previous = kNoNode;
  for (const NodeId child : children) {
    WriteGap(state, {block, previous}, line_end + indent + step);
    previous = child;
  }
  WriteGap(state, {block, previous}, line_end + indent);
}

void CloseOpenedBlocks(DocumentState& state, NodeId block) {
  for (; block != kRoot; block = state.tree[block].parent) {
    const Remembered* gaps = state.memory.Recall({EditMemory::About::kOneLine, block});
    if (gaps == nullptr || !HoldsSameNodes(state, block, *gaps)) return;
    WriteGap(state, {block, kNoNode}, gaps->texts.front());
    for (std::size_t i = 0; i < gaps->nodes.size(); ++i) {
      WriteGap(state, {block, gaps->nodes[i]}, gaps->texts[i + 1]);
    }
  }
}

}  // namespace klepur::internal
