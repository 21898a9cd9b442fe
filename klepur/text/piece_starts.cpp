#include <klepur/text/piece_starts.h>

#include <algorithm>

namespace klepur::internal {

PieceStarts::Place PieceStarts::UpTo(Address address) const {
  const auto leaf =
      std::upper_bound(leaves_.begin(), leaves_.end(), address,
                       [](Address sought, const Leaf& each) { return sought < each.first; }) -
      1;
  const Entry* const entries = leaf->entries->data();
  const Entry* const behind =
      std::upper_bound(entries, entries + leaf->count, address,
                       [](Address sought, const Entry& each) { return sought < each.address; });
  return {static_cast<std::size_t>(leaf - leaves_.begin()),
          static_cast<std::size_t>(behind - entries) - 1};
}

PieceStarts::Address PieceStarts::Behind(Address address) const {
  if (IsEmpty() || address >= Last()) return kNone;
  if (address < leaves_.front().first) return leaves_.front().first;
  Place place = UpTo(address);
  if (++place.slot != leaves_[place.leaf].count) return EntryAt(place).address;
  return leaves_[place.leaf + 1].first;
}

/// The entry of an address, made with this piece if there is none.
PieceStarts::Place PieceStarts::PlaceFor(Address address, Piece piece) {
  Place place = {0, 0};
  if (IsEmpty()) {
    AddLeaf(0);
  } else if (address > Last()) {
    place = {leaves_.size() - 1, leaves_.back().count};
  } else if (address >= leaves_.front().first) {
    place = UpTo(address);
    if (EntryAt(place).address == address) return place;
    ++place.slot;
  }
  place = MakeRoomAt(place);
  Leaf& leaf = leaves_[place.leaf];
  Entry* const entry = leaf.entries->data() + place.slot;
  std::move_backward(entry, leaf.entries->data() + leaf.count,
                     leaf.entries->data() + leaf.count + 1);
  *entry = {address, piece};
  ++leaf.count;
  leaf.first = leaf.entries->front().address;
  return place;
}

void PieceStarts::AddLeaf(std::size_t place) {
  leaves_.insert(leaves_.begin() + static_cast<std::ptrdiff_t>(place),
                 {kNone, 0, std::make_unique<std::array<Entry, kMost>>()});
}

/// The place for an entry in a leaf that is not full. A full one is halved, but for an entry behind all of its
/// own: so the leaves of what comes in order are full.
PieceStarts::Place PieceStarts::MakeRoomAt(Place place) {
  if (leaves_[place.leaf].count != kMost) return place;
  AddLeaf(place.leaf + 1);
  if (place.slot == kMost) return {place.leaf + 1, 0};
  Leaf& full = leaves_[place.leaf];
  Leaf& half = leaves_[place.leaf + 1];
  full.count = half.count = kMost / 2;
  std::copy(full.entries->begin() + kMost / 2, full.entries->end(), half.entries->begin());
  half.first = half.entries->front().address;
  return place.slot <= kMost / 2 ? place : Place{place.leaf + 1, place.slot - kMost / 2};
}

}  // namespace klepur::internal
