#include <klepur/text/piece_order.h>

namespace klepur::internal {
namespace {

/// A number that looks random, and is that of one piece only.
std::uint32_t RankOf(PieceOrder::Piece piece) {
  std::uint32_t rank = piece * 0x9E3779B1U;
  rank ^= rank >> 15;
  rank *= 0x85EBCA77U;
  return rank ^ (rank >> 13);
}

}  // namespace

void PieceOrder::Insert(Piece piece, Piece previous, Extent extent) {
  if (piece >= nodes_.size()) nodes_.resize(piece + std::size_t{1});
  Node& node = nodes_[piece];
  node = Node();
  node.stands = true;
  node.own = extent;
  if (root_ == kNone) {
    root_ = piece;
  } else if (previous != kNone && nodes_[previous].right == kNone) {
    node.parent = previous;
    nodes_[previous].right = piece;
  } else {  // before all that is behind
    Piece next = previous == kNone ? root_ : nodes_[previous].right;
    while (nodes_[next].left != kNone) next = nodes_[next].left;
    node.parent = next;
    nodes_[next].left = piece;
  }
  AddUpwards(piece, extent);
  while (node.parent != kNone && RankOf(node.parent) < RankOf(piece)) RotateUp(piece);
}

void PieceOrder::Erase(Piece piece) noexcept {
  Node& node = nodes_[piece];
  Resize(piece, {});
  while (node.left != kNone && node.right != kNone) {
    RotateUp(RankOf(node.left) < RankOf(node.right) ? node.right : node.left);
  }
  const Piece child = node.left == kNone ? node.right : node.left;
  Replace(piece, child);
  node.stands = false;
}

void PieceOrder::Resize(Piece piece, Extent extent) noexcept {
  Extent change = extent;
  change -= nodes_[piece].own;  // below 0 it is a number that comes to the same
  nodes_[piece].own = extent;
  AddUpwards(piece, change);
}

void PieceOrder::Clear() noexcept {
  nodes_.clear();
  root_ = kNone;
}

Extent PieceOrder::Before(Piece piece) const {
  Extent before = AllOf(nodes_[piece].left);
  for (Piece parent = nodes_[piece].parent; parent != kNone;
       piece = parent, parent = nodes_[piece].parent) {
    if (nodes_[parent].right != piece) continue;
    before += AllOf(nodes_[parent].left);
    before += nodes_[parent].own;
  }
  return before;
}

PieceOrder::Piece PieceOrder::WithLineEnd(std::size_t line_ends) const {
  Piece piece = root_;
  for (;;) {
    const Node& node = nodes_[piece];
    const std::size_t left = AllOf(node.left).lines;
    if (line_ends < left) {
      piece = node.left;
    } else if (line_ends - left < node.own.lines) {
      return piece;
    } else {
      line_ends -= left + node.own.lines;
      piece = node.right;
    }
  }
}

/// Hangs another piece, or none, where a piece hangs.
void PieceOrder::Replace(Piece piece, Piece by) noexcept {
  const Piece parent = nodes_[piece].parent;
  if (parent == kNone) {
    root_ = by;
  } else {
    (nodes_[parent].left == piece ? nodes_[parent].left : nodes_[parent].right) = by;
  }
  if (by != kNone) nodes_[by].parent = parent;
}

/// Makes a piece the parent of its parent.
void PieceOrder::RotateUp(Piece piece) noexcept {
  Node& node = nodes_[piece];
  const Piece below = node.parent;
  Node& parent = nodes_[below];
  Replace(below, piece);
  Piece& from = parent.left == piece ? parent.left : parent.right;
  Piece& to = parent.left == piece ? node.right : node.left;
  from = to;
  if (from != kNone) nodes_[from].parent = below;
  to = below;
  parent.parent = piece;
  node.all = parent.all;
  parent.all = parent.own;
  parent.all += AllOf(parent.left);
  parent.all += AllOf(parent.right);
}

void PieceOrder::AddUpwards(Piece piece, Extent more) noexcept {
  for (; piece != kNone; piece = nodes_[piece].parent) nodes_[piece].all += more;
}

}  // namespace klepur::internal
