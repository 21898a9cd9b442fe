// The words of the configuration language, and those of a shell's line.
#ifndef KLEPUR_TOOL_LANGUAGE_H
#define KLEPUR_TOOL_LANGUAGE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::tool {

/// A piece of text that blanks do not divide: a word, a string with its quotes, one of ; , { } or a comment
/// from its "#" to the end of the line.
struct Piece {
  std::string_view text;
  std::size_t offset;

  bool IsComment() const { return text.front() == '#'; }
  bool IsString() const { return text.front() == '"'; }
  bool Is(char byte) const { return text.size() == 1 && text.front() == byte; }
};

/// The first piece of a text at or behind an offset; at its end one without text.
Piece PieceBehind(std::string_view text, std::size_t offset);

/// The pieces of a text in their order.
std::vector<Piece> PiecesOf(std::string_view text);

/// The text with one blank between words, a comma at the end of the word before it, and without
/// comments: what two ways of writing the same have in common.
std::string Plain(std::string_view text);

/// The parts of a text that a character divides outside of strings, without the blanks around them.
std::vector<std::string> Divided(std::string_view text, char divider);

/// The words of a line as a shell divides it: '...' and "..." and backslashes, and nothing behind a "#" that
/// begins a word. Throws Problem(kUsage) for a quote that nothing closes.
std::vector<std::string> ShellWords(std::string_view line);

/// A word for a shell's line, between quotes where it needs them.
std::string ForShell(std::string_view word);

}  // namespace klepur::tool

#endif
