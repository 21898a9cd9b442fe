#include <klepur/check/near_word.h>

#include <klepur/language/words.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

constexpr std::size_t kLongestWord = 64;
constexpr std::string_view kOption = "option ";

std::vector<std::string_view> FirstWords() {
  std::vector<std::string_view> words = {"deny", "ignore"};
  for (const Word& word : Words()) {
    if (word.kind != WordKind::kOption)
      words.push_back(word.name.substr(0, word.name.find_first_of(" :")));
  }
  std::sort(words.begin(), words.end());
  words.erase(std::unique(words.begin(), words.end()), words.end());
  return words;
}

std::vector<std::string_view> OptionNames() {
  std::vector<std::string_view> names;
  for (const Word& word : Words()) {
    if (word.kind == WordKind::kOption) names.push_back(word.name.substr(kOption.size()));
  }
  return names;
}

}  // namespace

std::size_t LettersBetween(std::string_view one, std::string_view other, std::size_t most) {
  const std::size_t longer = std::max(one.size(), other.size());
  if (longer > kLongestWord || longer - std::min(one.size(), other.size()) > most) return most + 1;
  // Of the table of distances: two before, one before, this one.
  std::size_t rows[3][kLongestWord + 1] = {};
  for (std::size_t j = 0; j <= other.size(); ++j) rows[0][j] = j;
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t* const now = rows[i % 3];
    const std::size_t* const before = rows[(i + 2) % 3];
    const std::size_t* const twice_before = rows[(i + 1) % 3];
    now[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const char a = ToSmallLetter(one[i - 1]);
      const char b = ToSmallLetter(other[j - 1]);
      now[j] = std::min({before[j] + 1, now[j - 1] + 1, before[j - 1] + (a == b ? 0 : 1)});
      const bool swapped =
          i > 1 && j > 1 && a == ToSmallLetter(other[j - 2]) && ToSmallLetter(one[i - 2]) == b;
      if (swapped) now[j] = std::min(now[j], twice_before[j - 2] + 1);
    }
  }
  return std::min(rows[one.size() % 3][other.size()], most + 1);
}

std::string_view NearestOf(const std::vector<std::string_view>& words,
                           std::string_view misspelled) {
  std::size_t nearest = misspelled.size() < 6 ? 1 : 2;
  std::string_view found;
  for (const std::string_view word : words) {
    const std::size_t letters = LettersBetween(word, misspelled, nearest);
    if (letters > nearest) continue;
    const bool as_near = letters == nearest && !found.empty();
    found = as_near ? std::string_view() : word;
    nearest = letters;
  }
  return found;
}

std::string_view NearestKeyword(std::string_view misspelled) {
  static const std::vector<std::string_view> words = FirstWords();
  return NearestOf(words, misspelled);
}

std::string_view NearestOption(std::string_view misspelled) {
  static const std::vector<std::string_view> names = OptionNames();
  return NearestOf(names, misspelled);
}

}  // namespace klepur::internal
