// Internal: what reads the parts of a value, and says what is wrong with them.
#ifndef KLEPUR_CHECK_VALUE_READER_H
#define KLEPUR_CHECK_VALUE_READER_H

#include <string>
#include <string_view>

#include <klepur/network/value_words.h>

namespace klepur::internal {

/// What is wrong with a value, if anything is.
struct ValueProblem {
  std::string_view rule;  ///< Empty when nothing is wrong.
  std::string_view at;    ///< The piece of the value that it is about.
  std::string message;
  std::string instead = {};  ///< What to write in the place of the piece, where that is obvious.
  std::string_view replaced = {};  ///< The piece of the value that it replaces, where it is another one.

  explicit operator bool() const { return !rule.empty(); }
};

/// Takes one part of a value, of the type of this name, from the words; there is at least one. Says in
/// `problem` what is wrong with it: then it does not matter how far the words were taken.
using ValueReader = void (*)(ValueWords& words, std::string_view type, ValueProblem& problem);

// One for each type, in the file of the rule that it speaks for (rules/).
void ReadAddress6(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadAddressOrName(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadChoice(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadData(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDomain(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDomainName(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadFlag(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadHardware(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadNumber(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadPrefix(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadPrefixRange(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadQuotedText(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadRange(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadText(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadTime(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadWord(ValueWords& words, std::string_view type, ValueProblem& problem);

// For single keywords, in the file of the rule; the type is not looked at, and all of the value is taken.
void ReadAssignment(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadCondition(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDate(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDefine(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDuid(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadElse(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadEvents(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadExecute(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadAnyExpression(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadDataExpression(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadInterface(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadLog(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadMatchCondition(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadOptionSpace(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadSubclass(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadSwitch(ValueWords& words, std::string_view type, ValueProblem& problem);
void ReadUnset(ValueWords& words, std::string_view type, ValueProblem& problem);

/// Whether a word is a number as the server reads it: 17, 0x11, 021, -17.
bool IsNumber(std::string_view word) noexcept;
/// Whether it is one that stands for a number everywhere: 17, -17.
bool IsDecimalNumber(std::string_view word) noexcept;
/// Whether a word is a byte in hexadecimal as the server reads it: 1f, 0001f, -1.
bool IsHexByte(std::string_view word) noexcept;
/// A piece of a file between quotes, as messages have it, shortened where it is long and without line ends.
std::string Excerpt(std::string_view text);

}  // namespace klepur::internal

#endif
