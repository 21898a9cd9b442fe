#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <initializer_list>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/support/navigation_fixture.h"
#include "tests/support/system_log.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using TreeNode = Tree<CfSection>::TreeNode;

constexpr const char* kOpenLog = "openlog dhcpparser LOG_PID LOG_USER";

/// A file in the layout that a first save writes.
constexpr std::string_view kWritten = R"(log root;
#note

@header1
{
	log one;
#	log two;
}

host b
{
}
)";

/// The same as every later save of one opening writes it.
constexpr std::string_view kWrittenAgain = R"(log root;
#note

@header1
{
	log one;
#	log two;

}

host b
{

}
)";

/// A file in the layout that every save writes, the first block holding another.
constexpr std::string_view kNested = R"(
shared-network office
{

	@header1
	{
		log one;
	}

}

host b
{

}
)";

/// Gives up root's right to open every file, for as long as it lives.
class Unprivileged {
 public:
  Unprivileged() : user_(geteuid()) {
    if (user_ == 0 && seteuid(65534) != 0) ADD_FAILURE() << "still root";
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() {
    if (user_ != 0) return;
    EXPECT_EQ(seteuid(user_), 0);
    prctl(PR_SET_DUMPABLE, 1);  // the leak check at the end wants it
  }

  static bool CanSee(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0;
  }

 private:
  uid_t user_;
};

class ThrowingParser : public DhcpParser {
 public:
  bool ParseFile(const char* /*path*/, void* /*target*/) override { throw 17; }
};

/// Reports success and brings nothing, not even a root section.
class IdleParser : public DhcpParser {
 public:
  bool ParseFile(const char* /*path*/, void* /*target*/) override { return true; }
};

class NotingParser : public DhcpParser {
 public:
  explicit NotingParser(std::vector<std::string>& notes) : notes_(notes) {}
  ~NotingParser() override { notes_.push_back("parser"); }

 private:
  std::vector<std::string>& notes_;
};

class NotingHolder : public CfSectionHolder {
 public:
  explicit NotingHolder(std::vector<std::string>& notes) : notes_(notes) {}
  ~NotingHolder() override { notes_.push_back("holder"); }

 private:
  std::vector<std::string>& notes_;
};

template <class Family>
class LifecycleFixture : public NavigationFixture<Family> {
 public:
  using typename NavigationFixture<Family>::File;

  /// An object for a file that need not exist.
  void At(const std::string& path) { this->file_ = std::make_unique<File>(path.c_str()); }

  std::string Path(std::string_view name) const { return this->scratch_.Path(name); }

  void Write(std::string_view name, std::string_view text) {
    this->scratch_.Write(name, this->Text(text));
  }

  bool Open() { return this->Conf().Open(); }

  /// A line at the end of a block, put there behind the object's back.
  void AddLine(std::string_view header, const char* line) {
    this->Node(header)->section.AddEntry(line, nullptr, nullptr);
  }

  bool HasTopLevel() { return this->Conf().holder->topNode.children != nullptr; }
};

// ---- Construction and destruction

template <class Family>
class Construction : public LifecycleFixture<Family> {
 public:
  using typename LifecycleFixture<Family>::File;

  static void ExpectNothingRead(const File& file) {
    ASSERT_NE(file.holder, nullptr);
    EXPECT_EQ(TreeText(*file.holder), "");
    EXPECT_EQ(file.holder->topNode.children, nullptr);
    EXPECT_NE(file.parser, nullptr);
    EXPECT_EQ(file.currentNetwork, nullptr);
    EXPECT_EQ(file.currentSubnet, nullptr);
    EXPECT_EQ(file.isRead, 0);
  }

  void ExpectNoNameAndNoUse(File& file) {
    EXPECT_EQ(file.GetConfFileName(), "");
    ExpectNothingRead(file);
    EXPECT_FALSE(file.Open());
    EXPECT_EQ(file.Save(""), 0);
    EXPECT_EQ(file.Save(this->Path("other.conf")), 0);
    EXPECT_FALSE(fs::exists(this->Path("other.conf")));
    ExpectNothingRead(file);
  }
};
TYPED_TEST_SUITE(Construction, Families, FamilyNames);

TYPED_TEST(Construction, WithoutANameNothingCanBeOpenedOrSaved) {
  typename TestFixture::File file;
  this->ExpectNoNameAndNoUse(file);
}

TYPED_TEST(Construction, NullNameIsNone) {
  typename TestFixture::File file(nullptr);
  this->ExpectNoNameAndNoUse(file);
}

TYPED_TEST(Construction, EmptyNameIsNone) {
  typename TestFixture::File file("");
  this->ExpectNoNameAndNoUse(file);
}

TYPED_TEST(Construction, NameIsKeptAndTheFileIsNotRead) {
  this->Write("dhcpd.conf", kWritten);
  const typename TestFixture::File file(this->Path("dhcpd.conf").c_str());
  EXPECT_EQ(file.GetConfFileName(), this->Path("dhcpd.conf"));
  this->ExpectNothingRead(file);
}

TYPED_TEST(Construction, PathConvertsToItsFile) {
  const typename TestFixture::Base file = "/nowhere/dhcpd.conf";
  EXPECT_EQ(file.GetConfFileName(), "/nowhere/dhcpd.conf");
}

TYPED_TEST(Construction, NameOfAMissingFileIsKept) {
  const typename TestFixture::File file("/nowhere/dhcpd.conf");
  EXPECT_EQ(file.GetConfFileName(), "/nowhere/dhcpd.conf");
  this->ExpectNothingRead(file);
}

TYPED_TEST(Construction, SystemLogIsOpenForTheLifeOfTheObject) {
  for (const char* name : {static_cast<const char*>(nullptr), "", "/nowhere/dhcpd.conf"}) {
    ClearSystemLog();
    {
      const typename TestFixture::File file(name);
      EXPECT_THAT(SystemLog(), ElementsAre(kOpenLog));
    }
    EXPECT_THAT(SystemLog(), ElementsAre(kOpenLog, "closelog"));
  }
}

TYPED_TEST(Construction, FileWithoutANameLogsNothing) {
  typename TestFixture::File file;
  ClearSystemLog();
  file.Open();
  file.Save("");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TYPED_TEST(Construction, DestructorDeletesTheParserThenTheHolder) {
  std::vector<std::string> notes;
  {
    typename TestFixture::File file;
    delete std::exchange(file.holder, new NotingHolder(notes));
    delete std::exchange(file.parser, new NotingParser(notes));
  }
  EXPECT_THAT(notes, ElementsAre("parser", "holder"));
}

TYPED_TEST(Construction, DestructorFreesTheTreeThroughTheBaseClass) {
  this->Write("dhcpd.conf", kNested);
  const std::unique_ptr<typename TypeParam::File> file =
      std::make_unique<typename TestFixture::File>(this->Path("dhcpd.conf").c_str());
  EXPECT_TRUE(file->Open());
  static_assert(std::has_virtual_destructor_v<typename TypeParam::File>);
}

// ---- Open

template <class Family>
class Opening : public LifecycleFixture<Family> {};
TYPED_TEST_SUITE(Opening, Families, FamilyNames);

TYPED_TEST(Opening, CursorsStandOnTheFirstBlock) {
  struct Case {
    const char* text;
    const char* cursors;
  };
  const Case cases[] = {
      // a shared network, and what it holds
      {"shared-network office {\n  @header1 {\n  }\n}\n", "shared-network office / @header1"},
      {"shared-network office\n{\n  @header1\n  {\n  }\n}\n", "shared-network office / @header1"},
      {"shared-network office {\n}\n@header1 {\n}\n", "shared-network office / null"},
      {"shared-network office {\n  host a {\n  }\n  @header1 {\n  }\n}\n",
       "shared-network office / host a"},
      {"shared-network office {\n  group g {\n    @header1 {\n    }\n  }\n}\n",
       "shared-network office / group g"},
      {"shared-network office {\n  host a { log x; }\n}\n", "shared-network office / null"},
      // any other kind
      {"@header1 {\n  host a {\n  }\n}\n", "null / @header1"},
      {"host a {\n}\n@header1 {\n}\n", "null / host a"},
      {"if x {\n}\n@header1 {\n}\n", "null / if x"},
      {"group g {\n  @header1 {\n  }\n}\n", "null / group g"},
      {"class \"c\" {\n}\nshared-network office {\n}\n", "null / class \"c\""},
      {"{\n}\n@header1 {\n}\n", "null / "},
      // what tells a shared network
      {"class \"shared-network office\" {\n  host a {\n  }\n}\n",
       "class \"shared-network office\" / host a"},
      {"shared-networks office {\n  host a {\n  }\n}\n", "null / shared-networks office"},
      {"Shared-network office {\n  host a {\n  }\n}\n", "null / Shared-network office"},
      // not blocks
      {"log x;\n# a comment\nhost a { log y; }\n@header1 {\n}\n", "null / @header1"},
      {"#shared-network office {\n@header1 {\n}\n", "null / @header1"},
  };
  for (const Case& row : cases) {
    this->Given(row.text);
    EXPECT_EQ(this->Cursors(), this->Text(row.cursors)) << row.text;
    this->Given(WithCarriageReturns(row.text));
    EXPECT_EQ(this->Cursors(), this->Text(row.cursors)) << "with carriage returns: " << row.text;
  }
}

TYPED_TEST(Opening, FileWithoutBlocksIsOpenedWithoutCursors) {
  struct Case {
    const char* text;
    const char* tree;
  };
  const Case cases[] = {
      // nothing
      {"", "[TREE_ROOT_SECTION]\n"},
      {"\n \t\n\n", "[TREE_ROOT_SECTION]\n"},
      // only comments
      {"# one\n#two\n", "[TREE_ROOT_SECTION]\n  #one\n  #two\n"},
      {"#", "[TREE_ROOT_SECTION]\n  #\n"},
      // only global statements
      {"log x;\nlog y;\n", "[TREE_ROOT_SECTION]\n  log x;\n  log y;\n"},
      {"log x;", "[TREE_ROOT_SECTION]\n  log x;\n"},
      {"host a { log x; }\n", "[TREE_ROOT_SECTION]\n  host a { log x; }\n"},
  };
  for (const Case& row : cases) {
    this->Given(row.text);
    EXPECT_EQ(this->Tree(), row.tree);
    EXPECT_EQ(this->Cursors(), "null / null") << row.text;
    this->Given(WithCarriageReturns(row.text));
    EXPECT_EQ(this->Tree(), row.tree);
    EXPECT_EQ(this->Cursors(), "null / null") << "with carriage returns: " << row.text;
  }
}

TYPED_TEST(Opening, WholeFileIsInTheTree) {
  this->Given(kNested);
  EXPECT_EQ(this->Tree(), this->Text("[TREE_ROOT_SECTION]\n"
                                     "  [shared-network office]\n"
                                     "    [@header1]\n"
                                     "      log one;\n"
                                     "  [host b]\n"));
  EXPECT_EQ(this->Conf().isRead, 1);
}

TYPED_TEST(Opening, FileIsLeftAsItIs) {
  this->Given(kOffice);
  EXPECT_EQ(ReadFile(this->Conf().GetConfFileName()), this->Text(kOffice));
}

TYPED_TEST(Opening, SymbolicLinkIsFollowed) {
  this->Write("real.conf", kNested);
  fs::create_symlink("real.conf", this->Path("link.conf"));
  this->At(this->Path("link.conf"));
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(Opening, SuccessLogsNothing) {
  this->Unopened(kOffice);
  ClearSystemLog();
  EXPECT_TRUE(this->Open());
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TYPED_TEST(Opening, MissingFileFailsWithAWarning) {
  const std::string path = this->Path("missing.conf");
  this->At(path);
  ClearSystemLog();
  EXPECT_FALSE(this->Open());
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_WARNING File " + path + " doesn't exist!"));
  EXPECT_FALSE(this->HasTopLevel());
  EXPECT_EQ(this->Cursors(), "null / null");
  EXPECT_FALSE(fs::exists(path));
}

TYPED_TEST(Opening, DirectoryFailsWithTheReason) {
  const std::string path = this->Path("folder");
  fs::create_directory(path);
  this->At(path);
  ClearSystemLog();
  EXPECT_FALSE(this->Open());
  EXPECT_THAT(SystemLog(),
              ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path + ", Is a directory!"));
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, FileThatMayNotBeReadFailsWithTheReason) {
  this->Write("secret.conf", kOffice);
  const std::string path = this->Path("secret.conf");
  fs::permissions(fs::path(path).parent_path(), fs::perms(0755));
  fs::permissions(path, fs::perms::none);
  this->At(path);
  ClearSystemLog();
  {
    const Unprivileged user;
    if (!Unprivileged::CanSee(path)) GTEST_SKIP() << "folder for scratch files is closed to others";
    EXPECT_FALSE(this->Open());
  }
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path +
                                       ", Permission denied!"));
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, FileThatFailsWhileItIsReadFailsWithTheReason) {
  // It can be opened, but there is nothing at its first address.
  this->At("/proc/self/mem");
  ClearSystemLog();
  EXPECT_FALSE(this->Open());
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read /proc/self/mem, "
                                       "Input/output error!"));
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, WhatWasReadBeforeAFailureStaysInTheTreeWithoutCursors) {
  this->Unopened(std::string("log x;\n@header1 {\n  log y;\n") + '\0' + "\n}\nhost b {\n}\n");
  ClearSystemLog();
  EXPECT_FALSE(this->Open());
  ASSERT_EQ(SystemLog().size(), 1U);
  EXPECT_THAT(SystemLog()[0], StartsWith("syslog LOG_INFO EXCEPTION! Cannot read " +
                                         this->Conf().GetConfFileName() + ", "));
  EXPECT_EQ(this->Tree(), this->Text("[TREE_ROOT_SECTION]\n  log x;\n  [@header1]\n    log y;\n"));
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, FailedReadCountsAsReadAndTheNextOneStartsOver) {
  this->At(this->Path("dhcpd.conf"));
  ASSERT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().isRead, 1);
  this->Write("dhcpd.conf", kNested);
  ClearSystemLog();
  EXPECT_TRUE(this->Open());
  EXPECT_THAT(SystemLog(), ElementsAre("closelog", kOpenLog));
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(Opening, NextOpenDiscardsWhatAFailedOneLeft) {
  this->Unopened(std::string("log x;\nhost a {\n") + '\0' + "\n}\n");
  ASSERT_FALSE(this->Open());
  this->Write("dhcpd.conf", "host b {\n}\n");
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  [host b]\n");
  EXPECT_EQ(this->Cursors(), "null / host b");
}

TYPED_TEST(Opening, TwiceGivesTheSameTreeAndCursors) {
  this->Given(kOffice);
  const std::string tree = this->Tree();
  const std::string cursors = this->Cursors();
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), tree);
  EXPECT_EQ(this->Cursors(), cursors);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(Opening, AgainDiscardsEditsAndCursors) {
  this->Given(kNested);
  const std::string tree = this->Tree();
  this->AddLine("@header1", "log edited;");
  this->Node("host b")->section.SetName("host renamed");
  this->Place(nullptr, "host renamed");
  ASSERT_NE(this->Tree(), tree);
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), tree);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(Opening, FileIsReadBehindWhatWasAddedBeforeItAndTheCursorsAreCleared) {
  this->Unopened("host b {\n}\n");
  EXPECT_EQ(this->Conf().AddNetwork(
                this->Record(SECTION_SHARED_NETWORK,
                             {{TypeParam::kName, "office"}, {TypeParam::kMaxLeaseTime, "60"}})),
            1);
  ASSERT_EQ(this->Cursors(), "shared-network office / null");
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(),
            "[shared-network office]\n  max-lease-time 60;\n[TREE_ROOT_SECTION]\n  [host b]\n");
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, SubnetCursorOnWhatWasAddedBeforeTheFileIsCleared) {
  this->Unopened("host b {\n}\n");
  EXPECT_TRUE(this->Conf().AddTreeSection(
      this->Record(SECTION_SUBNET,
                   {{TypeParam::kName, "@header1"}, {TypeParam::kMaxLeaseTime, "log one;"}}),
      nullptr));
  ASSERT_TRUE(this->Conf().GotoSection(this->Text("@bare1").c_str(), SECTION_SUBNET));
  ASSERT_EQ(this->Cursors(), this->Text("null / @header1"));
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, AgainReadsWhatTheFileHoldsNow) {
  this->Given(kNested);
  this->Write("dhcpd.conf", "host new {\n}\n");
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  [host new]\n");
  EXPECT_EQ(this->Cursors(), "null / host new");
}

TYPED_TEST(Opening, AgainOfAFileThatIsNowWithoutBlocksClearsTheCursors) {
  this->Given(kNested);
  this->Write("dhcpd.conf", "");
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n");
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, AgainOfAFileThatIsGoneLeavesNoTree) {
  this->Given(kNested);
  fs::remove(this->Path("dhcpd.conf"));
  EXPECT_FALSE(this->Open());
  EXPECT_FALSE(this->HasTopLevel());
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, AgainWithoutANameDiscardsTheTreeAndFails) {
  this->Given(kNested);
  this->Conf().confFileName.clear();
  EXPECT_FALSE(this->Open());
  EXPECT_FALSE(this->HasTopLevel());
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(Opening, AgainAlsoDiscardsWhatLiesOutsideTheRootSection) {
  this->Given("host a {\n}\n}\nlog outside;\nhost b {\n}\n");
  const char* const expected = "log outside;\n[TREE_ROOT_SECTION]\n  [host a]\n[host b]\n";
  EXPECT_EQ(this->Tree(), expected);
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), expected);
}

TYPED_TEST(Opening, OldParserClosesTheLogBeforeTheNewOneOpensIt) {
  this->Given(kNested);
  ClearSystemLog();
  EXPECT_TRUE(this->Open());
  EXPECT_THAT(SystemLog(), ElementsAre("closelog", kOpenLog));
  this->file_.reset();
  EXPECT_THAT(SystemLog(), ElementsAre("closelog", kOpenLog, "closelog"));
}

TYPED_TEST(Opening, ParserThatBringsNoRootSectionLeavesNoCursors) {
  this->Unopened(kNested);
  delete std::exchange(this->Conf().parser, new IdleParser);
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Cursors(), "null / null");
  this->Conf().isRead = 0;
  this->Conf().holder->topNode.children = new std::list<TreeNode*>;
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Cursors(), "null / null");
}

// ---- ReadDhcpConfigFile

template <class Family>
class ReadingAlone : public LifecycleFixture<Family> {};
TYPED_TEST_SUITE(ReadingAlone, Families, FamilyNames);

TYPED_TEST(ReadingAlone, PlacesNoCursors) {
  this->Unopened(kNested);
  EXPECT_TRUE(this->Conf().ReadDhcpConfigFile());
  EXPECT_EQ(this->Conf().isRead, 1);
  EXPECT_NE(this->Node("host b"), nullptr);
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(ReadingAlone, WithoutANameFailsAndDoesNotCount) {
  typename TestFixture::File file;
  EXPECT_FALSE(file.ReadDhcpConfigFile());
  EXPECT_EQ(file.isRead, 0);
}

TYPED_TEST(ReadingAlone, MissingFileFailsAndCounts) {
  this->At("/nowhere/dhcpd.conf");
  ClearSystemLog();
  EXPECT_FALSE(this->Conf().ReadDhcpConfigFile());
  EXPECT_EQ(this->Conf().isRead, 1);
  EXPECT_THAT(SystemLog(),
              ElementsAre("syslog LOG_WARNING File /nowhere/dhcpd.conf doesn't exist!"));
}

TYPED_TEST(ReadingAlone, TwicePutsTheSecondContentBesideTheRootSection) {
  this->Unopened("log x;\nhost a {\n}\n");
  EXPECT_TRUE(this->Conf().ReadDhcpConfigFile());
  EXPECT_TRUE(this->Conf().ReadDhcpConfigFile());
  EXPECT_EQ(this->Tree(), "log x;\n[TREE_ROOT_SECTION]\n  log x;\n  [host a]\n[host a]\n");
}

TYPED_TEST(ReadingAlone, OpenBehindItStartsOver) {
  this->Unopened("log x;\nhost a {\n}\n");
  EXPECT_TRUE(this->Conf().ReadDhcpConfigFile());
  EXPECT_TRUE(this->Open());
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  log x;\n  [host a]\n");
  EXPECT_EQ(this->Cursors(), "null / host a");
}

TYPED_TEST(ReadingAlone, ExceptionOfTheParserIsSwallowedAndDoesNotCount) {
  this->Unopened(kNested);
  delete std::exchange(this->Conf().parser, new ThrowingParser);
  EXPECT_FALSE(this->Conf().ReadDhcpConfigFile());
  EXPECT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().isRead, 0);
}

// ---- Save

template <class Family>
class Saving : public LifecycleFixture<Family> {
 public:
  std::string Read(std::string_view name) { return ReadFile(this->Path(name)); }
};
TYPED_TEST_SUITE(Saving, Families, FamilyNames);

TYPED_TEST(Saving, EmptyPathMeansTheFileNamedAtConstruction) {
  this->Given("host a {\n}\n");
  this->AddLine("host a", "log x;");
  EXPECT_EQ(this->Conf().Save(""), 1);
  EXPECT_EQ(this->Read("dhcpd.conf"), "\nhost a\n{\n\tlog x;\n}\n");
}

TYPED_TEST(Saving, OtherPathIsWrittenAndTheNameStays) {
  this->Given("host a {\n}\n");
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 1);
  EXPECT_EQ(this->Read("x.conf"), "\nhost a\n{\n}\n");
  EXPECT_EQ(this->Read("dhcpd.conf"), "host a {\n}\n");
  EXPECT_EQ(this->Conf().GetConfFileName(), this->Path("dhcpd.conf"));
}

TYPED_TEST(Saving, BeforeTheFileIsOpenedFailsAndLeavesItAsItWas) {
  this->Unopened(kOffice);
  EXPECT_EQ(this->Conf().Save(""), 0);
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 0);
  EXPECT_EQ(this->Read("dhcpd.conf"), this->Text(kOffice));
  EXPECT_FALSE(fs::exists(this->Path("x.conf")));
}

TYPED_TEST(Saving, WithoutANameFailsEvenToAnotherPath) {
  this->Given(kWritten);
  this->Conf().confFileName.clear();
  EXPECT_EQ(this->Conf().Save(""), 0);
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 0);
  EXPECT_FALSE(fs::exists(this->Path("x.conf")));
}

TYPED_TEST(Saving, AfterAFailedOpenFailsAndMakesNoFile) {
  this->At(this->Path("missing.conf"));
  ASSERT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().Save(""), 0);
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 0);
  EXPECT_FALSE(fs::exists(this->Path("missing.conf")));
  EXPECT_FALSE(fs::exists(this->Path("x.conf")));
}

TYPED_TEST(Saving, AfterAnOpenThatFailedHalfwayWritesWhatWasRead) {
  this->Unopened(std::string("log x;\n") + '\0' + "\nlog y;\n");
  ASSERT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 1);
  EXPECT_EQ(this->Read("x.conf"), "log x;\n");
}

TYPED_TEST(Saving, PathThatCannotBeOpenedFailsAndChangesNothing) {
  this->Given(kWritten);
  this->Write("file", "as it was");
  fs::create_directory(this->Path("folder"));
  for (const char* name : {"missing/x.conf", "file/x.conf", "folder"}) {
    EXPECT_EQ(this->Conf().Save(this->Path(name)), 0) << name;
  }
  EXPECT_FALSE(fs::exists(this->Path("missing")));
  EXPECT_EQ(this->Read("file"), "as it was");
  EXPECT_TRUE(fs::is_empty(this->Path("folder")));
  EXPECT_EQ(this->Read("dhcpd.conf"), this->Text(kWritten));
}

TYPED_TEST(Saving, FileThatMayNotBeWrittenIsLeftAsItWas) {
  this->Given("host a {\n}\n");
  const std::string folder = this->Path("closed");
  fs::create_directory(folder);
  this->Write("closed/x.conf", "as it was");
  fs::permissions(this->Path("closed/x.conf"), fs::perms::owner_read);
  fs::permissions(folder, fs::perms(0500));
  {
    const Unprivileged user;
    EXPECT_EQ(this->Conf().Save(this->Path("closed/x.conf")), 0);
    EXPECT_EQ(this->Conf().Save(this->Path("closed/new.conf")), 0);
  }
  fs::permissions(folder, fs::perms(0700));
  EXPECT_EQ(this->Read("closed/x.conf"), "as it was");
  EXPECT_FALSE(fs::exists(this->Path("closed/new.conf")));
}

TYPED_TEST(Saving, LongerFileIsReplacedWhole) {
  this->Given("log x;\n");
  this->Write("x.conf", std::string(100000, 'x'));
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 1);
  EXPECT_EQ(this->Read("x.conf"), "log x;\n");
}

TYPED_TEST(Saving, FileThatOthersChangedMeanwhileIsReplaced) {
  this->Given("log x;\n");
  this->Write("dhcpd.conf", "log y;\n");
  EXPECT_EQ(this->Saved(), "log x;\n");
}

TYPED_TEST(Saving, FileThatIsGoneMeanwhileIsMadeAgain) {
  this->Given("log x;\n");
  fs::remove(this->Path("dhcpd.conf"));
  EXPECT_EQ(this->Saved(), "log x;\n");
}

TYPED_TEST(Saving, FileWithoutEntriesAndBlocksBecomesEmpty) {
  this->Given("\n  \n");
  EXPECT_EQ(this->Saved(), "");
}

TYPED_TEST(Saving, CommentsOnlyAreKept) {
  this->Given("  # one\n#two  \n");
  EXPECT_EQ(this->Saved(), "#one\n#two\n");
}

TYPED_TEST(Saving, EditThatChangesNothingKeepsEveryByte) {
  for (const std::string_view text : {kWritten, kNested}) {
    this->Given(text);
    EXPECT_EQ(this->Saved(), this->Text(text));
  }
}

TYPED_TEST(Saving, LineEndsBecomeNewlines) {
  this->Given(WithCarriageReturns(kNested));
  EXPECT_EQ(this->Saved(), this->Text(kNested));
}

TYPED_TEST(Saving, OpeningAndSavingAgainGivesTheSameBytes) {
  this->Given(kOffice);
  const std::string first = this->Saved();
  ASSERT_NE(first, this->Text(kOffice));
  ASSERT_TRUE(this->Open());
  EXPECT_EQ(this->Saved(), first);
}

TYPED_TEST(Saving, SecondSaveAddsOnlyTheEmptyLineBeforeTopLevelClosingBraces) {
  this->Given(kWritten);
  EXPECT_EQ(this->Saved(), this->Text(kWritten));
  EXPECT_EQ(this->Saved(), this->Text(kWrittenAgain));
  EXPECT_EQ(this->Saved(), this->Text(kWrittenAgain));
}

TYPED_TEST(Saving, SecondSaveGivesTheSameBytesWhenTheFirstBlockHoldsAnother) {
  this->Given(kNested);
  EXPECT_EQ(this->Saved(), this->Text(kNested));
  EXPECT_EQ(this->Saved(), this->Text(kNested));
}

TYPED_TEST(Saving, SaveThatFailedCountsAsTheFirst) {
  this->Given(kWritten);
  EXPECT_EQ(this->Conf().Save(this->Path("missing/x.conf")), 0);
  EXPECT_EQ(this->Saved(), this->Text(kWrittenAgain));
}

TYPED_TEST(Saving, SaveAfterOpeningAgainIsAFirstOne) {
  this->Given(kWritten);
  EXPECT_EQ(this->Saved(), this->Text(kWritten));
  EXPECT_EQ(this->Saved(), this->Text(kWrittenAgain));
  ASSERT_TRUE(this->Open());
  EXPECT_EQ(this->Saved(), this->Text(kWritten));
}

TYPED_TEST(Saving, TreeAndCursorsStay) {
  this->Given(kOffice);
  const std::string tree = this->Tree();
  this->Place("shared-network empty", "@header2");
  EXPECT_EQ(this->Conf().Save(""), 1);
  EXPECT_EQ(this->Conf().Save(this->Path("missing/x.conf")), 0);
  EXPECT_EQ(this->Tree(), tree);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network empty / @header2"));
}

TYPED_TEST(Saving, NothingIsLogged) {
  this->Given(kOffice);
  ClearSystemLog();
  EXPECT_EQ(this->Conf().Save(""), 1);
  EXPECT_EQ(this->Conf().Save(this->Path("missing/x.conf")), 0);
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TYPED_TEST(Saving, SymbolicLinkStaysAndItsTargetIsWritten) {
  this->Write("real.conf", "host a {\n}\n");
  fs::create_symlink("real.conf", this->Path("link.conf"));
  this->At(this->Path("link.conf"));
  ASSERT_TRUE(this->Open());
  this->AddLine("host a", "log x;");
  EXPECT_EQ(this->Conf().Save(""), 1);
  EXPECT_TRUE(fs::is_symlink(this->Path("link.conf")));
  EXPECT_EQ(this->Read("real.conf"), "\nhost a\n{\n\tlog x;\n}\n");
}

TYPED_TEST(Saving, SymbolicLinkToNothingGetsItsTargetMade) {
  this->Given("log x;\n");
  fs::create_symlink("new.conf", this->Path("link.conf"));
  EXPECT_EQ(this->Conf().Save(this->Path("link.conf")), 1);
  EXPECT_TRUE(fs::is_symlink(this->Path("link.conf")));
  EXPECT_EQ(this->Read("new.conf"), "log x;\n");
}

TYPED_TEST(Saving, BlocksBehindAnExtraClosingBraceAreNotWritten) {
  this->Given("host a {\n}\n}\nlog outside;\nhost b {\n}\n");
  EXPECT_EQ(this->Saved(), "\nhost a\n{\n}\n");
}

// ---- GetTreeItemByNameAt, GetTreeItemBySectionAt

template <class Family>
class TreeLookup : public LifecycleFixture<Family> {
 public:
  /// What both functions find; fails the test when they differ.
  TreeNode* Find(std::string_view name, TreeNode* start) {
    const std::string header = this->Text(name);
    TreeNode* const found = this->Conf().GetTreeItemByNameAt(header.c_str(), start);
    EXPECT_EQ(this->Conf().GetTreeItemBySectionAt(header.c_str(), start), found) << header;
    return found;
  }

  TreeNode* Root() { return this->Conf().holder->topNode.children->front(); }

  /// The node at a path of child numbers below the root section.
  TreeNode* Below(std::initializer_list<int> path) {
    TreeNode* node = Root();
    for (const int number : path) node = *std::next(node->children->begin(), number);
    return node;
  }
};
TYPED_TEST_SUITE(TreeLookup, Families, FamilyNames);

TYPED_TEST(TreeLookup, NullNameIsTheRootSectionWhereverTheSearchStarts) {
  this->Given(kOffice);
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt(nullptr, nullptr), this->Root());
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt(nullptr, this->Below({0, 0})), this->Root());
}

TYPED_TEST(TreeLookup, NullNameFindsNothingBySection) {
  this->Given(kOffice);
  EXPECT_EQ(this->Conf().GetTreeItemBySectionAt(nullptr, nullptr), nullptr);
  EXPECT_EQ(this->Conf().GetTreeItemBySectionAt(nullptr, this->Below({0, 0})), nullptr);
}

TYPED_TEST(TreeLookup, WithoutAStartTheWholeFileIsSearched) {
  this->Given(kOffice);
  EXPECT_EQ(this->Find("TREE_ROOT_SECTION", nullptr), this->Root());
  EXPECT_EQ(this->Find("shared-network office", nullptr), this->Below({0}));
  EXPECT_EQ(this->Find("@header2", nullptr), this->Below({0, 1}));
  EXPECT_EQ(this->Find("host c", nullptr), this->Below({0, 1, 0}));
  EXPECT_EQ(this->Find("host nested", nullptr), this->Below({0, 0, 1, 0}));
  EXPECT_EQ(this->Find("host e", nullptr), this->Below({3}));
}

TYPED_TEST(TreeLookup, HostIsFoundAnywhereBelowTheRootOrInTheSubtreeOnly) {
  this->Given(
      "@header1 {\n  group g {\n    host pc-17 {\n    }\n  }\n}\n@header2 {\n  host pc-18 {\n"
      "  }\n}\n");
  TreeNode* const pc17 = this->Below({0, 0, 0});
  EXPECT_EQ(this->Find("host pc-17", nullptr), pc17);
  EXPECT_EQ(this->Find("host pc-17", this->Below({0})), pc17);
  EXPECT_EQ(this->Find("host pc-17", this->Below({0, 0})), pc17);
  EXPECT_EQ(this->Find("host pc-17", this->Below({1})), nullptr);
}

TYPED_TEST(TreeLookup, WhatFindIfFindsWithEachPredicateIsFound) {
  this->Given(kOffice);
  for (const auto predicate : {Condition1, Condition2, compare}) {
    for (const char* header : {"host a", "host nested", "@header3", "host missing", "Host a"}) {
      CfSection probe;
      probe.SetName(this->Text(header).c_str());
      for (TreeNode* const start : {this->Below({}), this->Below({0}), this->Below({0, 0, 0})}) {
        EXPECT_EQ(this->Find(header, start), start->FindIf(probe, predicate)) << header;
      }
    }
  }
}

TYPED_TEST(TreeLookup, StartItselfIsFound) {
  this->Given(kOffice);
  TreeNode* const subnet = this->Below({0, 0});
  EXPECT_EQ(this->Find("@header1", subnet), subnet);
  TreeNode* const leaf = this->Below({3});
  EXPECT_EQ(this->Find("host e", leaf), leaf);
}

TYPED_TEST(TreeLookup, StartComesBeforeABlockOfTheSameNameInIt) {
  this->Given("group g {\n  group g {\n  }\n}\n");
  EXPECT_EQ(this->Find("group g", nullptr), this->Below({0}));
  EXPECT_EQ(this->Find("group g", this->Below({0})), this->Below({0}));
  EXPECT_EQ(this->Find("group g", this->Below({0, 0})), this->Below({0, 0}));
}

TYPED_TEST(TreeLookup, ParentsAndSiblingsOfTheStartAreNotSearched) {
  this->Given(kOffice);
  TreeNode* const subnet = this->Below({0, 0});
  EXPECT_EQ(this->Find("host c", subnet), nullptr);
  EXPECT_EQ(this->Find("@header2", subnet), nullptr);
  EXPECT_EQ(this->Find("shared-network office", subnet), nullptr);
  EXPECT_EQ(this->Find("TREE_ROOT_SECTION", subnet), nullptr);
}

TYPED_TEST(TreeLookup, StartWithoutBlocksFindsNothingElse) {
  this->Given(kOffice);
  EXPECT_EQ(this->Find("host a", this->Below({3})), nullptr);
  this->Below({3})->children = new std::list<TreeNode*>;
  EXPECT_EQ(this->Find("host a", this->Below({3})), nullptr);
}

TYPED_TEST(TreeLookup, FirstInFileOrderIsFoundNestedOrNot) {
  this->Given(
      "@header1 {\n  group g {\n    host x {\n    }\n  }\n  host x {\n  }\n}\nhost x {\n}\n");
  EXPECT_EQ(this->Find("host x", nullptr), this->Below({0, 0, 0}));
}

TYPED_TEST(TreeLookup, HeadersAreComparedWholeAndWithRegardToCase) {
  this->Given("host pc-17 {\n}\nhost  wide {\n}\n");
  for (const char* name : {"Host pc-17", "host PC-17", "host pc-1", "host pc-170", "pc-17", "host",
                           " host pc-17", "host pc-17 ", "host wide", ""}) {
    EXPECT_EQ(this->Find(name, nullptr), nullptr) << name;
  }
  EXPECT_EQ(this->Find("host pc-17", nullptr), this->Below({0}));
  EXPECT_EQ(this->Find("host  wide", nullptr), this->Below({1}));
}

TYPED_TEST(TreeLookup, EmptyNameFindsABlockWithoutAHeader) {
  this->Given("host a {\n}\n{\n}\n");
  EXPECT_EQ(this->Find("", nullptr), this->Below({1}));
}

TYPED_TEST(TreeLookup, BlocksBehindAnExtraClosingBraceAreNotFound) {
  this->Given("host a {\n}\n}\nhost b {\n}\n");
  EXPECT_NE(this->Find("host a", nullptr), nullptr);
  EXPECT_EQ(this->Find("host b", nullptr), nullptr);
}

TYPED_TEST(TreeLookup, NothingIsFoundBeforeTheFileIsRead) {
  this->Unopened(kOffice);
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt(nullptr, nullptr), nullptr);
  EXPECT_EQ(this->Find("host a", nullptr), nullptr);
  EXPECT_EQ(this->Find("TREE_ROOT_SECTION", nullptr), nullptr);
}

TYPED_TEST(TreeLookup, NothingIsFoundInAnEmptyTopLevel) {
  this->Unopened(kOffice);
  this->Conf().holder->topNode.children = new std::list<TreeNode*>;
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt(nullptr, nullptr), nullptr);
  EXPECT_EQ(this->Find("host a", nullptr), nullptr);
}

TYPED_TEST(TreeLookup, CursorsStay) {
  this->Given(kOffice);
  EXPECT_NE(this->Find("host e", nullptr), nullptr);
  EXPECT_EQ(this->Find("host z", nullptr), nullptr);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

// ---- Objects whose holder or parser was taken away

template <class Family>
class Dismantled : public LifecycleFixture<Family> {
 public:
  std::unique_ptr<CfSectionHolder> TakeHolder() {
    return std::unique_ptr<CfSectionHolder>(std::exchange(this->Conf().holder, nullptr));
  }
  std::unique_ptr<DhcpParser> TakeParser() {
    return std::unique_ptr<DhcpParser>(std::exchange(this->Conf().parser, nullptr));
  }
};
TYPED_TEST_SUITE(Dismantled, Families, FamilyNames);

TYPED_TEST(Dismantled, WithoutAHolderNothingIsSavedOrFound) {
  this->Given(kWritten);
  const auto taken = this->TakeHolder();
  EXPECT_EQ(this->Conf().Save(""), 0);
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 0);
  EXPECT_FALSE(fs::exists(this->Path("x.conf")));
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt(nullptr, nullptr), nullptr);
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt("host b", nullptr), nullptr);
  EXPECT_EQ(this->Conf().GetTreeItemBySectionAt("host b", nullptr), nullptr);
  EXPECT_EQ(this->Conf().GetTreeItemByNameAt("host b", taken->topNode.children->front()), nullptr);
}

TYPED_TEST(Dismantled, WithoutAHolderOpeningAgainMakesOne) {
  this->Given(kNested);
  const std::string tree = this->Tree();
  const auto taken = this->TakeHolder();
  EXPECT_TRUE(this->Open());
  ASSERT_NE(this->Conf().holder, nullptr);
  EXPECT_NE(this->Conf().holder, taken.get());
  EXPECT_EQ(this->Tree(), tree);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(Dismantled, WithoutAHolderTheFirstOpenFails) {
  this->Unopened(kNested);
  const auto taken = this->TakeHolder();
  EXPECT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().holder, nullptr);
  EXPECT_EQ(this->Conf().isRead, 0);
}

TYPED_TEST(Dismantled, WithoutAParserNothingIsSavedButBlocksAreFound) {
  this->Given(kWritten);
  const auto taken = this->TakeParser();
  EXPECT_EQ(this->Conf().Save(""), 0);
  EXPECT_EQ(this->Conf().Save(this->Path("x.conf")), 0);
  EXPECT_FALSE(fs::exists(this->Path("x.conf")));
  EXPECT_NE(this->Conf().GetTreeItemByNameAt("host b", nullptr), nullptr);
  EXPECT_NE(this->Conf().GetTreeItemBySectionAt("host b", nullptr), nullptr);
}

TYPED_TEST(Dismantled, WithoutAParserOpeningAgainDiscardsTheTreeAndFails) {
  this->Given(kNested);
  const auto taken = this->TakeParser();
  ClearSystemLog();
  EXPECT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().parser, nullptr);
  EXPECT_FALSE(this->HasTopLevel());
  EXPECT_EQ(this->Cursors(), "null / null");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TYPED_TEST(Dismantled, WithoutAParserTheFirstOpenFails) {
  this->Unopened(kNested);
  const auto taken = this->TakeParser();
  EXPECT_FALSE(this->Open());
  EXPECT_EQ(this->Conf().isRead, 0);
  EXPECT_FALSE(this->HasTopLevel());
}

TYPED_TEST(Dismantled, WithoutAParserReadingFails) {
  this->Unopened(kNested);
  const auto taken = this->TakeParser();
  EXPECT_FALSE(this->Conf().ReadDhcpConfigFile());
}

TYPED_TEST(Dismantled, WithoutEitherItCanStillBeDestroyed) {
  this->Given(kNested);
  const auto takenHolder = this->TakeHolder();
  const auto takenParser = this->TakeParser();
  EXPECT_EQ(this->Conf().Save(""), 0);
  this->file_.reset();
  EXPECT_EQ(TreeText(*takenHolder), this->Text("[TREE_ROOT_SECTION]\n"
                                               "  [shared-network office]\n"
                                               "    [@header1]\n"
                                               "      log one;\n"
                                               "  [host b]\n"));
}

}  // namespace
}  // namespace klepur::test
