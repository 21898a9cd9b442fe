// Memory runs out while files are read and saved.
#include <gtest/gtest.h>
#include <klepur/config4/dhcp_config_file.h>
#include <klepur/storage/save_config.h>
#include <klepur/storage/stored_file.h>
#include <klepur/storage/unified_diff.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "tests/faults/every_fault.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOld = "authoritative;\nmax-lease-time 7200;\n";
constexpr std::string_view kNew = "authoritative;\nmax-lease-time 60;\n";

constexpr std::string_view kIndented = "  authoritative;\n  max-lease-time 7200;\n";

std::ptrdiff_t FilesIn(const ScratchFolder& folder) {
  return std::distance(fs::directory_iterator(folder.Path("")), fs::directory_iterator());
}

struct Wish {
  const char* name;
  std::function<SaveOptions(const ScratchFolder&)> options;
  std::ptrdiff_t files;  // in the folder when the save is done
};

std::ostream& operator<<(std::ostream& out, const Wish& wish) {
  return out << wish.name;
}

class SavingMemory : public ::testing::TestWithParam<Wish> {
 protected:
  /// The old text, and what a killed saver left behind.
  void Prepare() {
    for (const auto& entry : fs::directory_iterator(scratch_.Path(""))) fs::remove(entry);
    scratch_.Write("f", kOld);
    scratch_.Write(".f.klepur-17-0123abcd", "stray");
  }

  void Check(const Outcome& outcome) {
    EXPECT_TRUE(outcome.struck || !outcome.threw);
    EXPECT_EQ(ReadFile(scratch_.Path("f")), outcome.threw ? kOld : kNew);
    const bool stray = fs::exists(scratch_.Path(".f.klepur-17-0123abcd"));
    EXPECT_EQ(FilesIn(scratch_), outcome.threw ? (stray ? 2 : 1) : GetParam().files);
    EXPECT_EQ(OpenDescriptors(), descriptors_);
  }

  ScratchFolder scratch_;
  const std::ptrdiff_t descriptors_ = OpenDescriptors();
};

INSTANTIATE_TEST_SUITE_P(
    Wishes, SavingMemory,
    ::testing::Values(Wish{"Plain", [](const auto&) { return SaveOptions(); }, 1},
                      Wish{"MadeBackup", [](const auto&) { return SaveOptions().WithBackup(); }, 2},
                      Wish{"GivenBackup",
                           [](const auto& s) { return SaveOptions().WithBackup(s.Path("b")); }, 2},
                      Wish{"Verifier",
                           [](const auto&) {
                             return SaveOptions().VerifiedBy({"/bin/echo", "accepted"});
                           },
                           1}),
    [](const ::testing::TestParamInfo<Wish>& wish) { return std::string(wish.param.name); });

TEST_P(SavingMemory, TextIsSavedOrTheOldOneStays) {
  std::optional<SaveOptions> options;
  const auto prepare = [&] {
    Prepare();
    options = GetParam().options(scratch_);
  };
  const auto save = [&] { return SaveText(scratch_.Path("f"), kNew, *options).Written(); };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    Check(outcome);
  };
  EXPECT_GT(ForEveryFault(prepare, save, check, [&] { options.reset(); }), 10U);
}

using StorageMemory = SavingMemory;
INSTANTIATE_TEST_SUITE_P(Once, StorageMemory,
                         ::testing::Values(Wish{"", [](const auto&) { return SaveOptions(); }, 1}));

TEST_P(StorageMemory, DocumentIsReadEditedAndSavedOrTheOldFileStays) {
  const auto edit = [&] {
    StoredFile file = StoredFile::OpenLocked(scratch_.Path("f"));
    Document document = file.Read();
    document.Root().Set("max-lease-time", "60");
    return file.Save(document).Written();
  };
  // An edit may do without memory: positions are then counted anew when they are asked for.
  const auto check = [&](const Outcome& outcome) { Check(outcome); };
  EXPECT_GT(ForEveryFault([&] { Prepare(); }, edit, check, [] {}), 20U);
}

TEST_P(StorageMemory, SaveThatFailsCanBeTriedAgain) {
  std::optional<StoredFile> file;
  const auto prepare = [&] {
    Prepare();
    file = StoredFile::OpenLocked(scratch_.Path("f"));
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(file->Save(kNew).Written(), outcome.threw);
    EXPECT_EQ(ReadFile(scratch_.Path("f")), kNew);
    EXPECT_TRUE(file->IsLocked());
  };
  ForEveryFault(
      prepare, [&] { return file->Save(kNew).Written(); }, check, [&] { file.reset(); });
}

TEST_P(StorageMemory, ConfigurationFileIsSavedOrStays) {
  std::unique_ptr<DhcpConfigFile> file;
  const auto prepare = [&] {
    Prepare();
    file = std::make_unique<DhcpConfigFile>(scratch_.Write("f", kIndented).c_str());
    ASSERT_TRUE(file->Open());
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    EXPECT_EQ(ReadFile(scratch_.Path("f")), outcome.threw ? kIndented : kOld);
  };
  EXPECT_GT(ForEveryFault(
                prepare, [&] { return SaveSafely(*file).Written(); }, check, [&] { file.reset(); }),
            10U);
}

TEST_P(StorageMemory, DiffIsMadeOrNot) {
  std::string diff;
  const auto make = [&] {
    diff = UnifiedDiff(kOld, kNew, "a name that is long enough to take memory", "f");
    return true;
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    EXPECT_EQ(diff.empty(), outcome.threw);
  };
  EXPECT_GT(ForEveryFault([] {}, make, check, [&] { diff = std::string(); }), 5U);
}

}  // namespace
}  // namespace klepur::test
