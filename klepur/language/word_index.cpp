#include <klepur/language/word_index.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include <klepur/language/word_rows.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

/// The first word of a name, and the second one if it has any.
struct KeyWords {
  std::string_view first;
  std::string_view second;
};

KeyWords KeyWordsOf(std::string_view name) {
  const std::size_t blank = std::min(name.find(' '), name.size());
  const std::string_view rest = name.substr(std::min(blank + 1, name.size()));
  return {name.substr(0, blank), rest.substr(0, std::min(rest.find(' '), rest.size()))};
}

std::string_view Canonical(std::string_view first) {
  const bool permits = EqualButForCase(first, "deny") || EqualButForCase(first, "ignore");
  return permits ? "allow" : first;
}

std::uint32_t Hash(std::uint32_t hash, std::string_view word) {
  for (const char byte : word) {
    hash = (hash ^ static_cast<unsigned char>(ToSmallLetter(byte))) * 16777619U;
  }
  return (hash ^ ' ') * 16777619U;
}

constexpr std::uint32_t kNoWords = 2166136261U;
constexpr std::uint16_t kNone = 0xFFFF;

/// Whether a name is a pattern with a place for something else.
bool IsPattern(std::string_view name) {
  return name.find("NAME") != std::string_view::npos;
}

class Index {
 public:
  Index() noexcept {
    twins_.fill(kNone);
    for (std::size_t row = 0; row != kWordCount; ++row) {
      if (!IsPattern(kWordRows[row].name)) Enter(static_cast<std::uint16_t>(row));
    }
  }

  KnownFirstWord First(std::string_view first) const {
    const Slot& slot = slots_[Find(Hash(kNoWords, first), {first, {}})];
    return {slot.row == kNone ? nullptr : kWordRows + slot.row, slot.goes_on};
  }

  const Word* Two(std::string_view first, std::string_view second) const {
    const Slot& slot = slots_[Find(Hash(Hash(kNoWords, first), second), {first, second})];
    return slot.row == kNone ? nullptr : kWordRows + slot.row;
  }

  const Word* Twin(const Word* word) const {
    const std::uint16_t next = twins_[static_cast<std::size_t>(word - kWordRows)];
    return next == kNone ? nullptr : kWordRows + next;
  }

 private:
  struct Slot {
    std::string_view first;  // empty for a free slot
    std::string_view second;
    std::uint16_t row = kNone;
    bool goes_on = false;
  };
  static constexpr std::size_t kSlots = 2048;

  std::size_t Find(std::uint32_t hash, KeyWords words) const {
    std::size_t at = (hash >> 8U) % kSlots;
    while (!slots_[at].first.empty() && !(EqualButForCase(slots_[at].first, words.first) &&
                                          EqualButForCase(slots_[at].second, words.second))) {
      at = (at + 1) % kSlots;
    }
    return at;
  }

  Slot& Take(std::uint32_t hash, KeyWords words) {
    Slot& slot = slots_[Find(hash, words)];
    slot.first = words.first;
    slot.second = words.second;
    return slot;
  }

  void Enter(std::uint16_t row) {
    const KeyWords words = KeyWordsOf(kWordRows[row].name);
    const std::uint32_t hash = Hash(kNoWords, words.first);
    if (!words.second.empty()) Take(hash, {words.first, {}}).goes_on = true;
    Slot& slot = words.second.empty() ? Take(hash, words) : Take(Hash(hash, words.second), words);
    if (slot.row == kNone) {
      slot.row = row;
      return;
    }
    std::uint16_t last = slot.row;
    while (twins_[last] != kNone) last = twins_[last];
    twins_[last] = row;
  }

  std::array<Slot, kSlots> slots_ = {};
  std::array<std::uint16_t, kSlots> twins_ = {};  // by row: the next one of the same words
};

const Index& TheIndex() noexcept {
  static const Index index;
  return index;
}

}  // namespace

KnownFirstWord FindFirstWord(std::string_view first) noexcept {
  if (first.empty()) return {};
  return TheIndex().First(Canonical(first));
}

const Word* FindTwoWords(std::string_view first, std::string_view second) noexcept {
  if (first.empty() || second.empty()) return nullptr;
  const Word* const found = TheIndex().Two(Canonical(first), second);
  if (found != nullptr) return found;
  if (EqualButForCase(second, "known")) return TheIndex().Two(Canonical(first), "known-clients");
  if (EqualButForCase(second, "unknown")) {
    return TheIndex().Two(Canonical(first), "unknown-clients");
  }
  return nullptr;
}

const Word* AmongTwins(const Word* word, Scopes scopes) noexcept {
  for (const Word* twin = word; twin != nullptr; twin = TheIndex().Twin(twin)) {
    if (((twin->scopes4 | twin->scopes6) & scopes) != 0) return twin;
  }
  return word;
}

const Word* FindWord(std::string_view keyword, Scopes scopes) noexcept {
  const KeyWords words = KeyWordsOf(keyword);
  const Word* word = FindTwoWords(words.first, words.second);
  if (word == nullptr && (words.second.empty() || EqualButForCase(words.first, "match"))) {
    word = FindFirstWord(words.first).alone;
  }
  return AmongTwins(word, scopes);
}

}  // namespace klepur::internal
