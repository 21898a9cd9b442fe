#include <gmock/gmock.h>
#include <klepur/parser/dhcp_parser.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/parse_failure_tests.h"
#include "tests/support/streams.h"
#include "tests/support/system_log.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

static_assert(std::has_virtual_destructor_v<DhcpParser>);

/// The parser under test with its members in reach.
class Parser : public DhcpParser {
 public:
  using DhcpParser::currentNode;
  using DhcpParser::currentToken;
  using DhcpParser::holder;
  using DhcpParser::lastPunctuator;
  using DhcpParser::leftmostDepth;
  using DhcpParser::lexer;
  using DhcpParser::lineBuffer;
  using DhcpParser::outputFile;
  using DhcpParser::rootSection;
  using DhcpParser::stream;
  using DhcpParser::writeDepth;
};

class DhcpParsing : public ::testing::Test {
 protected:
  DhcpParsing() { ClearSystemLog(); }

  std::string Given(std::string_view text) const { return scratch_.Write("dhcpd.conf", text); }

  /// Reads a file with the fixture's parser; what that says to the system log is all that Logged()
  /// then holds.
  bool Parsed(const std::string& path) {
    ClearSystemLog();
    return parser_.ParseFile(path.c_str(), &holder_);
  }

  static std::vector<std::string> Logged() { return SystemLog(); }

  std::string Tree() const { return TreeText(holder_); }

  ScratchFolder scratch_;
  CfSectionHolder holder_;
  Parser parser_;
};

// ---- construction and destruction ----

TEST_F(DhcpParsing, NewParserHasReadAndWrittenNothing) {
  EXPECT_EQ(parser_.currentToken, nullptr);
  EXPECT_EQ(parser_.holder, nullptr);
  EXPECT_EQ(parser_.rootSection, nullptr);
  EXPECT_EQ(parser_.currentNode, nullptr);
  EXPECT_EQ(parser_.lastPunctuator, -1);
  EXPECT_EQ(parser_.outputFile, nullptr);
  EXPECT_EQ(parser_.writeDepth, 0U);
  EXPECT_EQ(parser_.leftmostDepth, 0U);
  EXPECT_EQ(parser_.lineBuffer, "");
  EXPECT_EQ(parser_.lexer, nullptr);
  EXPECT_EQ(parser_.stream, nullptr);
}

TEST_F(DhcpParsing, LogIsOpenWhileAParserLives) {
  ClearSystemLog();
  {
    const DhcpParser parser;
    EXPECT_THAT(Logged(), ElementsAre("openlog dhcpparser LOG_PID LOG_USER"));
  }
  EXPECT_THAT(Logged(), ElementsAre("openlog dhcpparser LOG_PID LOG_USER", "closelog"));
}

TEST_F(DhcpParsing, EveryParserOpensAndClosesTheLog) {
  ClearSystemLog();
  auto first = std::make_unique<DhcpParser>();
  auto second = std::make_unique<DhcpParser>();
  first.reset();
  second.reset();
  EXPECT_THAT(Logged(), ElementsAre("openlog dhcpparser LOG_PID LOG_USER",
                                    "openlog dhcpparser LOG_PID LOG_USER", "closelog", "closelog"));
}

TEST_F(DhcpParsing, DestructorThroughTheBaseClosesTheLog) {
  std::unique_ptr<CfParser> parser = std::make_unique<DhcpParser>();
  ClearSystemLog();
  parser.reset();
  EXPECT_THAT(Logged(), ElementsAre("closelog"));
}

TEST_F(DhcpParsing, DestructorLeavesTheTreeToItsOwner) {
  const std::string path = Given("x 1;\nhost a {\n}\n");
  EXPECT_TRUE(DhcpParser().ParseFile(path.c_str(), &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x 1;\n  [host a]\n");
}

// ---- reading a file ----

TEST_F(DhcpParsing, ReadsAFileIntoATreeAndLogsNothing) {
  EXPECT_TRUE(
      Parsed(Given("option domain-name-servers 10.0.0.1;\n"
                   "# main office\n"
                   "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
                   "  range 10.0.0.10 10.0.0.20;\n"
                   "}\n")));
  EXPECT_EQ(Tree(),
            "[TREE_ROOT_SECTION]\n"
            "  option domain-name-servers 10.0.0.1;\n"
            "  #main office\n"
            "  [subnet 10.0.0.0 netmask 255.255.255.0]\n"
            "    range 10.0.0.10 10.0.0.20;\n");
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(DhcpParsing, EmptyFileGivesTheRootAloneAndLogsNothing) {
  EXPECT_TRUE(Parsed(Given("")));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n");
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(DhcpParsing, FileOutOfOrderIsReadAndLogsNothing) {
  EXPECT_TRUE(Parsed(Given("}\nhost a { \"\nx 1\n{\n")));
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(DhcpParsing, WritingLogsNothing) {
  ASSERT_TRUE(Parsed(Given("x 1;\n")));
  EXPECT_TRUE(parser_.FileWriter(scratch_.Path("written.conf").c_str(), &holder_));
  EXPECT_FALSE(parser_.FileWriter(scratch_.Path("no/such/folder").c_str(), &holder_));
  EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(DhcpParsing, FileIsClosedAfterReading) {
  const std::string path = Given("x 1;\n");
  const auto before = OpenDescriptors();
  EXPECT_TRUE(Parsed(path));
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(DhcpParsing, ParseBufferReadsATextAsItWouldAFile) {
  ClearSystemLog();
  EXPECT_TRUE(parser_.ParseBuffer("x 1;\nhost a {\n}\n", &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x 1;\n  [host a]\n");
  EXPECT_THAT(Logged(), IsEmpty());
}

// ---- files that cannot be read ----

TEST_F(DhcpParsing, NoPathIsAWarning) {
  ClearSystemLog();
  EXPECT_FALSE(parser_.ParseFile(nullptr, &holder_));
  EXPECT_THAT(Logged(), ElementsAre("syslog LOG_WARNING File  doesn't exist!"));
}

TEST_F(DhcpParsing, EmptyPathIsAWarning) {
  EXPECT_FALSE(Parsed(""));
  EXPECT_THAT(Logged(), ElementsAre("syslog LOG_WARNING File  doesn't exist!"));
}

TEST_F(DhcpParsing, FailedReadIsLoggedWithTheSystemsReason) {
  const auto before = OpenDescriptors();
  EXPECT_FALSE(Parsed("/proc/self/mem"));  // opens, but nothing can be read at its front
  EXPECT_THAT(Logged(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read /proc/self/mem, "
                                    "Input/output error!"));
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(DhcpParsing, NulByteEndsTheReadingAndItsLineIsNamed) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view text;
    const char* line;
    const char* tree;
  } rows[] = {
      // in a word, alone, first and last in the file
      {"x 1;\nhost a {\ny 2;\nz\0z 3;\n}\n"sv, "4",
       "[TREE_ROOT_SECTION]\n  x 1;\n  [host a]\n    y 2;\n"},
      {"x 1; \0"sv, "1", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      {"\0x 1;\n"sv, "1", "[TREE_ROOT_SECTION]\n"},
      {"x 1;\n\n\n\0"sv, "4", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      // on a line of its own behind statements
      {"x 1;\ny 2;z\0;\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n  y 2;\n"},
      // in a quoted string, closed or not
      {"x 1;\ny \"a\0b\";\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      {"x 1;\ny \"a\0b;\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      // in a comment, a header, a one-line block
      {"x 1;\n# a\0b\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      {"x 1;\nhost a\0b {\n}\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      {"x 1;\nhost a { y 2;\0 }\n"sv, "2", "[TREE_ROOT_SECTION]\n  x 1;\n"},
  };
  for (const auto& row : rows) {
    for (const std::string& text : {std::string(row.text), WithCarriageReturns(row.text)}) {
      const std::string path = Given(text);
      CfSectionHolder holder;
      DhcpParser parser;
      ClearSystemLog();
      EXPECT_FALSE(parser.ParseFile(path.c_str(), &holder)) << row.tree;
      EXPECT_THAT(Logged(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path +
                                        ", NUL byte in line " + row.line + "!"));
      EXPECT_EQ(TreeText(holder), row.tree);
    }
  }
}

// ---- exceptions ----

INSTANTIATE_TYPED_TEST_SUITE_P(Dhcp, ParseFailure, DhcpParser);

void ThrowNumber() {
  throw 17;
}

TEST_F(DhcpParsing, ParserThatFailedBringsNoMoreTokens) {
  Notes notes;
  parser_.stream = new FailingStream("x 1;\n", ThrowNumber, notes);
  ASSERT_FALSE(Parsed(Given("")));
  EXPECT_EQ(parser_.stream, nullptr);
  EXPECT_EQ(parser_.GetToken(), nullptr);
}

TEST_F(DhcpParsing, ParserThatFailedHasNoCurrentToken) {
  using namespace std::string_literals;
  ASSERT_FALSE(Parsed(Given("a;\n\0"s)));
  EXPECT_EQ(parser_.currentToken, nullptr);
  ASSERT_FALSE(Parsed(Given("\0"s)));
  const std::string tree = Tree();
  parser_.PunctuatorAnalyser();
  EXPECT_EQ(Tree(), tree);
}

/// Ends every reading with an exception.
class FailingParser : public Parser {
 public:
  bool DoParse(void* /*target*/) override { throw std::runtime_error("no time"); }
};

TEST_F(DhcpParsing, ExceptionOfAnOverrideIsLoggedAndItsFileClosed) {
  FailingParser parser;
  const std::string path = Given("x 1;\n");
  const auto before = OpenDescriptors();
  ClearSystemLog();
  EXPECT_FALSE(parser.ParseFile(path.c_str(), &holder_));
  EXPECT_THAT(Logged(),
              ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path + ", no time!"));
  EXPECT_EQ(OpenDescriptors(), before);
}

// ---- tokens of an unknown kind ----

/// Reads the tokens given to it in place of the file's.
class ScriptedParser : public Parser {
 public:
  explicit ScriptedParser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

  bool DoParse(void* target) override {
    delete lexer;
    lexer = new ScriptedLexer(tokens_);
    return Parser::DoParse(target);
  }

 private:
  std::vector<Token> tokens_;
};

TEST_F(DhcpParsing, UnknownTokenEndsTheReadingWithoutAWord) {
  ScriptedParser parser({{0, "x"}, {1, ";"}, {6, "?"}, {0, "y"}, {1, ";"}});
  const std::string path = Given("never read;\n");
  ClearSystemLog();
  EXPECT_FALSE(parser.ParseFile(path.c_str(), &holder_));
  EXPECT_THAT(Logged(), IsEmpty());
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x;\n");
  EXPECT_EQ(parser.lexer, nullptr);
  EXPECT_EQ(parser.stream, nullptr);
}

}  // namespace
}  // namespace klepur::test
