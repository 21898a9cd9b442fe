#include <klepur/text/file_bytes.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <variant>

#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/unprivileged.h"

namespace klepur::internal {
namespace {

using Step = FileFailure::Step;
using Result = std::variant<TextBuffer, FileFailure>;

class FileBytes : public ::testing::Test {
 protected:
  ~FileBytes() override { EXPECT_EQ(test::OpenDescriptors(), descriptors_); }

  static void ExpectText(const Result& result, std::string_view text) {
    ASSERT_TRUE(std::holds_alternative<TextBuffer>(result));
    const auto& buffer = std::get<TextBuffer>(result);
    ASSERT_EQ(buffer.size(), text.size());
    EXPECT_TRUE(buffer.view() == text);
    EXPECT_EQ(std::string(buffer.data() + buffer.size(), kPadding), std::string(kPadding, '\0'));
  }

  static void ExpectFailure(const Result& result, Step step, int reason) {
    ASSERT_TRUE(std::holds_alternative<FileFailure>(result));
    EXPECT_EQ(std::get<FileFailure>(result).step, step);
    EXPECT_EQ(std::get<FileFailure>(result).reason, reason);
  }

  test::ScratchFolder scratch_;

 private:
  const std::ptrdiff_t descriptors_ = test::OpenDescriptors();
};

std::string LongText(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i != size; ++i) text[i] = static_cast<char>(i * 31 % 253);
  return text;
}

TEST_F(FileBytes, RegularFileIsReadWhole) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, std::size_t{63}, std::size_t{64}, std::size_t{4096},
        std::size_t{100000}, LargeMemory::kLarge - kPadding, LargeMemory::kLarge,
        (std::size_t{4} << 20) - kPadding, std::size_t{5} << 20}) {
    SCOPED_TRACE(size);
    const std::string text = LongText(size);
    ExpectText(ReadFileBytes(scratch_.Write("file", text)), text);
  }
}

TEST_F(FileBytes, BytesAreLeftAsTheyAre) {
  const std::string_view text("\xef\xbb\xbfhost a {}\r\n\0\xff\x1a\n\n", 19);
  ExpectText(ReadFileBytes(scratch_.Write("file", text)), text);
}

TEST_F(FileBytes, LinksAreFollowed) {
  const std::string path = scratch_.Write("file", "text\n");
  std::filesystem::create_symlink(path, scratch_.Path("link"));
  ExpectText(ReadFileBytes(scratch_.Path("link")), "text\n");
}

TEST_F(FileBytes, FileThatSaysNoSizeIsReadToItsEnd) {
  const Result result = ReadFileBytes("/proc/self/status");
  ASSERT_TRUE(std::holds_alternative<TextBuffer>(result));
  EXPECT_EQ(std::get<TextBuffer>(result).view().substr(0, 5), "Name:");
  ExpectText(ReadFileBytes("/dev/null"), "");
}

TEST_F(FileBytes, PipeIsReadUntilItIsClosed) {
  const std::string path = scratch_.Path("pipe");
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  for (const std::size_t size : {std::size_t{0}, std::size_t{10}, std::size_t{3000000}}) {
    const std::string text = LongText(size);
    std::thread writer([&] { std::ofstream(path) << text; });
    ExpectText(ReadFileBytes(path), text);
    writer.join();
  }
}

TEST_F(FileBytes, WhatCannotBeOpenedIsNotRead) {
  ExpectFailure(ReadFileBytes(scratch_.Path("missing")), Step::kOpen, ENOENT);
  ExpectFailure(ReadFileBytes(""), Step::kOpen, ENOENT);
  ExpectFailure(ReadFileBytes(scratch_.Write("file", "text") + "/below"), Step::kOpen, ENOTDIR);
  const std::string path = scratch_.Write("forbidden", "text");
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const test::Unprivileged user;
  if (user.Holds()) {
    const Result result = ReadFileBytes(path);
    ExpectFailure(result, Step::kOpen, EACCES);
  }
}

TEST_F(FileBytes, FolderIsNoText) {
  ExpectFailure(ReadFileBytes(scratch_.Path("")), Step::kRead, EISDIR);
}

TEST_F(FileBytes, MoreBytesThanAreWantedAreRefused) {
  const std::string path = scratch_.Write("file", "12345678");
  ExpectText(ReadFileBytes(path, 8), "12345678");
  ExpectFailure(ReadFileBytes(path, 7), Step::kRead, EFBIG);
  ExpectFailure(ReadFileBytes("/dev/zero", 10000), Step::kRead, EFBIG);
}

TEST_F(FileBytes, FileOfFourGigabytesIsRefused) {
  const std::string path = scratch_.Write("file", "");
  std::filesystem::resize_file(path, (std::uintmax_t{4} << 30) - 65536);  // a hole
  ExpectFailure(ReadFileBytes(path), Step::kRead, EFBIG);
}

}  // namespace
}  // namespace klepur::internal
