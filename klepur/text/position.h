// A line and a column.
#ifndef KLEPUR_TEXT_POSITION_H
#define KLEPUR_TEXT_POSITION_H

#include <cstddef>

namespace klepur {

/// A place in a text as people count it: line 1, column 1 is the first byte. Columns are counted in
/// bytes; a tab is one. {0, 0} is no place at all.
struct Position {
  std::size_t line = 0;
  std::size_t column = 0;

  friend bool operator==(const Position& left, const Position& right) {
    return left.line == right.line && left.column == right.column;
  }
  friend bool operator!=(const Position& left, const Position& right) { return !(left == right); }
  friend bool operator<(const Position& left, const Position& right) {
    return left.line != right.line ? left.line < right.line : left.column < right.column;
  }
};

}  // namespace klepur

#endif
