#include <klepur/storage/unified_diff.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include <klepur/storage/line_diff.h>

namespace klepur {
namespace {

using internal::Line;
using internal::LineChange;

/// How much is compared at once where texts are equal for long.
constexpr std::size_t kStride = 4096;

std::size_t CommonFront(std::string_view left, std::string_view right) {
  const std::size_t most = std::min(left.size(), right.size());
  std::size_t size = 0;
  while (most - size >= kStride &&
         std::memcmp(left.data() + size, right.data() + size, kStride) == 0) {
    size += kStride;
  }
  while (size != most && left[size] == right[size]) ++size;
  return size;
}

std::size_t CommonBack(std::string_view left, std::string_view right) {
  const std::size_t most = std::min(left.size(), right.size());
  const char* const left_end = left.data() + left.size();
  const char* const right_end = right.data() + right.size();
  std::size_t size = 0;
  while (most - size >= kStride &&
         std::memcmp(left_end - size - kStride, right_end - size - kStride, kStride) == 0) {
    size += kStride;
  }
  while (size != most && left_end[-1 - static_cast<std::ptrdiff_t>(size)] ==
                             right_end[-1 - static_cast<std::ptrdiff_t>(size)]) {
    ++size;
  }
  return size;
}

/// The size of the front of a text without its last lines.
std::size_t WithoutLastLines(std::string_view front, std::size_t lines) {
  std::size_t size = front.size();
  for (; lines != 0 && size != 0; --lines) {
    size = size == 1 ? 0 : front.rfind('\n', size - 2) + 1;
  }
  return size;
}

/// The size of the first lines of a text.
std::size_t FirstLines(std::string_view text, std::size_t lines) {
  std::size_t size = 0;
  for (; lines != 0 && size != text.size(); --lines) {
    const std::size_t end = text.find('\n', size);
    size = end == std::string_view::npos ? text.size() : end + 1;
  }
  return size;
}

/// What is between the first and the last change, with the lines shown around it.
struct Middle {
  std::size_t lines_before = 0;
  std::vector<Line> old_lines;
  std::vector<Line> new_lines;
};

Middle MiddleOf(std::string_view old_text, std::string_view new_text, std::size_t context) {
  std::size_t front = CommonFront(old_text, new_text);
  while (front != 0 && old_text[front - 1] != '\n') --front;
  const std::size_t back = CommonBack(old_text.substr(front), new_text.substr(front));
  const std::string_view equal = old_text.substr(old_text.size() - back);
  // The first line of what is equal at the end may be the end of a longer one.
  const std::size_t whole = FirstLines(equal, 1);
  const std::size_t cut = back - whole - FirstLines(equal.substr(whole), context);
  front = WithoutLastLines(old_text.substr(0, front), context);
  Middle middle;
  middle.lines_before = static_cast<std::size_t>(
      std::count(old_text.begin(), old_text.begin() + static_cast<std::ptrdiff_t>(front), '\n'));
  middle.old_lines = internal::LinesOf(old_text.substr(front, old_text.size() - cut - front));
  middle.new_lines = internal::LinesOf(new_text.substr(front, new_text.size() - cut - front));
  return middle;
}

void AppendLines(std::string& diff, char mark, const std::vector<Line>& lines, std::size_t begin,
                 std::size_t end) {
  for (std::size_t i = begin; i != end; ++i) {
    const std::string_view line = lines[i].Text();
    diff += mark;
    diff += line;
    if (line.back() != '\n') diff += "\n\\ No newline at end of file\n";
  }
}

/// "3,7": the first line and how many; the line before them when there are none.
std::string Extent(std::size_t begin, std::size_t end) {
  const std::size_t first = begin == end ? begin : begin + 1;
  return std::to_string(first) + (end - begin == 1 ? "" : "," + std::to_string(end - begin));
}

/// Changes so close to each other that their surroundings meet, from one to before another.
using Changes = std::vector<LineChange>;

bool Touch(const LineChange& change, const LineChange& next, std::size_t context) {
  const std::size_t between = next.old_begin - change.old_end;
  return between <= context || between - context <= context;
}

void AppendHunk(std::string& diff, const Middle& middle, Changes::const_iterator first,
                Changes::const_iterator end, std::size_t context) {
  const LineChange& last = *(end - 1);
  const std::size_t before = std::min(context, first->old_begin);
  const std::size_t behind = std::min(context, middle.old_lines.size() - last.old_end);
  const std::size_t above = middle.lines_before;
  diff += "@@ -" + Extent(above + first->old_begin - before, above + last.old_end + behind) + " +" +
          Extent(above + first->new_begin - before, above + last.new_end + behind) + " @@\n";
  std::size_t at = first->old_begin - before;
  for (auto change = first; change != end; ++change) {
    AppendLines(diff, ' ', middle.old_lines, at, change->old_begin);
    AppendLines(diff, '-', middle.old_lines, change->old_begin, change->old_end);
    AppendLines(diff, '+', middle.new_lines, change->new_begin, change->new_end);
    at = change->old_end;
  }
  AppendLines(diff, ' ', middle.old_lines, at, at + behind);
}

}  // namespace

std::string UnifiedDiff(std::string_view old_text, std::string_view new_text,
                        const std::string& old_name, const std::string& new_name,
                        std::size_t context) {
  if (old_text == new_text) return {};
  const Middle middle = MiddleOf(old_text, new_text, context);
  const Changes changes = internal::ChangesBetween(middle.old_lines, middle.new_lines);
  std::string diff = "--- " + old_name + "\n+++ " + new_name + "\n";
  for (auto first = changes.begin(); first != changes.end();) {
    auto end = first + 1;
    while (end != changes.end() && Touch(*(end - 1), *end, context)) ++end;
    AppendHunk(diff, middle, first, end, context);
    first = end;
  }
  return diff;
}

}  // namespace klepur
