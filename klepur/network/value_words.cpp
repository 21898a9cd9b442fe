#include <klepur/network/value_words.h>

#include <klepur/network/quoted_text.h>

#include <algorithm>
#include <cstddef>

namespace klepur::internal {
namespace {

constexpr bool IsBlankByte(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

constexpr bool EndsPlainWord(char c) {
  return IsBlankByte(c) || c == ',' || c == '"' || c == '#';
}

}  // namespace

bool IsValueBlank(char c) noexcept {
  return IsBlankByte(c);
}

std::string_view WithoutLeadingBlanks(std::string_view text) noexcept {
  for (;;) {
    text.remove_prefix(static_cast<std::size_t>(
        std::find_if_not(text.begin(), text.end(), IsBlankByte) - text.begin()));
    if (text.empty() || text.front() != '#') return text;
    text.remove_prefix(std::min(text.find('\n'), text.size()));
  }
}

char LowerCase(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameKeyword(std::string_view a, std::string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

std::optional<ValueWord> ValueWords::Next() noexcept {
  if (rest_.empty()) return std::nullopt;
  const ValueWord word = Front();
  Drop(word);
  return word;
}

std::optional<std::string_view> ValueWords::NextPlain() noexcept {
  if (rest_.empty()) return std::nullopt;
  const ValueWord word = Front();
  if (word.kind != ValueWord::kPlain) return std::nullopt;
  Drop(word);
  return word.text;
}

bool ValueWords::Skip(std::string_view keyword) noexcept {
  ValueWords ahead = *this;
  const std::optional<std::string_view> word = ahead.NextPlain();
  if (!word || !SameKeyword(*word, keyword)) return false;
  *this = ahead;
  return true;
}

ValueWord ValueWords::Front() const noexcept {
  if (rest_.front() == ',') return {ValueWord::kComma, rest_.substr(0, 1)};
  if (rest_.front() == '"') return {ValueWord::kQuoted, rest_.substr(0, QuotedLength(rest_))};
  return {ValueWord::kPlain,
          rest_.substr(
              0, static_cast<std::size_t>(std::find_if(rest_.begin(), rest_.end(), EndsPlainWord) -
                                          rest_.begin()))};
}

void ValueWords::Drop(const ValueWord& word) noexcept {
  rest_ = WithoutLeadingBlanks(rest_.substr(word.text.size()));
}

}  // namespace klepur::internal
