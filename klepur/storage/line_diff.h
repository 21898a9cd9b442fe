// Internal: which lines of two texts are not in the other one.
#ifndef KLEPUR_STORAGE_LINE_DIFF_H
#define KLEPUR_STORAGE_LINE_DIFF_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// A line with its "\n", if it has one.
struct Line {
  const char* begin;
  std::uint32_t size;
  std::uint32_t hash;

  std::string_view Text() const { return {begin, size}; }
  friend bool operator==(const Line& left, const Line& right) {
    return left.hash == right.hash && left.Text() == right.Text();
  }
};

std::vector<Line> LinesOf(std::string_view text);

/// Lines from `old_begin` on give way to lines from `new_begin` on.
struct LineChange {
  std::size_t old_begin;
  std::size_t old_end;
  std::size_t new_begin;
  std::size_t new_end;
};

/// What makes the old lines the new ones, in their order, with equal lines between any two changes.
///
/// The middle of the shortest way is looked for from both ends (Myers, in linear space), and the halves are
/// treated alike. Where that way is longer than some hundreds of lines, lines that stand once in each text hold
/// fast what is between them; where there are none, all lines are taken as changed.
std::vector<LineChange> ChangesBetween(const std::vector<Line>& old_lines,
                                       const std::vector<Line>& new_lines);

}  // namespace klepur::internal

#endif
