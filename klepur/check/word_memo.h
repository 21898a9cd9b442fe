// Internal: what a check has to know of a word, looked up once for many statements in a row.
#ifndef KLEPUR_CHECK_WORD_MEMO_H
#define KLEPUR_CHECK_WORD_MEMO_H

#include <klepur/document/structure_words.h>
#include <klepur/language/word_index.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace klepur::internal {

/// Finds words by their bytes and remembers the last ones. The texts asked for must stay as long as it is
/// asked.
class WordMemo {
 public:
  struct First {
    std::string_view text;
    KnownFirstWord known;
    const StructureWord* structure = nullptr;
  };

  const First& Find(std::string_view word) {
    First& entry = first_[PlaceOf(word)];
    if (!IsSame(entry.text, word) || entry.structure == nullptr) {
      entry = {word, FindFirstWord(word), &WordOf(NumberOf(word))};
    }
    return entry;
  }

  const Word* Find(std::string_view first, std::string_view second) {
    Two& entry = two_[PlaceOf(second)];
    if (!IsSame(entry.second, second) || !IsSame(entry.first, first)) {
      entry = {first, second, FindTwoWords(first, second)};
    }
    return entry.word;
  }

 private:
  struct Two {
    std::string_view first;
    std::string_view second;
    const Word* word = nullptr;
  };
  static constexpr std::size_t kPlaces = 64;

  /// Whether two words have the same bytes. They are short: a call to compare them costs more.
  static bool IsSame(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    if (left.size() >= sizeof(std::uint64_t)) return IsSameBy<std::uint64_t>(left, right);
    if (left.size() >= sizeof(std::uint32_t)) return IsSameBy<std::uint32_t>(left, right);
    return left.empty() || IsSameBy<std::uint8_t>(left, right);
  }

  /// Of words of this size at least; the last step may overlap the one before.
  template <class Bytes>
  static bool IsSameBy(std::string_view left, std::string_view right) {
    const std::size_t last = left.size() - sizeof(Bytes);
    for (std::size_t at = 0;; at = std::min(at + sizeof(Bytes), last)) {
      Bytes a = 0;
      Bytes b = 0;
      std::memcpy(&a, left.data() + at, sizeof a);
      std::memcpy(&b, right.data() + at, sizeof b);
      if (a != b) return false;
      if (at == last) return true;
    }
  }

  static std::size_t PlaceOf(std::string_view word) {
    if (word.empty()) return 0;
    return (word.size() * 7 + std::size_t{static_cast<unsigned char>(word.front())} * 5 +
            std::size_t{static_cast<unsigned char>(word.back())} * 3) %
           kPlaces;
  }

  std::array<First, kPlaces> first_;
  std::array<Two, kPlaces> two_;
};

}  // namespace klepur::internal

#endif
