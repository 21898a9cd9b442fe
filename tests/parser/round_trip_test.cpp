// A file that was read and written once is in the library's own layout; from then on reading and
// writing it changes nothing.
#include <gmock/gmock.h>
#include <klepur/parser/dhcp_parser.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;
using ::testing::Not;

/// What one read and write makes of a text. What a "}" too many has put beside the root is not part
/// of it: it is not written.
struct Cycle {
  explicit Cycle(std::string_view text) {
    const ScratchFolder scratch;
    const std::string path = scratch.Write("dhcpd.conf", text);
    DhcpParser parser;
    CfSectionHolder holder;
    EXPECT_TRUE(parser.ParseFile(path.c_str(), &holder));
    tree = TreeText(*holder.topNode.children->front());
    EXPECT_TRUE(parser.FileWriter(path.c_str(), &holder));
    written = ReadFile(path);
  }

  std::string tree;
  std::string written;
};

void ExpectStable(const std::string& text) {
  const Cycle first(text);
  const Cycle second(first.written);
  EXPECT_EQ(second.written, first.written) << text;
  EXPECT_EQ(second.tree, first.tree) << text;
}

// ---- texts written for this test ----

const std::vector<std::string>& HandWritten() {
  static const std::vector<std::string> texts = {
      // almost nothing
      "",
      "\n\n\n",
      " \t\v\n",
      "x 1;",
      "#",
      "#\n#  \n# \t\v note \n",
      ";\n;;\n",
      "{\n}\n",
      // statements and comments
      "authoritative;\nddns-update-style none;\n# main office\n\n#off 1;\n   ## twice\n",
      "range 10.0.0.10\n   10.0.0.20;\noption routers 10.0.0.1 ;\nx\t1 ;y 2;\n",
      "option routers # which?\n10.0.0.1;\nmax-lease-time 7200; # two hours\n",
      "x 1;\ny 2",
      // quoted strings
      "option a \"x;y{z}#\";\noption b \"say \\\"hi; there\\\"\";\noption c \"\";\n",
      "option d \"never closed;\n# \"nor this\nx \\\";\n",
      "if option a = \"x;y\" {\nz 1;\n",
      "# Z\xc3\xbcrich\noption e \"Stra\xc3\x9f"
      "e\";\nf \xff\x80\x01;\n",
      // blocks
      "host a {\n}\n",
      "host a {\nx 1;\n}\nhost b {\ny 2;\n}\n",
      "a {\nb {\nc {\nx 1;\n# y\n}\nz 2;\n}\n}\n",
      "a {\n}\nb {\nc {\n}\n}\n",
      "subnet 10.0.0.0 netmask 255.0.0.0\n{\nrange 10.0.0.10 10.0.0.20;\n#  x\n#\n}\n",
      "class \"x{y}#\" {\nmatch if a = \"}\";\n}\n",
      // one-line blocks
      "host a { fixed-address 10.0.0.5; }\nhost b {x 1;y 2;} # old\n# host c { z 3; }\n",
      "a {\nhost b { x 1; } host c { y 2; }\nhost d\n{ z 3; }\n}\n",
      // braces and semicolons out of place
      "a {\nb {\nx 1;\n",
      "x 1;\n}\ny 2;\nhost a {\n}\n",
      "a {\nx 1\n}\ny 2;\n",
      "host a { x 1;\ny 2;\n}\nz 3;\n",
      // long lines
      std::string(65535, 'x') + ";\nhost " + std::string(65536, 'a') + " {\n}\n",
      std::string(70000, 'h') + "{ x 1; }\n",
  };
  return texts;
}

TEST(RoundTrip, SecondCycleGivesTheBytesAndTheTreeOfTheFirst) {
  ASSERT_THAT(HandWritten(), Not(IsEmpty()));
  for (const std::string& text : HandWritten()) ExpectStable(text);
}

TEST(RoundTrip, SecondCycleOfAFileWithCarriageReturnsGivesTheBytesAndTheTreeOfTheFirst) {
  ASSERT_THAT(HandWritten(), Not(IsEmpty()));
  for (const std::string& text : HandWritten()) ExpectStable(WithCarriageReturns(text));
}

TEST(RoundTrip, CarriageReturnsBeforeLineFeedsDoNotChangeWhatIsWritten) {
  ASSERT_THAT(HandWritten(), Not(IsEmpty()));
  for (const std::string& text : HandWritten()) {
    EXPECT_EQ(Cycle(WithCarriageReturns(text)).written, Cycle(text).written) << text;
  }
}

// ---- the example files ----

std::vector<std::string> ExampleFiles() {
  std::vector<std::string> paths;
  if (!fs::is_directory(KLEPUR_EXAMPLE_DATA)) return paths;
  for (const auto& file : fs::directory_iterator(KLEPUR_EXAMPLE_DATA)) {
    if (file.path().extension() == ".conf") paths.push_back(file.path().string());
  }
  return paths;
}

TEST(RoundTrip, SecondCycleOfTheExampleFilesGivesTheBytesAndTheTreeOfTheFirst) {
  const std::vector<std::string> paths = ExampleFiles();
  if (paths.empty()) GTEST_SKIP() << "no example files";
  for (const std::string& path : paths) {
    SCOPED_TRACE(path);
    const std::string text = ReadFile(path);
    EXPECT_THAT(text, Not(IsEmpty()));
    ExpectStable(text);
    ExpectStable(WithCarriageReturns(text));
  }
}

// ---- texts that do not come back ----

/// The whole tree, with what hangs beside the root.
std::string WholeTree(const std::string& text) {
  DhcpParser parser;
  CfSectionHolder holder;
  EXPECT_TRUE(parser.ParseBuffer(text.c_str(), &holder));
  return TreeText(holder);
}

TEST(RoundTrip, TextsOutOfOrderComeBackAsAnotherTree) {
  const struct {
    const char* what;
    const char* text;
    const char* tree;
    const char* written;
    const char* treeOfWritten;
  } kRows[] = {
      {"a block that is closed on the line of its brace", "host a { }\nx 1;\n",
       "[TREE_ROOT_SECTION]\n  [host a  }]\n    x 1;\n", "\nhost a  }\n{\n\tx 1;\n}\n",
       "[TREE_ROOT_SECTION]\n[host a]\n  x 1;\n"},
      {"a comment behind a brace", "host a { # main\nx 1;\n}\n",
       "[TREE_ROOT_SECTION]\n  [host a  # main]\n    x 1;\n", "\nhost a  # main\n{\n\tx 1;\n}\n",
       "[TREE_ROOT_SECTION]\n  #host a   main\n  []\n    x 1;\n"},
      {"a brace too many", "x 1;\n}\ny 2;\nhost a {\n}\n",
       "y 2;\n[TREE_ROOT_SECTION]\n  x 1;\n[host a]\n", "x 1;\n", "[TREE_ROOT_SECTION]\n  x 1;\n"},
      {"a brace that opens no block", "if a = \"b;c\" {\n}\nx 1;\n",
       "x 1;\n[TREE_ROOT_SECTION]\n  if a = \"b;c\" {\n", "if a = \"b;c\" {\n",
       "[TREE_ROOT_SECTION]\n  if a = \"b;c\" {\n"},
      {"a block named like the root", "x 1;\nTREE_ROOT_SECTION {\ny 2;\n}\n",
       "[TREE_ROOT_SECTION]\n  x 1;\n  [TREE_ROOT_SECTION]\n    y 2;\n", "x 1;\ny 2;\n",
       "[TREE_ROOT_SECTION]\n  x 1;\n  y 2;\n"},
      {"a quoted text over two lines", "a \"x\ny\";b\" c;\n",
       "[TREE_ROOT_SECTION]\n  a \"xy\";b\" c;\n", "a \"xy\";b\" c;\n",
       "[TREE_ROOT_SECTION]\n  a \"xy\";\n  b\" c;\n"},
      {"a carriage return in a line", "host a \r{\n}\n", "[TREE_ROOT_SECTION]\n  [host a \r]\n",
       "\nhost a \r\n{\n}\n", "[TREE_ROOT_SECTION]\n  [host a]\n"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(WholeTree(row.text), row.tree);
    const std::string written = Cycle(row.text).written;
    EXPECT_EQ(written, row.written);
    EXPECT_EQ(WholeTree(written), row.treeOfWritten);
  }
}

// ---- what the first cycle does not keep ----

struct Row {
  const char* text;
  const char* written;
};

void ExpectWritten(const Row& row) {
  EXPECT_EQ(Cycle(row.text).written, row.written) << row.text;
}

TEST(FirstCycle, ReplacesEmptyLinesByOneBeforeEachBlock) {
  ExpectWritten({"\n\nx 1;\n\n\ny 2;\nhost a {\n\nz 3;\n\n}\n\n\n\nhost b {\n}\n\n",
                 "x 1;\ny 2;\n\nhost a\n{\n\tz 3;\n}\n\nhost b\n{\n}\n"});
}

TEST(FirstCycle, ReplacesTheIndentation) {
  ExpectWritten(
      {"   x 1;\n\thost a {\n y 2;\n\t\t\tz 3;\n\t}\n", "x 1;\n\nhost a\n{\n\ty 2;\n\tz 3;\n}\n"});
}

TEST(FirstCycle, KeepsTheSpacingInsideAStatementAndDropsItAround) {
  ExpectWritten({"  range \t 10.0.0.1  10.0.0.9 ; \t\n", "range \t 10.0.0.1  10.0.0.9 ;\n"});
}

TEST(FirstCycle, DropsTheBlanksBetweenTheMarkAndTheTextOfAComment) {
  ExpectWritten({"#  \t main office  \n", "#main office\n"});
}

TEST(FirstCycle, PutsACommentBehindAStatementOnALineOfItsOwn) {
  ExpectWritten({"x 1; # old\ny 2;\n", "x 1;\n#old\ny 2;\n"});
}

TEST(FirstCycle, DropsLineBreaksInsideAStatement) {
  ExpectWritten({"range 10.0.0.10\n      10.0.0.20;\n", "range 10.0.0.10      10.0.0.20;\n"});
}

TEST(FirstCycle, PutsTheBraceOnALineOfItsOwn) {
  ExpectWritten({"host a {\n}\nhost b\n{\n}\nhost c{\n}\n",
                 "\nhost a\n{\n}\n\nhost b\n{\n}\n\nhost c\n{\n}\n"});
}

TEST(FirstCycle, PutsStatementsBeforeTheBlocksOfTheirBlock) {
  ExpectWritten({"host a {\n}\nx 1;\n", "x 1;\n\nhost a\n{\n}\n"});
}

}  // namespace
}  // namespace klepur::test
