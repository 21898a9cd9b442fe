#include <klepur/check/statement_value.h>

#include <klepur/document/words_of_text.h>
#include <klepur/network/value_words.h>

namespace klepur::internal {

std::string_view WithoutSemicolon(std::string_view statement) {
  if (!statement.empty() && statement.back() == ';') statement.remove_suffix(1);
  return statement;
}

std::string_view ValueBehind(int words, std::string_view statement) {
  WordsOfText all(WithoutSemicolon(statement));
  for (; words != 0; --words) all.Next();
  return all.Rest();
}

std::string_view Trimmed(std::string_view value) {
  if (value.find('#') == std::string_view::npos) {
    while (!value.empty() && IsValueBlank(value.front())) value.remove_prefix(1);
    while (!value.empty() && IsValueBlank(value.back())) value.remove_suffix(1);
    return value;
  }
  return UpToLastWord(WithoutLeadingBlanks(value));
}

}  // namespace klepur::internal
