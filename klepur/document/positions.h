// Internal: lines and columns of the text as it is now.
#ifndef KLEPUR_DOCUMENT_POSITIONS_H
#define KLEPUR_DOCUMENT_POSITIONS_H

#include <cstddef>
#include <optional>
#include <vector>

#include <klepur/text/line_count.h>
#include <klepur/text/piece_order.h>
#include <klepur/text/piece_text.h>
#include <klepur/text/position.h>

namespace klepur::internal {

/// Worked out when first asked for, and kept up to the changes of the text. Cost: of the first question the number
/// of pieces of the text and counting its lines; of the others the logarithm of that number, for each piece that changed
/// too, and counting some thousand bytes.
class Positions {
 public:
  /// Makes the answers those of this text as it is now.
  void Update(const PieceText& text);

  std::size_t OffsetOf(const PieceText& text, PieceText::Edge edge) const;
  Position Of(const PieceText& text, PieceText::Edge edge) const;
  bool HasLine(std::size_t line) const { return line != 0 && line <= pieces_.All().lines + 1; }
  /// The border before the first byte of a line, counted from 1, that exists.
  PieceText::Edge LineBegin(const PieceText& text, std::size_t line) const;

 private:
  void Enter(const PieceText& text, PieceText::PieceId piece);
  void CountAdded(const PieceText& text);
  Extent Before(const PieceText& text, PieceText::Edge edge) const;
  std::size_t LineEndsIn(const PieceText& text, TextAddress from, TextAddress to) const;
  std::size_t LineEndsInAdded(const PieceText& text, TextAddress to) const;

  std::optional<LineCount> base_lines_;
  std::vector<std::size_t>
      added_lines_;  // the line ends before each block of the text that was added
  PieceOrder pieces_;
  bool made_ = false;
  std::size_t generation_ = 0;  // of the text
  std::size_t seen_ = 0;        // how many of its changes
};

}  // namespace klepur::internal

#endif
