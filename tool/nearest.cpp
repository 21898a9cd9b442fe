#include <tool/nearest.h>

#include <algorithm>

namespace klepur::tool {

std::size_t LettersBetween(std::string_view left, std::string_view right) {
  // Rows of the table of distances between the beginnings of both; only the last three are needed.
  std::vector<std::size_t> before_last;
  std::vector<std::size_t> last;
  std::vector<std::size_t> row(right.size() + 1);
  for (std::size_t column = 0; column < row.size(); ++column) row[column] = column;
  for (std::size_t i = 1; i <= left.size(); ++i) {
    before_last = std::move(last);
    last = std::move(row);
    row.assign(right.size() + 1, i);
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const bool same = left[i - 1] == right[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0 : 1)});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
        row[j] = std::min(row[j], before_last[j - 2] + 1);
      }
    }
  }
  return row[right.size()];
}

bool IsSlipOf(std::string_view typed, std::string_view word) {
  const std::size_t longer = std::max(typed.size(), word.size());
  const std::size_t shorter = std::min(typed.size(), word.size());
  const std::size_t allowed = std::max<std::size_t>(1, std::min<std::size_t>(3, longer / 3));
  return longer - shorter <= allowed && LettersBetween(typed, word) <= allowed;
}

std::string Nearest(std::string_view typed, const std::vector<std::string>& words) {
  const std::string* nearest = nullptr;
  std::size_t least = 0;
  for (const std::string& word : words) {
    const bool begins = typed.size() >= 2 && word.compare(0, typed.size(), typed) == 0;
    if (!begins && !IsSlipOf(typed, word)) continue;
    const std::size_t distance = begins ? 0 : LettersBetween(typed, word);
    if (nearest == nullptr || distance < least) {
      nearest = &word;
      least = distance;
    }
  }
  return nearest == nullptr ? std::string() : *nearest;
}

}  // namespace klepur::tool
