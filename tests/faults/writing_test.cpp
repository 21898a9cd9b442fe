// Files that cannot be written, or not to their end.
//
// Elsewhere: directories, missing folders and files that may not be written
// (config/lifecycle_test.cpp, parser/config_writer_test.cpp).
#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/config_fixture.h"
#include "tests/support/descriptors.h"
#include "tests/support/system_log.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

/// A file in the layout that every save writes: its first block holds another.
constexpr std::string_view kText =
    "max-lease-time 7200;\n"
    "\n"
    "shared-network office\n"
    "{\n"
    "\n"
    "\t@header1\n"
    "\t{\n"
    "\t\t@range @ip1 @ip2;\n"
    "\t}\n"
    "\n"
    "}\n";

/// Lets files grow to so many bytes only while it lives, as on a disk that becomes full.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) : handler_(signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &former_), 0);
    const rlimit limit = {size, former_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &former_);
    signal(SIGXFSZ, handler_);
  }

 private:
  void (*handler_)(int);
  rlimit former_ = {};
};

/// Lets every opening of a file fail with "Too many open files" while it lives.
class DescriptorLimit {
 public:
  DescriptorLimit() {
    EXPECT_EQ(getrlimit(RLIMIT_NOFILE, &former_), 0);
    const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_NE(next, -1);
    ::close(next);
    // Descriptors are given out from the lowest free one on.
    const rlimit none = {static_cast<rlim_t>(next), former_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
  }
  DescriptorLimit(const DescriptorLimit&) = delete;
  DescriptorLimit& operator=(const DescriptorLimit&) = delete;
  ~DescriptorLimit() { setrlimit(RLIMIT_NOFILE, &former_); }

 private:
  rlimit former_ = {};
};

template <class Family>
class WritingConfig : public ConfigFixture<Family> {
 public:
  WritingConfig() {
    this->Given(kText);
    tree_ = this->Tree();
    ClearSystemLog();
  }

  /// The tree is as it was, no file stays open, nothing was logged, and the next save is whole.
  void ExpectNoHarm() {
    EXPECT_EQ(this->Tree(), tree_);
    EXPECT_EQ(OpenDescriptors(), descriptors_);
    EXPECT_THAT(SystemLog(), IsEmpty());
    EXPECT_EQ(this->Saved(), Family::Text(kText));
  }

 private:
  std::string tree_;
  const std::ptrdiff_t descriptors_ = OpenDescriptors();
};
TYPED_TEST_SUITE(WritingConfig, Families, FamilyNames);

TYPED_TEST(WritingConfig, FullDeviceIsNotReported) {
  EXPECT_EQ(this->Conf().Save("/dev/full"), 1);
  this->ExpectNoHarm();
}

TYPED_TEST(WritingConfig, FullDeviceIsNotReportedForALineLongerThanAnyBuffer) {
  const std::string line = "option x \"" + std::string(300000, 'y') + "\";";
  const std::string inner = "office\n{\n\t" + line + "\n";
  this->Node("shared-network office")->section.AddEntry(line.c_str(), nullptr, nullptr);
  EXPECT_EQ(this->Conf().Save("/dev/full"), 1);
  EXPECT_EQ(this->Saved(), Replace(TypeParam::Text(kText), {{"office\n{\n", inner}}));
}

TYPED_TEST(WritingConfig, DiskThatBecomesFullKeepsTheFrontOfTheText) {
  const std::string path = this->scratch_.Path("cut.conf");
  for (const std::size_t size : {0U, 1U, 40U}) {
    int result = 0;
    {
      const FileSizeLimit limit(size);
      result = this->Conf().Save(path);
    }
    EXPECT_EQ(result, 1);
    EXPECT_EQ(ReadFile(path), TypeParam::Text(kText).substr(0, size));
    this->ExpectNoHarm();
  }
}

TYPED_TEST(WritingConfig, ProgramWithTooManyOpenFilesWritesNothing) {
  const std::string path = this->scratch_.Write("other.conf", "as it was");
  auto& file = this->Conf();
  // Sanitizers need descriptors too when they first meet an object: let them meet all of them.
  ASSERT_EQ(file.Save(this->scratch_.Path("first.conf")), 1);
  int overOther = 1;
  int overItself = 1;
  {
    const DescriptorLimit limit;
    overOther = file.Save(path);
    overItself = file.Save("");
  }
  EXPECT_EQ(overOther, 0);
  EXPECT_EQ(overItself, 0);
  EXPECT_EQ(ReadFile(path), "as it was");
  EXPECT_EQ(ReadFile(file.GetConfFileName()), TypeParam::Text(kText));
  this->ExpectNoHarm();
}

TYPED_TEST(WritingConfig, FolderThatIsGoneIsAFailureAndIsNotMadeAgain) {
  const std::string folder = this->scratch_.Path("gone");
  fs::create_directory(folder);
  EXPECT_EQ(this->Conf().Save(folder + "/x.conf"), 1);
  fs::remove_all(folder);
  EXPECT_EQ(this->Conf().Save(folder + "/x.conf"), 0);
  EXPECT_FALSE(fs::exists(folder));
  this->ExpectNoHarm();
}

// ---- WriteBuff ----

/// Writes to an open file of the test's.
class OpenWriter : public DhcpParser {
 public:
  explicit OpenWriter(const char* path) {
    outputFile = std::fopen(path, "w");
    // Nothing waits in a buffer: what is counted has reached the file.
    if (outputFile != nullptr) std::setvbuf(outputFile, nullptr, _IONBF, 0);
  }
};

TEST(WritingText, BytesThatFindNoRoomAreNotCounted) {
  EXPECT_EQ(OpenWriter("/dev/full").WriteBuff("text"), 0U);
  const ScratchFolder scratch;
  OpenWriter writer(scratch.Path("cut").c_str());
  std::size_t written = 0;
  {
    const FileSizeLimit limit(3);
    written = writer.WriteBuff("text");
  }
  EXPECT_EQ(written, 3U);
}

}  // namespace
}  // namespace klepur::test
