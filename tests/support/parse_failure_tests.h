// What ParseFile does with files that cannot be read, for every parser that has the shared machinery. Include
// it and write
//
//     INSTANTIATE_TYPED_TEST_SUITE_P(Dhcp, ParseFailure, DhcpParser);
#ifndef KLEPUR_TESTS_SUPPORT_PARSE_FAILURE_TESTS_H
#define KLEPUR_TESTS_SUPPORT_PARSE_FAILURE_TESTS_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <klepur/framework/section_holder.h>
#include <klepur/framework/stream_iterator.h>

#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/streams.h"
#include "tests/support/system_log.h"
#include "tests/support/tree_text.h"
#include "tests/support/unprivileged.h"

namespace klepur::test {

template <class Parser>
class ParseFailure : public ::testing::Test {
 protected:
  /// The parser, with a way to its slots.
  class Opened : public Parser {
   public:
    void Install(StreamIterator* replacement) { this->stream = replacement; }
    bool HasStream() const { return this->stream != nullptr; }
  };

  ParseFailure() { ClearSystemLog(); }

  bool Parse(const std::string& path) { return parser_->ParseFile(path.c_str(), &tree_); }

  /// Parses a stream that brings a text and then calls `fail`, which throws.
  bool ParseUntil(void (*fail)(), const std::string& text = "") {
    parser_->Install(new FailingStream(text, fail, notes_));
    return Parse(path_);
  }

  std::string Tree() const { return TreeText(tree_); }

  ScratchFolder scratch_;
  const std::string path_ = scratch_.Write("some.conf", "option a b;\n");
  Notes notes_;
  CfSectionHolder tree_;
  const std::unique_ptr<Opened> parser_ = std::make_unique<Opened>();
};

TYPED_TEST_SUITE_P(ParseFailure);

using Calls = std::vector<std::string>;

TYPED_TEST_P(ParseFailure, AFileThatCanBeReadIsNoReasonToLog) {
  EXPECT_TRUE(this->Parse(this->path_));
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  option a b;\n");
  EXPECT_EQ(SystemLog(), Calls());
}

TYPED_TEST_P(ParseFailure, MissingFileIsAWarningAndLeavesTheTreeEmpty) {
  const std::string path = this->scratch_.Path("missing.conf");
  EXPECT_FALSE(this->Parse(path));
  EXPECT_EQ(this->tree_.topNode.children, nullptr);
  EXPECT_EQ(SystemLog(), Calls{"syslog LOG_WARNING File " + path + " doesn't exist!"});
}

TYPED_TEST_P(ParseFailure, MissingFileLeavesAFullTreeAsItWas) {
  ASSERT_TRUE(this->Parse(this->path_));
  EXPECT_FALSE(this->Parse(this->scratch_.Path("missing.conf")));
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  option a b;\n");
}

TYPED_TEST_P(ParseFailure, SymbolicLinkToNothingIsAMissingFile) {
  const std::string path = this->scratch_.Path("link.conf");
  std::filesystem::create_symlink("nothing.conf", path);
  EXPECT_FALSE(this->Parse(path));
  EXPECT_EQ(SystemLog(), Calls{"syslog LOG_WARNING File " + path + " doesn't exist!"});
}

TYPED_TEST_P(ParseFailure, PercentSignsInAPathAreLoggedAsTheyAre) {
  const std::string path = this->scratch_.Path("100%s%n%d");
  EXPECT_FALSE(this->Parse(path));
  EXPECT_EQ(SystemLog(), Calls{"syslog LOG_WARNING File " + path + " doesn't exist!"});
}

TYPED_TEST_P(ParseFailure, NullPathIsRefused) {
  EXPECT_FALSE(this->parser_->ParseFile(nullptr, &this->tree_));
  EXPECT_EQ(this->Tree(), "");
}

TYPED_TEST_P(ParseFailure, NullTreeIsRefused) {
  EXPECT_FALSE(this->parser_->ParseFile(this->path_.c_str(), nullptr));
  EXPECT_EQ(SystemLog(), Calls());
}

TYPED_TEST_P(ParseFailure, DirectoryIsLoggedWithTheSystemsReason) {
  const std::string path = this->scratch_.Path("folder");
  std::filesystem::create_directory(path);
  EXPECT_FALSE(this->Parse(path));
  EXPECT_EQ(this->Tree(), "");
  EXPECT_EQ(SystemLog(),
            Calls{"syslog LOG_INFO EXCEPTION! Cannot read " + path + ", Is a directory!"});
}

TYPED_TEST_P(ParseFailure, UnreadableFileIsLoggedWithTheSystemsReason) {
  namespace fs = std::filesystem;
  fs::permissions(this->scratch_.Path(""), fs::perms(0755));
  fs::permissions(this->path_, fs::perms::none);
  bool read = true;
  {
    const Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be put down here";
    read = this->Parse(this->path_);
  }
  EXPECT_FALSE(read);
  EXPECT_EQ(this->Tree(), "");
  EXPECT_EQ(SystemLog(), Calls{"syslog LOG_INFO EXCEPTION! Cannot read " + this->path_ +
                               ", Permission denied!"});
}

TYPED_TEST_P(ParseFailure, NulByteIsLoggedWithItsLineAndWhatStandsBeforeItIsKept) {
  using namespace ::testing;  // NOLINT(google-build-using-namespace): its matchers
  for (const std::string_view lineEnd : {"\n", "\r\n"}) {
    const std::string before = "option a b;" + std::string(lineEnd) + "host x {";
    const std::string after = std::string(lineEnd) + "fixed" + '\0' + "address 10.0.0.5;";
    const std::string path = this->scratch_.Write("nul.conf", before + after);
    typename TestFixture::Opened parser;
    CfSectionHolder tree;
    ClearSystemLog();
    EXPECT_FALSE(parser.ParseFile(path.c_str(), &tree));
    EXPECT_EQ(TreeText(tree), "[TREE_ROOT_SECTION]\n  option a b;\n  [host x]\n");
    EXPECT_THAT(
        SystemLog(),
        ElementsAre(AllOf(StartsWith("syslog LOG_INFO EXCEPTION! Cannot read " + path + ", "),
                          HasSubstr("line 3"), EndsWith("!"))));
  }
}

// ---- what a stream throws ----

struct Thrown {
  const char* what;
  void (*fail)();
  const char* logged;  // behind the path
};

const std::runtime_error& LostDisk() {
  static const std::runtime_error error("the disk is gone");
  return error;
}

inline const Thrown kThrown[] = {
    // standard exceptions
    {"a runtime_error", [] { throw LostDisk(); }, ", the disk is gone!"},
    {"a logic_error", [] { throw std::logic_error("no sense"); }, ", no sense!"},
    {"a bad_alloc", [] { throw std::bad_alloc(); }, ", std::bad_alloc!"},
    {"a text with percent signs", [] { throw std::runtime_error("%s%n 5 %"); }, ", %s%n 5 %!"},
    // pointers to them
    {"a pointer to a const exception",
     [] { throw static_cast<const std::exception*>(&LostDisk()); }, ", the disk is gone!"},
    {"a pointer to a const runtime_error", [] { throw &LostDisk(); }, ", the disk is gone!"},
    {"a pointer to a logic_error",
     [] {
       static std::logic_error error("no sense");
       throw &error;
     },
     ", no sense!"},
    // anything else
    {"a number", [] { throw 42; }, "!"},
    {"a C string", [] { throw "a text"; }, "!"},
    {"a string", [] { throw std::string("a text"); }, "!"},
};

TYPED_TEST_P(ParseFailure, WhatAStreamThrowsIsLogged) {
  for (const Thrown& thrown : kThrown) {
    SCOPED_TRACE(thrown.what);
    ClearSystemLog();
    EXPECT_FALSE(this->ParseUntil(thrown.fail));
    EXPECT_EQ(SystemLog(),
              Calls{"syslog LOG_INFO EXCEPTION! Cannot read " + this->path_ + thrown.logged});
  }
}

TYPED_TEST_P(ParseFailure, WhatWasBuiltBeforeAnExceptionStays) {
  EXPECT_FALSE(this->ParseUntil([] { throw LostDisk(); }, "option c d;\nhost x {\nfilename y;\n"));
  EXPECT_EQ(this->Tree(),
            "[TREE_ROOT_SECTION]\n"
            "  option c d;\n"
            "  [host x]\n"
            "    filename y;\n");
}

TYPED_TEST_P(ParseFailure, ExceptionDeletesTheStreamAtOnce) {
  EXPECT_FALSE(this->ParseUntil([] { throw LostDisk(); }));
  EXPECT_EQ(this->notes_, Notes{"stream deleted"});
}

// ---- afterwards ----

TYPED_TEST_P(ParseFailure, AfterAMissingFileTheParserReadsAsIfNew) {
  EXPECT_FALSE(this->Parse(this->scratch_.Path("missing.conf")));
  EXPECT_TRUE(this->Parse(this->path_));
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  option a b;\n");
}

TYPED_TEST_P(ParseFailure, AfterADirectoryTheParserReadsAsIfNew) {
  EXPECT_FALSE(this->Parse(this->scratch_.Path("")));
  EXPECT_TRUE(this->Parse(this->path_));
  EXPECT_EQ(this->Tree(), "[TREE_ROOT_SECTION]\n  option a b;\n");
}

TYPED_TEST_P(ParseFailure, AfterAnExceptionTheParserReadsTheNextFileBesideTheRoot) {
  const std::string next = this->scratch_.Write("next.conf", "host y {\noption e f;\n}\n");
  for (const Thrown& thrown : kThrown) {
    SCOPED_TRACE(thrown.what);
    typename TestFixture::Opened parser;
    CfSectionHolder tree;
    parser.Install(new FailingStream("host x {\noption c d;\n", thrown.fail, this->notes_));
    EXPECT_FALSE(parser.ParseFile(this->path_.c_str(), &tree));
    ClearSystemLog();
    EXPECT_TRUE(parser.ParseFile(next.c_str(), &tree));
    EXPECT_EQ(TreeText(tree),
              "[TREE_ROOT_SECTION]\n"
              "  [host x]\n"
              "    option c d;\n"
              "[host y]\n"
              "  option e f;\n");
    EXPECT_EQ(SystemLog(), Calls());
  }
}

TYPED_TEST_P(ParseFailure, NoFileStaysOpenWhateverHappens) {
  const std::string nul = this->scratch_.Write("nul.conf", std::string("a;\0b;", 5));
  const auto before = OpenDescriptors();
  for (const std::string& path : {this->path_, nul, this->scratch_.Path("")}) {
    typename TestFixture::Opened parser;
    CfSectionHolder tree;
    parser.ParseFile(path.c_str(), &tree);
    EXPECT_EQ(OpenDescriptors(), before) << path;
    EXPECT_FALSE(parser.HasStream()) << path;
  }
}

REGISTER_TYPED_TEST_SUITE_P(
    ParseFailure, AFileThatCanBeReadIsNoReasonToLog, MissingFileIsAWarningAndLeavesTheTreeEmpty,
    MissingFileLeavesAFullTreeAsItWas, SymbolicLinkToNothingIsAMissingFile,
    PercentSignsInAPathAreLoggedAsTheyAre, NullPathIsRefused, NullTreeIsRefused,
    DirectoryIsLoggedWithTheSystemsReason, UnreadableFileIsLoggedWithTheSystemsReason,
    NulByteIsLoggedWithItsLineAndWhatStandsBeforeItIsKept, WhatAStreamThrowsIsLogged,
    WhatWasBuiltBeforeAnExceptionStays, ExceptionDeletesTheStreamAtOnce,
    AfterAMissingFileTheParserReadsAsIfNew, AfterADirectoryTheParserReadsAsIfNew,
    AfterAnExceptionTheParserReadsTheNextFileBesideTheRoot, NoFileStaysOpenWhateverHappens);

}  // namespace klepur::test

#endif
