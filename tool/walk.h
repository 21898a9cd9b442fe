// The nodes below a node, in the order of the text.
#ifndef KLEPUR_TOOL_WALK_H
#define KLEPUR_TOOL_WALK_H

#include <klepur/document/node.h>

namespace klepur::tool {

/// The node behind `node` in the order of the text, of those below `top`; none behind the last one.
///
///     for (Node node = top.FirstChild(); node; node = NextBelow(node, top)) ...
inline Node NextBelow(Node node, const Node& top);

/// The same, passing over what is below `node`.
inline Node NextBehind(Node node, const Node& top) {
  while (node != top) {
    if (const Node next = node.Next()) return next;
    node = node.Parent();
  }
  return Node();
}

inline Node NextBelow(Node node, const Node& top) {
  const Node child = node.FirstChild();
  return child ? child : NextBehind(node, top);
}

/// Whether a node stands in another, at any depth.
inline bool IsBelow(Node node, const Node& top) {
  for (node = node.Parent(); node; node = node.Parent()) {
    if (node == top) return true;
    if (node.Is(NodeKind::kFile)) break;
  }
  return false;
}

}  // namespace klepur::tool

#endif
