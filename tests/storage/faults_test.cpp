// A save that is killed, or gets an error, at each of its calls of the system.
//
// strace does that. KLEPUR_WRITE_FAULTS=1 writes the table of what was there afterwards anew.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include "tests/storage/command.h"
#include "tests/storage/folder.h"
#include "tests/support/files.h"

namespace klepur {
namespace {

namespace fs = std::filesystem;
using test::Ending;
using test::NamesIn;
using test::ReadFile;
using test::RunShell;

constexpr std::string_view kOld = "old text\n";
constexpr std::string_view kNew = "new text, which is longer\n";
constexpr const char* kErrors[] = {"EIO", "ENOSPC", "EACCES", "EINTR"};

#ifdef KLEPUR_SANITIZED
constexpr std::size_t kStep = 11;  // of the calls, one in so many
#else
constexpr std::size_t kStep = 1;
#endif

/// A call that a save makes: the so manyth of its name in the process.
struct Call {
  std::string name;
  int number = 0;
  std::string about;  // the file, as the table names it
};

bool MayTrace() {
  return RunShell("strace -o /dev/null true").status == 0;
}

/// A save of "f" in a folder of its own, by a program that strace hinders.
class Hindered : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!MayTrace()) GTEST_SKIP() << "no program can be traced here";
  }

  std::string Traced(const std::string& options, const std::string& save) const {
    return "cd " + scratch_.Path(".") + " && strace -qq -o " + trace_.Path("trace") + " " +
           options + " " + test::Saver(save);
  }

  /// All calls between those that mark the save, but for those that only concern memory.
  std::vector<Call> CallsOf(const std::string& save, const std::string& options = "") {
    Prepare();
    EXPECT_EQ(RunShell(Traced("-y " + options, save)).status, 0);
    std::ifstream trace(trace_.Path("trace"));
    std::map<std::string, int> numbers;
    first_.clear();
    std::vector<Call> calls;
    bool within = false;
    for (std::string line; std::getline(trace, line);) {
      const std::string name = line.substr(0, line.find('('));
      if (name == "sched_yield") within = !within;
      const int number = ++numbers[name];
      if (within && !IsOfMemory(name)) calls.push_back({name, number, About(line)});
    }
    EXPECT_GT(calls.size(), 15U);
    return calls;
  }

  /// The folder as it is before the save: a file, and what an earlier saver left behind.
  void Prepare() const {
    for (const auto& entry : fs::directory_iterator(scratch_.Path(""))) fs::remove(entry);
    if (!makes_) scratch_.Write("f", kOld);
    scratch_.Write(".f.klepur-17-0123abcd", "stray");
  }

  /// "old" or "new"; "none" when there is no file; else "lost", which a backup makes good.
  std::string Found() const {
    if (!fs::exists(scratch_.Path("f"))) return makes_ ? "none" : "lost";
    const std::string text = ReadFile(scratch_.Path("f"));
    if (text == new_) return "new";
    if (text == kOld && !makes_) return "old";
    return has_backup_ && ReadFile(scratch_.Path("f.old")) == kOld ? "backup" : "lost";
  }

  /// What is there when a call gets killed, and that a later save works.
  std::string Kill(const Call& call, const std::string& save,
                   const std::string& options = "") const {
    Prepare();
    const Ending ending =
        RunShell(Traced(options + " -e inject=" + Where(call) + ":signal=KILL", save));
    EXPECT_NE(ending.status, 0) << Where(call);
    const std::string found = Found();
    const Ending later =
        RunShell("cd " + scratch_.Path(".") + " && " + test::Saver("make f 'third text' forced"));
    EXPECT_EQ(later.output, "written\n\n") << Where(call);
    EXPECT_EQ(ReadFile(scratch_.Path("f")), "third text");
    std::string names = NamesIn(scratch_);
    if (names == "f f.old") {
      EXPECT_EQ(ReadFile(scratch_.Path("f.old")), kOld) << Where(call);
      names = "f";
    }
    EXPECT_EQ(names, "f") << Where(call);
    return found;
  }

  /// What is there when a call fails, and what the save says.
  std::string Fail(const Call& call, const std::string& error, const std::string& save,
                   const std::string& options = "") const {
    Prepare();
    const Ending ending =
        RunShell(Traced(options + " -e inject=" + Where(call) + ":error=" + error, save));
    const std::string found = Found();
    const std::string where = Where(call) + " " + error + ": " + ending.output;
    EXPECT_EQ(found, ending.status == 0 ? "new" : makes_ ? "none" : "old") << where;
    const std::string names = NamesIn(scratch_);
    // An earlier saver's file stays when the save fails before it is looked for, or looking fails.
    EXPECT_TRUE(names.find("klepur") == std::string::npos ||
                names.find("-17-") != std::string::npos)
        << where << names;
    EXPECT_EQ(names.find("klepur"), names.rfind("klepur")) << where << names;
    EXPECT_EQ(fs::exists(scratch_.Path("f.old")), ending.status == 0 && has_backup_) << where;
    return ending.Word() == "written" ? found : found + ", " + ending.Word();
  }

  static std::string Head() {
    std::string head = "| call | about | killed |";
    for (const char* const error : kErrors) head += std::string(" ") + error + " |";
    return head + "\n|---|---|---|---|---|---|---|\n";
  }

  /// What the page says of a call.
  std::string Row(const Call& call, const std::string& killed, const std::string& save,
                  const std::string& options = "") const {
    std::string row = "| " + call.name + " | " + call.about + " | " + killed + " |";
    for (const char* const error : kErrors) row += " " + Fail(call, error, save, options) + " |";
    return row + "\n";
  }

  static std::string Where(const Call& call) {
    return call.name + ":when=" + std::to_string(call.number);
  }

  std::string_view new_ = kNew;
  bool makes_ = false;
  bool has_backup_ = false;
  test::ScratchFolder scratch_;
  test::ScratchFolder trace_;

 private:
  static bool IsOfMemory(const std::string& name) {
    static const std::vector<std::string> kNames = {
        "brk", "mmap", "munmap", "mremap", "madvise", "futex", "mprotect", "sched_yield", "getpid"};
    return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
  }

  /// The last file that a line names: by its descriptor or by its path.
  std::string About(const std::string& line) {
    static const std::regex kFile("[0-9]<(/[^>]*)>|\"([^\"]*)\"");
    std::string about;
    const std::string arguments = line.substr(0, line.rfind(" = "));
    for (std::sregex_iterator file(arguments.begin(), arguments.end(), kFile), end; file != end;
         ++file) {
      const std::string path = (*file)[1].matched ? (*file)[1].str() : (*file)[2].str();
      if (path.empty()) continue;
      // Of calls that take a text, its bytes are no name.
      if ((*file)[2].matched && path[0] != '/' && path != "f" && path != "f.old") continue;
      about += (about.empty() ? "" : " to ") + Named(path);
    }
    return about;
  }

  std::string Named(const std::string& path) {
    if (fs::path(path).filename() == fs::canonical(scratch_.Path(".")).filename()) return "folder";
    const std::string name = fs::path(path).filename().string();
    if (name == ".f.klepur-17-0123abcd") return "stray";
    if (name.rfind(".f.klepur-", 0) != 0) return name;
    if (first_.empty()) first_ = name;
    return name == first_ ? "new f" : "new f.old";
  }

  std::string first_;  // the first file that was made beside
};

/// The page's table under a heading, which is written anew first when that is asked for.
std::string Page(const std::string& heading, const std::string& table) {
  const std::string path = std::string(KLEPUR_DOCS) + "/storage_faults.md";
  std::string page = ReadFile(path);
  const std::size_t begin = page.find("| call |", page.find(heading));
  const std::size_t end = std::min(page.find("\n\n", begin), page.size() - 1) + 1;
  if (std::getenv("KLEPUR_WRITE_FAULTS") == nullptr) return page.substr(begin, end - begin);
  std::ofstream(path) << page.replace(begin, end - begin, table);
  return table;
}

TEST_F(Hindered, SaveLeavesTheOldOrTheNewFileWhereverItStops) {
  const std::string save = "save f '" + std::string(kNew) + "' backup=f.old";
  has_backup_ = true;
  const std::vector<Call> calls = CallsOf(save);
  std::string table = Head();
  bool replaced = false;
  for (std::size_t i = 0; i < calls.size(); i += kStep) {
    const std::string killed = Kill(calls[i], save);
    EXPECT_TRUE(killed == "old" || killed == "new") << Where(calls[i]);
    EXPECT_TRUE(!replaced || killed == "new") << Where(calls[i]);
    replaced = killed == "new";
    table += Row(calls[i], killed, save);
    if (HasFatalFailure()) return;
  }
  EXPECT_TRUE(replaced || kStep != 1);
  if (kStep != 1) return;
  EXPECT_EQ(Page("## Beside", table), table);
}

TEST_F(Hindered, WritingInPlaceLeavesTheOldTextInTheBackupAtLeast) {
  new_ = "new\n";  // shorter, so that there is a moment in which the old one's end stands behind it
  const std::string save = "save f '" + std::string(new_) + "' in-place backup=f.old";
  has_backup_ = true;
  const std::string refusal = "-e inject=fchmod:error=EPERM:when=1";  // its mode cannot be kept
  const std::vector<Call> calls = CallsOf(save, refusal);
  std::string table = Head();
  // Until the file beside is given up it is a save as any other.
  const auto first = std::find_if(calls.begin(), calls.end(), [](const Call& call) {
    return call.name == "unlink" && call.about == "new f";
  });
  ASSERT_NE(first, calls.end());
  bool part = false;
  for (std::size_t i = static_cast<std::size_t>(first - calls.begin()) + 1; i < calls.size();
       i += kStep) {
    const Call& call = calls[i];
    if (call.name == "fchmod") continue;  // which is the one that fails
    const std::string killed = Kill(call, save, refusal);
    EXPECT_NE(killed, "lost") << Where(call);
    part = part || killed == "backup";
    table += Row(call, killed, save, refusal);
    if (HasFatalFailure()) return;
  }
  EXPECT_TRUE(part || kStep != 1);
  if (kStep != 1) return;
  EXPECT_EQ(Page("## In place", table), table);
}

TEST_F(Hindered, SaveWhoseVerifierIsNotHeardLeavesTheOldFile) {
  const std::string save = "save f '" + std::string(kNew) + "' verify=true";
  std::vector<std::string> seen;
  for (const Call& call : CallsOf(save)) {
    // How often it listens differs from run to run.
    static const std::vector<std::string> kNames = {"pipe2", "clone3", "wait4", "read"};
    if (std::find(kNames.begin(), kNames.end(), call.name) == kNames.end()) continue;
    if (std::find(seen.begin(), seen.end(), call.name) != seen.end()) continue;
    if (kStep != 1 && call.name == "pipe2") continue;  // sanitizers make pipes of their own
    seen.push_back(call.name);
    EXPECT_EQ(Kill(call, save), "old") << Where(call);
    EXPECT_EQ(Fail(call, "EIO", save), call.name == "read" ? "new" : "old, file") << Where(call);
  }
  EXPECT_GE(seen.size(), 3U);
}

TEST_F(Hindered, NewFileIsMadeWholeOrNotAtAll) {
  makes_ = true;
  const std::string save = "make f '" + std::string(kNew) + "'";
  for (std::size_t i = 0; const Call& call : CallsOf(save)) {
    if (i++ % (2 * kStep) != 0) continue;
    const std::string killed = Kill(call, save);
    EXPECT_TRUE(killed == "none" || killed == "new") << Where(call);
    Fail(call, "EIO", save);
    Fail(call, "EINTR", save);
  }
}

TEST_F(Hindered, FileSystemWithoutLinksToFilesGetsANewFileByRenaming) {
  makes_ = true;
  const std::string options = "-e inject=renameat2:error=EINVAL -e inject=link:error=EPERM";
  Prepare();
  EXPECT_EQ(RunShell(Traced(options, "make f '" + std::string(kNew) + "'")).output, "written\n\n");
  EXPECT_EQ(Found(), "new");
  EXPECT_EQ(NamesIn(scratch_), "f");
}

TEST_F(Hindered, FileSystemThatRenamesOnlyOverFilesGetsANewFileByALink) {
  makes_ = true;
  const std::string save = "make f '" + std::string(kNew) + "'";
  const std::string unknown = "-e inject=renameat2:error=EINVAL";
  for (const Call& call : CallsOf(save, unknown)) {
    if (call.name != "link" && call.name != "unlink") continue;
    Prepare();
    RunShell(Traced(unknown + " -e inject=" + Where(call) + ":signal=KILL", save));
    EXPECT_TRUE(Found() == "none" || Found() == "new") << Where(call);
    EXPECT_EQ(
        RunShell("cd " + scratch_.Path(".") + " && " + test::Saver("make f third forced")).output,
        "written\n\n");
    EXPECT_EQ(NamesIn(scratch_), "f");
  }
}

TEST_F(Hindered, WriteThatOnlySaysItWroteIsFoundOut) {
  Prepare();
  const Ending ending =
      RunShell(Traced("-e inject=pwritev:retval=26:when=1", "save f '" + std::string(kNew) + "'"));
  EXPECT_EQ(
      ending.output,
      "file\nf: cannot write the file beside it: what is read there is not what was written\n");
  EXPECT_EQ(Found(), "old");
  EXPECT_EQ(NamesIn(scratch_), "f");
}

TEST_F(Hindered, FileSystemWithoutLocksIsSavedWithoutThem) {
  Prepare();
  EXPECT_EQ(RunShell(Traced("-e inject=flock:error=ENOLCK", "save f x")).output,
            "file\nf: cannot lock the file: No locks available\n");
  EXPECT_EQ(Found(), "old");
}

}  // namespace
}  // namespace klepur
