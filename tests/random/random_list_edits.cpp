// What a caller changes in the lists of children and lines by itself.
#include "tests/random/random_operations.h"

namespace klepur::test {

Operation RandomOperations::PutLine() {
  const ModelNode& node = AnyBlock();
  const Path path = PathOf(node);
  const std::size_t at = chance_.Between(0, node.lines.size());
  const ModelLine line = AnyLine();
  return Silent(Call("put a line", {Node(path), std::to_string(at), ToText(line)}),
                [=](Side& side) { side.PutLine(path, at, line); });
}

Operation RandomOperations::TakeLine() {
  const ModelNode& node = AnyBlock();
  if (node.lines.empty()) return PutLine();
  const Path path = PathOf(node);
  const std::size_t at = chance_.Below(node.lines.size());
  return Silent(Call("take a line", {Node(path), std::to_string(at)}),
                [=](Side& side) { side.TakeLine(path, at); });
}

Operation RandomOperations::ReverseLines() {
  const Path node = PathOf(AnyBlock());
  return Silent(Call("reverse the lines", {Node(node)}),
                [=](Side& side) { side.ReverseLines(node); });
}

/// Often within one child list.
Operation RandomOperations::SwapNodes() {
  const ModelNode& one = AnyBlock();
  const ModelNode& other = chance_.OneIn(2) ? *chance_.Pick(one.parent->children) : AnyBlock();
  const bool isTop = one.parent == &model_.Top() || other.parent == &model_.Top();
  if (isTop || IsIn(&one, other) || IsIn(&other, one)) return ReverseChildren();
  const Path a = PathOf(one);
  const Path b = PathOf(other);
  return Silent(Call("swap nodes", {Node(a), Node(b)}), [=](Side& side) { side.SwapNodes(a, b); });
}

Operation RandomOperations::ReverseChildren() {
  const Path node = PathOf(chance_.OneIn(2) ? *AnyBlock().parent : AnyNode());
  if (node.empty()) return ReverseLines();
  return Silent(Call("reverse the children", {Node(node)}),
                [=](Side& side) { side.ReverseChildren(node); });
}

Operation RandomOperations::SpliceChildren() {
  const ModelNode& from = AnyBlock();
  const ModelNode& to = AnyNode();
  if (&from == &to || IsIn(&to, from)) return ReverseChildren();
  const Path source = PathOf(from);
  const Path target = PathOf(to);
  return Silent(Call("splice the children", {Node(source), "into " + Node(target)}),
                [=](Side& side) { side.SpliceChildren(source, target); });
}

/// A cursor is not left on a node that is in no tree.
Operation RandomOperations::KeepNode() {
  const ModelNode& node = AnyBlock();
  if (node.parent == &model_.Top()) return ReverseChildren();
  const Path path = PathOf(node);
  const bool leave = HasCursorIn(node);
  return Silent((leave ? "GotoSection(nullptr, 0), " : "") + Call("take out", {Node(path)}),
                [=](Side& side) {
                  if (leave) side.GotoSection(std::nullopt, kGlobal);
                  side.KeepNode(path);
                });
}

Operation RandomOperations::HangKept() {
  const ModelNode& parent = AnyNode();
  const Path above = PathOf(parent);
  const std::size_t position = chance_.Between(0, parent.children.size());
  return Silent(Call("hang what was taken out", {"below " + Node(above), std::to_string(position)}),
                [=](Side& side) { side.HangKept(above, position); });
}

}  // namespace klepur::test
