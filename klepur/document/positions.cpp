#include <klepur/document/positions.h>

#include <algorithm>

namespace klepur::internal {
namespace {

/// Up to here, stepping back to the start of a line takes less time than looking for it.
constexpr std::size_t kUsualLine = 1000;

}  // namespace

void Positions::Update(const PieceText& text) {
  if (!base_lines_) base_lines_.emplace(text.View({0, text.BaseSize()}));
  const std::size_t now = text.Touches();
  if (now - touches_ > PieceText::kTouches) {
    pieces_.clear();
  } else {
    for (; touches_ != now; ++touches_) ForgetFrom(text, text.Touched(touches_));
  }
  touches_ = now;
}

/// Behind a piece that was touched nothing is known any more, the beginning of that piece itself is.
void Positions::ForgetFrom(const PieceText& text, PieceText::PieceId piece) {
  if (piece != PieceText::kHead && !text.Stands(piece)) return;
  while (piece != PieceText::kHead && PlaceOf(piece) == kNoPlace) {
    if (pieces_.empty()) return;
    piece = text.Previous(piece);
  }
  pieces_.resize(piece == PieceText::kHead ? 0 : PlaceOf(piece) + 1);
}

std::uint32_t Positions::PlaceOf(PieceText::PieceId piece) const {
  if (piece >= place_.size()) return kNoPlace;
  const std::uint32_t place = place_[piece];
  return place < pieces_.size() && pieces_[place].piece == piece ? place : kNoPlace;
}

/// Gets to know one piece more; false when all are known.
bool Positions::Extend(const PieceText& text) {
  PieceBegin next = {PieceText::kHead, 0, 0, 0};
  if (!pieces_.empty()) {
    const PieceBegin& last = pieces_.back();
    if (last.piece == PieceText::kTail) return false;
    const Span span = text.SpanOf(last.piece);
    next = {last.piece, 0, last.offset + (span.end - span.begin),
            last.lines + LineEndsIn(text, span.begin, span.end)};
  }
  next.piece = text.Next(next.piece);
  next.begin = text.SpanOf(next.piece).begin;
  if (next.piece >= place_.size()) place_.resize(2 * std::size_t{next.piece} + 2, kNoPlace);
  place_[next.piece] = static_cast<std::uint32_t>(pieces_.size());
  pieces_.push_back(next);
  return true;
}

std::size_t Positions::OffsetOf(const PieceText& text, PieceText::Edge edge) {
  const PieceBegin& piece = Find(text, edge.piece);
  return piece.offset + (edge.address - piece.begin);
}

Position Positions::Of(const PieceText& text, PieceText::Edge edge) {
  const PieceBegin& piece = Find(text, edge.piece);
  const std::size_t before = piece.lines + LineEndsIn(text, piece.begin, edge.address);
  std::size_t column = 1;
  for (PieceText::Edge at = edge; text.Back(at) && text.ByteAt(at) != '\n';) {
    if (++column < kUsualLine) continue;
    return {before + 1, OffsetOf(text, edge) - OffsetOf(text, LineBegin(text, before + 1)) + 1};
  }
  return {before + 1, column};
}

bool Positions::HasLine(const PieceText& text, std::size_t line) {
  while (pieces_.empty() || pieces_.back().lines + 1 < line) {
    if (!Extend(text)) return false;
  }
  return line != 0;
}

PieceText::Edge Positions::LineBegin(const PieceText& text, std::size_t line) {
  if (line <= 1) return text.Start();
  HasLine(text, line);
  // The piece that holds the line end before the line.
  const auto behind =
      std::partition_point(pieces_.begin(), pieces_.end(),
                           [line](const PieceBegin& piece) { return piece.lines < line - 1; });
  const PieceBegin& piece = behind[-1];
  const std::size_t ends = line - 1 - piece.lines;
  TextAddress at = 0;
  if (piece.begin < text.BaseSize()) {
    const std::size_t before = base_lines_->NewlinesBefore(piece.begin);
    at = static_cast<TextAddress>(base_lines_->OffsetOfLine(before + ends));
  } else {
    at = piece.begin;
    for (std::size_t seen = 0; seen < ends; ++at) seen += *text.Bytes(at) == '\n' ? 1U : 0U;
  }
  return text.Behind(at);
}

const Positions::PieceBegin& Positions::Find(const PieceText& text, PieceText::PieceId piece) {
  while (PlaceOf(piece) == kNoPlace && Extend(text)) {
  }
  const std::uint32_t place = PlaceOf(piece);
  return place == kNoPlace ? pieces_.back() : pieces_[place];
}

std::size_t Positions::LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const {
  if (to <= text.BaseSize()) return base_lines_->NewlinesIn(from, to);
  return CountLineEnds(text.View({from, to}));
}

}  // namespace klepur::internal
