#include "tests/check/checking.h"

#include <gtest/gtest.h>

#include "tests/support/files.h"

namespace klepur::test {

std::string Said(const std::vector<CheckFinding>& findings) {
  std::string said;
  for (const CheckFinding& finding : findings) said += ToText(finding) + "\n";
  return said;
}

std::string Checked(std::string_view text, const CheckOptions& options) {
  return Said(Check(Document(text), options));
}

std::string InShort(const std::vector<CheckFinding>& findings) {
  std::string found;
  for (const CheckFinding& finding : findings) {
    const Position where = finding.place.where;
    found += std::to_string(where.line) + ":" + std::to_string(where.column) + " ";
    found += finding.rule;
    if (finding.other) found += " <- " + std::to_string(finding.other->where.line);
    found += "\n";
  }
  return found;
}

std::string Found(std::string_view text, const CheckOptions& options) {
  return InShort(Check(Document(text), options));
}

CheckOptions ByItself() {
  CheckOptions options;
  options.off = {"host-without-identity", "subnet-without-addresses",
                 "undeclared-class",      "unused-class",
                 "unused-group",          "unused-key",
                 "unused-option"};
  return options;
}

void ExpectFoundIn(std::string_view text, std::string_view found, const CheckOptions& options) {
  EXPECT_EQ(Found(text, options), found) << text;
  EXPECT_EQ(Found(WithCarriageReturns(text), options), found) << text;
}

}  // namespace klepur::test
