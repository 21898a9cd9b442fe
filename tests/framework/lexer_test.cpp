#include <klepur/framework/lexer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/chunk_stream.h"
#include "tests/support/files.h"
#include "tests/support/streams.h"

namespace {

using klepur::Token;
using klepur::test::ChunkStream;
using klepur::test::WithCarriageReturns;
using namespace std::string_view_literals;

/// A word is "w[option]", a punctuator "p[;]", a number "n[10]", a quoted string "q["a"]", a blank
/// "b[ ]" and a line end "e[\n]".
std::string Spelled(const Token& token) {
  constexpr std::string_view kLetters = "wpnqbe";
  if (token.kind >= kLetters.size()) return "?" + std::to_string(token.kind);
  return kLetters[token.kind] + ("[" + token.text + "]");
}

/// The rest of the lexer's tokens, and "NUL" when it throws.
std::string Rest(CfLex& lexer) {
  std::string spelled;
  try {
    while (const Token* token = lexer.GetToken()) spelled += Spelled(*token);
  } catch (const std::runtime_error&) {
    spelled += " NUL";
  }
  return spelled;
}

std::string Tokens(std::string_view text, std::size_t most = 65536) {
  ChunkStream stream(text, most);
  CfLex lexer(&stream, false);
  return Rest(lexer);
}

struct Case {
  std::string_view text;
  std::string_view tokens;
};

void Check(const Case& row) {
  EXPECT_EQ(Tokens(row.text), row.tokens) << "'" << row.text << "'";
}

/// Checks text and tokens as they stand and with "\r\n" for each "\n".
void CheckWithBothLineEnds(const Case& row) {
  Check(row);
  EXPECT_EQ(Tokens(WithCarriageReturns(row.text)), WithCarriageReturns(row.tokens))
      << "'" << row.text << "' with carriage returns";
}

// ---- the kinds of tokens ----

constexpr Case kKinds[] = {
    {"", ""},
    {"\n", "e[\n]"},
    {"\n\n\n", "e[\n]e[\n]e[\n]"},
    {"option routers 10.0.0.1;\n", "w[option]b[ ]w[routers]b[ ]w[10.0.0.1]p[;]e[\n]"},
    {"range 10.0.0.10\n10.0.0.20;", "w[range]b[ ]w[10.0.0.10]e[\n]w[10.0.0.20]p[;]"},
    {"host a{\n}\n", "w[host]b[ ]w[a]p[{]e[\n]p[}]e[\n]"},
    // the last line may lack its end
    {"a\nb", "w[a]e[\n]w[b]"},
    {"a\n ", "w[a]e[\n]b[ ]"},
    // words and numbers
    {"7200", "n[7200]"},
    {"max 7200 s", "w[max]b[ ]n[7200]b[ ]w[s]"},
    {"0;00;7a;a7;-7;7.", "n[0]p[;]n[00]p[;]w[7a]p[;]w[a7]p[;]w[-7]p[;]w[7.]"},
    {"a,b=c(d)[e]:'f'!", "w[a,b=c(d)[e]:'f'!]"},
    // punctuators are one character each
    {"{};#", "p[{]p[}]p[;]p[#]"},
    {";;", "p[;]p[;]"},
    {"a;b{c}d#e", "w[a]p[;]w[b]p[{]w[c]p[}]w[d]p[#]w[e]"},
    {"# lease \"settings\n", "p[#]b[ ]w[lease]b[ ]w[\"settings]e[\n]"},
};

TEST(CfLex, TellsTheKindsOfTokensApart) {
  for (const Case& row : kKinds) CheckWithBothLineEnds(row);
}

TEST(CfLex, KeepsReportingTheEnd) {
  ChunkStream stream("a");
  CfLex lexer(&stream, false);
  EXPECT_EQ(Rest(lexer), "w[a]");
  EXPECT_EQ(lexer.GetToken(), nullptr);
  EXPECT_EQ(lexer.GetToken(), nullptr);
}

TEST(CfLex, SecondArgumentHasNoEffect) {
  for (const bool argument : {false, true}) {
    ChunkStream stream("a \"b\" 7;\n# c\n");
    CfLex lexer(&stream, argument);
    EXPECT_EQ(Rest(lexer), "w[a]b[ ]q[\"b\"]b[ ]n[7]p[;]e[\n]p[#]b[ ]w[c]e[\n]");
  }
}

TEST(CfLex, EveryOtherByteIsAWordCharacter) {
  constexpr std::string_view kOthers = "\t\n\v\f\r #;{}\"0123456789";
  for (int byte = 1; byte != 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    if (kOthers.find(text) != std::string_view::npos) continue;
    EXPECT_EQ(Tokens("a" + text + "z"), "w[a" + text + "z]") << byte;
    EXPECT_EQ(Tokens(text), "w[" + text + "]") << byte;
  }
}

TEST(CfLex, Utf8IsKeptWhole) {
  Check({"host b\xc3\xbcro-\xe6\x9d\xb1 { #\xc2\xa0",
         "w[host]b[ ]w[b\xc3\xbcro-\xe6\x9d\xb1]b[ ]p[{]b[ ]p[#]w[\xc2\xa0]"});
}

// ---- blanks and line ends ----

constexpr Case kBlanks[] = {
    {"a  b", "w[a]b[  ]w[b]"},
    {"\ta\tb", "b[\t]w[a]b[\t]w[b]"},
    {"a \t\v\f b", "w[a]b[ \t\v\f ]w[b]"},
    {"a\vb\fc", "w[a]b[\v]w[b]b[\f]w[c]"},
    {" \t\n\v\n", "b[ \t]e[\n]b[\v]e[\n]"},
    {"a; \nb", "w[a]p[;]b[ ]e[\n]w[b]"},
};

TEST(CfLex, RunOfBlanksIsOneToken) {
  for (const Case& row : kBlanks) CheckWithBothLineEnds(row);
}

constexpr Case kCarriageReturns[] = {
    {"\r\n", "e[\r\n]"},
    {"\r\n\r\n", "e[\r\n]e[\r\n]"},
    {"a\r\nb\nc", "w[a]e[\r\n]w[b]e[\n]w[c]"},
    {"a \r\n", "w[a]b[ ]e[\r\n]"},
    // one that no line feed follows is a blank
    {"\r", "b[\r]"},
    {"a\rb", "w[a]b[\r]w[b]"},
    {"a\r", "w[a]b[\r]"},
    {"a \r b", "w[a]b[ \r ]w[b]"},
    {"\r\r\n", "b[\r]e[\r\n]"},
    {" \r \r\n", "b[ \r ]e[\r\n]"},
    {"\r \n", "b[\r ]e[\n]"},
    {"\n\r", "e[\n]b[\r]"},
    {"a\n\rb", "w[a]e[\n]b[\r]w[b]"},
    {"\r;\r\n", "b[\r]p[;]e[\r\n]"},
};

TEST(CfLex, CarriageReturnIsABlankUnlessALineFeedFollows) {
  for (const Case& row : kCarriageReturns) Check(row);
}

// ---- quoted strings ----

constexpr Case kQuotedStrings[] = {
    {R"("a b")", R"(q["a b"])"},
    {R"("")", R"(q[""])"},
    {R"(option domain-name "example.org";)",
     R"(w[option]b[ ]w[domain-name]b[ ]q["example.org"]p[;])"},
    {R"("a;b{c}d#e")", R"(q["a;b{c}d#e"])"},
    {"\"a\tb\rc\"\n", "q[\"a\tb\rc\"]e[\n]"},
    {"\"b\xc3\xbcro\"", "q[\"b\xc3\xbcro\"]"},
    {R"("a""b")", R"(q["a"]q["b"])"},
    // a backslash takes the next character along
    {R"("a\"b")", R"(q["a\"b"])"},
    {R"("\"")", R"(q["\""])"},
    {R"("a\\")", R"(q["a\\"])"},
    {R"("a\\\"b")", R"(q["a\\\"b"])"},
    {R"("a\;b")", R"(q["a\;b"])"},
    {R"("a\\"b)", R"(q["a\\"]w[b])"},
    // it may begin inside a word, and a word right behind it
    {R"(a"b c"d)", R"(w[a]q["b c"]w[d])"},
    {R"(12"34"56)", R"(n[12]q["34"]n[56])"},
    {R"(a;"b;";c)", R"(w[a]p[;]q["b;"]p[;]w[c])"},
    // a backslash outside is an ordinary character
    {R"(a\b\;)", R"(w[a\b\]p[;])"},
    {R"(\"a;")", R"(w[\]q["a;"])"},
    {R"(a\\"b;")", R"(w[a\\]q["b;"])"},
};

TEST(CfLex, QuotedStringIsOneToken) {
  for (const Case& row : kQuotedStrings) CheckWithBothLineEnds(row);
}

constexpr Case kUnclosedQuotes[] = {
    {R"(")", R"(w["])"},
    {R"("a b;)", R"(w["a]b[ ]w[b]p[;])"},
    {R"(a"b)", R"(w[a"b])"},
    {R"(7"7)", R"(w[7"7])"},
    {R"("a"b")", R"(q["a"]w[b"])"},
    {R"("a" b" c)", R"(q["a"]b[ ]w[b"]b[ ]w[c])"},
    {R"(x"{#})", R"(w[x"]p[{]p[#]p[}])"},
    // the only other one is escaped
    {R"("a\")", R"(w["a\"])"},
    {R"("a\" b;)", R"(w["a\"]b[ ]w[b]p[;])"},
    {R"("a\\\")", R"(w["a\\\"])"},
    {R"("a\" "b)", R"(q["a\" "]w[b])"},
    {R"("a\" \"b)", R"(w["a\"]b[ ]w[\"b])"},
    {R"("\)", R"(w["\])"},
    // a line end closes nothing, escaped or not
    {"\"a\nb\"", "w[\"a]e[\n]w[b\"]"},
    {"\"a\\\nb\"", "w[\"a\\]e[\n]w[b\"]"},
    {"\"a\n\"b\"\n", "w[\"a]e[\n]q[\"b\"]e[\n]"},
    {"a\"\nb\"", "w[a\"]e[\n]w[b\"]"},
};

TEST(CfLex, QuoteThatNothingClosesOnItsLineIsAWordCharacter) {
  for (const Case& row : kUnclosedQuotes) CheckWithBothLineEnds(row);
}

std::string Repeated(std::string_view part, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i != times; ++i) text += part;
  return text;
}

TEST(CfLex, MegabyteOfEscapedQuotesThatNothingClosesIsOneWord) {
  const std::string text = "\"" + Repeated("\\\"", 512 * 1024);
  const std::string tokens = Tokens(text);
  EXPECT_TRUE(tokens == "w[" + text + "]") << tokens.substr(0, 100);
}

TEST(CfLex, MegabyteOfEscapedQuotesInWordsThatNothingClosesIsThoseWords) {
  const std::string tokens = Tokens("\"" + Repeated("\\\" ", 350 * 1024));
  EXPECT_TRUE(tokens == "w[\"\\\"]b[ ]" + Repeated("w[\\\"]b[ ]", 350 * 1024 - 1))
      << tokens.substr(0, 100);
}

TEST(CfLex, MegabyteOfEscapedQuotesThatIsClosedIsOneQuotedString) {
  const std::string text = "\"" + Repeated("\\\"", 512 * 1024) + "\"";
  const std::string tokens = Tokens(text);
  EXPECT_TRUE(tokens == "q[" + text + "]") << tokens.substr(0, 100);
}

// ---- long tokens, pieces of any size ----

TEST(CfLex, TokensMayBeOfAnyLength) {
  for (const std::size_t length : {32767U, 32768U, 65535U, 65536U, 70000U, 200000U}) {
    const std::string word(length, 'x');
    const std::string digits(length, '7');
    const std::string blanks(length, ' ');
    EXPECT_TRUE(Tokens(word + ";" + digits + blanks + "\"" + word + "\"\n") ==
                "w[" + word + "]p[;]n[" + digits + "]b[" + blanks + "]q[\"" + word + "\"]e[\n]")
        << length;
  }
}

constexpr Case kPieces = {
    "host b\xc3\xbcro{\r\n  name \"a\\\"; b\" 7200 ;\r\n\r# \"x\r\n}\n\n\r",
    "w[host]b[ ]w[b\xc3\xbcro]p[{]e[\r\n]b[  ]w[name]b[ ]q[\"a\\\"; b\"]b[ ]n[7200]b[ ]p[;]e[\r\n]"
    "b[\r]p[#]b[ ]w[\"x]e[\r\n]p[}]e[\n]e[\n]b[\r]"};

TEST(CfLex, TokensAreTheSameWhateverPiecesTheStreamBrings) {
  for (std::size_t most = 1; most <= kPieces.text.size(); ++most) {
    EXPECT_EQ(Tokens(kPieces.text, most), kPieces.tokens) << most << " bytes a read";
  }
}

TEST(CfLex, TokensMayStraddleTheEndOfAReadAnywhere) {
  for (std::size_t before = 65500; before != 65540; ++before) {
    const std::string word(before, 'x');
    EXPECT_TRUE(Tokens(word + "\r\n" + std::string(kPieces.text)) ==
                "w[" + word + "]e[\r\n]" + std::string(kPieces.tokens))
        << before;
  }
}

TEST(CfLex, ManyLinesAreReadThroughManyReads) {
  const std::string tokens = Tokens(Repeated("range 10 \"x\";\n", 20000));
  EXPECT_TRUE(tokens == Repeated("w[range]b[ ]n[10]b[ ]q[\"x\"]p[;]e[\n]", 20000));
}

// ---- NUL bytes ----

constexpr Case kNulBytes[] = {
    {"\0"sv, " NUL"},
    {"a;\n\0"sv, "w[a]p[;]e[\n] NUL"},
    {"a b\0c;\n"sv, "w[a]b[ ] NUL"},
    {"7\0"sv, " NUL"},
    {"a; \0"sv, "w[a]p[;]b[ ] NUL"},
    {"#\0"sv, "p[#] NUL"},
    {"a {\n} \0 b;\n"sv, "w[a]b[ ]p[{]e[\n]p[}]b[ ] NUL"},
    // in a quoted string, closed or not
    {"a \"b\0c\";"sv, "w[a]b[ ] NUL"},
    {"a \"b\\\0c\";"sv, "w[a]b[ ] NUL"},
    {"a \"b\0c;"sv, "w[a]b[ ] NUL"},
    {"\"a\" \0"sv, "q[\"a\"]b[ ] NUL"},
};

TEST(CfLex, ThrowsWhenItComesToANulByte) {
  for (const Case& row : kNulBytes) {
    Check(row);
    EXPECT_EQ(Tokens(row.text, 1), row.tokens) << "'" << row.text << "' one byte a read";
  }
}

const struct {
  std::string_view text;
  const char* line;
} kNulLines[] = {
    {"a\0b"sv, "1"},
    {"a;\nb\0;\n"sv, "2"},
    {"a;\r\n\r\n  \"\0\";\r\n"sv, "3"},
    {"\n\n\n\n\n\n\n\n\n\n\n\0"sv, "12"},
    // a lone carriage return ends no line
    {"a;\rb;\n\0"sv, "2"},
};

TEST(CfLex, MessageNamesTheLineOfTheNulByte) {
  for (const auto& row : kNulLines) {
    ChunkStream stream(row.text);
    CfLex lexer(&stream, false);
    try {
      while (lexer.GetToken() != nullptr) continue;
      ADD_FAILURE() << "no exception for a NUL byte in line " << row.line;
    } catch (const std::exception& error) {
      EXPECT_THAT(error.what(), testing::ContainsRegex("[^0-9]" + std::string(row.line) + "$"));
    }
  }
}

// ---- many tokens at once ----

/// Statements and punctuators, each statement's text as the parser puts it together from its
/// tokens.
std::string StatementsTokenByToken(CfLex& lexer) {
  std::string statements;
  std::string text;
  try {
    while (const Token* token = lexer.GetToken()) {
      if (token->kind == klepur::kPunctuator) {
        statements += "'" + text + "' " + token->text + "\n";
        text.clear();
      } else if (token->kind != klepur::kLineEnd &&
                 !(token->kind == klepur::kBlank && text.empty())) {
        text += token->text;
      }
    }
  } catch (const std::runtime_error& error) {
    text += error.what();
  }
  return statements + "'" + text + "'";
}

std::string StatementsAtOnce(CfLex& lexer) {
  std::string statements;
  std::string text;
  try {
    for (;;) {
      lexer.AppendStatement(text);
      const Token* const token = lexer.GetToken();
      if (token == nullptr) break;
      statements += "'" + text + "' " + token->text + "\n";
      text.clear();
    }
  } catch (const std::runtime_error& error) {
    text += error.what();
  }
  return statements + "'" + text + "'";
}

std::string LinesTokenByToken(CfLex& lexer) {
  std::string lines;
  try {
    while (const Token* token = lexer.GetToken()) lines += token->text;
  } catch (const std::runtime_error& error) {
    lines += error.what();
  }
  return lines;
}

std::string LinesAtOnce(CfLex& lexer) {
  std::string lines;
  try {
    for (;;) {
      lexer.AppendRestOfLine(lines);
      const Token* const token = lexer.GetToken();
      if (token == nullptr) break;
      EXPECT_EQ(token->kind, klepur::kLineEnd);
      lines += token->text;
    }
  } catch (const std::runtime_error& error) {
    lines += error.what();
  }
  return lines;
}

using Reading = std::string (*)(CfLex& lexer);

std::string Read(Reading reading, std::string_view text, std::size_t most) {
  ChunkStream stream(text, most);
  CfLex lexer(&stream, false);
  return reading(lexer);
}

template <std::size_t count>
void CheckAtOnce(const Case (&rows)[count]) {
  for (const Case& row : rows) {
    for (const std::string& text : {std::string(row.text), WithCarriageReturns(row.text)}) {
      for (const std::size_t most : {1U, 3U, 65536U}) {
        EXPECT_EQ(Read(StatementsAtOnce, text, most), Read(StatementsTokenByToken, text, most))
            << "'" << text << "', " << most << " bytes a read";
        EXPECT_EQ(Read(LinesAtOnce, text, most), Read(LinesTokenByToken, text, most))
            << "'" << text << "', " << most << " bytes a read";
      }
    }
  }
}

TEST(CfLex, TextTakenAtOnceIsThatOfTheTokens) {
  CheckAtOnce(kKinds);
  CheckAtOnce(kBlanks);
  CheckAtOnce(kCarriageReturns);
  CheckAtOnce(kQuotedStrings);
  CheckAtOnce(kUnclosedQuotes);
  CheckAtOnce(kNulBytes);
  CheckAtOnce({kPieces});
}

TEST(CfLex, StatementTakenAtOnceGoesOverLineEndsUpToThePunctuator) {
  ChunkStream stream("  range\r\n 10.0.0.1 \"a;\"\n;x");
  CfLex lexer(&stream, false);
  std::string text;
  lexer.AppendStatement(text);
  EXPECT_EQ(text, "range 10.0.0.1 \"a;\"");
  EXPECT_EQ(Rest(lexer), "p[;]w[x]");
}

TEST(CfLex, RestOfALineTakenAtOnceEndsBeforeTheLineEnd) {
  ChunkStream stream("# a; {b} \r\nc");
  CfLex lexer(&stream, false);
  std::string text = "x";
  lexer.AppendRestOfLine(text);
  EXPECT_EQ(text, "x# a; {b} ");
  EXPECT_EQ(Rest(lexer), "e[\r\n]w[c]");
}

// ---- the stream ----

void BreakStream() {
  throw std::out_of_range("broken stream");
}

TEST(CfLex, PassesOnWhatTheStreamThrowsBehindTheLinesReadBefore) {
  klepur::test::Notes notes;
  klepur::test::FailingStream stream("a;\nb;\n", BreakStream, notes);
  CfLex lexer(&stream, false);
  std::string spelled;
  try {
    while (const Token* token = lexer.GetToken()) spelled += Spelled(*token);
    FAIL() << "no exception";
  } catch (const std::out_of_range& error) {
    EXPECT_STREQ(error.what(), "broken stream");
  }
  EXPECT_EQ(spelled, "w[a]p[;]e[\n]w[b]p[;]e[\n]");
}

TEST(CfLex, IsAtTheEndOnceDetached) {
  ChunkStream stream("a;\nb;\n", 2);
  CfLex lexer(&stream, false);
  EXPECT_EQ(Spelled(*lexer.GetToken()), "w[a]");
  lexer.Detach();
  EXPECT_EQ(lexer.GetToken(), nullptr);
  EXPECT_EQ(lexer.GetToken(), nullptr);
}

TEST(CfLex, DetachedBeforeTheFirstTokenItNeedsNoStream) {
  auto stream = std::make_unique<ChunkStream>("a;\n");
  CfLex lexer(stream.get(), false);
  lexer.Detach();
  stream.reset();
  EXPECT_EQ(lexer.GetToken(), nullptr);
}

TEST(CfLex, ReadsNothingBeforeTheFirstTokenIsTaken) {
  ChunkStream stream("a;\n");
  const CfLex lexer(&stream, false);
  char byte = '?';
  EXPECT_EQ(stream.Read(&byte, 1), 1U);
  EXPECT_EQ(byte, 'a');
}

class CountedLex : public CfLex {
 public:
  CountedLex(StreamIterator* stream, int* deleted) : CfLex(stream, false), deleted_(deleted) {}
  ~CountedLex() override { ++*deleted_; }

 private:
  int* deleted_;
};

TEST(CfLex, IsDeletedThroughItsVirtualDestructorAndLeavesTheStream) {
  int deleted = 0;
  ChunkStream stream("a;\nb;\n");
  std::unique_ptr<CfLex> lexer = std::make_unique<CountedLex>(&stream, &deleted);
  lexer.reset();
  EXPECT_EQ(deleted, 1);
  CfLex second(&stream, false);
  EXPECT_EQ(Rest(second), "w[a]p[;]e[\n]w[b]p[;]e[\n]");
}

}  // namespace
