// What the checks say of a text, as a text.
#ifndef KLEPUR_TESTS_CHECK_CHECKING_H
#define KLEPUR_TESTS_CHECK_CHECKING_H

#include <klepur/check/checker.h>
#include <klepur/document/document.h>

#include <string>
#include <string_view>

namespace klepur::test {

/// All findings, one a line as ToText(CheckFinding) has them.
std::string Said(const std::vector<CheckFinding>& findings);
/// Those of a text.
std::string Checked(std::string_view text, const CheckOptions& options = {});

/// The findings in short, one a line: "3:5 malformed-flag", with " <- 1" behind it when the other place is
/// in line 1.
std::string Found(std::string_view text, const CheckOptions& options = {});
std::string InShort(const std::vector<CheckFinding>& findings);

/// A text and what is found in it, in short.
struct CheckCase {
  const char* text;
  const char* found;
};

/// Leaves out what is told of a statement or block because others are missing.
CheckOptions ByItself();

void ExpectFoundIn(std::string_view text, std::string_view found, const CheckOptions& options = {});

/// Compares what is found in each text, with "\n" for the line ends and with "\r\n".
template <std::size_t N>
void ExpectFound(const CheckCase (&cases)[N], const CheckOptions& options = {}) {
  for (const auto& [text, found] : cases) ExpectFoundIn(text, found, options);
}

}  // namespace klepur::test

#endif
