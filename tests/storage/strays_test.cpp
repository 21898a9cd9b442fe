#include <klepur/storage/strays.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <klepur/storage/file_lock.h>
#include <klepur/storage/stored_file.h>
#include <klepur/storage/target.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/storage/folder.h"
#include "tests/support/files.h"

namespace klepur::internal {
namespace {

TEST(Strays, AreRecognisedByTheirNames) {
  struct Case {
    const char* stray;
    bool is;
  };
  for (const Case& row : std::vector<Case>{
           {".dhcpd.conf.klepur-1-00000000", true},
           {".dhcpd.conf.klepur-4194303-09afAF00", false},
           {".dhcpd.conf.klepur-4194303-09afaf00", true},
           {"dhcpd.conf.klepur-1-00000000", false},
           {".dhcpd.conf", false},
           {".dhcpd.conf.klepur-", false},
           {".dhcpd.conf.klepur-1", false},
           {".dhcpd.conf.klepur-1-", false},
           {".dhcpd.conf.klepur--00000000", false},
           {".dhcpd.conf.klepur-1-0000000", false},
           {".dhcpd.conf.klepur-1-000000000", false},
           {".dhcpd.conf.klepur-x-00000000", false},
           {".dhcpd6.conf.klepur-1-00000000", false},
           {".dhcpd.conf.20240517T081500Z.klepur-1-00000000", false},
       }) {
    EXPECT_EQ(IsStrayOf("dhcpd.conf", row.stray), row.is) << row.stray;
  }
  for (const std::string& name : {std::string("f"), std::string(255, 'n')}) {
    const std::string stray = NameOf(StrayNameFor("/etc/" + name));
    EXPECT_TRUE(IsStrayOf(name, stray)) << stray;
    EXPECT_LE(stray.size(), 255U);
  }
}

TEST(Strays, ThoseOfDeadSaversGoWithTheNextSave) {
  const test::ScratchFolder scratch;
  const std::string path = scratch.Write("f", "old\n");
  const std::string dead = scratch.Write(".f.klepur-17-0123abcd", "half");
  const std::string living = scratch.Write(".f.klepur-17-0123abce", "half");
  scratch.Write(".g.klepur-17-0123abcd", "another file's");
  std::filesystem::create_symlink("f", scratch.Path(".f.klepur-17-0123abcf"));
  std::filesystem::create_directory(scratch.Path(".f.klepur-17-0123abc0"));
  const Descriptor saver(::open(living.c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_TRUE(LockNow(saver.Get()));
  const SaveReport report = SaveText(path, "new\n");
  EXPECT_EQ(report.StraysRemoved(),
            std::vector<std::string>{std::filesystem::canonical(scratch.Path(".")).string() +
                                     "/.f.klepur-17-0123abcd"});
  EXPECT_FALSE(std::filesystem::exists(dead));
  EXPECT_EQ(test::NamesIn(scratch),
            ".f.klepur-17-0123abc0 .f.klepur-17-0123abce .f.klepur-17-0123abcf "
            ".g.klepur-17-0123abcd f");
}

TEST(Strays, SecondNameOfTheFileItselfGoesToo) {
  const test::ScratchFolder scratch;
  const std::string path = scratch.Write("f", "old\n");
  std::filesystem::create_hard_link(path, scratch.Path(".f.klepur-17-0123abcd"));
  EXPECT_EQ(SaveText(path, "new\n").StraysRemoved().size(), 1U);
  EXPECT_EQ(test::ReadFile(path), "new\n");
  EXPECT_EQ(test::NamesIn(scratch), "f");
}

}  // namespace
}  // namespace klepur::internal
