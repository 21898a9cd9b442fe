// Internal: the words of a statement or a header.
#ifndef KLEPUR_DOCUMENT_WORDS_OF_TEXT_H
#define KLEPUR_DOCUMENT_WORDS_OF_TEXT_H

#include <array>
#include <cstddef>
#include <string_view>

#include <klepur/text/letters.h>

namespace klepur::internal {

inline constexpr std::array<bool, 256> kJoinsWord = ByteTable([](char byte) {
  return IsWordByte(byte) || byte == '.' || byte == ':' || byte == '/' || (byte & 0x80) != 0;
});

/// A byte of a word of several.
constexpr bool JoinsWord(char byte) {
  return kJoinsWord[static_cast<unsigned char>(byte)];
}

/// Walks over the words of one statement's or header's text, over blanks and comments between them. A
/// word is a string with its quotes, a run of word bytes and of the bytes ". : /" that join them, or any
/// other byte by itself. A quote that is not closed within the text is such a byte.
class WordsOfText {
 public:
  explicit WordsOfText(std::string_view text) : text_(text) {}

  /// The next word; empty at the end.
  std::string_view Next() {
    std::size_t at = at_;
    while (at != text_.size() && text_[at] == ' ') ++at;
    if (at == text_.size() || !JoinsWord(text_[at])) return NextOfAnyKind();
    const std::size_t begin = at;
    while (at != text_.size() && JoinsWord(text_[at])) ++at;
    at_ = at;
    return {text_.data() + begin, at - begin};
  }
  /// Where the next word would be looked for: right behind the last one.
  std::string_view Rest() const { return {text_.data() + at_, text_.size() - at_}; }

 private:
  std::string_view NextOfAnyKind();
  std::size_t BehindBlanks(std::size_t at) const;
  std::size_t BehindWord(std::size_t at);

  std::string_view text_;
  std::size_t at_ = 0;
  bool quotes_pair_ =
      true;  ///< Until one is met that nothing closes: then nothing closes the others.
};

/// The first word.
std::string_view FirstWord(std::string_view text);
/// The text up to and with its last word, without blanks and comments behind it.
std::string_view UpToLastWord(std::string_view text);
/// Where the string ends that begins at a place, one past its closing quote; npos if it does not.
std::size_t StringEnd(std::string_view text, std::size_t quote);
/// How many bytes "no failover peer" takes at the start of a text, the one statement that the server ends at its
/// last word and not at a ";"; 0 when something else stands there.
std::size_t SizeOfEndless(std::string_view text);

}  // namespace klepur::internal

#endif
