// A flag is on or off, in one of the spellings that the server knows.
#include <klepur/check/value_reader.h>

#include <algorithm>
#include <array>

namespace klepur::internal {

void ReadFlag(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  constexpr std::array<std::string_view, 5> kFlags = {"on", "off", "true", "false", "ignore"};
  const ValueWord word = *words.Next();
  const bool is_flag = std::any_of(kFlags.begin(), kFlags.end(), [&](std::string_view flag) {
    return SameKeyword(word.text, flag);
  });
  if (is_flag) return;
  problem = {"malformed-flag", word.text,
             Excerpt(word.text) + " is no flag: that is on, off, true or false",
             SameKeyword(word.text, "yes")  ? "on"
             : SameKeyword(word.text, "no") ? "off"
                                            : ""};
}

}  // namespace klepur::internal
