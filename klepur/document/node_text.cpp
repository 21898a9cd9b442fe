#include <klepur/document/node_text.h>

#include <algorithm>
#include <cstdint>

#include <klepur/document/document.h>
#include <klepur/document/structure_words.h>
#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

namespace klepur {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char byte : text) {
    if (byte == '"' || byte == '\\') quoted += '\\';
    quoted += byte;
  }
  return quoted + '"';
}

std::string WithoutQuotes(std::string_view word) {
  if (word.size() < 2 || word.front() != '"' || word.back() != '"') return std::string(word);
  std::string text;
  for (std::size_t i = 1; i + 1 < word.size(); ++i) {
    if (word[i] == '\\' && i + 2 < word.size()) ++i;
    text += word[i];
  }
  return text;
}

}  // namespace klepur

namespace klepur::internal {
namespace {

void AppendSmall(std::string& text, std::string_view word) {
  if (!text.empty()) text += ' ';
  std::transform(word.begin(), word.end(), std::back_inserter(text), ToSmallLetter);
}

bool IsPunctuation(std::string_view word) {
  return word == ";" || word == "{" || word == "}";
}

/// Walks over the key words of a text, giving each to `use`.
template <class Use>
WordsOfText OverKey(std::string_view text, const Use& use) {
  WordsOfText words(text);
  const std::string_view first = words.Next();
  if (first.empty()) return words;
  use(first);
  for (std::uint8_t count = WordOf(NumberOf(first)).key_words; count > 1; --count) {
    const WordsOfText before = words;
    const std::string_view word = words.Next();
    if (word.empty() || IsPunctuation(word)) return before;
    use(word);
  }
  return words;
}

std::string_view WithoutSemicolon(std::string_view statement) {
  if (!statement.empty() && statement.back() == ';') statement.remove_suffix(1);
  return statement;
}

/// From the first word to the last; without any, the empty text at the beginning.
std::string_view WithoutGaps(std::string_view text) {
  const std::string_view first = FirstWord(text);
  if (first.empty()) return text.substr(0, 0);
  const std::string_view value = UpToLastWord(text);
  return value.substr(static_cast<std::size_t>(first.data() - text.data()));
}

/// A quick look, for most statements have another key: false when the first letter rules it out.
bool MayBegin(std::string_view statement, std::string_view key) {
  if (statement.empty() || key.empty() || !IsLetter(statement.front())) return true;
  return ToSmallLetter(statement.front()) == key.front();
}

/// Takes a word, in small letters, from the front of a key; false when something else stands there.
bool TakeSame(std::string_view word, std::string_view& key) {
  if (!EqualButForCase(word, key.substr(0, word.size()))) return false;
  key.remove_prefix(word.size());
  return true;
}

/// The words behind a key that a text begins with; nothing when it has another one.
std::optional<WordsOfText> BehindKey(std::string_view text, std::string_view key) {
  if (!MayBegin(text, key)) return std::nullopt;
  std::string_view rest = key;
  bool same = true;
  const WordsOfText behind = OverKey(text, [&](std::string_view word) {
    if (rest.size() != key.size()) same = TakeSame(" ", rest) && same;
    same = TakeSame(word, rest) && same;
  });
  if (!same || !rest.empty()) return std::nullopt;
  return behind;
}

}  // namespace

std::string KeyOf(std::string_view text) {
  std::string key;
  OverKey(text, [&](std::string_view word) { AppendSmall(key, word); });
  return key;
}

std::string NormalKey(std::string_view key) {
  std::string normal;
  WordsOfText words(key);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    AppendSmall(normal, word);
  }
  return normal;
}

bool HasKey(std::string_view text, std::string_view key) {
  return BehindKey(text, key).has_value();
}

std::size_t KeySize(std::string_view text) {
  const WordsOfText behind = OverKey(text, [](std::string_view) {});
  return text.size() - behind.Rest().size();
}

std::string NormalWords(std::string_view text) {
  std::string normal;
  WordsOfText words(text);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (!normal.empty()) normal += ' ';
    if (word.front() == '"') {
      normal += WithoutQuotes(word);
    } else {
      normal += word;
    }
  }
  return normal;
}

std::string NameIn(std::string_view header) {
  return NormalWords(header.substr(KeySize(header)));
}

bool IsQuotedName(std::string_view header) {
  return FirstWord(header.substr(KeySize(header))).substr(0, 1) == "\"";
}

ValuePlace ValueIn(std::string_view statement) {
  const std::string_view text = WithoutSemicolon(statement);
  const std::string_view value = WithoutGaps(text.substr(KeySize(text)));
  const auto begin = static_cast<std::size_t>(value.data() - statement.data());
  return {begin, begin + value.size()};
}

std::optional<std::string_view> ValueOfKey(std::string_view statement, std::string_view key) {
  const std::optional<WordsOfText> behind = BehindKey(WithoutSemicolon(statement), key);
  if (!behind) return std::nullopt;
  return WithoutGaps(behind->Rest());
}

bool IsBareWord(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char byte) {
    return IsWordByte(byte) || byte == '.' || byte == ':' || byte == '/';
  });
}

}  // namespace klepur::internal
