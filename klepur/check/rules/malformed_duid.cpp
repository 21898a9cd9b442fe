// The server's own identifier: LL, LLT, EN, or a number and a text.
#include <klepur/check/value_reader.h>

#include <optional>
#include <string>

namespace klepur::internal {
namespace {

constexpr std::string_view kForms =
    "the identifier of the server is \"LL\" or \"LLT\", alone or with a kind of hardware and its "
    "address, or "
    "\"EN\" with a number and a text, or these two alone";

bool IsDecimal(const std::optional<ValueWord>& word) {
  return word && word->kind == ValueWord::kPlain && IsDecimalNumber(word->text);
}

bool IsHardwareKind(const std::optional<ValueWord>& word) {
  return word && (SameKeyword(word->text, "ethernet") || SameKeyword(word->text, "token-ring") ||
                  SameKeyword(word->text, "fddi"));
}

bool TakeNumberAndText(ValueWords& words) {
  if (!IsDecimal(words.Next())) return false;
  const auto text = words.Next();
  return text && text->kind == ValueWord::kQuoted;
}

bool TakeHardware(ValueWords& words, bool with_time, ValueProblem& problem) {
  if (words.AtEnd()) return true;
  if (!IsHardwareKind(words.Next()) || (with_time && !IsDecimal(words.Next()))) return false;
  if (words.AtEnd() || words.Rest().front() == '"') return false;
  ReadData(words, {}, problem);
  return true;
}

}  // namespace

void ReadDuid(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const bool is_right = words.Skip("LLT")  ? TakeHardware(words, true, problem)
                        : words.Skip("LL") ? TakeHardware(words, false, problem)
                                           : (words.Skip("EN"), TakeNumberAndText(words));
  if (!is_right) problem = {"malformed-duid", value, std::string(kForms)};
}

}  // namespace klepur::internal
