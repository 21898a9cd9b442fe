// Texts stand between quotes, or are one word.
#include <klepur/check/value_reader.h>

#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace klepur::internal {
namespace {

/// One that the server does not take for a number.
bool IsWord(std::string_view text) {
  return text.front() != '_' && text != "-" && std::all_of(text.begin(), text.end(), IsWordByte) &&
         !IsDecimalNumber(text);
}

std::string InQuotes(std::string_view text) {
  return '"' + std::string(text) + '"';
}

/// Whether it can be read between quotes, with nothing in it that means something there.
bool CanBeQuoted(std::string_view text) {
  return text.find_first_of("\"\\") == std::string_view::npos;
}

std::string Quoted(const ValueWord& word) {
  return word.kind == ValueWord::kPlain && CanBeQuoted(word.text) ? InQuotes(word.text)
                                                                  : std::string();
}

bool IsDomainName(std::string_view text) {
  return !text.empty() && text.front() != '.' && text.front() != '_' &&
         std::all_of(text.begin(), text.end(),
                     [](char byte) { return IsWordByte(byte) || byte == '.'; });
}

/// Whether a list has a domain without letters between its dots, or with more than the 63 that fit.
bool HasWrongLabel(std::string_view domain) {
  constexpr std::size_t kMost = 63;
  if (domain.find('\\') != std::string_view::npos || domain.size() < 2) return false;
  while (!domain.empty()) {
    const std::size_t size = std::min(domain.find('.'), domain.size());
    if (size == 0 || size > kMost) return true;
    domain.remove_prefix(std::min(size + 1, domain.size()));
  }
  return false;
}

}  // namespace

void ReadText(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kQuoted) return;
  if (word.kind == ValueWord::kPlain && IsWord(word.text)) return;
  problem = {"malformed-text", word.text,
             Excerpt(word.text) + " is no text: quotes around it are missing", Quoted(word)};
}

void ReadQuotedText(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kQuoted) return;
  problem = {"malformed-text", word.text, "quotes are missing around " + Excerpt(word.text),
             Quoted(word)};
}

void ReadDomainName(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain && IsDomainName(word.text)) return;
  if (word.kind == ValueWord::kPlain) {
    problem = {"malformed-text", word.text, Excerpt(word.text) + " is no domain"};
    return;
  }
  const std::string_view inner =
      word.text.substr(1, word.text.size() - std::min<std::size_t>(word.text.size(), 2));
  problem = {"malformed-text", word.text, Excerpt(word.text) + " stands without quotes here",
             IsDomainName(inner) ? std::string(inner) : std::string()};
}

void ReadDomain(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind != ValueWord::kQuoted) {
    problem = {"malformed-text", word.text,
               Excerpt(word.text) + " is no domain of a list: quotes around it are missing",
               Quoted(word)};
    return;
  }
  if (!HasWrongLabel(word.text.substr(1, word.text.size() - 2))) return;
  problem = {"malformed-text", word.text,
             Excerpt(word.text) + " is no domain: between its dots stand 1 to 63 letters"};
}

/// A name without quotes.
void ReadWord(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain && IsWord(word.text)) return;
  problem = {"malformed-text", word.text,
             Excerpt(word.text) + " is no name: that is one word without quotes"};
}

/// A name with quotes or without.
void ReadInterface(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  const bool is_word = word.kind == ValueWord::kPlain && word.text.front() != '_' &&
                       std::all_of(word.text.begin(), word.text.end(), IsWordByte);
  if (word.kind == ValueWord::kQuoted || is_word) return;
  problem = {"malformed-text", word.text, "quotes are missing around " + Excerpt(word.text),
             Quoted(word)};
}

/// The name of a class, and one value of what it matches.
void ReadSubclass(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  ReadQuotedText(words, {}, problem);
  // It may be the value, and the name missing.
  if (problem && words.AtEnd()) problem.instead.clear();
  if (problem) return;
  if (words.AtEnd()) {
    problem = {"missing-value", {}, "the value ends early: what the class matches is missing"};
  } else {
    ReadData(words, {}, problem);
  }
}

}  // namespace klepur::internal
