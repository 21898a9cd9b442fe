// Internal: the words that a statement's value is made of.
#ifndef KLEPUR_NETWORK_VALUE_WORDS_H
#define KLEPUR_NETWORK_VALUE_WORDS_H

#include <optional>
#include <string_view>

namespace klepur::internal {

struct ValueWord {
  enum Kind { kPlain, kQuoted, kComma };
  Kind kind;
  /// A piece of the value: "10.0.0.1", "\"a b\"" with its quotes, ",". A quoted word that nothing
  /// closes goes to the end of the value.
  std::string_view text;
};

/// True for what stands between words: blank, tab, line end, vertical tab, form feed.
bool IsValueBlank(char c) noexcept;

/// What is left of the text without the blanks and comments ("# to the line end") at its beginning.
std::string_view WithoutLeadingBlanks(std::string_view text) noexcept;

/// The same letter in lower case, if it is an ASCII one.
char LowerCase(char c) noexcept;

/// True when both are the same but for the case of ASCII letters.
bool SameKeyword(std::string_view a, std::string_view b) noexcept;

/// Cuts a value into words, over its lines and without its comments:
///
///     10.0.0.1, "a b"  # and more     gives     10.0.0.1   ,   "a b"
///
/// A copy is a second walk from the same place; the value must outlive both.
class ValueWords {
 public:
  explicit ValueWords(std::string_view value) noexcept : rest_(WithoutLeadingBlanks(value)) {}

  bool AtEnd() const noexcept { return rest_.empty(); }
  /// What has not been taken, from the beginning of a word on.
  std::string_view Rest() const noexcept { return rest_; }

  /// Takes the next word; nothing at the end.
  std::optional<ValueWord> Next() noexcept;

  /// Takes the next word if it is a plain one; otherwise gives nothing and stays.
  std::optional<std::string_view> NextPlain() noexcept;

  /// Takes the next word and says true if it is this keyword, in any letter case; otherwise stays.
  bool Skip(std::string_view keyword) noexcept;

 private:
  ValueWord Front() const noexcept;
  void Drop(const ValueWord& word) noexcept;

  std::string_view rest_;
};

}  // namespace klepur::internal

#endif
