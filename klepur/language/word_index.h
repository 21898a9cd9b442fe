// Internal: finding a word of the language quickly.
#ifndef KLEPUR_LANGUAGE_WORD_INDEX_H
#define KLEPUR_LANGUAGE_WORD_INDEX_H

#include <string_view>

#include <klepur/language/words.h>

namespace klepur::internal {

/// What is known of a word that a statement or header begins with.
struct KnownFirstWord {
  const Word* alone = nullptr;  ///< The first keyword of this word only.
  bool goes_on = false;         ///< Whether there are keywords of this word and another one.
};

/// In any letter case; "deny" and "ignore" are "allow".
KnownFirstWord FindFirstWord(std::string_view first) noexcept;
/// The keyword that begins with these two words, null when there is none; "allow known clients" is
/// "allow known-clients".
const Word* FindTwoWords(std::string_view first, std::string_view second) noexcept;
/// Of several with the name of a word, the one that is taken in these places, else the word.
const Word* AmongTwins(const Word* word, Scopes scopes) noexcept;
/// The word of a keyword as Node::Keyword has it.
const Word* FindWord(std::string_view keyword, Scopes scopes) noexcept;

}  // namespace klepur::internal

#endif
