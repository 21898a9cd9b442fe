#include <klepur/text/piece_text.h>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

#include <klepur/text/error.h>

namespace klepur::internal {

PieceText::PieceText(TextBuffer base) : base_(std::move(base)) {
  pieces_.push_back({0, 0, kHead, kTail, true});
  pieces_.push_back({0, 0, kHead, kTail, true});
  if (base_.size() != 0) {
    const PieceId whole = NewPiece(0, BaseSize());
    starts_.Put(0, whole);
    pieces_[whole].stands = true;  // who keeps books begins with all pieces
    Link(kHead, whole);
    Link(whole, kTail);
  }
}

Span PieceText::Append(std::string_view bytes) {
  if (bytes.size() > std::numeric_limits<TextAddress>::max() - NextAddress()) {
    throw Error(ErrorCode::kTooLarge, "the document and what was added to it reach 4 GiB");
  }
  const TextAddress begin = NextAddress();
  added_.append(bytes);
  return {begin, NextAddress()};
}

PieceText::Edge PieceText::Behind(TextAddress end) const {
  const PieceId piece = PieceOf(end - 1);
  return end < pieces_[piece].end ? Edge{piece, end} : BeginOf(pieces_[piece].next);
}

bool PieceText::Back(Edge& edge) const {
  if (edge.piece != kTail && edge.address > pieces_[edge.piece].begin) {
    --edge.address;
    return true;
  }
  const PieceId piece = pieces_[edge.piece].previous;
  if (piece == kHead) return false;
  edge = {piece, pieces_[piece].end - 1};
  return true;
}

bool PieceText::Forward(Edge& edge) const {
  if (edge.piece == kTail) return false;
  ++edge.address;
  if (edge.address == pieces_[edge.piece].end) edge = BeginOf(pieces_[edge.piece].next);
  return true;
}

std::string PieceText::Read(Edge from, Edge to) const {
  std::string text;
  for (const Span& span : SpansOf(from, to)) text.append(View(span));
  return text;
}

std::vector<Span> PieceText::SpansOf(Edge from, Edge to) const {
  std::vector<Span> spans;
  for (PieceId id = from.piece; id != kTail; id = pieces_[id].next) {
    const TextAddress begin = id == from.piece ? from.address : pieces_[id].begin;
    const TextAddress end = id == to.piece ? to.address : pieces_[id].end;
    if (begin != end) spans.push_back({begin, end});
    if (id == to.piece) break;
  }
  return spans;
}

std::size_t PieceText::Size() const {
  std::size_t size = 0;
  ForEachPiece([&](PieceId, Span span) { size += span.end - span.begin; });
  return size;
}

void PieceText::Replace(Edge from, Edge to, std::span<const Span> spans) {
  const auto first_made = static_cast<PieceId>(pieces_.size());
  for (const Span& span : spans) MakePiecesOf(span);
  const auto behind_made = static_cast<PieceId>(pieces_.size());
  const bool empty = from == to;
  const PieceId right = BorderBefore(to);
  const PieceId first = empty ? right : BorderBefore(from);
  log_.push_back({right, first, pieces_[right].previous, kTail});
  // Nothing can fail from here on.
  Change& change = log_.back();
  PieceId last = pieces_[first].previous;
  if (empty) change.old_first = change.old_last = kTail;
  for (PieceId piece = first; piece != right; piece = pieces_[piece].next) {
    SetStands(piece, false);
  }
  for (PieceId piece = first_made; piece != behind_made; ++piece) {
    starts_.Set(pieces_[piece].begin, piece);
    SetStands(piece, true);
    Link(last, piece);
    last = piece;
  }
  Link(last, right);
  if (first_made != behind_made) change.new_first = first_made;
}

void PieceText::RollBack(std::size_t mark) noexcept {
  for (; log_.size() > mark; log_.pop_back()) TakeBack(log_.back());
}

void PieceText::TakeBack(const Change& change) noexcept {
  // A piece that was split since keeps its beginning, so the one on the left is asked for, not remembered.
  const PieceId after = change.new_first == kTail ? change.right : change.new_first;
  const PieceId left = pieces_[after].previous;
  for (PieceId id = after; id != change.right; id = pieces_[id].next) SetStands(id, false);
  if (change.old_first == kTail) {
    Link(left, change.right);
    return;
  }
  Link(left, change.old_first);
  Link(change.old_last, change.right);
  for (PieceId id = change.old_first;; id = pieces_[id].next) {
    starts_.Set(pieces_[id].begin, id);
    SetStands(id, true);
    if (id == change.old_last) return;
  }
}

bool PieceText::IsChanged() const {
  std::string_view rest = base_.view();
  for (PieceId id = pieces_[kHead].next; id != kTail; id = pieces_[id].next) {
    const std::string_view piece = View({pieces_[id].begin, pieces_[id].end});
    const bool in_place = piece.data() == rest.data() && piece.size() <= rest.size();
    if (!in_place && rest.substr(0, piece.size()) != piece) return true;
    rest.remove_prefix(piece.size());
  }
  return !rest.empty();
}

PieceText::PieceId PieceText::PieceOf(TextAddress byte) const {
  PieceStarts::Place place = starts_.UpTo(byte);
  while (!pieces_[starts_[place]].stands) place = starts_.Before(place);
  return starts_[place];
}

void PieceText::NoteChange(PieceId piece) noexcept {
  if (changed_.size() <= pieces_.size()) {
    try {
      return changed_.push_back(piece);
    } catch (const std::bad_alloc&) {
      // Who keeps books must look at all.
    }
  }
  changed_.clear();
  ++generation_;
}

PieceText::PieceId PieceText::NewPiece(TextAddress begin, TextAddress end) {
  pieces_.push_back({begin, end, kHead, kTail, false});
  return static_cast<PieceId>(pieces_.size() - 1);
}

PieceText::PieceId PieceText::Split(PieceId piece, TextAddress at) {
  const PieceId rest = NewPiece(at, pieces_[piece].end);
  starts_.Put(at, rest);
  SetStands(rest, true);
  Link(rest, pieces_[piece].next);
  Link(piece, rest);
  pieces_[piece].end = at;
  NoteChange(piece);
  return rest;
}

PieceText::PieceId PieceText::BorderBefore(Edge edge) {
  if (edge.piece == kTail || edge.address == pieces_[edge.piece].begin) return edge.piece;
  return Split(edge.piece, edge.address);
}

/// Makes the pieces of a span, one behind the other: at each border that there ever was one begins.
void PieceText::MakePiecesOf(Span span) {
  for (TextAddress begin = span.begin; begin != span.end;) {
    const TextAddress end = std::min(starts_.Behind(begin), span.end);
    // A piece that stands in the text keeps its address until it is replaced.
    starts_.PutNew(begin, NewPiece(begin, end));
    begin = end;
  }
}

}  // namespace klepur::internal
