// Internal: which keyword a misspelled one was meant to be.
#ifndef KLEPUR_CHECK_NEAR_WORD_H
#define KLEPUR_CHECK_NEAR_WORD_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// How many letters must be put in, taken out, replaced or swapped with their neighbour to make one word of
/// another, in any case; more than `most` for all that is further away. Cost: the product of the lengths.
std::size_t LettersBetween(std::string_view one, std::string_view other, std::size_t most);

/// Of some words the one that is nearest, if it is one or two letters away, or one for a word of less than
/// six letters; empty when none is, and when two are as near.
std::string_view NearestOf(const std::vector<std::string_view>& words, std::string_view misspelled);

/// Of the keywords that a statement or block may begin with, and of the options.
std::string_view NearestKeyword(std::string_view misspelled);
std::string_view NearestOption(std::string_view misspelled);

}  // namespace klepur::internal

#endif
