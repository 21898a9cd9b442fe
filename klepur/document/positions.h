// Internal: lines and columns of the text as it is now.
#ifndef KLEPUR_DOCUMENT_POSITIONS_H
#define KLEPUR_DOCUMENT_POSITIONS_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <klepur/text/line_count.h>
#include <klepur/text/piece_text.h>
#include <klepur/text/position.h>

namespace klepur::internal {

/// Worked out when first asked for, as far as the question needs, and kept up to where the text changed since. Cost:
/// that of finding a piece of the text and counting some thousand bytes, and after edits the number of pieces
/// between the foremost one and the place that is asked for.
class Positions {
 public:
  /// Makes the answers those of this text as it is now.
  void Update(const PieceText& text);

  std::size_t OffsetOf(const PieceText& text, PieceText::Edge edge);
  Position Of(const PieceText& text, PieceText::Edge edge);
  bool HasLine(const PieceText& text, std::size_t line);
  /// The border before the first byte of a line, counted from 1, that exists.
  PieceText::Edge LineBegin(const PieceText& text, std::size_t line);

 private:
  static constexpr std::uint32_t kNoPlace = 0xFFFFFFFF;
  struct PieceBegin {
    PieceText::PieceId piece;
    TextAddress begin;
    std::size_t offset;
    std::size_t lines;  ///< Line ends before it.
  };
  std::uint32_t PlaceOf(PieceText::PieceId piece) const;
  void ForgetFrom(const PieceText& text, PieceText::PieceId piece);
  bool Extend(const PieceText& text);
  const PieceBegin& Find(const PieceText& text, PieceText::PieceId piece);
  std::size_t LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const;

  std::optional<LineCount> base_lines_;
  std::vector<PieceBegin> pieces_;    // the first ones of the text, and when all are known, its end
  std::vector<std::uint32_t> place_;  // of a piece in pieces_, if that is still there
  std::size_t touches_ = 0;
};

}  // namespace klepur::internal

#endif
