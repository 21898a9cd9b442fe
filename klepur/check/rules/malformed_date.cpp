// Dates of leases and permits: the day of the week as a number, then 2030/01/31 23:59:59; seconds since 1970; or never.
#include <klepur/check/expression_reader.h>

#include <klepur/text/letters.h>

#include <algorithm>
#include <string>

namespace klepur::internal {
namespace {

bool TakeNumber(std::string_view& text) {
  return IsDecimalNumber(TakeToken(text));
}

/// A letter of the form stands for a number, any other byte for itself.
bool TakeForm(std::string_view& text, std::string_view form) {
  return std::all_of(form.begin(), form.end(), [&](char byte) {
    return IsLetter(byte) ? TakeNumber(text) : TakeToken(text) == std::string_view(&byte, 1);
  });
}

}  // namespace

void ReadDate(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  std::string_view text = value;
  bool is_date = true;
  if (EqualButForCase(FrontToken(text), "never")) {
    TakeToken(text);
  } else if (EqualButForCase(FrontToken(text), "epoch")) {
    TakeToken(text);
    is_date = TakeNumber(text);
  } else {
    is_date = TakeForm(text, "wy/m/dh:m:s");
    if (IsDecimalNumber(FrontToken(text))) TakeToken(text);  // the offset of the time zone
  }
  if (!is_date || !text.empty()) {
    problem = {
        "malformed-date", value,
        Excerpt(value) + " is no date, as 6 2030/08/31 23:59:59: the day of the week comes first"};
  }
  words = ValueWords(text.substr(text.size()));
}

}  // namespace klepur::internal
