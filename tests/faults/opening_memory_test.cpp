// Memory runs out while a configuration file is constructed, opened and saved.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/faults/memory_fixture.h"

namespace klepur::test {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr const char* kOpenLog = "openlog dhcpparser LOG_PID LOG_USER";

/// A file in the layout that every save writes: its first block holds another.
constexpr std::string_view kSaved =
    "max-lease-time 7200;\n"
    "#main office in the house behind the garden\n"
    "\n"
    "shared-network office\n"
    "{\n"
    "\n"
    "\t@header1\n"
    "\t{\n"
    "\t\t@range @ip1 @ip2;\n"
    "\t}\n"
    "\n"
    "}\n"
    "\n"
    "host b\n"
    "{\n"
    "\n"
    "}\n";

/// The tree of it, in the pieces in which reading builds it.
constexpr std::string_view kPieces[] = {
    "[TREE_ROOT_SECTION]\n",
    "  max-lease-time 7200;\n",
    "  #main office in the house behind the garden\n",
    "  [shared-network office]\n",
    "    [@header1]\n",
    "      @range @ip1 @ip2;\n",
    "  [host b]\n",
};

constexpr std::string_view kCursors = "shared-network office / @header1";

template <class Family>
class OpeningShortOfMemory : public MemoryFixture<Family> {
 public:
  using typename MemoryFixture<Family>::File;

  OpeningShortOfMemory() {
    std::string tree;
    trees_.push_back(tree);
    for (const std::string_view piece : kPieces) trees_.push_back(tree += this->Text(piece));
  }

  std::string WriteFile(std::string_view text) {
    return this->scratch_.Write("dhcpd.conf", this->Text(text));
  }

  /// The tree is what reading had built when memory ran out, never less than in an earlier run.
  void ExpectPart(std::size_t& reached) {
    const auto at = std::find(trees_.begin() + static_cast<std::ptrdiff_t>(reached), trees_.end(),
                              this->Tree());
    ASSERT_NE(at, trees_.end()) << this->Tree();
    reached = static_cast<std::size_t>(at - trees_.begin());
  }

  void ExpectWhole() {
    EXPECT_EQ(this->Tree(), trees_.back());
    EXPECT_EQ(this->Cursors(), this->Text(kCursors));
  }

  /// What is logged when memory runs out while a file is read.
  std::string OutOfMemory(const std::string& path) {
    return "syslog LOG_INFO EXCEPTION! Cannot read " + path + ", std::bad_alloc!";
  }

  /// Once there is memory, the file can be opened, used and saved.
  void ExpectOpensAndSaves() {
    this->ExpectOpens(trees_.back());
    EXPECT_EQ(this->Cursors(), this->Text(kCursors));
    EXPECT_EQ(this->Saved(), this->Text(kSaved));
  }

 private:
  std::vector<std::string> trees_;
};
TYPED_TEST_SUITE(OpeningShortOfMemory, Families, FamilyNames);

TYPED_TEST(OpeningShortOfMemory, ConstructionThrowsAndLeavesTheSystemLogClosed) {
  const std::string path = this->scratch_.Path("a-file-whose-name-needs-memory.conf");
  std::optional<typename TestFixture::File> file;
  const auto before = OpenDescriptors();
  const std::size_t struck = ForEveryFault(
      [] { ClearSystemLog(); }, [&] { return file.emplace(path.c_str()), true; },
      [&](const Outcome& outcome) {
        EXPECT_EQ(outcome.threw, outcome.struck);
        EXPECT_EQ(file.has_value(), !outcome.struck);
        if (file) {
          EXPECT_EQ(file->GetConfFileName(), path);
          EXPECT_THAT(SystemLog(), ElementsAre(kOpenLog));
        } else {
          EXPECT_THAT(SystemLog(), AnyOf(IsEmpty(), ElementsAre(kOpenLog, "closelog")));
        }
        EXPECT_EQ(OpenDescriptors(), before);
      },
      [&] { file.reset(); });
  EXPECT_GE(struck, 4U);
}

TYPED_TEST(OpeningShortOfMemory, FirstOpenFailsAndLogsTheReason) {
  const std::string path = this->WriteFile(kSaved);
  const auto descriptors = OpenDescriptors();
  std::size_t reached = 0;
  const std::size_t struck = ForEveryFault(
      [&] {
        this->file_ = std::make_unique<typename TestFixture::File>(path.c_str());
        ClearSystemLog();
      },
      [&] { return this->Conf().Open(); },
      [&](const Outcome& outcome) {
        if (!outcome.struck) reached = 0;
        EXPECT_FALSE(outcome.threw);
        EXPECT_EQ(OpenDescriptors(), descriptors);
        if (outcome.result) {
          this->ExpectWhole();
          EXPECT_THAT(SystemLog(), IsEmpty());
        } else {
          this->ExpectPart(reached);
          EXPECT_EQ(this->Cursors(), "null / null");
          EXPECT_THAT(SystemLog(), ElementsAre(this->OutOfMemory(path)));
        }
        this->ExpectOpensAndSaves();
      },
      [&] { this->file_.reset(); });
  EXPECT_GE(struck, 20U);
}

TYPED_TEST(OpeningShortOfMemory, LaterOpenDiscardsTheTreeAndFails) {
  const std::string path = this->WriteFile(kSaved);
  for (const Searches& searches : kSearches) {
    std::size_t reached = 0;
    ForEveryFault(
        [&] {
          this->Reopen(path);
          ASSERT_EQ(this->Conf().AddHost(this->Timed(SECTION_HOST, "unsaved")), 1);
          this->SearchInVain(searches);
          ClearSystemLog();
        },
        [&] { return this->Conf().Open(); },
        [&](const Outcome& outcome) {
          if (!outcome.struck) reached = 0;
          if (!outcome.Failed()) {
            this->ExpectWhole();
          } else {
            this->ExpectPart(reached);
            EXPECT_EQ(this->Cursors(), "null / null");
          }
          // It is either told to the caller or logged, never both.
          const std::vector<std::string> log = SystemLog();
          const auto told = std::count(log.begin(), log.end(), this->OutOfMemory(path));
          EXPECT_EQ(told, outcome.Failed() && !outcome.threw ? 1 : 0);
          this->ExpectOpensAndSaves();
        },
        [&] { this->file_.reset(); });
  }
}

TYPED_TEST(OpeningShortOfMemory, WhatCannotBeReadIsLoggedWithItsReasonOrTheLackOfMemory) {
  const std::string folder = this->scratch_.Path("");
  const std::string missing = this->scratch_.Path("missing.conf");
  for (const std::string& path : {folder, missing}) {
    const std::string reason =
        path == missing ? "syslog LOG_WARNING File " + path + " doesn't exist!"
                        : "syslog LOG_INFO EXCEPTION! Cannot read " + path + ", Is a directory!";
    const auto descriptors = OpenDescriptors();
    ForEveryFault(
        [&] {
          this->file_ = std::make_unique<typename TestFixture::File>(path.c_str());
          ClearSystemLog();
        },
        [&] { return this->Conf().Open(); },
        [&](const Outcome& outcome) {
          EXPECT_FALSE(outcome.threw);
          EXPECT_FALSE(outcome.result);
          EXPECT_EQ(OpenDescriptors(), descriptors);
          EXPECT_THAT(SystemLog(),
                      AnyOf(ElementsAre(reason), ElementsAre(this->OutOfMemory(path))));
          ClearSystemLog();
          EXPECT_FALSE(this->Conf().Open());
          EXPECT_THAT(SystemLog(), ElementsAre("closelog", kOpenLog, reason));
        },
        [&] { this->file_.reset(); });
  }
}

TYPED_TEST(OpeningShortOfMemory, SaveThrowsAndTheNextSaveWritesEverything) {
  const std::string target = this->scratch_.Path("copy-with-a-name-that-needs-memory.conf");
  const std::string text = this->Text(kSaved);
  const auto descriptors = OpenDescriptors();
  const std::size_t struck = this->ForEveryFaultIn(
      kSaved, {0, 0}, [&] { return this->Conf().Save(target) == 1; },
      [&](const Outcome& outcome) {
        EXPECT_EQ(outcome.threw, outcome.struck);
        EXPECT_THAT(SystemLog(), IsEmpty());
        EXPECT_EQ(OpenDescriptors(), descriptors);
        this->ExpectWhole();
        if (outcome.threw) {
          EXPECT_THAT(text, StartsWith(ReadFile(target)));
        } else {
          EXPECT_TRUE(outcome.result);
          EXPECT_EQ(ReadFile(target), text);
        }
        EXPECT_EQ(this->Conf().Save(target), 1);
        EXPECT_EQ(ReadFile(target), text);
        this->ExpectUsable();
        this->ExpectOpensAndSaves();
      });
  EXPECT_GE(struck, 10U);
}

TYPED_TEST(OpeningShortOfMemory, DestructionNeedsNoMemory) {
  this->Given(kSaved);
  this->SearchInVain({3, 3});
  const MemoryFault fault(0, Shortage::kFromThenOn);
  this->file_.reset();
  EXPECT_FALSE(fault.Struck());
}

}  // namespace
}  // namespace klepur::test
