// Internal: which line of a text a place is on.
#ifndef KLEPUR_TEXT_LINE_COUNT_H
#define KLEPUR_TEXT_LINE_COUNT_H

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// How many LF there are in a text. Cost: linear.
std::size_t CountLineEnds(std::string_view text);

/// The same byte by byte: for machines without ByteBlock, and to compare.
std::size_t CountLineEndsPlainly(std::string_view text);

/// Counts the lines of a text that does not change.
///
/// A line ends with an LF; what stands behind the last one is a line too, if only an empty one.
/// Nothing is kept of each line: the first question counts all LF, by pieces of 32 KiB, and each
/// question then those of one piece. Safe to ask from several threads at once.
class LineCount {
 public:
  /// \param text  which must live as long as this.
  explicit LineCount(std::string_view text) : text_(text) {}
  LineCount(const LineCount&) = delete;
  LineCount& operator=(const LineCount&) = delete;

  /// How many LF stand before this offset, at most the text's size: 0 in the first line.
  ///
  /// Throws std::bad_alloc, as do the others, if there is no memory for the counts; the next
  /// question then tries again.
  std::size_t NewlinesBefore(std::size_t offset) const;

  /// How many LF stand in [from, to), where from <= to, and both are at most the text's size.
  std::size_t NewlinesIn(std::size_t from, std::size_t to) const;

  /// Where the line begins that has this many lines before it; the text's size if there is none.
  std::size_t OffsetOfLine(std::size_t linesBefore) const;

 private:
  static constexpr std::size_t kPiece = std::size_t{32} << 10;

  const std::vector<std::uint32_t>& Counts() const;
  std::size_t CountIn(std::size_t from, std::size_t to) const;

  std::string_view text_;
  // No call_once: the thread sanitizer waits forever for one that threw.
  mutable std::mutex counting_;
  mutable std::vector<std::uint32_t> counts_;  // of LF before each piece; empty until asked for
};

}  // namespace klepur::internal

#endif
