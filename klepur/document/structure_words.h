// Internal: the words that statements and blocks begin with, as far as they tell how a text is structured.
#ifndef KLEPUR_DOCUMENT_STRUCTURE_WORDS_H
#define KLEPUR_DOCUMENT_STRUCTURE_WORDS_H

#include <cstdint>
#include <string_view>

namespace klepur::internal {

/// What a word begins.
enum class Begins : std::uint8_t {
  kStatement,  ///< Words and a ";".
  kAlone,      ///< The same, and the word may be the whole statement.
  kBlock,      ///< A header and "{".
  kEither,     ///< A block, or a statement that does without one.
  kChain,      ///< "if": a block that "elsif" and "else" may follow.
  kBranch,     ///< "elsif", "else".
  kLabel,      ///< "case", "default": to the ":", in a switch only.
};

/// What a statement may have behind its key.
enum class Holds : std::uint8_t {
  kValues,
  kAnything,  ///< Names, conditions or expressions too, in which words of this table may stand.
};

/// Where a word may stand in a statement.
enum class Stands : std::uint8_t {
  kAnywhere,
  kFirst,  ///< Only as its first word.
};

struct StructureWord {
  std::string_view text;  ///< In small letters; files may write it in any case.
  Begins begins;
  std::uint8_t
      key_words;  ///< How many words tell one statement from another: 2 for "option routers".
  Holds holds = Holds::kValues;
  Stands stands = Stands::kAnywhere;
};

/// Number 0, and of every word that is not in the table.
inline constexpr std::uint8_t kUnknownWord = 0;

const StructureWord& WordOf(std::uint8_t number);
/// Whether what begins with a word must have a block: "host", "if", "else".
bool WantsBlock(std::uint8_t number);
/// The number of a word, written in any case.
std::uint8_t NumberOf(std::string_view word);
/// The numbers of the words that the reader treats in a way of their own.
extern const std::uint8_t kWordCase;
extern const std::uint8_t kWordDefault;
extern const std::uint8_t kWordElse;
extern const std::uint8_t kWordElsif;
extern const std::uint8_t kWordIf;
extern const std::uint8_t kWordKey;
extern const std::uint8_t kWordOption;
extern const std::uint8_t kWordSwitch;

}  // namespace klepur::internal

#endif
