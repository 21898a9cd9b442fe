// Internal: the nodes of a document and how they hang together; every change can be taken back.
#ifndef KLEPUR_DOCUMENT_SYNTAX_TREE_H
#define KLEPUR_DOCUMENT_SYNTAX_TREE_H

#include <cstddef>
#include <unordered_map>
#include <vector>

#include <klepur/document/syntax_node.h>
#include <klepur/text/large_array.h>

namespace klepur::internal {

class SyntaxTree {
 public:
  /// A state to return to.
  struct Mark {
    std::size_t log = 0;
    NodeId count = 0;
  };

  SyntaxTree();

  const SyntaxNode& operator[](NodeId id) const { return nodes_[id]; }
  NodeId Count() const { return static_cast<NodeId>(nodes_.size()); }

  NodeId FirstChild(NodeId id) const;
  /// Cost: the number of children.
  NodeId LastChild(NodeId id) const;
  /// The node after this one in the order of the text, children first; `top` bounds the walk.
  NodeId NextInOrder(NodeId id, NodeId top) const;
  /// The same, passing over what is below.
  NodeId NextBehind(NodeId id, NodeId top) const;
  bool IsGone(NodeId id) const;
  bool IsBelow(NodeId id, NodeId ancestor) const;

  /// Takes addresses for as many nodes as a text of this size usually has.
  void ReserveFor(std::size_t text_size) { nodes_.reserve(text_size / 32 + 1); }
  /// For the reader: a new node at the end, linked by itself.
  NodeId Append(const SyntaxNode& node);
  SyntaxNode& Made(NodeId id) { return nodes_[id]; }
  /// How far behind a block's first byte its "{" stands. Setting it is for new nodes.
  void SetBrace(NodeId id, TextAddress distance);
  TextAddress BraceOf(NodeId id) const;

  /// A node to be changed, as it is now remembered.
  SyntaxNode& Change(NodeId id);
  /// Makes sure that a node that is made next is not taken for the first child.
  void KeepHead(NodeId parent) {
    if (!nodes_[parent].own_head) SetHead(parent, FirstChild(parent));
  }
  /// Hangs a node that hangs nowhere below a parent, behind a child of it or, given none, as its first.
  void Link(NodeId id, NodeId parent, NodeId previous);
  /// Takes a node, and what is below it, out of its parent's children.
  void Unlink(NodeId id);
  void MarkGone(NodeId id) { Change(id).gone = 1; }
  /// Hangs the nodes from `first` to its last sibling below `parent` as all of its children.
  void SetChildren(NodeId parent, NodeId first);
  /// LastChild with the answer kept, for editors.
  NodeId KnownLastChild(NodeId id);

  Mark GetMark() const { return {log_.size(), Count()}; }
  void RollBack(Mark mark) noexcept;
  /// What a node was. Its first child is told for nodes with own_head.
  struct Was {
    NodeId id;
    NodeId head;
    SyntaxNode node;
  };
  /// Calls `use` for each change of a node since a mark, the first one first, with what the node was before.
  template <class Use>
  void ForEachChangeSince(Mark mark, const Use& use) const {
    for (std::size_t i = mark.log; i < log_.size(); ++i) use(log_[i]);
  }

  /// The nodes whose text or state changed, for who keeps books of them: one entry a change of a subtree.
  void Note(NodeId id) { noted_.push_back(id); }
  const std::vector<NodeId>& Noted() const { return noted_; }
  /// Another number when changes may have gone unnoted.
  std::size_t Generation() const { return generation_; }

 private:
  void SetHead(NodeId parent, NodeId head);
  NodeId HeadOf(NodeId parent) const;
  bool HangsBelow(NodeId id, NodeId parent) const;
  NodeId LastFromFormer(NodeId parent) const;

  LargeArray<SyntaxNode> nodes_;
  std::unordered_map<NodeId, NodeId> heads_;  // of the nodes with own_head
  std::unordered_map<NodeId, NodeId> tails_;
  std::unordered_map<NodeId, NodeId>
      former_tails_;  // what they were before something was taken back
  std::unordered_map<TextAddress, TextAddress> far_braces_;  // by the block's first byte
  std::vector<Was> log_;
  std::vector<NodeId> noted_;
  std::size_t generation_ = 0;
};

}  // namespace klepur::internal

#endif
