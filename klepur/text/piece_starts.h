// Internal: which piece of a text begins at an address.
#ifndef KLEPUR_TEXT_PIECE_STARTS_H
#define KLEPUR_TEXT_PIECE_STARTS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace klepur::internal {

/// A map from addresses to pieces, in the order of the addresses, that only grows. Its entries stand side by side
/// in leaves of many, for an edit of a text asks it several times.
///
/// Entering may throw std::bad_alloc, and then changes nothing. Cost: a search by halves, and moving what is
/// behind in the leaf.
class PieceStarts {
 public:
  using Address = std::uint32_t;
  using Piece = std::uint32_t;

  static constexpr Address kNone = 0xFFFFFFFF;  ///< No address: a text ends before it.

  /// An entry; good until another is entered.
  struct Place {
    std::size_t leaf;
    std::size_t slot;
  };

  bool IsEmpty() const { return leaves_.empty(); }
  /// The greatest address; there must be one.
  Address Last() const { return EntryAt({leaves_.size() - 1, leaves_.back().count - 1}).address; }
  /// The entry with the greatest address up to this one; there must be one.
  Place UpTo(Address address) const;
  /// The smallest address behind this one, or kNone.
  Address Behind(Address address) const;
  /// The entry before one that is not the first.
  Place Before(Place place) const {
    return place.slot != 0 ? Place{place.leaf, place.slot - 1}
                           : Place{place.leaf - 1, leaves_[place.leaf - 1].count - 1};
  }

  Piece operator[](Place place) const { return EntryAt(place).piece; }
  /// Gives an address that has a piece another one.
  void Set(Address address, Piece piece) noexcept { PieceAt(UpTo(address)) = piece; }
  /// Enters a piece, in the place of one that its address has.
  void Put(Address address, Piece piece) { PieceAt(PlaceFor(address, piece)) = piece; }
  /// Enters a piece unless its address has one.
  void PutNew(Address address, Piece piece) { PlaceFor(address, piece); }

 private:
  static constexpr std::size_t kMost = 128;
  struct Entry {
    Address address;
    Piece piece;
  };
  struct Leaf {
    Address first;
    std::uint32_t count;
    std::unique_ptr<std::array<Entry, kMost>> entries;
  };

  const Entry& EntryAt(Place place) const { return (*leaves_[place.leaf].entries)[place.slot]; }
  Piece& PieceAt(Place place) { return (*leaves_[place.leaf].entries)[place.slot].piece; }
  Place PlaceFor(Address address, Piece piece);
  void AddLeaf(std::size_t place);
  Place MakeRoomAt(Place place);

  std::vector<Leaf> leaves_;
};

}  // namespace klepur::internal

#endif
