#include <klepur/framework/file_utility.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/files.h"
#include "tests/support/unprivileged.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;

class FileExists : public ::testing::Test {
 protected:
  bool Exists(const char* name) const {
    return FileUtility::IsFileExist(scratch_.Path(name).c_str());
  }

  ScratchFolder scratch_;
};

TEST_F(FileExists, FileDoes) {
  scratch_.Write("full.conf", "x 1;\n");
  scratch_.Write("empty.conf", "");
  EXPECT_TRUE(Exists("full.conf"));
  EXPECT_TRUE(Exists("empty.conf"));
}

TEST_F(FileExists, MissingFileDoesNot) {
  EXPECT_FALSE(Exists("server.conf"));
  EXPECT_FALSE(Exists("no/such/folder/server.conf"));
}

TEST_F(FileExists, FileUsedAsAFolderDoesNot) {
  scratch_.Write("server.conf", "");
  EXPECT_FALSE(Exists("server.conf/"));
  EXPECT_FALSE(Exists("server.conf/x"));
}

TEST_F(FileExists, FolderAndDeviceDo) {
  EXPECT_TRUE(Exists("."));
  EXPECT_TRUE(FileUtility::IsFileExist("/dev/null"));
}

TEST_F(FileExists, LinkDoesWhenItsTargetDoes) {
  fs::create_symlink(scratch_.Path("target"), scratch_.Path("link"));
  EXPECT_FALSE(Exists("link"));
  scratch_.Write("target", "");
  EXPECT_TRUE(Exists("link"));
}

TEST_F(FileExists, NoPathDoesNot) {
  EXPECT_FALSE(FileUtility::IsFileExist(nullptr));
  EXPECT_FALSE(FileUtility::IsFileExist(""));
}

TEST_F(FileExists, UnreadableFileDoes) {
  fs::permissions(scratch_.Path("."), fs::perms::all);
  fs::permissions(scratch_.Write("server.conf", ""), fs::perms::none);
  const Unprivileged unprivileged;
  if (!unprivileged.Holds()) GTEST_SKIP() << "stays root";
  EXPECT_TRUE(Exists("server.conf"));
}

TEST_F(FileExists, FileInAFolderThatMayNotBeSearchedDoesNot) {
  fs::create_directory(scratch_.Path("closed"));
  scratch_.Write("closed/server.conf", "");
  fs::permissions(scratch_.Path("closed"), fs::perms::none);
  bool exists = true;
  {
    const Unprivileged unprivileged;
    if (!unprivileged.Holds()) GTEST_SKIP() << "stays root";
    exists = Exists("closed/server.conf");
  }
  fs::permissions(scratch_.Path("closed"), fs::perms::owner_all);
  EXPECT_FALSE(exists);
}

}  // namespace
}  // namespace klepur::test
