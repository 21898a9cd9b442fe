// Internal: lines and columns of the text as it is now.
#ifndef KLEPUR_DOCUMENT_POSITIONS_H
#define KLEPUR_DOCUMENT_POSITIONS_H

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include <klepur/text/line_count.h>
#include <klepur/text/piece_text.h>
#include <klepur/text/position.h>

namespace klepur::internal {

/// Worked out when first asked for, and anew after edits. Cost: linear in the number of edits then, and
/// otherwise that of finding a piece of the text and counting some thousand bytes.
class Positions {
 public:
  /// Makes the answers those of this text after so many edits.
  void Update(const PieceText& text, std::size_t edits);

  std::size_t OffsetOf(PieceText::Edge edge) const;
  Position Of(const PieceText& text, PieceText::Edge edge) const;
  std::size_t Lines() const { return lines_ + 1; }
  /// The border before the first byte of a line, counted from 1, that exists.
  PieceText::Edge LineBegin(const PieceText& text, std::size_t line) const;

 private:
  struct PieceBegin {
    PieceText::PieceId piece;
    TextAddress begin;
    std::size_t offset;
    std::size_t lines;  ///< Line ends before it.
  };
  const PieceBegin* Find(PieceText::PieceId piece) const;
  std::size_t LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const;

  std::optional<LineCount> base_lines_;
  std::vector<PieceBegin> pieces_;
  std::unordered_map<PieceText::PieceId, std::size_t> place_;
  std::size_t edits_ = static_cast<std::size_t>(-1);
  std::size_t size_ = 0;
  std::size_t lines_ = 0;
};

}  // namespace klepur::internal

#endif
