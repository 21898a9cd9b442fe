// Internal: the value of a statement whose keyword is known.
#ifndef KLEPUR_CHECK_STATEMENT_VALUE_H
#define KLEPUR_CHECK_STATEMENT_VALUE_H

#include <string_view>

namespace klepur::internal {

/// A statement's text without its ";", if it has one.
std::string_view WithoutSemicolon(std::string_view statement);
/// What follows a keyword of so many words: Item::value of the statement.
std::string_view ValueBehind(int words, std::string_view statement);
/// A value without the blanks and comments around it.
std::string_view Trimmed(std::string_view value);

}  // namespace klepur::internal

#endif
