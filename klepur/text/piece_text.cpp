#include <klepur/text/piece_text.h>

#include <iterator>
#include <limits>
#include <utility>

#include <klepur/text/error.h>

namespace klepur::internal {

PieceText::PieceText(TextBuffer base) : base_(std::move(base)) {
  pieces_.push_back({0, 0, kHead, kTail, true});
  pieces_.push_back({0, 0, kHead, kTail, true});
  if (base_.size() != 0) {
    const PieceId whole = NewPiece(0, BaseSize())->second;
    pieces_[whole].stands = true;
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

void PieceText::Replace(Edge from, Edge to, const std::vector<Span>& spans) {
  const bool within = from.piece != kTail && from.address != pieces_[from.piece].begin;
  Touch(within ? from.piece : pieces_[from.piece].previous);
  std::vector<NewOne> added;
  for (const Span& span : spans) AppendPiecesOf(span, added);
  const bool empty = from == to;
  const PieceId right = BorderBefore(to);
  const PieceId first = empty ? right : BorderBefore(from);
  log_.push_back({right, first, pieces_[right].previous, kTail});
  // Nothing can fail from here on.
  Change& change = log_.back();
  PieceId last = pieces_[first].previous;
  if (empty) change.old_first = change.old_last = kTail;
  for (PieceId piece = first; piece != right; piece = pieces_[piece].next) {
    pieces_[piece].stands = false;
  }
  for (const NewOne& piece : added) {
    piece.place->second = piece.id;
    pieces_[piece.id].stands = true;
    Link(last, piece.id);
    last = piece.id;
  }
  Link(last, right);
  if (!added.empty()) change.new_first = added.front().id;
}

void PieceText::RollBack(std::size_t mark) noexcept {
  for (; log_.size() > mark; log_.pop_back()) TakeBack(log_.back());
}

void PieceText::TakeBack(const Change& change) noexcept {
  // A piece that was split since keeps its beginning, so the one on the left is asked for, not remembered.
  const PieceId after = change.new_first == kTail ? change.right : change.new_first;
  const PieceId left = pieces_[after].previous;
  Touch(left);
  for (PieceId id = after; id != change.right; id = pieces_[id].next) pieces_[id].stands = false;
  if (change.old_first == kTail) {
    Link(left, change.right);
    return;
  }
  Link(left, change.old_first);
  Link(change.old_last, change.right);
  for (PieceId id = change.old_first;; id = pieces_[id].next) {
    at_.find(pieces_[id].begin)->second = id;
    pieces_[id].stands = true;
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
  auto place = std::prev(at_.upper_bound(byte));
  while (!pieces_[place->second].stands) --place;
  return place->second;
}

PieceText::Beginnings::iterator PieceText::NewPiece(TextAddress begin, TextAddress end) {
  pieces_.push_back({begin, end, kHead, kTail, false});
  const auto id = static_cast<PieceId>(pieces_.size() - 1);
  // One that stands in the text keeps the place until it is replaced.
  const bool behind_all = at_.empty() || at_.rbegin()->first < begin;
  return behind_all ? at_.emplace_hint(at_.end(), begin, id) : at_.emplace(begin, id).first;
}

PieceText::PieceId PieceText::Split(PieceId piece, TextAddress at) {
  const auto place = NewPiece(at, pieces_[piece].end);
  const auto rest = static_cast<PieceId>(pieces_.size() - 1);
  place->second = rest;
  pieces_[rest].stands = true;
  Link(rest, pieces_[piece].next);
  Link(piece, rest);
  pieces_[piece].end = at;
  return rest;
}

PieceText::PieceId PieceText::BorderBefore(Edge edge) {
  if (edge.piece == kTail || edge.address == pieces_[edge.piece].begin) return edge.piece;
  return Split(edge.piece, edge.address);
}

void PieceText::AppendPiecesOf(Span span, std::vector<NewOne>& pieces) {
  if (span.begin == span.end) return;
  const auto append = [&](TextAddress begin, TextAddress end) {
    const auto place = NewPiece(begin, end);
    pieces.push_back({static_cast<PieceId>(pieces_.size() - 1), place});
  };
  TextAddress begin = span.begin;
  const bool behind_all = at_.empty() || at_.rbegin()->first < begin;
  auto border = behind_all ? at_.end() : at_.upper_bound(begin);
  while (border != at_.end() && border->first < span.end) {
    const TextAddress at = border->first;
    ++border;
    append(begin, at);
    begin = at;
  }
  append(begin, span.end);
}

}  // namespace klepur::internal
