// Internal: following the edits of a document.
#ifndef KLEPUR_DOCUMENT_CHANGED_NODES_H
#define KLEPUR_DOCUMENT_CHANGED_NODES_H

#include <cstddef>

#include <klepur/document/syntax_tree.h>

namespace klepur::internal {

/// Knows which nodes of a tree somebody who keeps books of them has not seen as they are now.
class ChangedNodes {
 public:
  /// Calls `visit` with each node that is new or changed and with each below it, or, the first time and
  /// when changes may have gone unnoted, `restart` and then `visit` with all nodes. When one of them
  /// throws, what was not visited is visited the next time, and a little of the rest again.
  template <class Restart, class Visit>
  void ForEach(const SyntaxTree& tree, const Restart& restart, const Visit& visit) {
    if (!begun_ || generation_ != tree.Generation()) {
      begun_ = false;
      restart();
      VisitFrom(tree, kRoot, visit);
      generation_ = tree.Generation();
      seen_ = tree.Noted().size();
      begun_ = true;
    }
    for (; seen_ < tree.Noted().size(); ++seen_) {
      const NodeId id = tree.Noted()[seen_];
      if (!tree.IsGone(id)) VisitFrom(tree, id, visit);
    }
  }

  /// Makes the next call one with all nodes.
  void Restart() { begun_ = false; }

 private:
  template <class Visit>
  static void VisitFrom(const SyntaxTree& tree, NodeId top, const Visit& visit) {
    for (NodeId id = top; id != kNoNode; id = tree.NextInOrder(id, top)) visit(id);
  }

  std::size_t seen_ = 0;  // how many of the tree's notes were looked at
  std::size_t generation_ = 0;
  bool begun_ = false;
};

}  // namespace klepur::internal

#endif
