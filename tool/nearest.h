// The word that somebody may have meant.
#ifndef KLEPUR_TOOL_NEAREST_H
#define KLEPUR_TOOL_NEAREST_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace klepur::tool {

/// How many letters differ: changed, missing, too many, or two next to each other exchanged.
std::size_t LettersBetween(std::string_view left, std::string_view right);

/// Whether one of them may be a slip of the other: a letter in three differs at most.
bool IsSlipOf(std::string_view typed, std::string_view word);

/// The nearest of the words, if the typed one may be a slip of it or is its beginning; else empty.
std::string Nearest(std::string_view typed, const std::vector<std::string>& words);

}  // namespace klepur::tool

#endif
