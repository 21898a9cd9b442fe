#include <gtest/gtest.h>
#include <klepur/framework/block_parser.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/files.h"
#include "tests/support/streams.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

// ---- the grammar

struct Row {
  const char* text;
  const char* tree;
};

constexpr Row kGrammar[] = {
    // statements
    {"", "[TREE_ROOT_SECTION]\n"},
    {"\n \t\v\n\n", "[TREE_ROOT_SECTION]\n"},
    {"x 1;", "[TREE_ROOT_SECTION]\n  x 1;\n"},
    {"  \t x 1; \t\v \n", "[TREE_ROOT_SECTION]\n  x 1;\n"},
    {"option routers 10.0.0.1 ;\n", "[TREE_ROOT_SECTION]\n  option routers 10.0.0.1 ;\n"},
    {"x   1,\t2;\n", "[TREE_ROOT_SECTION]\n  x   1,\t2;\n"},
    {"x 1;y 2; z 3;\n", "[TREE_ROOT_SECTION]\n  x 1;\n  y 2;\n  z 3;\n"},
    {";\n;;\n", "[TREE_ROOT_SECTION]\n  ;\n  ;\n  ;\n"},
    {"x 1;\ny 2\n", "[TREE_ROOT_SECTION]\n  x 1;\n"},
    {"x \"a;b{c}#\\\"d\";\n", "[TREE_ROOT_SECTION]\n  x \"a;b{c}#\\\"d\";\n"},

    // more is skipped in front of a statement than is cut off a text
    {"\f\r x 1;\f\r y 2;\n", "[TREE_ROOT_SECTION]\n  x 1;\n  y 2;\n"},
    {"#\f note\f \n", "[TREE_ROOT_SECTION]\n  #\f note\f\n"},
    {"host a\f {\n}\n", "[TREE_ROOT_SECTION]\n  [host a\f]\n"},

    // over several lines
    {"range 10.0.0.10\n  10.0.0.20;\n", "[TREE_ROOT_SECTION]\n  range 10.0.0.10  10.0.0.20;\n"},
    {"range 10.0.0.10 \n10.0.0.20;\n", "[TREE_ROOT_SECTION]\n  range 10.0.0.10 10.0.0.20;\n"},
    {"range 10.0.0.10\n10.0.0.20;\n", "[TREE_ROOT_SECTION]\n  range 10.0.0.1010.0.0.20;\n"},
    {"range \n\n\t10.0.0.10\n\n;\n", "[TREE_ROOT_SECTION]\n  range \t10.0.0.10;\n"},

    // comments
    {"# lease settings\n", "[TREE_ROOT_SECTION]\n  #lease settings\n"},
    {"#lease settings", "[TREE_ROOT_SECTION]\n  #lease settings\n"},
    {"  # \t\v note \t\v \n", "[TREE_ROOT_SECTION]\n  #note\n"},
    {"#\n", "[TREE_ROOT_SECTION]\n  #\n"},
    {"# \t\v\n#", "[TREE_ROOT_SECTION]\n  #\n  #\n"},
    {"## twice # and more\n", "[TREE_ROOT_SECTION]\n  ## twice # and more\n"},
    {"# a; b { c }\nx 1;\n", "[TREE_ROOT_SECTION]\n  #a; b { c }\n  x 1;\n"},
    {"x 1; # two hours\n", "[TREE_ROOT_SECTION]\n  x 1;\n  #two hours\n"},
    {"x # which?\n1;\n", "[TREE_ROOT_SECTION]\n  #x  which?\n  1;\n"},
    {"x\n# which?\n1;\n", "[TREE_ROOT_SECTION]\n  #x which?\n  1;\n"},

    // blocks
    {"subnet 10.0.0.0 netmask 255.255.255.0 {\n}\n",
     "[TREE_ROOT_SECTION]\n  [subnet 10.0.0.0 netmask 255.255.255.0]\n"},
    {"subnet 10.0.0.0 netmask 255.255.255.0\n{\n}\n",
     "[TREE_ROOT_SECTION]\n  [subnet 10.0.0.0 netmask 255.255.255.0]\n"},
    {" host a \n\t{ \t\v\n}\n", "[TREE_ROOT_SECTION]\n  [host a]\n"},
    {"host a{", "[TREE_ROOT_SECTION]\n  [host a]\n"},
    {"{\n}\n", "[TREE_ROOT_SECTION]\n  []\n"},
    {"a {\nw 1;\nb {\nx 2;\n}\ny 3;\n}\nz 4;\n",
     "[TREE_ROOT_SECTION]\n  z 4;\n  [a]\n    w 1;\n    y 3;\n    [b]\n      x 2;\n"},
    {"host a {\nx 1;\n} host b {\ny 2;\n}\n",
     "[TREE_ROOT_SECTION]\n  [host a]\n    x 1;\n  [host b]\n    y 2;\n"},
    {"host a {\n}; x 1;\n", "[TREE_ROOT_SECTION]\n  ;\n  x 1;\n  [host a]\n"},
    {"host a {\nx 1;\n", "[TREE_ROOT_SECTION]\n  [host a]\n    x 1;\n"},

    // what follows a brace on its line is part of the name
    {"host a { # main\nx 1;\n}\ny 2;\n",
     "[TREE_ROOT_SECTION]\n  y 2;\n  [host a  # main]\n    x 1;\n"},
    {"host a { }\nx 1;\n", "[TREE_ROOT_SECTION]\n  [host a  }]\n    x 1;\n"},
    {"host a {{\nx 1;\n", "[TREE_ROOT_SECTION]\n  [host a {]\n    x 1;\n"},

    // with a semicolon in it the line is an entry
    {"host a { fixed-address 10.0.0.5; }\nx 1;\n",
     "[TREE_ROOT_SECTION]\n  host a { fixed-address 10.0.0.5; }\n  x 1;\n"},
    {"host a {x 1;y 2;} # old  \n", "[TREE_ROOT_SECTION]\n  host a {x 1;y 2;} # old\n"},
    {"host a\n{ x 1; }\n", "[TREE_ROOT_SECTION]\n  host a{ x 1; }\n"},
    {"host a { # x; y\nz 1;\n", "[TREE_ROOT_SECTION]\n  host a { # x; y\n  z 1;\n"},
    {"host \"a;b\" {\nx 1;\n", "[TREE_ROOT_SECTION]\n  host \"a;b\" {\n  x 1;\n"},
    {"{;}\n", "[TREE_ROOT_SECTION]\n  {;}\n"},

    // text that no semicolon has ended stays when its block ends
    {"host a {\nx 1\n}\ny 2;\n", "[TREE_ROOT_SECTION]\n  x 1y 2;\n  [host a]\n"},
    {"host a {\nx 1 }\ny 2;\n", "[TREE_ROOT_SECTION]\n  x 1 y 2;\n  [host a]\n"},
    {"host a {\nx 1\n}\nhost b {\n}\n", "[TREE_ROOT_SECTION]\n  [host a]\n  [x 1host b]\n"},

    // behind a brace too many
    {"x 1;\n}\ny 2;\nhost a {\nz 3;\n}\n", "y 2;\n[TREE_ROOT_SECTION]\n  x 1;\n[host a]\n  z 3;\n"},
    {"}\n}}\n}\nx 1;\nhost a {\n}\n}\ny 2;\n", "x 1;\ny 2;\n[TREE_ROOT_SECTION]\n[host a]\n"},
};

class Grammar : public ::testing::TestWithParam<Row> {};
INSTANTIATE_TEST_SUITE_P(BlockParser, Grammar, ::testing::ValuesIn(kGrammar));

TEST_P(Grammar, TextBecomesItsTreeWithEitherLineEnd) {
  for (const std::string& text :
       {std::string(GetParam().text), WithCarriageReturns(GetParam().text)}) {
    BlockParser parser;
    CfSectionHolder holder;
    EXPECT_TRUE(parser.ParseBuffer(text.c_str(), &holder)) << text;
    EXPECT_EQ(TreeText(holder), GetParam().tree) << text;
  }
}

// ---- one step at a time

/// The parser under test with its members in reach.
class Parser : public BlockParser {
 public:
  using BlockParser::currentNode;
  using BlockParser::currentToken;
  using BlockParser::holder;
  using BlockParser::lastPunctuator;
  using BlockParser::lexer;
  using BlockParser::lineBuffer;
  using BlockParser::outputFile;
  using BlockParser::rootSection;
  using BlockParser::stream;
};

class BlockParsing : public ::testing::Test {
 protected:
  /// Makes these the tokens to come; the first one is the current one.
  void Given(const std::vector<Token>& tokens) {
    delete parser_.lexer;
    parser_.lexer = new ScriptedLexer(tokens);
    parser_.currentToken = parser_.GetToken();
  }

  /// Parses these tokens into the fixture's tree.
  bool Parsed(const std::vector<Token>& tokens) {
    delete parser_.lexer;
    parser_.lexer = new ScriptedLexer(tokens);
    return parser_.DoParse(&holder_);
  }

  /// Makes the root section, as a parse does.
  void GivenARoot() {
    parser_.holder = &holder_;
    parser_.currentNode = &holder_.topNode;
    ASSERT_TRUE(parser_.CreateRootSection());
  }

  std::string Tree() const { return TreeText(holder_); }

  CfSectionHolder holder_;
  Parser parser_;
};

TEST_F(BlockParsing, NewParserHasReadNothing) {
  EXPECT_EQ(parser_.currentToken, nullptr);
  EXPECT_EQ(parser_.holder, nullptr);
  EXPECT_EQ(parser_.rootSection, nullptr);
  EXPECT_EQ(parser_.currentNode, nullptr);
  EXPECT_EQ(parser_.lastPunctuator, -1);
  EXPECT_EQ(parser_.outputFile, nullptr);
  EXPECT_EQ(parser_.lineBuffer, "");
}

TEST_F(BlockParsing, NullHolderIsRefused) {
  Given({{kWord, "x"}, {kPunctuator, ";"}});
  EXPECT_FALSE(parser_.DoParse(nullptr));
  EXPECT_EQ(parser_.holder, nullptr);
}

TEST_F(BlockParsing, WithoutALexerThereIsNothingToRead) {
  EXPECT_TRUE(parser_.DoParse(&holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n");
  EXPECT_EQ(parser_.GetLine(), nullptr);
  EXPECT_EQ(parser_.lineBuffer, "");
}

TEST_F(BlockParsing, TokensAreTakenByTheirKind) {
  EXPECT_TRUE(Parsed({{kBlank, "  "},
                      {kWord, "w"},
                      {kLineEnd, "\n"},
                      {kNumber, "1"},
                      {kBlank, "\t"},
                      {kQuotedString, "\"q\""},
                      {kPunctuator, ";"}}));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  w1\t\"q\";\n");
}

TEST_F(BlockParsing, TokenOfAnUnknownKindEndsTheParse) {
  for (const std::uint32_t kind : {6U, 7U, 0xffffffffU}) {
    CfSectionHolder holder;
    Parser parser;
    parser.lexer = new ScriptedLexer({{kWord, "x"}, {kPunctuator, ";"}, {kind, "y"}, {kWord, "z"}});
    EXPECT_FALSE(parser.DoParse(&holder)) << kind;
    EXPECT_EQ(TreeText(holder), "[TREE_ROOT_SECTION]\n  x;\n") << kind;
    EXPECT_EQ(parser.GetToken()->text, "z") << kind;
  }
}

TEST_F(BlockParsing, OtherPunctuatorsArePartOfTheStatement) {
  EXPECT_TRUE(Parsed({{kWord, "x"}, {kPunctuator, ","}}));
  EXPECT_EQ(parser_.lastPunctuator, 127);
  EXPECT_EQ(parser_.lineBuffer, "x,");
  EXPECT_TRUE(Parsed({{kPunctuator, ""}, {kPunctuator, "=="}, {kPunctuator, ";"}}));
  EXPECT_EQ(parser_.lastPunctuator, -1);
  EXPECT_EQ(Tree(), "x,==;\n[TREE_ROOT_SECTION]\n");
}

TEST_F(BlockParsing, OnlyTheFirstCharacterOfAPunctuatorCounts) {
  EXPECT_TRUE(Parsed({{kWord, "x"},
                      {kPunctuator, ";;"},
                      {kWord, "a"},
                      {kPunctuator, "{}"},
                      {kLineEnd, "\n"},
                      {kPunctuator, "};"},
                      {kPunctuator, "#!"},
                      {kWord, "y"}}));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x;;\n  #y\n  [a]\n");
}

TEST_F(BlockParsing, LastPunctuatorIsForgottenWhenSomethingIsStored) {
  GivenARoot();
  for (const char* punctuator : {"#", ";", "{"}) {
    parser_.lastPunctuator = 0;
    Given({{kPunctuator, punctuator}});
    parser_.PunctuatorAnalyser();
    EXPECT_EQ(parser_.lastPunctuator, -1) << punctuator;
  }
  Given({{kPunctuator, "}"}});
  parser_.PunctuatorAnalyser();
  EXPECT_EQ(parser_.lastPunctuator, 125);
}

TEST_F(BlockParsing, WithoutACurrentTokenNothingIsAnalysed) {
  GivenARoot();
  parser_.lineBuffer = "x";
  parser_.PunctuatorAnalyser();
  EXPECT_EQ(parser_.lineBuffer, "x");
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n");
}

TEST_F(BlockParsing, LineIsEverythingUpToItsEnd) {
  Given({{kWord, "current"},
         {kBlank, " "},
         {kWord, "x"},
         {kPunctuator, "{"},
         {kQuotedString, "\"q\""},
         {9, "odd"},
         {kLineEnd, "\n"},
         {kWord, "next"}});
  parser_.lineBuffer = "front";
  const Token* const end = parser_.GetLine();
  ASSERT_NE(end, nullptr);
  EXPECT_EQ(end->kind, kLineEnd);
  EXPECT_EQ(parser_.currentToken, end);
  EXPECT_EQ(parser_.lineBuffer, "front x{\"q\"odd");
  EXPECT_EQ(parser_.GetLine(), nullptr) << "the input ends before the line does";
  EXPECT_EQ(parser_.currentToken, nullptr);
  EXPECT_EQ(parser_.lineBuffer, "front x{\"q\"oddnext");
}

TEST_F(BlockParsing, PlaceOfABraceIsCountedWithSixteenBits) {
  const struct {
    std::size_t before;
    std::size_t place;
  } cases[] = {{0, 0}, {1, 1}, {65535, 65535}, {65536, 0}, {65539, 3}, {131073, 1}};
  for (const auto& [before, place] : cases) {
    const std::string header(before, 'h');
    CfSectionHolder holder;
    ASSERT_TRUE(BlockParser().ParseBuffer((header + "{ x 1; }\n").c_str(), &holder));
    std::string entry = header + " x 1; }";
    entry.insert(place, "{");
    EXPECT_EQ(TreeText(holder), "[TREE_ROOT_SECTION]\n  " + entry + "\n") << before;
  }
}

TEST_F(BlockParsing, NameMayBeOfAnyLength) {
  const std::string name(70000, 'h');
  ASSERT_TRUE(parser_.ParseBuffer((name + " {\n}\n").c_str(), &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  [" + name + "]\n");
}

// ---- blocks and lines

TEST_F(BlockParsing, BlockIsAppendedAndBecomesCurrent) {
  GivenARoot();
  parser_.lineBuffer = "left";
  parser_.lastPunctuator = 35;
  std::string name = " host a \t\v ";
  EXPECT_TRUE(parser_.AddSection(name));
  EXPECT_EQ(name, " host a");
  EXPECT_EQ(parser_.lineBuffer, "");
  EXPECT_EQ(parser_.lastPunctuator, -1);
  EXPECT_STREQ(parser_.currentNode->section.GetName(), " host a");
  std::string inner = "b\n";
  EXPECT_TRUE(parser_.AddSection(inner));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  [ host a]\n    [b\n]\n");
}

TEST_F(BlockParsing, BlockWithoutANameHasTheEmptyOne) {
  GivenARoot();
  for (std::string name : {"", " \t\v"}) {
    EXPECT_TRUE(parser_.AddSection(name));
    EXPECT_EQ(name, "");
  }
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  []\n    []\n");
}

TEST_F(BlockParsing, BlockWithoutACurrentOneStandsAtTheTop) {
  parser_.holder = &holder_;
  std::string name = "host a";
  EXPECT_TRUE(parser_.AddSection(name));
  EXPECT_EQ(Tree(), "[host a]\n");
  EXPECT_EQ(parser_.currentNode->parent, &holder_.topNode);
}

TEST_F(BlockParsing, BlockWithoutATreeIsRefused) {
  std::string name = "host a";
  EXPECT_FALSE(parser_.AddSection(name));
}

TEST_F(BlockParsing, LineIsStoredInTheCurrentBlock) {
  GivenARoot();
  parser_.lineBuffer = "left";
  parser_.lastPunctuator = 59;
  std::string line = " \tx 1; \t\v ";
  EXPECT_EQ(parser_.AddSectionParameter(line), 1);
  EXPECT_EQ(line, " \tx 1;");
  EXPECT_EQ(parser_.lineBuffer, "");
  EXPECT_EQ(parser_.lastPunctuator, -1);
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n   \tx 1;\n");
  EXPECT_EQ(holder_.topNode.children->front()->section.entryList.at(0)->GetComment(), nullptr);
}

TEST_F(BlockParsing, LineBehindANumberSignIsACommentWithoutBlanksAround) {
  GivenARoot();
  parser_.lastPunctuator = 35;
  std::string line = "\v \tnote \t\v ";
  EXPECT_EQ(parser_.AddSectionParameter(line), 1);
  EXPECT_EQ(line, "note");
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  #note\n");
  EXPECT_STREQ(holder_.topNode.children->front()->section.entryList.at(0)->GetComment(), "#");
}

TEST_F(BlockParsing, EmptyLineIsStoredToo) {
  GivenARoot();
  for (const int punctuator : {35, 59}) {
    for (std::string line : {"", " \t\v"}) {
      parser_.lastPunctuator = punctuator;
      EXPECT_EQ(parser_.AddSectionParameter(line), 1);
      EXPECT_EQ(line, "");
    }
  }
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  #\n  #\n  \n  \n");
}

TEST_F(BlockParsing, LineWithoutACurrentBlockIsNotStored) {
  std::string line = "x 1;";
  EXPECT_EQ(parser_.AddSectionParameter(line), 0);
}

TEST_F(BlockParsing, EndOfABlockGoesUpButNotAboveTheTop) {
  GivenARoot();
  parser_.lineBuffer = "x 1";
  parser_.SectionEndAnalyzer();
  EXPECT_EQ(parser_.currentNode, &holder_.topNode);
  parser_.SectionEndAnalyzer();
  EXPECT_EQ(parser_.currentNode, &holder_.topNode);
  EXPECT_EQ(parser_.lastPunctuator, 125);
  EXPECT_EQ(parser_.lineBuffer, "x 1");
}

TEST_F(BlockParsing, EndOfABlockWithoutACurrentOneIsOnlyNoted) {
  parser_.SectionEndAnalyzer();
  EXPECT_EQ(parser_.currentNode, nullptr);
  EXPECT_EQ(parser_.lastPunctuator, 125);
}

// ---- the root section

TEST_F(BlockParsing, RootIsMadeOnceAndIsCurrent) {
  EXPECT_FALSE(parser_.CreateRootSection()) << "there is no tree";
  GivenARoot();
  EXPECT_EQ(parser_.currentNode, holder_.topNode.children->front());
  EXPECT_NE(parser_.rootSection, nullptr);
  parser_.currentNode = nullptr;
  EXPECT_TRUE(parser_.CreateRootSection());
  EXPECT_EQ(parser_.currentNode, nullptr);
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n");
}

TEST_F(BlockParsing, SecondParseOfAnObjectMakesNoRoot) {
  ASSERT_TRUE(parser_.ParseBuffer("x 1;\nhost a {\n", &holder_));
  EXPECT_TRUE(parser_.ParseBuffer("y 2;\nhost b {\n}\n", &holder_));
  EXPECT_EQ(Tree(), "y 2;\n[TREE_ROOT_SECTION]\n  x 1;\n  [host a]\n[host b]\n");
}

TEST_F(BlockParsing, SecondParseIntoAnotherTreeMakesNoRootThereEither) {
  ASSERT_TRUE(parser_.ParseBuffer("x 1;\n", &holder_));
  CfSectionHolder other;
  EXPECT_TRUE(parser_.ParseBuffer("y 2;\nhost b {\n}\n", &other));
  EXPECT_EQ(TreeText(other), "y 2;\n[host b]\n");
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x 1;\n");
}

TEST_F(BlockParsing, UnfinishedStatementIsTheFrontOfTheNextParse) {
  ASSERT_TRUE(parser_.ParseBuffer("x 1", &holder_));
  EXPECT_TRUE(parser_.ParseBuffer("2;\n", &holder_));
  EXPECT_EQ(Tree(), "x 12;\n[TREE_ROOT_SECTION]\n");
}

TEST_F(BlockParsing, NewParserAddsARootBehindWhatIsThere) {
  ASSERT_TRUE(parser_.ParseBuffer("x 1;\n", &holder_));
  EXPECT_TRUE(BlockParser().ParseBuffer("y 2;\n", &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  x 1;\n[TREE_ROOT_SECTION]\n  y 2;\n");
}

// ---- ParseFile

TEST_F(BlockParsing, InstalledStreamIsReadInPlaceOfTheFile) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("some.conf", "file;\n");
  Notes notes;
  parser_.stream = new NotingStream("stream;\n", notes);
  EXPECT_TRUE(parser_.ParseFile(path.c_str(), &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  stream;\n");
  EXPECT_EQ(notes, (Notes{"stream closed", "stream deleted"}));
  EXPECT_EQ(parser_.stream, nullptr);
  EXPECT_EQ(parser_.lexer, nullptr);
  EXPECT_EQ(parser_.currentToken, nullptr);
}

TEST_F(BlockParsing, LexerThatWasInstalledIsDeleted) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("some.conf", "file;\n");
  Notes notes;
  parser_.lexer = new ScriptedLexer({{kWord, "lexer"}, {kPunctuator, ";"}}, &notes);
  EXPECT_TRUE(parser_.ParseFile(path.c_str(), &holder_));
  EXPECT_EQ(Tree(), "[TREE_ROOT_SECTION]\n  file;\n");
  EXPECT_EQ(notes, Notes{"lexer deleted"});
}

}  // namespace
}  // namespace klepur::test
