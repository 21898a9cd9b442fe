// Internal: text between double quotes, and its escapes.
#ifndef KLEPUR_NETWORK_QUOTED_TEXT_H
#define KLEPUR_NETWORK_QUOTED_TEXT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace klepur::internal {

/// How many characters the quoted text at the beginning of `text` takes, with both quotes; all of
/// them when nothing closes it. A quote behind a backslash does not.
std::size_t QuotedLength(std::string_view text) noexcept;

/// The bytes that a quoted text stands for. Behind a backslash:
///
///     t r n b        tab, carriage return, line end, backspace
///     0 to 3         with the two octal digits that must follow: that byte
///     x              with the two hexadecimal digits that must follow: that byte
///     anything else  itself: \" \\ \4 \q and a line end
///
/// \return nothing unless the text begins and ends with its quotes and all escapes are complete:
///         "a, "a"b", "\1", "\x4", "\09a".
std::optional<std::string> Unquoted(std::string_view quoted);

/// Quoted text that stands for these bytes, in printable ASCII: others as \ooo, " and \ behind a
/// backslash. Unquoted gives the same bytes again.
std::string Quoted(std::string_view bytes);

}  // namespace klepur::internal

#endif
