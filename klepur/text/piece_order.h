// Internal: the pieces of a text in their order, with what stands before each.
#ifndef KLEPUR_TEXT_PIECE_ORDER_H
#define KLEPUR_TEXT_PIECE_ORDER_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace klepur::internal {

/// How much of a text something takes.
struct Extent {
  std::size_t bytes = 0;
  std::size_t lines = 0;  ///< Line ends.

  Extent& operator+=(Extent other) {
    bytes += other.bytes;
    lines += other.lines;
    return *this;
  }
  Extent& operator-=(Extent other) {
    bytes -= other.bytes;
    lines -= other.lines;
    return *this;
  }
};

/// A sequence of pieces, which are small numbers, and what they take together. A tree that is sorted by place and a heap by
/// numbers that look random, so that it is about as deep as the logarithm of the pieces: the cost of all.
class PieceOrder {
 public:
  using Piece = std::uint32_t;
  static constexpr Piece kNone = 0xFFFFFFFF;

  bool Has(Piece piece) const { return piece < nodes_.size() && nodes_[piece].stands; }
  /// Puts one that is not there behind another, or, given none, before all. May throw std::bad_alloc, and then
  /// changes nothing.
  void Insert(Piece piece, Piece previous, Extent extent);
  void Erase(Piece piece) noexcept;
  /// Makes what a piece takes another.
  void Resize(Piece piece, Extent extent) noexcept;
  void Clear() noexcept;

  Extent Of(Piece piece) const { return nodes_[piece].own; }
  Extent Before(Piece piece) const;
  Extent All() const { return root_ == kNone ? Extent() : nodes_[root_].all; }
  /// The piece in which the line end stands that this many others stand before; less than All() has.
  Piece WithLineEnd(std::size_t line_ends) const;

 private:
  struct Node {
    Piece parent = kNone;
    Piece left = kNone;
    Piece right = kNone;
    bool stands = false;
    Extent own;
    Extent all;  // of what is below too
  };

  Extent AllOf(Piece piece) const { return piece == kNone ? Extent() : nodes_[piece].all; }
  void Replace(Piece piece, Piece by) noexcept;
  void RotateUp(Piece piece) noexcept;
  void AddUpwards(Piece piece, Extent more) noexcept;

  std::vector<Node> nodes_;  // by piece
  Piece root_ = kNone;
};

}  // namespace klepur::internal

#endif
