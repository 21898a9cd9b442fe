// When memory ends while losses are looked for, nothing leaks, and asking again gives them.
#include <klepur/rewrite/rewrite_losses.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "tests/faults/every_fault.h"

namespace klepur::test {
namespace {

constexpr std::string_view kText =
    "class \"c\" {\n  match if known; # which?\n}\n"
    "if known {\n  set x = 1;\n}\nlog(info, x);\n"
    "subclass \"c\" 1:2;\nhost a { fixed-address 10.0.0.1; }\ninclude \"f\";\n}\nlost 1;\n";
constexpr std::size_t kLosses = 7;

TEST(RewritingMemory, LossesAreFoundOrCanBeAskedForAgain) {
  std::vector<RewriteLoss> losses;
  const auto find = [&] {
    losses = FindRewriteLosses(kText);
    return true;
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    EXPECT_EQ(losses.size(), outcome.threw ? 0 : kLosses);
  };
  EXPECT_GT(ForEveryFault([] {}, find, check, [&] { losses = {}; }), 0U);
}

}  // namespace
}  // namespace klepur::test
