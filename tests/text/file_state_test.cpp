#include <klepur/text/file_state.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <klepur/text/descriptor.h>

#include <filesystem>
#include <string>

#include "tests/support/files.h"

namespace klepur::internal {
namespace {

class FileStates : public ::testing::Test {
 protected:
  static Descriptor Open(const std::string& path) {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  }

  test::ScratchFolder scratch_;
  const std::string path_ = scratch_.Write("f", "text\n");
};

TEST_F(FileStates, FileIsTheSameUntilItsBytesChange) {
  const FileState state = FileState::OfPath(path_);
  EXPECT_TRUE(state.Exists());
  EXPECT_EQ(state.IsThat(Open(path_).Get()), true);
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  EXPECT_EQ(state.IsThat(Open(path_).Get()), true);
  scratch_.Write("f", "TEXT\n");
  EXPECT_EQ(state.IsThat(Open(path_).Get()), false);
  scratch_.Write("f", "text\n");
  EXPECT_EQ(state.IsThat(Open(path_).Get()), true);
  scratch_.Write("f", "text, longer\n");
  EXPECT_EQ(state.IsThat(Open(path_).Get()), false);
}

TEST_F(FileStates, NoFileIsNoOther) {
  EXPECT_FALSE(FileState().Exists());
  EXPECT_FALSE(FileState::OfPath(scratch_.Path("missing")).Exists());
  EXPECT_EQ(FileState().IsThat(Open(path_).Get()), false);
  EXPECT_EQ(FileState::OfPath(path_).IsThat(-1), std::nullopt);
}

TEST_F(FileStates, SumThatIsKnownCounts) {
  const Descriptor file = Open(path_);
  struct stat status = {};
  ASSERT_EQ(::fstat(file.Get(), &status), 0);
  EXPECT_EQ(FileState::OfRead(status, 1).IsThat(file.Get()), false);
  const auto state = FileState::OfFile(file.Get());
  ASSERT_TRUE(state);
  EXPECT_EQ(state->IsThat(file.Get()), true);
}

}  // namespace
}  // namespace klepur::internal
