#include <klepur/framework/name_match.h>

#include <gtest/gtest.h>

#include "tests/support/blocks.h"

namespace klepur::test {
namespace {

using Predicate = bool (*)(const CfSection&, const CfSection&);

class NameMatch : public ::testing::TestWithParam<Predicate> {
 protected:
  static bool Same(const char* a, const char* b) { return GetParam()(Block(a, {}), Block(b, {})); }
};

TEST_P(NameMatch, NamesMatchByteForByte) {
  const struct {
    const char* a;
    const char* b;
    bool same;
  } rows[] = {
      {"host a", "host a", true},
      {"", "", true},
      {"host Z\xc3\xbcrich", "host Z\xc3\xbcrich", true},
      // a part of the other
      {"host a", "host ab", false},
      {"host ab", "host a", false},
      {"host a", "", false},
      {"", "host a", false},
      // other blanks
      {"host a", "host  a", false},
      {"host a", "host a ", false},
      {"host a", "host\ta", false},
      // one byte beyond ASCII
      {"host \xe4", "host \xc4", false},
  };
  for (const auto& row : rows) EXPECT_EQ(Same(row.a, row.b), row.same) << row.a << " / " << row.b;
}

TEST_P(NameMatch, LetterCaseMatters) {
  EXPECT_FALSE(Same("Host a", "host a"));
  EXPECT_FALSE(Same("host a", "host A"));
}

TEST_P(NameMatch, LinesPlayNoPart) {
  EXPECT_TRUE(GetParam()(Block("host a", {"x 1;"}), Block("host a", {"#y 2;", "z 3;"})));
  EXPECT_FALSE(GetParam()(Block("host a", {"x 1;"}), Block("host b", {"x 1;"})));
}

TEST_P(NameMatch, SectionMatchesItself) {
  const CfSection section = Block("host a", {"x 1;"});
  EXPECT_TRUE(GetParam()(section, section));
}

INSTANTIATE_TEST_SUITE_P(Condition1, NameMatch, ::testing::Values(&Condition1));
INSTANTIATE_TEST_SUITE_P(Condition2, NameMatch, ::testing::Values(&Condition2));
INSTANTIATE_TEST_SUITE_P(Compare, NameMatch, ::testing::Values(&compare));

}  // namespace
}  // namespace klepur::test
