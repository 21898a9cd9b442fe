// Internal: what the text of a statement or a header says: its key, name and value.
#ifndef KLEPUR_DOCUMENT_NODE_TEXT_H
#define KLEPUR_DOCUMENT_NODE_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace klepur::internal {

/// The key words of a statement or header, in small letters with one blank between: "option routers".
std::string KeyOf(std::string_view text);
/// The same for a text that is only a key, such as a caller gives.
std::string NormalKey(std::string_view key);
/// Whether the key words of a statement or header are these.
bool HasKey(std::string_view text, std::string_view key);
/// How many bytes of a text its key takes.
std::size_t KeySize(std::string_view text);
/// The words of a text, strings without their quotes, one blank between.
std::string NormalWords(std::string_view text);
/// The name in a header, and whether any word of it stands between quotes.
std::string NameIn(std::string_view header);
bool IsQuotedName(std::string_view header);

/// A statement's value: the bytes between its key and its ";", without the blanks and comments around.
struct ValuePlace {
  std::size_t begin;
  std::size_t end;
};
ValuePlace ValueIn(std::string_view statement);
/// The value of a statement with this key, which is as KeyOf gives it; nothing of one with another.
std::optional<std::string_view> ValueOfKey(std::string_view statement, std::string_view key);

/// Whether a word can stand without quotes.
bool IsBareWord(std::string_view word);

}  // namespace klepur::internal

#endif
