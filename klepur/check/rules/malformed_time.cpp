// Times are numbers of seconds: without a unit, without a fraction.
#include <klepur/check/value_reader.h>

#include <klepur/network/decimal.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::pair<char, std::uint32_t> kUnits[] = {
    {'s', 1}, {'m', 60}, {'h', 3600}, {'d', 86400}, {'w', 604800}};

/// "7200" for "2h"; empty where there is no unit, or no number before it.
std::string InSeconds(std::string_view text) {
  constexpr unsigned kMost = 6000;  // the product still fits
  if (text.size() < 2) return {};
  const auto* const unit =
      std::find_if(std::begin(kUnits), std::end(kUnits),
                   [&](const auto& other) { return other.first == ToSmallLetter(text.back()); });
  const auto number = ParseDecimal(text.substr(0, text.size() - 1), kMost);
  return unit == std::end(kUnits) || !number ? std::string()
                                             : std::to_string(*number * unit->second);
}

}  // namespace

void ReadTime(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain &&
      (IsNumber(word.text) || SameKeyword(word.text, "infinite"))) {
    return;
  }
  problem = {"malformed-time", word.text,
             Excerpt(word.text) + " is no time: that is a number of " + std::string(type),
             type == "seconds" ? InSeconds(word.text) : std::string()};
}

}  // namespace klepur::internal
