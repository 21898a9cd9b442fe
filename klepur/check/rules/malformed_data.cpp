// Bytes are a text between quotes, or numbers in hexadecimal with colons between.
#include <klepur/check/value_reader.h>

#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool IsHexDigit(char byte) {
  const char small = ToSmallLetter(byte);
  return IsDigit(byte) || (small >= 'a' && small <= 'f');
}

bool AreHexBytes(std::string_view text) {
  for (;;) {
    const std::size_t colon = std::min(text.find(':'), text.size());
    if (!IsHexByte(text.substr(0, colon))) return false;
    if (colon == text.size()) return true;
    text.remove_prefix(colon + 1);
  }
}

}  // namespace

bool IsHexByte(std::string_view word) noexcept {
  if (!word.empty() && word.front() == '-') word.remove_prefix(1);
  if (word.empty() || !std::all_of(word.begin(), word.end(), IsHexDigit)) return false;
  while (word.size() > 2 && word.front() == '0') word.remove_prefix(1);
  return word.size() <= 2;
}

void ReadData(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord first = *words.Next();
  if (first.kind == ValueWord::kQuoted) return;
  std::string bytes(first.text);  // blanks may stand around the colons
  const auto goes_on = [&] {
    return !words.AtEnd() && (bytes.back() == ':' || words.Rest().front() == ':');
  };
  while (first.kind == ValueWord::kPlain && goes_on()) bytes += words.Next()->text;
  if (first.kind == ValueWord::kPlain && AreHexBytes(bytes)) return;
  problem = {
      "malformed-data", first.text,
      Excerpt(bytes) + " is neither a text between quotes nor bytes in hexadecimal, as 01:2f"};
}

}  // namespace klepur::internal
