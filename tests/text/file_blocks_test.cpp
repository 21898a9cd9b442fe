#include <klepur/text/file_blocks.h>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <klepur/text/descriptor.h>

#include <cerrno>
#include <set>
#include <string>

#include "tests/support/files.h"

namespace klepur::internal {
namespace {

std::string LongText(std::size_t size) {
  std::string text(size, '\0');
  for (std::size_t i = 0; i != size; ++i) text[i] = static_cast<char>(i * 31 % 253);
  return text;
}

TEST(FileBlocks, AreTheBytesOfTheFileWhereverItStands) {
  const test::ScratchFolder scratch;
  constexpr std::size_t kBlock = FileBlocks::kSize;
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, kBlock - 1, kBlock, kBlock + 1, 3 * kBlock}) {
    const std::string text = LongText(size);
    const Descriptor file(::open(scratch.Write("f", text).c_str(), O_RDONLY | O_CLOEXEC));
    ASSERT_NE(::lseek(file.Get(), 7, SEEK_SET), -1);
    FileBlocks blocks(file.Get());
    std::string read;
    for (auto block = blocks.Next(); block && !block->empty(); block = blocks.Next()) {
      EXPECT_TRUE(block->size() == kBlock || read.size() + block->size() == size);
      read += *block;
    }
    EXPECT_TRUE(read == text) << size;
    EXPECT_EQ(Checksum::OfFile(file.Get()), Checksum::Of(text));
  }
}

TEST(FileBlocks, FailureIsTold) {
  const Descriptor folder(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  EXPECT_EQ(FileBlocks(folder.Get()).Next(), std::nullopt);
  EXPECT_EQ(errno, EISDIR);
  EXPECT_EQ(Checksum::OfFile(folder.Get()), std::nullopt);
}

TEST(Checksum, DiffersWhereverOneByteOrTheLengthDoes) {
  const std::string text = LongText(300);
  std::set<std::uint64_t> sums = {Checksum::Of(text)};
  for (std::size_t i = 0; i != text.size(); ++i) {
    for (const int change : {1, 0x80}) {
      std::string other = text;
      other[i] = static_cast<char>(other[i] ^ change);
      EXPECT_TRUE(sums.insert(Checksum::Of(other)).second) << i;
    }
    EXPECT_TRUE(sums.insert(Checksum::Of(text.substr(0, i))).second) << i;
  }
  for (std::size_t zeros = 2; zeros != 100; ++zeros) {
    EXPECT_TRUE(sums.insert(Checksum::Of(std::string(zeros, '\0'))).second) << zeros;
  }
}

TEST(Checksum, DiffersWhereWordsTradePlaces) {
  std::string text = LongText(128);
  std::set<std::uint64_t> sums = {Checksum::Of(text)};
  for (std::size_t i = 0; i + 40 <= text.size(); i += 8) {
    for (const std::size_t step : {std::size_t{8}, std::size_t{32}}) {
      std::string other = text;
      for (std::size_t byte = 0; byte != 8; ++byte)
        std::swap(other[i + byte], other[i + step + byte]);
      EXPECT_TRUE(sums.insert(Checksum::Of(other)).second) << i << " " << step;
    }
  }
}

}  // namespace
}  // namespace klepur::internal
