// Random operations on random files, compared with a plain model of what they are to do.
//
//     KLEPUR_RANDOM_SEED=5     begins with this seed instead of a new one
//     KLEPUR_RANDOM_SECONDS=60 goes on for so long; 0: one file only
//     KLEPUR_RANDOM_TRACE=1    says each operation before it is run, for one that does not return
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/random/library_side.h"
#include "tests/random/model_file.h"
#include "tests/random/random_file.h"
#include "tests/random/random_operations.h"
#include "tests/support/family.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

std::string Setting(const char* name, const std::string& otherwise) {
  const char* const value = std::getenv(name);
  return value == nullptr || *value == '\0' ? otherwise : value;
}

std::uint64_t FirstSeed() {
  return std::stoull(Setting("KLEPUR_RANDOM_SEED", std::to_string(std::random_device()())));
}

template <class Family>
const ModelFamily& ModelFor() {
  return std::is_same_v<Family, V4> ? ModelV4() : ModelV6();
}

/// One file and a sequence of operations on it; the seed decides everything.
template <class Family>
class Round {
 public:
  /// \param explains  whether Report is to say how things stood before the last operation.
  Round(std::uint64_t seed, const ScratchFolder& folder, bool explains)
      : seed_(seed),
        explains_(explains),
        chance_(seed),
        folder_(folder),
        model_(ModelFor<Family>()),
        library_(folder.Path("dhcpd.conf")),
        operations_(chance_, model_) {}

  /// Runs until the library and the model disagree; true when they never do.
  bool Run() {
    size_ = chance_.OneIn(6)   ? FileSize::kLarge
            : chance_.OneIn(6) ? FileSize::kMedium
                               : FileSize::kSmall;
    onDisk_ = RandomTree(chance_, model_.Family(), size_);
    Forget("dhcpd.conf");
    folder_.Write("dhcpd.conf", RandomLayout(chance_, *onDisk_));
    operations_.AllowNodes(chance_.OneIn(3));
    if (chance_.OneIn(8) && !BeforeOpen()) return false;
    if (!Open()) return false;
    const std::size_t most = size_ == FileSize::kLarge ? 400 : 150;
    const std::size_t count = chance_.Between(20, most);
    // From then on nodes are in the caller's hands.
    const std::size_t handingOut = chance_.Between(0, 2 * count);
    for (std::size_t step = 0; step < count; ++step) {
      if (step == handingOut) operations_.AllowNodes(true);
      if (!Step()) return false;
    }
    return true;
  }

  /// What they disagree about, and how to see it again.
  std::string Report() const {
    std::string text = "The library and the model disagree about the last one of these operations,";
    text += " all on one file.\n" + complaint_;
    text += "To repeat: KLEPUR_RANDOM_SEED=" + std::to_string(seed_) +
            " KLEPUR_RANDOM_SECONDS=0, test for " + FamilyNames::GetName<Family>(0) + "\n";
    text += "Before it, the cursors stood on " + cursorsBefore_ + " in this tree:\n" + treeBefore_;
    text += "Operations:\n";
    const std::size_t first = log_.size() > 25 ? log_.size() - 25 : 0;
    for (std::size_t i = first; i < log_.size(); ++i) {
      text += "  " + std::to_string(i + 1) + ". " + log_[i] + "\n";
    }
    return text;
  }

 private:
  bool BeforeOpen() {
    for (std::size_t count = chance_.Between(1, 6); count > 0; --count) {
      if (!RunOnBoth(operations_.Next())) return false;
    }
    return RunOnBoth({"cursors(network null, subnet null)", [](Side& side) -> std::string {
                        side.PlaceCursors(std::nullopt, std::nullopt);
                        return "done";
                      }});
  }

  bool Step() {
    if (chance_.OneIn(80)) return Open();
    if (chance_.OneIn(600)) return OpenMissing();
    if (chance_.OneIn(40)) return Save();
    if (chance_.OneIn(size_ == FileSize::kLarge ? 2 : 4)) return ChangeBetweenEqualLookups();
    return RunOnBoth(operations_.Next());
  }

  /// What the first lookup found, or did not find, is often what the change is about: a library
  /// that remembers anything must notice it.
  bool ChangeBetweenEqualLookups() {
    const Operation lookup = operations_.NextLookup();
    return RunOnBoth(lookup) && RunOnBoth(operations_.NextChange()) &&
           (lookup.hasPaths || RunOnBoth(lookup));
  }

  bool RunOnBoth(const Operation& operation) {
    Begin(operation.text);
    const std::string expected = operation.run(model_);
    const std::string actual = operation.run(library_);
    log_.back() += " -> " + expected;
    if (kTrace) std::cerr << "  " << expected << std::endl;
    return Same("result", expected, actual) && SameState();
  }

  /// Where it is not known what the file is read as, the library's tree counts.
  bool Open() {
    Begin("Open()");
    if (!Same("result", "1", std::to_string(library_.Open()))) return false;
    model_.Open(onDisk_ != nullptr ? *onDisk_ : *library_.Snapshot());
    return SameState();
  }

  bool OpenMissing() {
    Begin("Open() of a file that is gone for that time");
    const std::string path = folder_.Path("dhcpd.conf");
    std::filesystem::rename(path, path + ".gone");
    const bool opened = library_.Open();
    std::filesystem::rename(path + ".gone", path);
    model_.OpenMissing();
    return Same("result", "0", std::to_string(opened)) && SameState();
  }

  bool Save() {
    if (!model_.CanBeWritten()) return true;
    const std::string target = chance_.OneIn(2) ? "" : folder_.Path("saved.conf");
    Begin("Save(" + Quoted(target.empty() ? "" : "saved.conf") + ")");
    const std::unique_ptr<std::string> text = model_.Save();
    const std::string expected = text == nullptr ? "0" : "1";
    const std::string name = target.empty() ? "dhcpd.conf" : "saved.conf";
    if (text != nullptr && !chance_.OneIn(10)) Forget(name);
    if (!Same("result", expected, std::to_string(library_.Save(target)))) return false;
    if (text == nullptr) return true;
    if (target.empty()) RememberDisk();
    return Same("text written", *text, ReadFile(folder_.Path(name))) && SameState();
  }

  /// Some file systems take their time to write over a file, but none to make a new one.
  void Forget(const std::string& name) { std::filesystem::remove(folder_.Path(name)); }

  void RememberDisk() {
    onDisk_ = nullptr;
    if (!IsReadBackAsItIs(*model_.Root())) return;
    onDisk_ = std::make_unique<ModelNode>();
    AddNode(*onDisk_, 0, Copy(*model_.Root()));
  }

  void Begin(const std::string& what) {
    log_.push_back(what);
    if (kTrace) std::cerr << seed_ << "/" << log_.size() << ": " << what << std::endl;
    if (!explains_) return;
    cursorsBefore_ =
        CursorText(model_.CurrentNetwork()) + " and " + CursorText(model_.CurrentSubnet());
    treeBefore_ =
        size_ == FileSize::kLarge ? "  (too large to be shown)\n" : ToText(model_.Top(), "  ");
  }

  static std::string CursorText(const ModelNode* node) {
    return node == nullptr ? "null" : ToText(MaybePath(PathOf(*node)));
  }

  bool SameState() {
    for (const std::string& difference :
         {library_.DifferenceTo(model_.Top()), library_.NetworkDifference(model_.CurrentNetwork()),
          library_.SubnetDifference(model_.CurrentSubnet())}) {
      if (difference.empty()) continue;
      complaint_ = "In the library, " + difference + ".\n";
      return false;
    }
    return true;
  }

  bool Same(const char* what, const std::string& expected, const std::string& actual) {
    if (expected == actual) return true;
    complaint_ =
        std::string("The ") + what + " is\n  " + actual + "\nand not\n  " + expected + "\n";
    return false;
  }

  static inline const bool kTrace = Setting("KLEPUR_RANDOM_TRACE", "0") != "0";

  std::uint64_t seed_;
  bool explains_;
  Chance chance_;
  const ScratchFolder& folder_;
  FileSize size_ = FileSize::kSmall;
  ModelFile model_;
  LibrarySide<Family> library_;
  RandomOperations operations_;
  std::unique_ptr<ModelNode> onDisk_;  ///< what Open is to read; null when that is not known
  std::vector<std::string> log_;
  std::string complaint_;
  std::string cursorsBefore_;
  std::string treeBefore_;
};

template <class Family>
class RandomOperationsTest : public ::testing::Test {
 protected:
  ScratchFolder scratch_;
};
TYPED_TEST_SUITE(RandomOperationsTest, Families, FamilyNames);

TYPED_TEST(RandomOperationsTest, DoWhatThePlainModelDoes) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() +
                   std::chrono::duration<double>(std::stod(Setting("KLEPUR_RANDOM_SECONDS", "3")));
  const std::uint64_t first = FirstSeed();
  std::cout << "Seeds from " << first << " on" << std::endl;
  std::uint64_t seed = first;
  do {
    if (!Round<TypeParam>(seed, this->scratch_, false).Run()) {
      Round<TypeParam> again(seed, this->scratch_, true);
      again.Run();
      FAIL() << again.Report();
    }
    ASSERT_FALSE(this->HasFailure()) << "with the seed " << seed;
    ++seed;
  } while (Clock::now() < end);
  std::cout << seed - first << " files" << std::endl;
}

}  // namespace
}  // namespace klepur::test
