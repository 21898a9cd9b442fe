// Texts stand between quotes, or are one word.
#include <klepur/check/value_reader.h>

#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool IsWord(std::string_view text) {
  return (IsLetter(text.front()) || text.front() == '-') &&
         std::all_of(text.begin(), text.end(), IsWordByte);
}

}  // namespace

void ReadText(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kQuoted) return;
  if (word.kind == ValueWord::kPlain && IsWord(word.text)) return;
  problem = {"malformed-text", word.text,
             Excerpt(word.text) + " is no text: quotes around it are missing"};
}

void ReadQuotedText(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kQuoted) return;
  problem = {"malformed-text", word.text, "quotes are missing around " + Excerpt(word.text)};
}

void ReadDomainName(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain) return;
  problem = {"malformed-text", word.text, Excerpt(word.text) + " stands without quotes here"};
}

void ReadDomain(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind != ValueWord::kQuoted) {
    problem = {"malformed-text", word.text,
               Excerpt(word.text) + " is no domain of a list: quotes around it are missing"};
    return;
  }
  if (word.text.find("..") == std::string_view::npos) return;
  problem = {"malformed-text", word.text, Excerpt(word.text) + " has nothing between two dots"};
}

}  // namespace klepur::internal
