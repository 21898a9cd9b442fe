// Files that fail, change and vanish while they are read.
//
// Elsewhere: a stream of a caller's own that fails or throws (support/parse_failure_tests.h) or
// brings its bytes in pieces (framework/lexer_test.cpp); missing files, directories and files that
// may not be read (support/parse_failure_tests.h, config/lifecycle_test.cpp); a read that a signal
// interrupts (framework/file_iterator_test.cpp).
#include <gmock/gmock.h>
#include <klepur/leases/leases_parser.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/faults/file_calls.h"
#include "tests/leases/lease_words.h"
#include "tests/support/descriptors.h"
#include "tests/support/navigation_fixture.h"
#include "tests/support/system_log.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Brings a file line by line, and does something before the read behind so many lines.
FileCalls::Read Doing(const std::function<void()>& something, std::size_t lines) {
  return [=, count = std::size_t{0}](int descriptor, char* buffer, std::size_t size) mutable {
    if (count++ == lines) something();
    return ReadLine(descriptor, buffer, size);
  };
}

/// Brings a file line by line, and fails behind so many lines.
FileCalls::Read FailingWith(int reason, std::size_t lines) {
  return [=, count = std::size_t{0}](int descriptor, char* buffer, std::size_t size) mutable {
    return count++ == lines ? FailWith(reason) : ReadLine(descriptor, buffer, size);
  };
}

// ---- configuration files ----

/// A file line by line, and what each line adds to the tree.
struct Line {
  std::string_view text;
  std::string_view adds;
};

constexpr Line kLines[] = {
    {"log root;\n", "  log root;\n"},
    {"shared-network office {\n", "  [shared-network office]\n"},
    {"  @header1 {\n", "    [@header1]\n"},
    {"    log one;\n", "      log one;\n"},
    {"  }\n", ""},
    {"}\n", ""},
    {"host b {\n", "  [host b]\n"},
    {"  log b;\n", "    log b;\n"},
    {"}\n", ""},
};
constexpr std::size_t kAll = std::size(kLines);

template <class Family>
class ReadingConfig : public NavigationFixture<Family> {
 public:
  ReadingConfig() {
    this->Unopened(Text(kAll));
    ClearSystemLog();
  }

  /// The first lines of the file.
  static std::string Text(std::size_t lines) {
    std::string text;
    for (std::size_t i = 0; i != lines; ++i) text += kLines[i].text;
    return Family::Text(text);
  }

  /// The tree of the first lines.
  static std::string TreeOf(std::size_t lines) {
    std::string tree = "[TREE_ROOT_SECTION]\n";
    for (std::size_t i = 0; i != lines; ++i) tree += kLines[i].adds;
    return Family::Text(tree);
  }

  std::string Path() { return this->Conf().GetConfFileName(); }

  bool OpenWith(FileCalls::Read read, FileCalls::BeforeOpen beforeOpen = nullptr) {
    const FileCalls calls(std::move(read), std::move(beforeOpen));
    return this->Conf().Open();
  }

  void ExpectWhole() {
    EXPECT_EQ(this->Tree(), TreeOf(kAll));
    EXPECT_EQ(this->Cursors(), Family::Text("shared-network office / @header1"));
    EXPECT_THAT(SystemLog(), IsEmpty());
  }

  /// What was not read and why is logged, the lines before are in the tree, no file stays open, and
  /// the object opens the file once it can be read.
  void ExpectFailed(std::size_t lines, const std::string& reason) {
    EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + Path() + ", " +
                                         reason + "!"));
    EXPECT_EQ(this->Tree(), lines == kNothing ? "" : TreeOf(lines));
    EXPECT_EQ(this->Cursors(), "null / null");
    EXPECT_EQ(OpenDescriptors(), descriptors_);
  }

  void ExpectOpensNow() {
    EXPECT_TRUE(this->Conf().Open());
    ClearSystemLog();
    ExpectWhole();
  }

  static constexpr auto kNothing = static_cast<std::size_t>(-1);

 private:
  const std::ptrdiff_t descriptors_ = OpenDescriptors();
};
TYPED_TEST_SUITE(ReadingConfig, Families, FamilyNames);

TYPED_TEST(ReadingConfig, ReadsMayBringAsLittleAsTheyLike) {
  for (const std::size_t most : {1U, 2U, 3U, 5U, 7U, 64U}) {
    const auto read = [most](int descriptor, char* buffer, std::size_t size) {
      return ::read(descriptor, buffer, std::min(size, most));
    };
    this->Unopened(this->Text(kAll));
    ClearSystemLog();
    EXPECT_TRUE(this->OpenWith(read)) << most;
    this->ExpectWhole();
    this->Unopened(WithCarriageReturns(this->Text(kAll)));
    ClearSystemLog();
    EXPECT_TRUE(this->OpenWith(read)) << most;
    this->ExpectWhole();
  }
}

TYPED_TEST(ReadingConfig, InterruptedReadsGoOn) {
  int interruptions = 0;
  EXPECT_TRUE(this->OpenWith([&](int descriptor, char* buffer, std::size_t size) {
    return ++interruptions % 100 != 0 ? FailWith(EINTR) : ReadLine(descriptor, buffer, size);
  }));
  this->ExpectWhole();
  EXPECT_GE(interruptions, 1000);  // nine lines and the end
}

TYPED_TEST(ReadingConfig, WhicheverReadFailsWhatCameBeforeIsInTheTree) {
  for (std::size_t lines = 0; lines <= kAll; ++lines) {
    SCOPED_TRACE(lines);
    this->Unopened(this->Text(kAll));
    ClearSystemLog();
    EXPECT_FALSE(this->OpenWith(FailingWith(EIO, lines)));
    this->ExpectFailed(lines, "Input/output error");
    this->ExpectOpensNow();
  }
}

TYPED_TEST(ReadingConfig, ReasonIsTheSystems) {
  const struct {
    int reason;
    const char* text;
  } reasons[] = {
      {EIO, "Input/output error"},
      {ESTALE, "Stale file handle"},
      {EBADF, "Bad file descriptor"},
      {EAGAIN, "Resource temporarily unavailable"},
  };
  for (const auto& row : reasons) {
    this->Unopened(this->Text(kAll));
    ClearSystemLog();
    EXPECT_FALSE(this->OpenWith(FailingWith(row.reason, 3)));
    this->ExpectFailed(3, row.text);
    this->ExpectOpensNow();
  }
}

TYPED_TEST(ReadingConfig, FailureInALaterOpenLeavesNothingOfTheFormerTree) {
  ASSERT_TRUE(this->Conf().Open());
  this->scratch_.Write("dhcpd.conf", "log new;\nlog newer;\n");
  EXPECT_FALSE(this->OpenWith(FailingWith(EIO, 1)));
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  log new;\n");
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(ReadingConfig, FileThatShrinksIsReadUpToItsNewEnd) {
  for (std::size_t read = 0; read <= kAll; ++read) {
    for (std::size_t left = 0; left <= kAll; ++left) {
      SCOPED_TRACE(::testing::Message() << left << " lines left behind " << read << " read");
      this->Unopened(this->Text(kAll));
      const std::string path = this->Path();
      ClearSystemLog();
      EXPECT_TRUE(
          this->OpenWith(Doing([&] { fs::resize_file(path, this->Text(left).size()); }, read)));
      EXPECT_EQ(this->Tree(), this->TreeOf(std::max(read, left)));
      EXPECT_THAT(SystemLog(), IsEmpty());
    }
  }
}

TYPED_TEST(ReadingConfig, StatementThatIsCutOffByShrinkingIsNotKept) {
  const std::string path = this->Path();
  const std::size_t size = this->Text(4).size() - std::string_view(";\n").size();
  EXPECT_TRUE(this->OpenWith(Doing([&] { fs::resize_file(path, size); }, 2)));
  EXPECT_EQ(this->Tree(), this->TreeOf(3));
}

TYPED_TEST(ReadingConfig, FileThatGrowsIsReadToItsNewEnd) {
  const std::string path = this->Path();
  EXPECT_TRUE(
      this->OpenWith(Doing([&] { std::ofstream(path, std::ios::app) << "host added {\n}\n"; }, 4)));
  EXPECT_EQ(this->Tree(), this->TreeOf(kAll) + "  [host added]\n");
}

TYPED_TEST(ReadingConfig, FileThatVanishesIsReadToItsEnd) {
  const std::string path = this->Path();
  for (std::size_t lines = 0; lines <= kAll; ++lines) {
    this->Unopened(this->Text(kAll));
    ClearSystemLog();
    EXPECT_TRUE(this->OpenWith(Doing([&] { fs::remove(path); }, lines)));
    this->ExpectWhole();
  }
  EXPECT_FALSE(this->Conf().Open());
  EXPECT_THAT(SystemLog(), ElementsAre("closelog", "openlog dhcpparser LOG_PID LOG_USER",
                                       "syslog LOG_WARNING File " + path + " doesn't exist!"));
}

TYPED_TEST(ReadingConfig, FileThatAnotherTakesThePlaceOfIsReadToItsEnd) {
  const std::string path = this->Path();
  const std::string other = this->scratch_.Write("other.conf", "log other;\n");
  EXPECT_TRUE(this->OpenWith(Doing([&] { fs::rename(other, path); }, 2)));
  this->ExpectWhole();
  EXPECT_TRUE(this->Conf().Open());
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  log other;\n");
}

TYPED_TEST(ReadingConfig, FileThatVanishesBeforeItIsOpenedIsAFailure) {
  const std::string path = this->Path();
  EXPECT_FALSE(this->OpenWith(nullptr, [&] { return fs::remove(path) ? 0 : -1; }));
  this->ExpectFailed(this->kNothing, "No such file or directory");
  this->scratch_.Write("dhcpd.conf", this->Text(kAll));
  this->ExpectOpensNow();
}

TYPED_TEST(ReadingConfig, FileThatBecomesADirectoryBeforeItIsOpenedIsAFailure) {
  const std::string path = this->Path();
  EXPECT_FALSE(this->OpenWith(nullptr, [&] {
    fs::remove(path);
    return fs::create_directory(path) ? 0 : -1;
  }));
  this->ExpectFailed(this->kNothing, "Is a directory");
  fs::remove(path);
  this->scratch_.Write("dhcpd.conf", this->Text(kAll));
  this->ExpectOpensNow();
}

TYPED_TEST(ReadingConfig, OpeningThatFailsIsLoggedWithTheSystemsReason) {
  const struct {
    int reason;
    const char* text;
  } reasons[] = {
      {EMFILE, "Too many open files"},
      {ENFILE, "Too many open files in system"},
      {EIO, "Input/output error"},
  };
  for (const auto& row : reasons) {
    this->Unopened(this->Text(kAll));
    ClearSystemLog();
    EXPECT_FALSE(this->OpenWith(nullptr, [&] { return row.reason; }));
    this->ExpectFailed(this->kNothing, row.text);
    this->ExpectOpensNow();
  }
}

// ---- leases files ----

/// A leases file line by line, and the leases of the file up to there.
struct LeasesLine {
  std::string_view text;
  std::vector<std::string> leases;
};

const std::string kFirst = "4142 address=2001:db8::10 state=active max=600";
const std::string kSecond = "4344 address=2001:db8:100::/48 ends=never";

const LeasesLine kLeasesLines[] = {
    {"ia-na \"AB\" {\n", {"4142"}},
    {"  iaaddr 2001:db8::10 {\n", {"4142 address=2001:db8::10"}},
    {"    binding state active;\n", {"4142 address=2001:db8::10 state=active"}},
    {"    max-life 600;\n", {kFirst}},
    {"  }\n", {kFirst}},
    {"}\n", {kFirst}},
    {"ia-pd \"CD\" {\n", {kFirst, "4344"}},
    {"  iaprefix 2001:db8:100::/48 {\n", {kFirst, "4344 address=2001:db8:100::/48"}},
    {"    ends never;\n", {kFirst, kSecond}},
    {"  }\n", {kFirst, kSecond}},
    {"}\n", {kFirst, kSecond}},
};
const std::size_t kAllLeasesLines = std::size(kLeasesLines);

class ReadingLeases : public ::testing::Test {
 protected:
  static std::string Text(std::size_t lines) {
    std::string text;
    for (std::size_t i = 0; i != lines; ++i) text += kLeasesLines[i].text;
    return text;
  }

  static std::vector<std::string> LeasesOf(std::size_t lines) {
    return lines == 0 ? std::vector<std::string>() : kLeasesLines[lines - 1].leases;
  }

  std::vector<std::string> LeasesWith(FileCalls::Read read,
                                      FileCalls::BeforeOpen beforeOpen = nullptr) {
    scratch_.Write("dhcpd6.leases", Text(kAllLeasesLines));
    ClearSystemLog();
    std::list<_Dhcpv6LeaseStore> leases;
    {
      const FileCalls calls(std::move(read), std::move(beforeOpen));
      Dhcpv6LeasesParser().GetLeases(path_.c_str(), leases);
    }
    EXPECT_EQ(OpenDescriptors(), descriptors_);
    return LeaseWords(leases);
  }

  void ExpectLogged(const std::string& reason) const {
    EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path_ + ", " +
                                         reason + "!"));
  }

  ScratchFolder scratch_;
  const std::string path_ = scratch_.Path("dhcpd6.leases");
  const std::ptrdiff_t descriptors_ = OpenDescriptors();
};

TEST_F(ReadingLeases, ShortAndInterruptedReadsGiveAllLeases) {
  int calls = 0;
  const auto read = [&](int descriptor, char* buffer, std::size_t size) {
    return ++calls % 3 != 0 ? FailWith(EINTR) : ::read(descriptor, buffer, std::min(size, 5UL));
  };
  EXPECT_EQ(LeasesWith(read), LeasesOf(kAllLeasesLines));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(ReadingLeases, WhicheverReadFailsTheLeasesBeforeAreGiven) {
  for (std::size_t lines = 0; lines <= kAllLeasesLines; ++lines) {
    SCOPED_TRACE(lines);
    EXPECT_EQ(LeasesWith(FailingWith(EIO, lines)), LeasesOf(lines));
    ExpectLogged("Input/output error");
  }
}

TEST_F(ReadingLeases, FileThatShrinksGivesTheLeasesUpToItsNewEnd) {
  for (std::size_t lines = 0; lines <= kAllLeasesLines; ++lines) {
    SCOPED_TRACE(lines);
    EXPECT_EQ(LeasesWith(Doing([&] { fs::resize_file(path_, 0); }, lines)), LeasesOf(lines));
    EXPECT_THAT(SystemLog(), IsEmpty());
  }
}

TEST_F(ReadingLeases, FileThatVanishesGivesAllLeases) {
  EXPECT_EQ(LeasesWith(Doing([&] { fs::remove(path_); }, 3)), LeasesOf(kAllLeasesLines));
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_F(ReadingLeases, FileThatVanishesBeforeItIsOpenedHasNone) {
  EXPECT_THAT(LeasesWith(nullptr, [&] { return fs::remove(path_) ? 0 : -1; }), IsEmpty());
  ExpectLogged("No such file or directory");
}

}  // namespace
}  // namespace klepur::test
