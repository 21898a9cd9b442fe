// Memory runs out while a document is checked.
#include <klepur/check/checker.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tests/faults/every_fault.h"

namespace klepur::test {
namespace {

constexpr std::string_view kText =
    "# klepur: allow malformed-time\n"
    "max-lease-time 2h;\n"
    "ping-check yes;\n"
    "max-laese-time 600;\n"
    "option music code 150 = text;\n"
    "option domain-nam \"a\";\n"
    "deny unknown-client;\n"
    "subnet 10.0.0.7 netmask 255.255.255.0 { range 10.0.0.10 10.0.0.20; }\n"
    "host a { hardware ethernet 0:1:2:3:4:5; fixed-address 10.0.0.5; }\n"
    "host b { hardware ethernet 0:1:2:3:4:5; fixed-address 10.0.0.6 }\n";

/// How many findings there are: their texts would take memory.
std::size_t Count(const Document& document) {
  return Check(document).size();
}

TEST(CheckingMemory, EachFindingIsMadeOrNone) {
  const Document document(kText);
  const std::size_t all = Count(document);
  EXPECT_GE(all, 6U);
  std::size_t found = 0;
  const auto check = [&] {
    found = Count(document);
    return true;
  };
  const auto look = [&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    if (!outcome.threw) {
      EXPECT_EQ(found, all);
    }
  };
  EXPECT_GT(ForEveryFault([&] { found = 0; }, check, look, [] {}), 20U);
}

TEST(CheckingMemory, StepsBeginAnewWhenOneFailed) {
  const Document document(kText);
  const std::size_t all = Count(document);
  std::optional<Checker> checker;
  const auto run = [&] {
    while (checker->Step()) {
    }
    return true;
  };
  const auto look = [&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    run();
    EXPECT_EQ(checker->Findings().size(), all);
  };
  EXPECT_GT(ForEveryFault([&] { checker.emplace(document); }, run, look, [&] { checker.reset(); }),
            20U);
}

TEST(CheckingMemory, AMendIsAppliedOrChangesNothing) {
  std::optional<Document> document;
  std::optional<Mend> mend;
  const auto prepare = [&] {
    document.emplace("authoritative;\nmax-laese-time 600;\n");
    mend = Check(*document).at(0).mend;
  };
  const auto apply = [&] {
    mend->Apply(*document);
    return true;
  };
  const auto look = [&](const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    EXPECT_EQ(document->Text(), outcome.threw ? "authoritative;\nmax-laese-time 600;\n"
                                              : "authoritative;\nmax-lease-time 600;\n");
  };
  const auto finish = [&] {
    mend.reset();
    document.reset();
  };
  EXPECT_GT(ForEveryFault(prepare, apply, look, finish), 3U);
}

}  // namespace
}  // namespace klepur::test
