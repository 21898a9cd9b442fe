// Into a correct file one mistake is put: its rule finds it, in its line, and no other rule says a word.
#include "tests/check/mistakes.h"

#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "tests/check/checking.h"

namespace klepur::test {
namespace {

/// How many files each mistake is put into.
std::size_t Files() {
#if defined(KLEPUR_SANITIZED) || !defined(NDEBUG)
  return 10;
#else
  return 1000;
#endif
}

std::uint64_t Seed() {
  const char* const seed = std::getenv("KLEPUR_RANDOM_SEED");
  return seed == nullptr ? std::random_device()() : std::strtoull(seed, nullptr, 10);
}

std::string Told(const std::string& text, Family family) {
  CheckOptions options;
  options.family = family;
  std::string told;
  for (const CheckFinding& finding : Check(Document(text), options)) {
    told += std::to_string(finding.place.where.line) + " " + std::string(finding.rule) + "\n";
  }
  return told;
}

/// Whether the file can do without a family: what it is told from its content.
Family OneOf(In in, Random& random) {
  if (in == In::kDhcp4) return Family::kDhcp4;
  if (in == In::kDhcp6) return Family::kDhcp6;
  return Below(random, 2) == 0 ? Family::kDhcp4 : Family::kDhcp6;
}

TEST(Mistakes, ThereAreNoneInACorrectFile) {
  const std::uint64_t seed = Seed();
  Random random(seed);
  for (std::size_t i = 0; i != Files(); ++i) {
    for (const Family family : {Family::kDhcp4, Family::kDhcp6}) {
      const LinesOfFile file = CorrectFile(family, random);
      ASSERT_EQ(Checked(file.Whole()), "") << "seed " << seed << "\n" << file.Whole();
    }
  }
}

TEST(Mistakes, AreFoundInTheirLineAndNothingElseIs) {
  const std::uint64_t seed = Seed();
  Random random(seed);
  for (const Mistake& mistake : Mistakes()) {
    for (std::size_t i = 0; i != Files(); ++i) {
      const Family family = OneOf(mistake.in, random);
      LinesOfFile file = CorrectFile(family, random);
      const std::size_t line = mistake.make(file, random);
      const std::string text = file.Whole();
      ASSERT_EQ(Told(text, family), std::to_string(line + 1) + " " + mistake.rule + "\n")
          << "seed " << seed << "\n"
          << text;
    }
  }
}

TEST(Mistakes, ThereIsOneForEachRule) {
  std::set<std::string_view> rules;
  for (const Mistake& mistake : Mistakes()) rules.insert(mistake.rule);
  for (const CheckRule& rule : CheckRules()) EXPECT_EQ(rules.count(rule.name), 1U) << rule.name;
}

}  // namespace
}  // namespace klepur::test
