#include <klepur/document/positions.h>

#include <algorithm>

namespace klepur::internal {
namespace {

/// Up to here, stepping back to the start of a line takes less time than looking for it.
constexpr std::size_t kUsualLine = 1000;

}  // namespace

void Positions::Update(const PieceText& text, std::size_t edits) {
  if (edits_ == edits) return;
  if (!base_lines_) base_lines_.emplace(text.View({0, text.BaseSize()}));
  pieces_.clear();
  place_.clear();
  size_ = 0;
  lines_ = 0;
  text.ForEachPiece([&](PieceText::PieceId piece, Span span) {
    place_[piece] = pieces_.size();
    pieces_.push_back({piece, span.begin, size_, lines_});
    size_ += span.end - span.begin;
    lines_ += LineEndsIn(text, span.begin, span.end);
  });
  edits_ = edits;
}

std::size_t Positions::OffsetOf(PieceText::Edge edge) const {
  const PieceBegin* const piece = Find(edge.piece);
  return piece == nullptr ? size_ : piece->offset + (edge.address - piece->begin);
}

Position Positions::Of(const PieceText& text, PieceText::Edge edge) const {
  const PieceBegin* const piece = Find(edge.piece);
  const std::size_t before =
      piece == nullptr ? lines_ : piece->lines + LineEndsIn(text, piece->begin, edge.address);
  std::size_t column = 1;
  for (PieceText::Edge at = edge; text.Back(at) && text.ByteAt(at) != '\n';) {
    if (++column < kUsualLine) continue;
    return {before + 1, OffsetOf(edge) - OffsetOf(LineBegin(text, before + 1)) + 1};
  }
  return {before + 1, column};
}

PieceText::Edge Positions::LineBegin(const PieceText& text, std::size_t line) const {
  if (line <= 1 || pieces_.empty()) return text.Start();
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

const Positions::PieceBegin* Positions::Find(PieceText::PieceId piece) const {
  const auto place = place_.find(piece);
  return place == place_.end() ? nullptr : &pieces_[place->second];
}

std::size_t Positions::LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const {
  if (to <= text.BaseSize()) return base_lines_->NewlinesIn(from, to);
  return CountLineEnds(text.View({from, to}));
}

}  // namespace klepur::internal
