// Several processes that save one file, and readers meanwhile.
#include <gtest/gtest.h>
#include <klepur/document/document.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <thread>

#include "tests/storage/command.h"
#include "tests/storage/folder.h"
#include "tests/support/files.h"

namespace klepur {
namespace {

using test::RunShell;
using test::Saver;

#ifdef KLEPUR_SANITIZED
constexpr int kEdits = 15;
#else
constexpr int kEdits = 100;
#endif

TEST(SeveralSavers, NoEditIsLostAndNoReaderSeesAPart) {
  const test::ScratchFolder scratch;
  std::string text = "group {\n";
  for (int i = 0; i != 2000; ++i) text += "  host old" + std::to_string(i) + " { }\n";
  const std::string path = scratch.Write("f", text + "}\n# the end\n");
  std::atomic<bool> over = false;
  std::size_t reads = 0;
  std::thread reader([&] {
    std::size_t size = 0;
    while (!over) {
      const std::string seen = test::ReadFile(path);
      const bool whole = seen.size() >= size && seen.compare(0, 8, "group {\n") == 0 &&
                         seen.compare(seen.size() - 12, 12, "}\n# the end\n") == 0;
      EXPECT_TRUE(whole) << seen.size() << " after " << size;
      if (!whole) return;
      size = seen.size();
      ++reads;
    }
  });
  const std::string count = " " + std::to_string(kEdits);
  const test::Ending ending = RunShell(Saver("edit " + path + " a" + count) + " & " +
                                       Saver("edit " + path + " b" + count) + "; wait");
  over = true;
  reader.join();
  EXPECT_EQ(ending.output, "written\n\nwritten\n\n");
  EXPECT_GT(reads, 10U);
  const Document document = Document::Read(path);
  for (int i = 1; i <= kEdits; ++i) {
    for (const char* const name : {"host a", "host b"}) {
      EXPECT_EQ(document.FindAll(name + std::to_string(i)).size(), 1U) << name << i;
    }
  }
  EXPECT_EQ(document.Walk("host").size(), 2000U + 2 * kEdits);
  EXPECT_EQ(test::NamesIn(scratch), "f");
}

/// A line of shell that runs another one where it may mount what it likes; false where that is not allowed.
bool MayMount() {
  return RunShell("unshare -m true").status == 0;
}

std::string Mounted(const std::string& line) {
  return "unshare -m sh -c '" + line + "'";
}

TEST(Places, FullDiskLeavesTheOldFile) {
  if (!MayMount()) GTEST_SKIP() << "no mount namespace can be made here";
  const test::ScratchFolder scratch;
  const std::string folder = scratch.Path(".");
  // Half of the new text finds room; in place, all of the old one must be put back.
  for (const char* const wish : {"", "in-place"}) {
    const test::Ending ending = RunShell(Mounted(
        "mount -t tmpfs -o size=64k tmpfs " + folder + " && cd " + folder + " && echo old >f && " +
        Saver("save f \"$(head -c 100000 /dev/zero | tr \"\\\\0\" x)\" ") + wish +
        "; ls -A; cat f; " + Saver("save f new") + "; cat f"));
    EXPECT_EQ(ending.output,
              "file\nf: cannot write the file beside it: No space left on device\nf\nold\n"
              "written\n\nnew")
        << wish;
  }
}

TEST(Places, MountPointIsRefusedOrWrittenInPlace) {
  if (!MayMount()) GTEST_SKIP() << "no mount namespace can be made here";
  const test::ScratchFolder scratch;
  scratch.Write("f", "old\n");
  const std::string mounted = "cd " + scratch.Path(".") + " && mount --bind f f && ";
  EXPECT_EQ(RunShell(Mounted(mounted + Saver("save f new"))).output,
            "refused\nf: cannot replace the file: Device or resource busy; the file could only be "
            "written in place\n");
  EXPECT_EQ(test::ReadFile(scratch.Path("f")), "old\n");
  EXPECT_EQ(RunShell(Mounted(mounted + Saver("save f new in-place backup=b"))).output,
            "in-place\n\n");
  EXPECT_EQ(test::ReadFile(scratch.Path("f")), "new");
  EXPECT_EQ(test::ReadFile(scratch.Path("b")), "old\n");
  EXPECT_EQ(test::NamesIn(scratch), "b f");
}

TEST(Places, FolderThatIsReadOnlyIsRefused) {
  if (!MayMount()) GTEST_SKIP() << "no mount namespace can be made here";
  const test::ScratchFolder scratch;
  scratch.Write("f", "old\n");
  const std::string folder = scratch.Path(".");
  const std::string mounted = "mount --bind " + folder + " " + folder +
                              " && mount -o remount,ro,bind " + folder + " && cd " + folder +
                              " && ";
  EXPECT_EQ(
      RunShell(Mounted(mounted + Saver("save f new"))).output,
      "refused\nf: cannot make a file beside it: Read-only file system; the file could only be "
      "written in place\n");
  EXPECT_EQ(RunShell(Mounted(mounted + Saver("save f new in-place"))).output,
            "file\nf: cannot open the file: Read-only file system\n");
  EXPECT_EQ(test::ReadFile(scratch.Path("f")), "old\n");
}

TEST(Places, StandardStreamsThatAreClosedAreNotTakenForFiles) {
  const test::ScratchFolder scratch;
  // "f" is a folder's only file that no other can be made beside: its text is judged in memory.
  for (const bool mounted : {false, true}) {
    if (mounted && !MayMount()) GTEST_SKIP() << "no mount namespace can be made here";
    for (const char* const closed : {"<&-", ">&-", "2>&-", "<&- >&-", "<&- 2>&-", "<&- >&- 2>&-"}) {
      scratch.Write("f", "old\n");
      const std::string save = "cd " + scratch.Path(".") + " && " +
                               (mounted ? "mount --bind f f && " : "") +
                               Saver("save f new in-place verify=./judge ") + closed;
      scratch.Write("judge", "#!/bin/sh\necho judged\ntest \"$(cat $1)\" = new\n");
      ASSERT_EQ(RunShell("chmod +x " + scratch.Path("judge")).status, 0);
      EXPECT_EQ(RunShell(mounted ? Mounted(save) : save).status, 0) << closed;
      EXPECT_EQ(test::ReadFile(scratch.Path("f")), "new") << closed;
    }
  }
}

TEST(Places, ShortWriteLeavesTheOldFile) {
  const test::ScratchFolder scratch;
  const std::string path = scratch.Write("f", "old\n");
  EXPECT_EQ(RunShell(Saver("save " + path + " longer-than-that limit=5")).output,
            "file\n" + path + ": cannot write the file beside it: File too large\n");
  EXPECT_EQ(test::ReadFile(path), "old\n");
  EXPECT_EQ(test::NamesIn(scratch), "f");
}

}  // namespace
}  // namespace klepur
