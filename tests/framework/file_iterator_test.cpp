#include <klepur/framework/file_iterator.h>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/unprivileged.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ThrowsMessage;

class FileReading : public ::testing::Test {
 protected:
  /// All that a stream brings in reads of at most `size` bytes.
  static std::string Rest(StreamIterator& stream, std::size_t size) {
    std::vector<char> buffer(size);
    std::string text;
    while (const std::size_t count = stream.Read(buffer.data(), size)) {
      EXPECT_LE(count, size);
      text.append(buffer.data(), count);
    }
    return text;
  }

  /// The error that opening throws, "" when it throws none.
  static std::string OpeningError(const std::string& path) {
    try {
      const FileIterator file(path.c_str());
      return "";
    } catch (const std::exception& error) {
      return error.what();
    }
  }

  /// The descriptor on which a file is open; -1 when there is none.
  static int DescriptorOf(const fs::path& path) {
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) {
      std::error_code gone;
      if (fs::read_symlink(entry, gone) == path) return std::stoi(entry.path().filename());
    }
    return -1;
  }

  ScratchFolder scratch_;
};

std::string EveryByteManyTimes() {
  std::string text;
  for (int i = 0; i != 200000; ++i) text += static_cast<char>(i % 251 + i / 251 % 5);
  return text;
}

TEST_F(FileReading, BringsEveryByteWhateverTheSizeOfTheReads) {
  const std::string content = EveryByteManyTimes();
  const std::string path = scratch_.Write("all", content);
  for (const std::size_t size : {1U, 2U, 4095U, 65536U, 1000000U}) {
    FileIterator file(path.c_str());
    EXPECT_EQ(Rest(file, size), content) << size;
  }
}

TEST_F(FileReading, ProgramsThatAreStartedMeanwhileDoNotGetTheFile) {
  const std::string path = fs::canonical(scratch_.Write("short", "abcdef"));
  const FileIterator file(path.c_str());
  EXPECT_EQ(fcntl(DescriptorOf(path), F_GETFD), FD_CLOEXEC);
}

TEST_F(FileReading, PathConvertsToItsBytes) {
  const std::string path = scratch_.Write("short", "abcdef");
  const auto BytesOf = [](FileIterator&& file) { return Rest(file, 16); };
  EXPECT_EQ(BytesOf(path.c_str()), "abcdef");
}

TEST_F(FileReading, EmptyFileIsAtItsEndAtOnce) {
  FileIterator file(scratch_.Write("empty", "").c_str());
  EXPECT_EQ(Rest(file, 16), "");
}

TEST_F(FileReading, EndStaysTheEnd) {
  FileIterator file(scratch_.Write("short", "ab").c_str());
  EXPECT_EQ(Rest(file, 16), "ab");
  EXPECT_EQ(Rest(file, 16), "");
}

TEST_F(FileReading, SizeIsThatOfTheFileWhenItWasOpened) {
  const std::string path = scratch_.Write("short", "abcdef");
  FileIterator file(path.c_str());
  EXPECT_EQ(file.Size(), 6U);
  scratch_.Write("short", "abcdefghi");
  EXPECT_EQ(Rest(file, 4), "abcdefghi");
  EXPECT_EQ(file.Size(), 6U);
  EXPECT_EQ(FileIterator("/dev/null").Size(), 0U);
}

TEST_F(FileReading, ReadsThroughALink) {
  fs::create_symlink(scratch_.Write("target", "x 1;\n"), scratch_.Path("link"));
  FileIterator file(scratch_.Path("link").c_str());
  EXPECT_EQ(Rest(file, 16), "x 1;\n");
}

TEST_F(FileReading, ReadsOnWhenTheFileIsRemoved) {
  const std::string path = scratch_.Write("short", "x 1;\n");
  FileIterator file(path.c_str());
  fs::remove(path);
  EXPECT_EQ(Rest(file, 16), "x 1;\n");
}

TEST_F(FileReading, ClosedFileIsAtItsEnd) {
  FileIterator file(scratch_.Write("short", "abcdef").c_str());
  char byte = 0;
  EXPECT_EQ(file.Read(&byte, 1), 1U);
  file.CloseFile();
  file.CloseFile();
  EXPECT_EQ(Rest(file, 16), "");
}

TEST_F(FileReading, CloseFileLetsGoOfTheFile) {
  const std::string path = scratch_.Write("short", "abcdef");
  const auto before = OpenDescriptors();
  FileIterator file(path.c_str());
  EXPECT_EQ(OpenDescriptors(), before + 1);
  file.CloseFile();
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FileReading, SecondCloseFileLeavesOtherFilesOpen) {
  const std::string path = scratch_.Write("short", "abcdef");
  FileIterator file(path.c_str());
  file.CloseFile();
  FileIterator other(path.c_str());
  file.CloseFile();
  EXPECT_EQ(Rest(other, 16), "abcdef");
}

TEST_F(FileReading, DeletionThroughTheBaseLetsGoOfTheFile) {
  const std::string path = scratch_.Write("short", "abcdef");
  const auto before = OpenDescriptors();
  std::unique_ptr<StreamIterator> file = std::make_unique<FileIterator>(path.c_str());
  file.reset();
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FileReading, OpeningThrowsTheSystemsReason) {
  EXPECT_EQ(OpeningError(scratch_.Path("missing")), "No such file or directory");
  EXPECT_EQ(OpeningError(""), "No such file or directory");
  EXPECT_EQ(OpeningError(scratch_.Write("file", "") + "/x"), "Not a directory");
}

TEST_F(FileReading, NullIsAFileThatIsMissing) {
  EXPECT_THAT([] { const FileIterator file(nullptr); },
              ThrowsMessage<std::system_error>("No such file or directory"));
}

TEST_F(FileReading, OpeningADirectoryThrowsAndLeavesNothingOpen) {
  const auto before = OpenDescriptors();
  EXPECT_EQ(OpeningError(scratch_.Path(".")), "Is a directory");
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(FileReading, OpeningAnUnreadableFileThrows) {
  fs::permissions(scratch_.Path("."), fs::perms::all);
  const std::string path = scratch_.Write("closed", "x 1;\n");
  fs::permissions(path, fs::perms::none);
  const Unprivileged unprivileged;
  if (!unprivileged.Holds()) GTEST_SKIP() << "stays root";
  EXPECT_EQ(OpeningError(path), "Permission denied");
}

TEST_F(FileReading, FailedReadThrowsTheSystemsReason) {
  FileIterator file("/proc/self/mem");  // nothing can be read at its front
  char byte = 0;
  try {
    file.Read(&byte, 1);
    FAIL() << "no exception";
  } catch (const std::system_error& error) {
    EXPECT_STREQ(error.what(), "Input/output error");
  }
}

int pipeEnd = -1;

void FillPipe(int /*signal*/) {
  static_cast<void>(!write(pipeEnd, "x 1;", 4));
}

TEST_F(FileReading, InterruptedReadGoesOn) {
  const std::string path = scratch_.Path("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  pipeEnd = open(path.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_NE(pipeEnd, -1);
  FileIterator file(path.c_str());
  struct sigaction action = {};  // without SA_RESTART: the waiting read is interrupted
  struct sigaction former = {};
  action.sa_handler = FillPipe;
  ASSERT_EQ(sigaction(SIGALRM, &action, &former), 0);
  const itimerval soon = {{0, 0}, {0, 50000}};
  ASSERT_EQ(setitimer(ITIMER_REAL, &soon, nullptr), 0);

  std::string buffer(8, '?');
  EXPECT_EQ(file.Read(buffer.data(), buffer.size()), 4U);
  EXPECT_EQ(buffer, "x 1;????");
  sigaction(SIGALRM, &former, nullptr);
  close(pipeEnd);
}

}  // namespace
}  // namespace klepur::test
