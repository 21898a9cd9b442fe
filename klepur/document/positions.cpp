#include <klepur/document/positions.h>

namespace klepur::internal {
namespace {

/// Up to here, stepping back to the start of a line takes less time than looking for it.
constexpr std::size_t kUsualLine = 1000;

/// How many bytes of what was added are counted for a question.
constexpr std::size_t kBlock = 4096;

}  // namespace

void Positions::Update(const PieceText& text) {
  if (!base_lines_) base_lines_.emplace(text.View({0, text.BaseSize()}));
  CountAdded(text);
  if (!made_ || generation_ != text.Generation()) {
    made_ = false;
    pieces_.Clear();
    text.ForEachPiece([&](PieceText::PieceId piece, Span) { Enter(text, piece); });
    generation_ = text.Generation();
    seen_ = text.Changed().size();
    made_ = true;
  }
  const std::size_t now = text.Changed().size();
  for (std::size_t i = seen_; i != now; ++i) {
    const PieceText::PieceId piece = text.Changed()[i];
    if (pieces_.Has(piece) && !text.Stands(piece)) pieces_.Erase(piece);
  }
  for (; seen_ != now; ++seen_) {
    const PieceText::PieceId piece = text.Changed()[seen_];
    if (text.Stands(piece)) Enter(text, piece);
  }
}

/// Enters a piece that stands in the text, and those before it that are not known either, or its size if it is known.
void Positions::Enter(const PieceText& text, PieceText::PieceId piece) {
  const auto extent = [&](PieceText::PieceId id) {
    const Span span = text.SpanOf(id);
    return Extent{span.end - span.begin, LineEndsIn(text, span.begin, span.end)};
  };
  if (pieces_.Has(piece)) return pieces_.Resize(piece, extent(piece));
  PieceText::PieceId known = text.Previous(piece);
  while (known != PieceText::kHead && !pieces_.Has(known)) known = text.Previous(known);
  for (PieceText::PieceId previous = known; previous != piece;) {
    const PieceText::PieceId id = text.Next(previous);
    pieces_.Insert(id, previous == PieceText::kHead ? PieceOrder::kNone : previous, extent(id));
    previous = id;
  }
}

void Positions::CountAdded(const PieceText& text) {
  if (added_lines_.empty()) added_lines_.push_back(0);
  const TextAddress base = text.BaseSize();
  const std::size_t blocks = (text.NextAddress() - base) / kBlock;
  while (added_lines_.size() <= blocks) {
    const auto begin = static_cast<TextAddress>(base + (added_lines_.size() - 1) * kBlock);
    const std::size_t lines = CountLineEnds(text.View({begin, begin + TextAddress{kBlock}}));
    added_lines_.push_back(added_lines_.back() + lines);
  }
}

Extent Positions::Before(const PieceText& text, PieceText::Edge edge) const {
  if (text.IsEnd(edge)) return pieces_.All();
  Extent before = pieces_.Before(edge.piece);
  const TextAddress begin = text.SpanOf(edge.piece).begin;
  before += {edge.address - begin, LineEndsIn(text, begin, edge.address)};
  return before;
}

std::size_t Positions::OffsetOf(const PieceText& text, PieceText::Edge edge) const {
  if (text.IsEnd(edge)) return pieces_.All().bytes;
  return pieces_.Before(edge.piece).bytes + (edge.address - text.SpanOf(edge.piece).begin);
}

Position Positions::Of(const PieceText& text, PieceText::Edge edge) const {
  const Extent before = Before(text, edge);
  std::size_t column = 1;
  for (PieceText::Edge at = edge; text.Back(at) && text.ByteAt(at) != '\n';) {
    if (++column < kUsualLine) continue;
    return {before.lines + 1, before.bytes - OffsetOf(text, LineBegin(text, before.lines + 1)) + 1};
  }
  return {before.lines + 1, column};
}

PieceText::Edge Positions::LineBegin(const PieceText& text, std::size_t line) const {
  if (line <= 1) return text.Start();
  const PieceText::PieceId piece = pieces_.WithLineEnd(line - 2);
  const TextAddress begin = text.SpanOf(piece).begin;
  const std::size_t ends = line - 1 - pieces_.Before(piece).lines;
  TextAddress at = begin;
  if (begin < text.BaseSize()) {
    const std::size_t before = base_lines_->NewlinesBefore(begin);
    at = static_cast<TextAddress>(base_lines_->OffsetOfLine(before + ends));
  } else {
    for (std::size_t seen = 0; seen < ends; ++at) seen += *text.Bytes(at) == '\n' ? 1U : 0U;
  }
  return text.Behind(at);
}

std::size_t Positions::LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const {
  if (to <= text.BaseSize()) return base_lines_->NewlinesIn(from, to);
  if (to - from <= kBlock) return CountLineEnds(text.View({from, to}));
  return LineEndsInAdded(text, to) - LineEndsInAdded(text, from);
}

/// The line ends before an address in the text that was added.
std::size_t Positions::LineEndsInAdded(const PieceText& text, TextAddress to) const {
  const std::size_t block = (to - text.BaseSize()) / kBlock;
  const auto begin = static_cast<TextAddress>(text.BaseSize() + block * kBlock);
  return added_lines_[block] + CountLineEnds(text.View({begin, to}));
}

}  // namespace klepur::internal
