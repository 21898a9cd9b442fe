// A count, port, percentage or other number that is none, or is too large for where it goes.
#include <klepur/check/value_reader.h>

#include <klepur/text/letters.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace klepur::internal {
namespace {

struct Limit {
  std::string_view type;
  std::uint64_t most;
};

constexpr Limit kLimits[] = {
    {"uint8", 0xFF}, {"uint16", 0xFFFF}, {"port", 0xFFFF}, {"percentage", 0xFF}};

bool IsHexDigit(char byte) {
  const char small = ToSmallLetter(byte);
  return IsDigit(byte) || (small >= 'a' && small <= 'f');
}

bool IsOctalDigit(char byte) {
  return byte >= '0' && byte <= '7';
}

/// The digits of a number and what they count in.
std::pair<std::string_view, unsigned> DigitsOf(std::string_view word) {
  if (!word.empty() && word.front() == '-') word.remove_prefix(1);
  if (word.size() > 2 && word[0] == '0' && ToSmallLetter(word[1]) == 'x')
    return {word.substr(2), 16};
  if (word.size() > 1 && word[0] == '0') return {word, 8};
  return {word, 10};
}

/// The largest number for one that is larger.
std::uint64_t ValueOf(std::string_view digits, unsigned base) {
  std::uint64_t value = 0;
  for (const char digit : digits) {
    const unsigned number = IsDigit(digit) ? static_cast<unsigned>(digit - '0')
                                           : static_cast<unsigned>(ToSmallLetter(digit) - 'a' + 10);
    if (value > (UINT64_MAX - number) / base) return UINT64_MAX;
    value = value * base + number;
  }
  return value;
}

}  // namespace

bool IsNumber(std::string_view word) noexcept {
  const auto [digits, base] = DigitsOf(word);
  const auto is_digit = base == 16 ? IsHexDigit : base == 8 ? IsOctalDigit : IsDigit;
  return !digits.empty() && std::all_of(digits.begin(), digits.end(), is_digit);
}

bool IsDecimalNumber(std::string_view word) noexcept {
  if (!word.empty() && word.front() == '-') word.remove_prefix(1);
  return !word.empty() && std::all_of(word.begin(), word.end(), IsDigit);
}

void ReadNumber(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind != ValueWord::kPlain || !IsNumber(word.text)) {
    problem = {"malformed-number", word.text, Excerpt(word.text) + " is no number"};
    return;
  }
  const auto* const limit = std::find_if(std::begin(kLimits), std::end(kLimits),
                                         [&](const Limit& other) { return other.type == type; });
  if (limit == std::end(kLimits) || word.text.front() == '-') return;
  const auto [digits, base] = DigitsOf(word.text);
  if (ValueOf(digits, base) <= limit->most) return;
  problem = {"malformed-number", word.text,
             std::string(word.text) + " is more than " + std::to_string(limit->most) +
                 ", the most that fits"};
}

}  // namespace klepur::internal
