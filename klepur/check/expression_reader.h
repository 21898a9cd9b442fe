// Internal: conditions and other expressions, read as the server reads them.
#ifndef KLEPUR_CHECK_EXPRESSION_READER_H
#define KLEPUR_CHECK_EXPRESSION_READER_H

#include <cstdint>
#include <string_view>

#include <klepur/check/value_reader.h>

namespace klepur::internal {

/// What an expression must be where it stands.
enum class Wanted : std::uint8_t {
  kAny,
  kCondition,  ///< True or false.
  kData,       ///< Bytes.
  kChoice,     ///< What a switch chooses by: anything, and numbers are numbers.
};

/// Takes an expression from the text and says in `problem` what is wrong with it. What the server takes has no
/// problem. Of what it refuses these are not told: names of variables that are keywords, and classes, options
/// and functions that do not exist. False where parentheses nest deeper than 1000: then nothing was said, and
/// all of the text was taken. Cost: linear.
bool TakeExpression(std::string_view& text, Wanted wanted, ValueProblem& problem);

/// One token of an expression as the server cuts them: a text, a word, or a byte. Empty at the end.
std::string_view FrontToken(std::string_view text) noexcept;
/// Takes it.
std::string_view TakeToken(std::string_view& text) noexcept;

}  // namespace klepur::internal

#endif
