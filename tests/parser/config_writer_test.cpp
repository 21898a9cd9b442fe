#include <gtest/gtest.h>
#include <klepur/parser/dhcp_parser.h>

#include <cstdio>
#include <filesystem>
#include <list>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/system_log.h"
#include "tests/support/unprivileged.h"

namespace klepur::test {
namespace {

namespace fs = std::filesystem;
using TreeNode = Tree<CfSection>::TreeNode;

/// A parser with a way to what derived classes see.
class Opened : public DhcpParser {
 public:
  using DhcpParser::holder;
  using DhcpParser::leftmostDepth;
  using DhcpParser::outputFile;
  using DhcpParser::writeDepth;
};

class ConfigWriter : public ::testing::Test {
 protected:
  /// The tree of a text, read by a parser that is gone by the time of the writing.
  std::unique_ptr<CfSectionHolder> TreeOf(const std::string& text) const {
    auto tree = std::make_unique<CfSectionHolder>();
    DhcpParser reader;
    EXPECT_TRUE(reader.ParseFile(scratch_.Write("read.conf", text).c_str(), tree.get()));
    return tree;
  }

  /// What the parser writes for a tree.
  std::string Saved(CfSectionHolder* tree) {
    EXPECT_TRUE(parser_.FileWriter(out_.c_str(), tree));
    return ReadFile(out_);
  }

  std::string Saved(const std::string& text) { return Saved(TreeOf(text).get()); }

  ScratchFolder scratch_;
  const std::string out_ = scratch_.Path("out.conf");
  Opened parser_;
};

// ---- the layout ----

TEST_F(ConfigWriter, LineThatACallerBroughtEndsAtItsNulByte) {
  CfSectionHolder tree;
  DhcpParser parser;
  ASSERT_TRUE(parser.ParseBuffer("", &tree));
  for (const std::string::size_type length : {8U, 37U, 38U, 39U, 80U}) {
    std::string line = "log \"a\";" + std::string(length, 'x');
    line[8] = '\0';
    EXPECT_EQ(parser.AddSectionParameter(line), 1);
  }
  EXPECT_EQ(Saved(&tree), "log \"a\";\nlog \"a\";\nlog \"a\";\nlog \"a\";\nlog \"a\";\n");
}

struct Layout {
  const char* what;
  const char* text;
  const char* first;   // as written by a new parser
  const char* second;  // as written by the same parser once more
};

void PrintTo(const Layout& layout, std::ostream* out) {
  *out << layout.what;
}

const Layout kLayouts[] = {
    {"the blocks and lines of a small file",
     "option domain-name-servers 10.0.0.1;\n"
     "# main office\n"
     "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
     "  range 10.0.0.10 10.0.0.20;\n"
     "}\n",
     "option domain-name-servers 10.0.0.1;\n"
     "#main office\n"
     "\n"
     "subnet 10.0.0.0 netmask 255.255.255.0\n"
     "{\n"
     "\trange 10.0.0.10 10.0.0.20;\n"
     "}\n",
     "option domain-name-servers 10.0.0.1;\n"
     "#main office\n"
     "\n"
     "subnet 10.0.0.0 netmask 255.255.255.0\n"
     "{\n"
     "\trange 10.0.0.10 10.0.0.20;\n"
     "\n"
     "}\n"},
    // no blocks
    {"an empty file", "", "", ""},
    {"only blanks and empty lines", " \n\t\n\n", "", ""},
    {"only statements", "authoritative;\nping-check true;\n", "authoritative;\nping-check true;\n",
     "authoritative;\nping-check true;\n"},
    {"only comments", "# one\n\n#two\n", "#one\n#two\n", "#one\n#two\n"},
    // nesting
    {"a block without lines", "host a {\n}\n", "\nhost a\n{\n}\n", "\nhost a\n{\n\n}\n"},
    {"a block without a name", "{\nfilename a;\n}\n", "\n\n{\n\tfilename a;\n}\n",
     "\n\n{\n\tfilename a;\n\n}\n"},
    {"two blocks", "host a {\nfilename a;\n}\nhost b {\nfilename b;\n}\n",
     "\nhost a\n{\n\tfilename a;\n}\n\nhost b\n{\n\tfilename b;\n}\n",
     "\nhost a\n{\n\tfilename a;\n\n}\n\nhost b\n{\n\tfilename b;\n\n}\n"},
    {"a block nested two deep is indented by one tab and its lines by two",
     "shared-network office {\n"
     "subnet 10.0.0.0 netmask 255.0.0.0 {\n"
     "range 10.0.0.10 10.0.0.20;\n"
     "}\n"
     "}\n",
     "\nshared-network office\n"
     "{\n"
     "\n\tsubnet 10.0.0.0 netmask 255.0.0.0\n"
     "\t{\n"
     "\t\trange 10.0.0.10 10.0.0.20;\n"
     "\t}\n"
     "\n"
     "}\n",
     "\nshared-network office\n"
     "{\n"
     "\n\tsubnet 10.0.0.0 netmask 255.0.0.0\n"
     "\t{\n"
     "\t\trange 10.0.0.10 10.0.0.20;\n"
     "\t}\n"
     "\n"
     "}\n"},
    {"nested blocks under a second block only",
     "host a {\n}\nshared-network b {\nsubnet c {\n}\nsubnet d {\n}\n}\n",
     "\nhost a\n{\n}\n"
     "\nshared-network b\n{\n\n\tsubnet c\n\t{\n\t}\n\n\tsubnet d\n\t{\n\t}\n}\n",
     "\nhost a\n{\n\n}\n"
     "\nshared-network b\n{\n\n\tsubnet c\n\t{\n\t}\n\n\tsubnet d\n\t{\n\t}\n\n}\n"},
    {"three levels, then one", "a {\nb {\nc {\nfilename x;\n}\n}\n}\nd {\n}\n",
     "\na\n{\n\n\tb\n\t{\n\n\t\tc\n\t\t{\n\t\t\tfilename x;\n\t\t}\n\t}\n\n}\n\nd\n{\n\n}\n",
     "\na\n{\n\n\tb\n\t{\n\n\t\tc\n\t\t{\n\t\t\tfilename x;\n\t\t}\n\t}\n\n}\n\nd\n{\n\n}\n"},
    {"lines of a block come before the blocks in it",
     "filename a;\nhost x {\n}\nfilename b;\ngroup {\nhost y {\n}\nfilename c;\n}\n# end\n",
     "filename a;\nfilename b;\n#end\n\nhost x\n{\n}\n\ngroup\n{\n\tfilename c;\n\n\thost "
     "y\n\t{\n\t}\n}\n",
     "filename a;\nfilename b;\n#end\n\nhost x\n{\n\n}\n"
     "\ngroup\n{\n\tfilename c;\n\n\thost y\n\t{\n\t}\n\n}\n"},
    // comments
    {"a comment's mark stands in the first column at every depth",
     "# zero\ngroup {\n  # one\n  host a {\n    # two\n    host-identifier x;\n  }\n}\n",
     "#zero\n\ngroup\n{\n#\tone\n\n\thost a\n\t{\n#\t\ttwo\n\t\thost-identifier x;\n\t}\n\n}\n",
     "#zero\n\ngroup\n{\n#\tone\n\n\thost a\n\t{\n#\t\ttwo\n\t\thost-identifier x;\n\t}\n\n}\n"},
    {"empty comments", "#\nhost a {\n#   \n}\n", "#\n\nhost a\n{\n#\t\n}\n",
     "#\n\nhost a\n{\n#\t\n\n}\n"},
    {"a second mark is text", "## range a;\n", "## range a;\n", "## range a;\n"},
    // one-line blocks
    {"one-line blocks at every depth",
     "host a { fixed-address 10.0.0.5; }\n"
     "group {\n"
     "  host b {fixed-address 10.0.0.6;}\n"
     "  subnet c {\n"
     "    host d { filename \"x\"; next-server y; } # the last\n"
     "  }\n"
     "}\n",
     "host a { fixed-address 10.0.0.5; }\n"
     "\ngroup\n{\n\thost b {fixed-address 10.0.0.6;}\n"
     "\n\tsubnet c\n\t{\n\t\thost d { filename \"x\"; next-server y; } # the last\n\t}\n\n}\n",
     "host a { fixed-address 10.0.0.5; }\n"
     "\ngroup\n{\n\thost b {fixed-address 10.0.0.6;}\n"
     "\n\tsubnet c\n\t{\n\t\thost d { filename \"x\"; next-server y; } # the last\n\t}\n\n}\n"},
    // what the first writing does not keep
    {"empty lines of the input", "\n\na;\n\n\nhost x {\n\n\nb;\n\n}\n\n",
     "a;\n\nhost x\n{\n\tb;\n}\n", "a;\n\nhost x\n{\n\tb;\n\n}\n"},
    {"indentation and the blanks around a statement; those inside stay",
     "    option   routers\t10.0.0.1 ;   \n\t\tdeny x;\t\n",
     "option   routers\t10.0.0.1 ;\ndeny x;\n", "option   routers\t10.0.0.1 ;\ndeny x;\n"},
    {"the blanks around a comment", "#\t  lease  settings \t\n", "#lease  settings\n",
     "#lease  settings\n"},
    {"a comment behind a statement gets a line of its own", "deny x; # not here\nallow y;\n",
     "deny x;\n#not here\nallow y;\n", "deny x;\n#not here\nallow y;\n"},
    {"line ends inside a statement", "range 10.0.0.10\n  10.0.0.20\n;\n",
     "range 10.0.0.10  10.0.0.20;\n", "range 10.0.0.10  10.0.0.20;\n"},
    {"the place of the brace", "host a {\n}\nhost b\n{\n}\nhost c{\n}\n",
     "\nhost a\n{\n}\n\nhost b\n{\n}\n\nhost c\n{\n}\n",
     "\nhost a\n{\n\n}\n\nhost b\n{\n\n}\n\nhost c\n{\n\n}\n"},
    // texts
    {"quoted strings and bytes that are not ASCII",
     "option x \"a;b{c}#d\\\"e\";\n# K\xc3\xbc"
     "che \xff\n",
     "option x \"a;b{c}#d\\\"e\";\n#K\xc3\xbc"
     "che \xff\n",
     "option x \"a;b{c}#d\\\"e\";\n#K\xc3\xbc"
     "che \xff\n"},
};

class ConfigWriterLayout : public ConfigWriter, public ::testing::WithParamInterface<Layout> {};

TEST_P(ConfigWriterLayout, IsTheSameForBothLineEndsAndGrowsWithTheSecondSave) {
  const std::string text = GetParam().text;
  for (const std::string& input : {text, WithCarriageReturns(text)}) {
    const auto tree = TreeOf(input);
    Opened parser;
    ASSERT_TRUE(parser.FileWriter(out_.c_str(), tree.get()));
    EXPECT_EQ(ReadFile(out_), GetParam().first);
    ASSERT_TRUE(parser.FileWriter(out_.c_str(), tree.get()));
    EXPECT_EQ(ReadFile(out_), GetParam().second);
  }
}

INSTANTIATE_TEST_SUITE_P(All, ConfigWriterLayout, ::testing::ValuesIn(kLayouts));

TEST_F(ConfigWriter, RootWithoutLinesAndBlocksMakesAnEmptyFile) {
  scratch_.Write("out.conf", "what stood there;\n");
  EXPECT_EQ(Saved(""), "");
}

TEST_F(ConfigWriter, CommentAtDepthTwoIsTheMarkTwoTabsAndTheText) {
  const std::string saved = Saved("group {\nhost a {\n  # range b;\n}\n}\n");
  EXPECT_EQ(saved, "\ngroup\n{\n\n\thost a\n\t{\n#\t\trange b;\n\t}\n\n}\n");
}

TEST_F(ConfigWriter, OneLineBlockIsWrittenUnchanged) {
  EXPECT_EQ(Saved("host a { fixed-address 10.0.0.5; }\n"), "host a { fixed-address 10.0.0.5; }\n");
}

TEST_F(ConfigWriter, ShorterTextReplacesTheWholeFile) {
  scratch_.Write("out.conf", std::string(100000, 'x'));
  EXPECT_EQ(Saved("a;\n"), "a;\n");
}

TEST_F(ConfigWriter, LongLinesAreWrittenWhole) {
  for (const std::size_t size : {32767U, 32768U, 65535U, 65536U, 70000U}) {
    const std::string line = "option x " + std::string(size - 10, 'y') + ";";
    EXPECT_TRUE(Saved("a {\n" + line + "\n}\n").find("{\n\t" + line + "\n") != std::string::npos)
        << size;
  }
}

TEST_F(ConfigWriter, DeeplyNestedBlocksAreIndentedByTheirDepth) {
  constexpr std::size_t kDepth = 500;
  std::string text;
  std::string opening;
  std::string closing;
  for (std::size_t i = 0; i != kDepth; ++i) {
    const std::string tabs(i, '\t');
    text += "a {\n";
    opening += "\n" + tabs + "a\n" + tabs + "{\n";
    closing.insert(0, (i == 0 ? "\n" : "") + tabs + "}\n");
  }
  for (std::size_t i = 0; i != kDepth; ++i) text += "}\n";
  EXPECT_EQ(Saved(text), opening + closing);
}

TEST_F(ConfigWriter, ValuesAndCommentTextsAreNotWritten) {
  const auto tree = TreeOf("");
  CfSection& root = tree->topNode.children->front()->section;
  root.AddEntry("deny a;", "value", nullptr);
  root.AddEntry("deny b;", "value", "switched off in March");
  root.AddEntry("deny c;", nullptr, "");
  EXPECT_EQ(Saved(tree.get()), "deny a;\n#deny b;\n#deny c;\n");
}

TEST_F(ConfigWriter, OnlyTheFirstTopLevelNodeIsWritten) {
  EXPECT_EQ(Saved("deny a;\n}\ndeny b;\nhost c {\ndeny d;\n}\n"), "deny a;\n");
}

// ---- the leftmost depth ----

const char kFlat[] = "host a {\n}\n";
const char kFlatTight[] = "\nhost a\n{\n}\n";
const char kFlatLoose[] = "\nhost a\n{\n\n}\n";

struct Depth {
  const char* what;
  const char* text;
  unsigned int added;
};

const Depth kDepths[] = {
    {"no blocks", "a;\n", 0},
    {"a block without blocks", kFlat, 1},
    {"only the first block counts", "host a {\n}\ngroup {\nhost b {\n}\n}\n", 1},
    {"a shared network with a subnet", "shared-network a {\nsubnet b {\n}\n}\n", 2},
    {"only the first block on every level counts",
     "shared-network a {\nsubnet b {\n}\nsubnet c {\nhost d {\n}\n}\n}\n", 2},
    {"four levels", "a {\nb {\nc {\nd {\n}\n}\n}\n}\n", 4},
};

TEST_F(ConfigWriter, EveryWriteAddsTheLevelsDownThroughFirstBlocks) {
  for (const Depth& row : kDepths) {
    SCOPED_TRACE(row.what);
    const auto tree = TreeOf(row.text);
    Opened parser;
    for (unsigned int writes = 1; writes != 5; ++writes) {
      ASSERT_TRUE(parser.FileWriter(out_.c_str(), tree.get()));
      EXPECT_EQ(parser.leftmostDepth, writes * row.added);
    }
  }
}

TEST_F(ConfigWriter, SumsOfDifferentTreesCount) {
  Saved("shared-network a {\nsubnet b {\n}\n}\n");
  Saved(kFlat);
  Saved("a {\nb {\nc {\n}\n}\n}\n");
  EXPECT_EQ(parser_.leftmostDepth, 6U);
}

TEST_F(ConfigWriter, AfterTwoSavesEveryTopLevelBraceHasAnEmptyLineBeforeIt) {
  const auto tree = TreeOf("host a {\ndeny b;\n}\ngroup {\nhost c {\n}\n}\n");
  EXPECT_EQ(Saved(tree.get()),
            "\nhost a\n{\n\tdeny b;\n}\n"
            "\ngroup\n{\n\n\thost c\n\t{\n\t}\n}\n");
  const std::string loose =
      "\nhost a\n{\n\tdeny b;\n\n}\n"
      "\ngroup\n{\n\n\thost c\n\t{\n\t}\n\n}\n";
  EXPECT_EQ(Saved(tree.get()), loose);
  EXPECT_EQ(Saved(tree.get()), loose);
}

TEST_F(ConfigWriter, WriteOfATreeWithoutBlocksLeavesTheNextOneTight) {
  Saved("a;\n");
  EXPECT_EQ(Saved(kFlat), kFlatTight);
  EXPECT_EQ(Saved(kFlat), kFlatLoose);
}

TEST_F(ConfigWriter, FailedOpenCountsAsAWrite) {
  const auto tree = TreeOf(kFlat);
  EXPECT_FALSE(parser_.FileWriter(scratch_.Path("missing/out.conf").c_str(), tree.get()));
  EXPECT_EQ(parser_.leftmostDepth, 1U);
  EXPECT_EQ(Saved(tree.get()), kFlatLoose);
}

TEST_F(ConfigWriter, WriteOfNothingCountsNothing) {
  CfSectionHolder empty;
  EXPECT_FALSE(parser_.FileWriter(out_.c_str(), nullptr));
  EXPECT_FALSE(parser_.FileWriter(out_.c_str(), &empty));
  EXPECT_EQ(parser_.leftmostDepth, 0U);
  EXPECT_EQ(Saved(kFlat), kFlatTight);
}

TEST_F(ConfigWriter, ReadingDoesNotCount) {
  CfSectionHolder tree;
  const std::string path = scratch_.Write("read.conf", kFlat);
  ASSERT_TRUE(parser_.ParseFile(path.c_str(), &tree));
  EXPECT_EQ(Saved(&tree), kFlatTight);
}

// ---- which tree ----

TEST_F(ConfigWriter, NoTreeGivenAndNoneStoredIsAFailureThatTouchesNothing) {
  EXPECT_FALSE(parser_.FileWriter(out_.c_str(), nullptr));
  EXPECT_FALSE(fs::exists(out_));
  scratch_.Write("out.conf", "what stood there;\n");
  EXPECT_FALSE(parser_.FileWriter(out_.c_str(), nullptr));
  EXPECT_EQ(ReadFile(out_), "what stood there;\n");
}

TEST_F(ConfigWriter, WithoutATreeTheOneLastReadIsWritten) {
  CfSectionHolder tree;
  ASSERT_TRUE(parser_.ParseFile(scratch_.Write("read.conf", "deny a;\n").c_str(), &tree));
  EXPECT_EQ(Saved(nullptr), "deny a;\n");
}

TEST_F(ConfigWriter, WithoutATreeTheOneLastWrittenIsWritten) {
  CfSectionHolder tree;
  ASSERT_TRUE(parser_.ParseFile(scratch_.Write("read.conf", "deny a;\n").c_str(), &tree));
  const auto other = TreeOf("deny b;\n");
  EXPECT_EQ(Saved(other.get()), "deny b;\n");
  EXPECT_EQ(parser_.holder, other.get());
  EXPECT_EQ(Saved(nullptr), "deny b;\n");
}

TEST_F(ConfigWriter, TreeWithAnEmptyTopLevelIsAFailureThatTouchesNothing) {
  scratch_.Write("out.conf", "what stood there;\n");
  CfSectionHolder neverRead;
  CfSectionHolder emptied;
  emptied.topNode.children = new std::list<TreeNode*>;
  for (CfSectionHolder* tree : {&neverRead, &emptied}) {
    EXPECT_FALSE(parser_.FileWriter(out_.c_str(), tree));
    EXPECT_EQ(ReadFile(out_), "what stood there;\n");
  }
}

// ---- which file ----

TEST_F(ConfigWriter, FileThatDoesNotExistIsMade) {
  EXPECT_FALSE(fs::exists(out_));
  EXPECT_EQ(Saved("deny a;\n"), "deny a;\n");
}

TEST_F(ConfigWriter, PathThatCannotBeOpenedIsAFailure) {
  const auto tree = TreeOf("deny a;\n");
  fs::create_directory(out_);
  for (const std::string& path : {scratch_.Path("missing/out.conf"), out_, std::string()}) {
    EXPECT_FALSE(parser_.FileWriter(path.c_str(), tree.get())) << path;
    EXPECT_EQ(parser_.outputFile, nullptr) << path;
  }
  EXPECT_FALSE(parser_.FileWriter(nullptr, tree.get()));
  EXPECT_FALSE(fs::exists(scratch_.Path("missing")));
}

TEST_F(ConfigWriter, FileThatMayNotBeWrittenIsLeftAsItWas) {
  const auto tree = TreeOf("deny a;\n");
  scratch_.Write("out.conf", "what stood there;\n");
  fs::permissions(scratch_.Path(""), fs::perms(0755));
  fs::permissions(out_, fs::perms(0444));
  bool written = true;
  {
    const Unprivileged user;
    if (!user.Holds()) GTEST_SKIP() << "root's rights cannot be put down here";
    written = parser_.FileWriter(out_.c_str(), tree.get());
  }
  EXPECT_FALSE(written);
  EXPECT_EQ(ReadFile(out_), "what stood there;\n");
}

TEST_F(ConfigWriter, AfterAFailedOpenTheNextWriteWorks) {
  const auto tree = TreeOf("deny a;\n");
  EXPECT_FALSE(parser_.FileWriter(scratch_.Path("missing/out.conf").c_str(), tree.get()));
  EXPECT_EQ(Saved(tree.get()), "deny a;\n");
}

TEST_F(ConfigWriter, SymbolicLinkStaysAndItsTargetIsWritten) {
  const std::string target = scratch_.Write("target.conf", "what stood there;\n");
  fs::create_symlink("target.conf", out_);
  EXPECT_EQ(Saved("deny a;\n"), "deny a;\n");
  EXPECT_TRUE(fs::is_symlink(out_));
  EXPECT_EQ(ReadFile(target), "deny a;\n");
}

TEST_F(ConfigWriter, FileThatWasReadAndChangedMeanwhileIsReplacedByTheTree) {
  CfSectionHolder tree;
  const std::string path = scratch_.Write("out.conf", "deny a;\n");
  ASSERT_TRUE(parser_.ParseFile(path.c_str(), &tree));
  scratch_.Write("out.conf", "deny b;\ndeny c;\n");
  EXPECT_EQ(Saved(&tree), "deny a;\n");
}

TEST_F(ConfigWriter, FileThatIsAlreadyOpenIsWrittenInPlaceOfTheOneNamed) {
  const std::string open = scratch_.Path("open.conf");
  parser_.outputFile = std::fopen(open.c_str(), "w");
  ASSERT_TRUE(parser_.FileWriter(out_.c_str(), TreeOf("deny a;\n").get()));
  EXPECT_EQ(ReadFile(open), "deny a;\n");
  EXPECT_FALSE(fs::exists(out_));
  EXPECT_EQ(parser_.outputFile, nullptr);
}

TEST_F(ConfigWriter, FileIsOpenOnlyWhileItIsWritten) {
  const auto tree = TreeOf("deny a;\n");
  const auto before = OpenDescriptors();
  for (int i = 0; i != 20; ++i) {
    EXPECT_TRUE(parser_.FileWriter(out_.c_str(), tree.get()));
    EXPECT_EQ(parser_.outputFile, nullptr);
  }
  EXPECT_EQ(OpenDescriptors(), before);
}

TEST_F(ConfigWriter, FullDiskIsNotReported) {
  const auto small = TreeOf("deny a;\n");
  const auto large = TreeOf("option x " + std::string(200000, 'y') + ";\nhost a {\n}\n");
  EXPECT_TRUE(parser_.FileWriter("/dev/full", small.get()));
  EXPECT_TRUE(parser_.FileWriter("/dev/full", large.get()));
  EXPECT_EQ(parser_.outputFile, nullptr);
}

TEST_F(ConfigWriter, FailuresAreNotLogged) {
  const auto tree = TreeOf("deny a;\n");
  ClearSystemLog();
  EXPECT_FALSE(parser_.FileWriter(out_.c_str(), nullptr));
  EXPECT_FALSE(parser_.FileWriter(scratch_.Path("missing/out.conf").c_str(), tree.get()));
  EXPECT_TRUE(parser_.FileWriter("/dev/full", tree.get()));
  EXPECT_EQ(SystemLog(), std::vector<std::string>());
}

// ---- the steps of a write ----

class ConfigWriterSteps : public ConfigWriter {
 protected:
  ConfigWriterSteps() {
    section_.SetName("host a");
    section_.AddEntry("deny b;", nullptr, nullptr);
    root_.SetName("TREE_ROOT_SECTION");
    root_.AddEntry("deny c;", nullptr, nullptr);
  }

  void Open() { parser_.outputFile = std::fopen(out_.c_str(), "w"); }

  std::string Written() const {
    std::fflush(parser_.outputFile);
    return ReadFile(out_);
  }

  CfSection section_;
  CfSection root_;
};

TEST_F(ConfigWriterSteps, TextWithoutAnOpenFileIsNotWritten) {
  EXPECT_EQ(parser_.WriteBuff("deny b;\n"), 0U);
}

TEST_F(ConfigWriterSteps, TextIsWrittenUpToItsEndAndItsBytesAreCounted) {
  Open();
  EXPECT_EQ(parser_.WriteBuff("deny b;\n\0deny c;\n"), 8U);
  EXPECT_EQ(parser_.WriteBuff(""), 0U);
  EXPECT_EQ(parser_.WriteBuff(nullptr), 0U);
  EXPECT_EQ(Written(), "deny b;\n");
}

/// Writes texts of its own around its block and in it.
class RemarkingNode : public TreeNode {
 public:
  using TreeNode::TraverseDo;
  using TreeNode::TreeNode;

  bool TraverseDo(void* ctx, bool (*pre)(void*, CfSection&),
                  bool (*post)(void*, CfSection&)) override {
    DhcpParser& parser = *static_cast<DhcpParser*>(ctx);
    EXPECT_EQ(parser.WriteBuff("# before\n"), 9U);
    pre(ctx, section);
    EXPECT_EQ(parser.WriteBuff("# inside\n"), 9U);
    post(ctx, section);
    EXPECT_EQ(parser.WriteBuff("# behind\n"), 9U);
    return true;
  }
};

TEST_F(ConfigWriterSteps, TextOfANodeOfACallersOwnStandsWhereItWasWritten) {
  const auto tree = TreeOf("deny a;\nhost a {\ndeny b;\n}\n");
  TreeNode& root = *tree->topNode.children->front();
  root.children->push_back(new RemarkingNode(&root, section_));
  root.children->push_back(new TreeNode(&root, section_));
  EXPECT_EQ(Saved(tree.get()),
            "deny a;\n\nhost a\n{\n\tdeny b;\n}\n"
            "# before\n\nhost a\n{\n\tdeny b;\n# inside\n}\n# behind\n"
            "\nhost a\n{\n\tdeny b;\n}\n");
}

TEST_F(ConfigWriterSteps, BlockWithoutAnOpenFileIsNotWritten) {
  EXPECT_TRUE(parser_.WriteSection(section_));
  EXPECT_EQ(parser_.WriteSectionEnd(section_), 0);
  Open();
  EXPECT_TRUE(parser_.WriteSection(root_));
  EXPECT_EQ(Written(), "deny c;\n");
}

TEST_F(ConfigWriterSteps, NullAmongTheLinesIsPassedOver) {
  Open();
  section_.entryList.insert(section_.entryList.begin(), nullptr);
  EXPECT_TRUE(parser_.WriteSection(section_));
  EXPECT_EQ(Written(), "\nhost a\n{\n\tdeny b;\n");
}

TEST_F(ConfigWriterSteps, HeaderAndLinesAreWrittenOneLevelDeeperEachTime) {
  Open();
  EXPECT_TRUE(parser_.WriteSection(section_));
  EXPECT_EQ(parser_.writeDepth, 1U);
  EXPECT_TRUE(parser_.WriteSection(section_));
  EXPECT_EQ(parser_.writeDepth, 2U);
  EXPECT_EQ(Written(), "\nhost a\n{\n\tdeny b;\n\n\thost a\n\t{\n\t\tdeny b;\n");
}

TEST_F(ConfigWriterSteps, RootHasNoHeaderAndResetsTheDepth) {
  Open();
  parser_.writeDepth = 3;
  EXPECT_TRUE(parser_.WriteSection(root_));
  EXPECT_EQ(parser_.writeDepth, 0U);
  EXPECT_EQ(Written(), "deny c;\n");
}

TEST_F(ConfigWriterSteps, OnlyTheExactNameIsTheRoot) {
  Open();
  section_.SetName("TREE_ROOT_SECTION 2");
  EXPECT_TRUE(parser_.WriteSection(section_));
  EXPECT_EQ(Written(), "\nTREE_ROOT_SECTION 2\n{\n\tdeny b;\n");
}

TEST_F(ConfigWriterSteps, BraceIsWrittenAtTheDepthOfItsHeader) {
  Open();
  parser_.leftmostDepth = 1;
  parser_.writeDepth = 2;
  EXPECT_EQ(parser_.WriteSectionEnd(section_), 0);
  EXPECT_EQ(parser_.writeDepth, 1U);
  EXPECT_EQ(parser_.WriteSectionEnd(section_), 0);
  EXPECT_EQ(parser_.writeDepth, 0U);
  EXPECT_EQ(Written(), "\t}\n}\n");
}

TEST_F(ConfigWriterSteps, EmptyLineStandsBeforeATopLevelBraceUnlessTheLeftmostDepthIsOne) {
  for (const unsigned int leftmost : {0U, 1U, 2U, 3U}) {
    Open();
    parser_.leftmostDepth = leftmost;
    parser_.writeDepth = 2;
    parser_.WriteSectionEnd(section_);
    parser_.WriteSectionEnd(section_);
    EXPECT_EQ(Written(), leftmost == 1 ? "\t}\n}\n" : "\t}\n\n}\n") << leftmost;
    std::fclose(parser_.outputFile);
    parser_.outputFile = nullptr;
  }
}

TEST_F(ConfigWriterSteps, EndOfTheRootWritesNothing) {
  Open();
  EXPECT_EQ(parser_.WriteSectionEnd(root_), 0);
  EXPECT_EQ(Written(), "");
}

TEST_F(ConfigWriterSteps, CallbacksWithoutAParserRefuse) {
  EXPECT_FALSE(WriteSectionW(nullptr, section_));
  EXPECT_FALSE(WriteSectionEndW(nullptr, section_));
}

TEST_F(ConfigWriterSteps, CallbacksForwardToTheirParser) {
  Open();
  parser_.leftmostDepth = 1;
  DhcpParser* const context = &parser_;
  EXPECT_TRUE(WriteSectionW(context, section_));
  EXPECT_FALSE(WriteSectionEndW(context, section_));
  EXPECT_EQ(Written(), "\nhost a\n{\n\tdeny b;\n}\n");
}

// ---- a block named like the root ----

std::string WithoutLayout(const std::string& text) {
  std::string kept;
  for (const char c : text) {
    if (c != '\t' && (c != '\n' || (!kept.empty() && kept.back() != '\n'))) kept += c;
  }
  return kept;
}

TEST_F(ConfigWriter, BlockNamedLikeTheRootCostsOnlyItsBracesAndTheIndentation) {
  const std::string saved = Saved(
      "deny a;\n"
      "group {\n"
      "deny b;\n"
      "TREE_ROOT_SECTION {\n"
      "deny c;\n"
      "host x {\n"
      "deny d;\n"
      "}\n"
      "}\n"
      "host y {\n"
      "deny e;\n"
      "}\n"
      "}\n"
      "host z {\n"
      "deny f;\n"
      "}\n");
  EXPECT_EQ(WithoutLayout(saved),
            "deny a;\n"
            "group\n{\ndeny b;\n"
            "deny c;\n"
            "host x\n{\ndeny d;\n}\n"
            "host y\n{\ndeny e;\n}\n"
            "}\n"
            "host z\n{\ndeny f;\n}\n");
}

TEST_F(ConfigWriter, IndentationBehindABlockNamedLikeTheRootStaysSmall) {
  const std::string saved =
      Saved("a {\nb {\nTREE_ROOT_SECTION {\n}\n}\n}\nhost x {\nhost y {\ndeny z;\n}\n}\n");
  EXPECT_EQ(saved.find(std::string(8, '\t')), std::string::npos) << saved;
}

}  // namespace
}  // namespace klepur::test
