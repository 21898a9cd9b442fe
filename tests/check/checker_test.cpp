// A check as a whole: order, rules that are off or allowed, steps, families.
#include <klepur/check/check_rules.h>
#include <klepur/check/checker.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "tests/check/checking.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

constexpr const char* kThreeMistakes =
    "ping-check yes;\n"
    "host a { hardware ethernet 00:16:3e:00:00:01; }\n"
    "max-laese-time 600;\n"
    "host b { hardware ethernet 0:16:3E:0:0:1; }\n";

TEST(Checker, TellsAllInTheOrderOfTheFile) {
  EXPECT_EQ(
      Checked(kThreeMistakes),
      "1:12: error: \"yes\" is no flag: that is on, off, true or false [malformed-flag]\n"
      "3:1: error: \"max-laese-time\" is unknown; \"max-lease-time\" may be meant "
      "[misspelled-keyword]\n"
      "4:10: warning: the hardware address 00:16:3e:00:00:01 is that of another host (also in "
      "line 2) [duplicate-hardware-address]\n");
}

TEST(Checker, NamesTheFile) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("dhcpd.conf", "ping-check yes;\n");
  const auto findings = Check(Document::Read(path));
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].place.file, path);
  EXPECT_EQ(ToText(findings[0]).substr(0, path.size() + 6), path + ":1:12:");
}

TEST(Checker, LeavesOutRulesThatAreOff) {
  CheckOptions options;
  options.off = {"malformed-flag", "no-such-rule", "duplicate-hardware-address"};
  EXPECT_EQ(Found(kThreeMistakes, options), "3:1 misspelled-keyword\n");
}

TEST(Checker, HeedsWhatACommentAllows) {
  const CheckCase cases[] = {
      {"# klepur: allow malformed-flag\nping-check yes;\nping-check yes;\n",
       "3:12 malformed-flag\n"},
      {"#klepur:allow malformed-flag\nping-check yes;\n", "2:12 malformed-flag\n"},
      {"## klepur: allow malformed-time, malformed-flag\n# why\n\nping-check yes;\n", ""},
      {"# klepur: allow malformed-time\nping-check yes;\n", "2:12 malformed-flag\n"},
      {"# klepur: allow malformed-flag\ngroup {\n  group { ping-check yes; }\n}\n", ""},
      {"group {\n  # klepur: allow malformed-flag\n  group { ping-check yes; }\n  ping-check "
       "1;\n}\n",
       "4:14 malformed-flag\n"},
      {"# klepur: allow missing-semicolon\nmax-lease-time 5\n\nmin-lease-time 4\nping-check on;\n",
       "5:1 missing-semicolon\n"},
      {"group {\n  # klepur: allow missing-semicolon\n  max-lease-time 5\n}\n", ""},
      {"# klepur: allow swallowed-statement\nmax-lease-time 5 min-lease-time 4;\n", ""},
      {"# klepur: allow no-such-rule\nping-check yes;\n", "2:12 malformed-flag\n"},
      {"# klepur: allow malformed-flag\n", ""},
  };
  ExpectFound(cases);
}

TEST(Checker, StepsComeToAnEnd) {
  const Document document(kThreeMistakes);
  Checker checker(document);
  EXPECT_TRUE(checker.Step());
  EXPECT_TRUE(checker.Findings().empty());
  while (checker.Step()) {
  }
  EXPECT_EQ(checker.Findings().size(), 3U);
  EXPECT_FALSE(checker.Step());
  EXPECT_EQ(checker.Findings().size(), 3U);
}

TEST(Checker, BeginsAnewWhenTheDocumentIsEdited) {
  Document document(kThreeMistakes);
  Checker checker(document);
  checker.Step();
  checker.Step();
  document.Root().Child("ping-check").SetValue("on");
  while (checker.Step()) {
  }
  EXPECT_EQ(InShort(checker.Findings()),
            "3:1 misspelled-keyword\n"
            "4:10 duplicate-hardware-address <- 2\n");
}

TEST(CheckRules, HaveNamesOfTheirOwnAndTitles) {
  std::set<std::string_view> names;
  for (const CheckRule& rule : CheckRules()) {
    EXPECT_TRUE(names.insert(rule.name).second) << rule.name;
    EXPECT_GT(rule.title.size(), 10U) << rule.name;
    EXPECT_EQ(FindCheckRule(rule.name)->title, rule.title);
  }
  EXPECT_FALSE(FindCheckRule("no-such-rule"));
}

}  // namespace
}  // namespace klepur::test
