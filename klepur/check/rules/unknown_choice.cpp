// A value that is none of those that there are.
#include <klepur/check/value_reader.h>

#include <algorithm>

namespace klepur::internal {
namespace {

/// Choices that the server knows by keywords, which may be written in any case.
constexpr std::string_view kOfKeywords[] = {"default|local", "octal|hex",
                                            "commit|release|expiry|transmission"};

bool IsSame(std::string_view word, std::string_view choice, std::string_view type) {
  const bool any_case =
      std::find(std::begin(kOfKeywords), std::end(kOfKeywords), type) != std::end(kOfKeywords);
  return any_case ? SameKeyword(word, choice) : word == choice;
}

/// "none, interim or standard" for "none|interim|standard".
std::string InWords(std::string_view choices) {
  std::string text;
  for (const char byte : choices) {
    if (byte == '|') {
      text += ", ";
    } else {
      text += byte;
    }
  }
  const std::size_t last = text.rfind(", ");
  return last == std::string::npos ? text : text.replace(last, 2, " or ");
}

}  // namespace

void ReadChoice(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  std::string_view rest = type;
  while (!rest.empty()) {
    const std::size_t bar = std::min(rest.find('|'), rest.size());
    if (word.kind == ValueWord::kPlain && IsSame(word.text, rest.substr(0, bar), type)) return;
    rest.remove_prefix(std::min(bar + 1, rest.size()));
  }
  problem = {"unknown-choice", word.text, Excerpt(word.text) + " is none of " + InWords(type)};
}

/// What a lease meets with, with "or" between.
void ReadEvents(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  constexpr std::string_view kEvents = "commit|release|expiry|transmission";
  do {
    if (words.AtEnd()) {
      problem = {"missing-value", {}, "the value ends early: " + InWords(kEvents) + " is missing"};
      return;
    }
    ReadChoice(words, kEvents, problem);
  } while (!problem && words.Skip("or"));
}

}  // namespace klepur::internal
