// Internal: what is behind a node's handle.
#ifndef KLEPUR_DOCUMENT_NODE_ACCESS_H
#define KLEPUR_DOCUMENT_NODE_ACCESS_H

#include <klepur/document/node.h>
#include <klepur/document/syntax_node.h>

namespace klepur {

class NodeAccess {
 public:
  static internal::DocumentState* State(const Node& node) { return node.state_; }
  static internal::NodeId Id(const Node& node) { return node.id_; }
  static Node Make(internal::DocumentState* state, internal::NodeId id) { return {state, id}; }
  static Node OrNone(internal::DocumentState* state, internal::NodeId id) {
    return id == internal::kNoNode ? Node() : Node(state, id);
  }
};

}  // namespace klepur

#endif
