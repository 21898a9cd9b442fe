// Times are numbers of seconds: without a unit, without a fraction.
#include <klepur/check/value_reader.h>

namespace klepur::internal {

void ReadTime(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain &&
      (IsNumber(word.text) || SameKeyword(word.text, "infinite"))) {
    return;
  }
  problem = {"malformed-time", word.text,
             Excerpt(word.text) + " is no time: that is a number of " + std::string(type)};
}

}  // namespace klepur::internal
