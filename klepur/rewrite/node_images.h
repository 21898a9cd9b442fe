// Internal: which node of a rewritten text is which of the text before.
#ifndef KLEPUR_REWRITE_NODE_IMAGES_H
#define KLEPUR_REWRITE_NODE_IMAGES_H

#include <cstdint>
#include <vector>

#include <klepur/document/document_state.h>
#include <klepur/rewrite/rewriting.h>

namespace klepur::internal {

/// A text, the same rewritten, both as nobody edited them, and which node became which. The nodes that begin
/// in one piece of the text became, one behind the other, those that begin where the piece is written; comments became
/// comments.
class NodeImages {
 public:
  static constexpr std::uint32_t kNoPiece = 0xFFFFFFFF;

  NodeImages(const DocumentState& before, const DocumentState& after, const Rewriting& rewriting);

  const DocumentState& Before() const { return before_; }
  const DocumentState& After() const { return after_; }
  const Rewriting& Written() const { return rewriting_; }

  /// What became of a node of the text before; kNoNode when nothing did.
  NodeId ImageOf(NodeId id) const { return image_[id]; }
  /// The piece that a node of the text before begins in; kNoPiece for none.
  std::uint32_t PieceOf(NodeId id) const { return piece_[id]; }

  /// A node of the rewritten text that was none before, and the piece that it begins in.
  struct NewNode {
    NodeId image;
    std::uint32_t piece;
  };
  const std::vector<NewNode>& NewNodes() const { return new_nodes_; }
  /// Whether a "}" of the rewritten text closes nothing that did not stand in the text before.
  bool HasNewStray() const;

  /// Whether a node became one of the same kind with the same words, and whether it also has an end as before.
  bool HasSameWords(NodeId id) const;
  bool SaysTheSame(NodeId id) const;
  /// Whether it still stands in the block that it stood in.
  bool StaysInBlock(NodeId id) const;
  /// Whether it became a node that stands before this one's image.
  bool IsWrittenBefore(NodeId id, NodeId other) const { return image_[id] < image_[other]; }

 private:
  void MatchPiece(std::uint32_t piece, NodeId& node, NodeId& image);
  void MatchStrays();

  const DocumentState& before_;
  const DocumentState& after_;
  const Rewriting& rewriting_;
  std::vector<NodeId> image_;
  std::vector<std::uint32_t> piece_;
  std::vector<bool>
      known_;  ///< Of the rewritten text: those that begin in a piece or became of a stray.
  std::vector<NewNode> new_nodes_;
};

/// The last node that begins before an address, in a text that nobody edited; the root when none does.
NodeId LastBefore(const DocumentState& state, TextAddress address);

}  // namespace klepur::internal

#endif
