#include <klepur/framework/parser_base.h>

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/support/streams.h"

namespace klepur::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

static_assert(std::has_virtual_destructor_v<CfParser>);

/// Takes all tokens and notes their texts.
class TokenTaker : public CfParser {
 public:
  using CfParser::ClearSlots;
  using CfParser::InstallLexer;
  using CfParser::lexer;
  using CfParser::stream;

  bool ParseFile(const char* /*path*/, void* /*holder*/) override { return false; }

  bool DoParse(void* holder) override {
    targets.push_back(holder);
    if (fails) throw std::out_of_range("no more");
    while (const Token* token = GetToken()) texts.push_back(token->text);
    return result;
  }

  std::vector<void*> targets;
  Notes texts;
  bool result = true;
  bool fails = false;
};

class ParserBase : public ::testing::Test {
 protected:
  void InstallNotingStream(const char* text) { parser_.stream = new NotingStream(text, notes_); }
  void InstallScriptedLexer(std::vector<Token> tokens = {}) {
    parser_.lexer = new ScriptedLexer(std::move(tokens), &notes_);
  }
  void ExpectEmptySlots() const {
    EXPECT_EQ(parser_.lexer, nullptr);
    EXPECT_EQ(parser_.stream, nullptr);
  }

  Notes notes_;
  TokenTaker parser_;
  int target_ = 0;
};

// ---- the slots ----

TEST_F(ParserBase, SlotsAreEmptyAtFirst) {
  ExpectEmptySlots();
}

TEST_F(ParserBase, DestructorDeletesWhatTheSlotsHold) {
  std::unique_ptr<CfParser> parser;
  {
    auto filled = std::make_unique<TokenTaker>();
    filled->stream = new NotingStream("a;", notes_);
    filled->lexer = new ScriptedLexer({}, &notes_);
    parser = std::move(filled);
  }
  EXPECT_THAT(notes_, IsEmpty());
  parser.reset();
  EXPECT_THAT(notes_, ElementsAre("lexer deleted", "stream deleted"));
}

TEST_F(ParserBase, ClearSlotsDeletesWhatTheyHold) {
  InstallNotingStream("a;");
  InstallScriptedLexer();
  parser_.ClearSlots();
  EXPECT_THAT(notes_, ElementsAre("lexer deleted", "stream deleted"));
  ExpectEmptySlots();
  parser_.ClearSlots();
  EXPECT_EQ(notes_.size(), 2U);
}

TEST_F(ParserBase, InstallLexerReadsTheInstalledStream) {
  InstallNotingStream("max 7200;");
  parser_.InstallLexer();
  ASSERT_NE(parser_.lexer, nullptr);
  parser_.DoParse(nullptr);
  EXPECT_THAT(parser_.texts, ElementsAre("max", " ", "7200", ";"));
}

TEST_F(ParserBase, InstallLexerDeletesTheLexerThatWasThere) {
  InstallNotingStream("a;");
  InstallScriptedLexer();
  parser_.InstallLexer();
  EXPECT_THAT(notes_, ElementsAre("lexer deleted"));
  EXPECT_NE(parser_.lexer, nullptr);
}

// ---- GetToken ----

TEST_F(ParserBase, GetTokenWithoutALexerIsNull) {
  EXPECT_EQ(parser_.GetToken(), nullptr);
  InstallNotingStream("a;");
  EXPECT_EQ(parser_.GetToken(), nullptr);
}

TEST_F(ParserBase, GetTokenBringsTheTokensOfTheLexerInTheSlot) {
  InstallScriptedLexer({{kWord, "host"}, {9, "unknown"}});
  const Token* token = parser_.GetToken();
  ASSERT_NE(token, nullptr);
  EXPECT_EQ(token->kind, kWord);
  EXPECT_EQ(token->text, "host");
  token = parser_.GetToken();
  ASSERT_NE(token, nullptr);
  EXPECT_EQ(token->kind, 9U);
  EXPECT_EQ(token->text, "unknown");
  EXPECT_EQ(parser_.GetToken(), nullptr);
  EXPECT_EQ(parser_.GetToken(), nullptr);
}

void BreakStream() {
  throw std::out_of_range("broken stream");
}

TEST_F(ParserBase, GetTokenPassesOnWhatTheLexerThrows) {
  parser_.stream = new FailingStream("", BreakStream, notes_);
  parser_.InstallLexer();
  EXPECT_THROW(parser_.GetToken(), std::out_of_range);
}

// ---- ParseBuffer ----

TEST_F(ParserBase, ParseBufferHandsTheTextsTokensToDoParse) {
  EXPECT_TRUE(parser_.ParseBuffer("host a {\n}", &target_));
  EXPECT_THAT(parser_.targets, ElementsAre(&target_));
  EXPECT_THAT(parser_.texts, ElementsAre("host", " ", "a", " ", "{", "\n", "}"));
}

TEST_F(ParserBase, ParseBufferTakesLongTexts) {
  EXPECT_TRUE(parser_.ParseBuffer((std::string(200000, 'x') + ";").c_str(), &target_));
  ASSERT_EQ(parser_.texts.size(), 2U);
  EXPECT_EQ(parser_.texts[0].size(), 200000U);
}

TEST_F(ParserBase, ParseBufferTakesTheEmptyText) {
  EXPECT_TRUE(parser_.ParseBuffer("", &target_));
  EXPECT_THAT(parser_.targets, ElementsAre(&target_));
  EXPECT_THAT(parser_.texts, IsEmpty());
}

TEST_F(ParserBase, ParseBufferReturnsTheResultOfDoParse) {
  parser_.result = false;
  EXPECT_FALSE(parser_.ParseBuffer("a;", &target_));
  EXPECT_THAT(parser_.texts, ElementsAre("a", ";"));
}

TEST_F(ParserBase, ParseBufferWithoutATextOrAHolderIsFalse) {
  EXPECT_FALSE(parser_.ParseBuffer(nullptr, &target_));
  EXPECT_FALSE(parser_.ParseBuffer("a;", nullptr));
  EXPECT_FALSE(parser_.ParseBuffer(nullptr, nullptr));
  EXPECT_THAT(parser_.targets, IsEmpty());
  ExpectEmptySlots();
}

TEST_F(ParserBase, ParseBufferLeavesTheSlotsEmpty) {
  parser_.ParseBuffer("a;", &target_);
  ExpectEmptySlots();
  parser_.result = false;
  parser_.ParseBuffer("a;", &target_);
  ExpectEmptySlots();
  EXPECT_EQ(parser_.GetToken(), nullptr);
}

TEST_F(ParserBase, ParseBufferReadsTheTextAndNotWhatTheSlotsHeld) {
  InstallNotingStream("stream;");
  InstallScriptedLexer({{kWord, "lexer"}});
  EXPECT_TRUE(parser_.ParseBuffer("a;", &target_));
  EXPECT_THAT(parser_.texts, ElementsAre("a", ";"));
  EXPECT_THAT(notes_, ElementsAre("lexer deleted", "stream deleted"));
}

TEST_F(ParserBase, ParseBufferReadsOneTextAfterTheOther) {
  EXPECT_TRUE(parser_.ParseBuffer("a;", &target_));
  EXPECT_TRUE(parser_.ParseBuffer("b", &target_));
  EXPECT_THAT(parser_.texts, ElementsAre("a", ";", "b"));
}

TEST_F(ParserBase, ExceptionLeavesParseBufferAndTheSlotsAreEmpty) {
  parser_.fails = true;
  EXPECT_THROW(parser_.ParseBuffer("a;", &target_), std::out_of_range);
  ExpectEmptySlots();
  parser_.fails = false;
  EXPECT_TRUE(parser_.ParseBuffer("b;", &target_));
  EXPECT_THAT(parser_.texts, ElementsAre("b", ";"));
}

}  // namespace
}  // namespace klepur::test
