#include <klepur/leases/leases_parser.h>

#include <gmock/gmock.h>
#include <klepur/parser/dhcp_parser.h>

#include <cstdio>
#include <list>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "tests/leases/lease_words.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"
#include "tests/support/parse_failure_tests.h"
#include "tests/support/system_log.h"
#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Values;

static_assert(std::has_virtual_destructor_v<Dhcpv6LeasesParser>);
static_assert(std::is_base_of_v<CfParser, Dhcpv6LeasesParser>);

const char kOutOfRange[] = "syslog LOG_INFO basic_string::substr";

/// The parser under test with its members in reach.
class Parser : public Dhcpv6LeasesParser {
 public:
  using Dhcpv6LeasesParser::currentNode;
  using Dhcpv6LeasesParser::currentToken;
  using Dhcpv6LeasesParser::holder;
  using Dhcpv6LeasesParser::lastPunctuator;
  using Dhcpv6LeasesParser::lexer;
  using Dhcpv6LeasesParser::lineBuffer;
  using Dhcpv6LeasesParser::outputFile;
  using Dhcpv6LeasesParser::rootSection;
  using Dhcpv6LeasesParser::stream;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Leases, ParseFailure, Dhcpv6LeasesParser);

// ---- construction and destruction ----

TEST(LeasesParser, NewParserHasReadNothing) {
  const Parser parser;
  EXPECT_EQ(parser.currentToken, nullptr);
  EXPECT_EQ(parser.holder, nullptr);
  EXPECT_EQ(parser.rootSection, nullptr);
  EXPECT_EQ(parser.currentNode, nullptr);
  EXPECT_EQ(parser.lastPunctuator, -1);
  EXPECT_EQ(parser.outputFile, nullptr);
  EXPECT_EQ(parser.lineBuffer, "");
  EXPECT_EQ(parser.lexer, nullptr);
  EXPECT_EQ(parser.stream, nullptr);
}

TEST(LeasesParser, LogIsNeitherOpenedNorClosed) {
  ClearSystemLog();
  { const Dhcpv6LeasesParser parser; }
  const std::unique_ptr<CfParser> parser = std::make_unique<Dhcpv6LeasesParser>();
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST(LeasesParser, DestructorThroughTheBaseSaysNothing) {
  std::unique_ptr<CfParser> parser = std::make_unique<Dhcpv6LeasesParser>();
  ClearSystemLog();
  parser.reset();
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST(LeasesParser, OpenOutputFileIsClosedByTheDestructor) {
  const ScratchFolder scratch;
  const std::string path = scratch.Path("output");
  const auto before = OpenDescriptors();
  {
    Parser parser;
    parser.outputFile = std::fopen(path.c_str(), "w");
    ASSERT_NE(parser.outputFile, nullptr);
    std::fputs("text", parser.outputFile);
  }
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(ReadFile(path), "text");
}

TEST(LeasesParser, IdentityOfALivingConfigurationParserIsLeftAlone) {
  const ScratchFolder scratch;
  const std::string path = scratch.Path("missing.leases");
  const DhcpParser configuration;
  ClearSystemLog();
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_WARNING File " + path + " doesn't exist!"));
}

TEST(LeasesParser, DestructorLeavesTheTreeToItsOwner) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("dhcpd6.leases", "x 1;\nia-na \"A\" {\n}\n");
  CfSectionHolder holder;
  EXPECT_TRUE(Dhcpv6LeasesParser().ParseFile(path.c_str(), &holder));
  EXPECT_EQ(TreeText(holder), "[TREE_ROOT_SECTION]\n  x 1;\n  [ia-na \"A\"]\n");
}

TEST(LeasesParser, ParseBufferReadsATextAsItWouldAFile) {
  CfSectionHolder holder;
  ClearSystemLog();
  EXPECT_TRUE(Dhcpv6LeasesParser().ParseBuffer("x 1;\nia-na \"A\" {\n}\n", &holder));
  EXPECT_EQ(TreeText(holder), "[TREE_ROOT_SECTION]\n  x 1;\n  [ia-na \"A\"]\n");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

// ---- files, with either kind of line end ----

class LeasesFile : public ::testing::TestWithParam<const char*> {
 protected:
  LeasesFile() { ClearSystemLog(); }

  /// Writes a leases file and returns its path.
  std::string Given(std::string_view text) const {
    const bool unixEnds = std::string_view(GetParam()) == "LF";
    return scratch_.Write("dhcpd6.leases",
                          unixEnds ? std::string(text) : WithCarriageReturns(text));
  }

  /// The tree of a file.
  std::string Tree(std::string_view text) const {
    const std::string path = Given(text);
    CfSectionHolder holder;
    EXPECT_TRUE(Dhcpv6LeasesParser().ParseFile(path.c_str(), &holder));
    return TreeText(holder);
  }

  /// The leases of a file; what extracting them says to the system log is all that SystemLog() then
  /// holds.
  std::vector<std::string> Leases(std::string_view text) const {
    const std::string path = Given(text);
    std::list<_Dhcpv6LeaseStore> leases;
    ClearSystemLog();
    Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
    return LeaseWords(leases);
  }

  /// What one block inside the association "A" gives, then " | " and what the system log was told.
  std::string Inner(const std::string& block) const {
    return LeasesAndLog("ia-na \"A\" {\n" + block + "}\n");
  }

  /// What one line in an address block gives; the address is left out.
  std::string Line(const std::string& line) const {
    return Inner("iaxxx 2001:db8::1 {\n" + line + "\n}\n");
  }

  std::string LeasesAndLog(const std::string& text) const {
    std::string result;
    for (const std::string& lease : Leases(text)) result += (result.empty() ? "" : ", ") + lease;
    for (const std::string& message : SystemLog()) result += " | " + message;
    return result;
  }

  ScratchFolder scratch_;
};

INSTANTIATE_TEST_SUITE_P(LineEnds, LeasesFile, Values("LF", "CRLF"),
                         [](const auto& suite) { return std::string(suite.param); });

// ---- the tree ----

TEST_P(LeasesFile, EmptyFileGivesTheRootAlone) {
  EXPECT_EQ(Tree(""), "[TREE_ROOT_SECTION]\n");
  EXPECT_EQ(Tree("\n\n"), "[TREE_ROOT_SECTION]\n");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_P(LeasesFile, BlocksBecomeSectionsAndStatementsEntries) {
  EXPECT_EQ(Tree("# a comment at the top\n"
                 "authoring-byte-order little-endian;\n"
                 "\n"
                 "ia-na \"\\001\\000\\000\\000\\000\\001AB\" {\n"
                 "  cltt 4 2024/01/01 12:00:00;\n"
                 "  iaaddr 2001:db8::100 {\n"
                 "    binding state active;\n"
                 "    preferred-life 375;\n"
                 "    max-life 600;\n"
                 "    ends 4 2024/01/01 12:10:00;\n"
                 "    on expiry {\n"
                 "      log (info, \"gone\");\n"
                 "    }\n"
                 "  }\n"
                 "}\n"
                 "ia-pd \"\\002\" {\n"
                 "  iaprefix 2001:db8:1::/64 {\n"
                 "  }\n"
                 "}\n"
                 "ia-ta \"B\" {\n"
                 "}\n"
                 "server-duid \"\\000\\001\";\n"),
            "[TREE_ROOT_SECTION]\n"
            "  #a comment at the top\n"
            "  authoring-byte-order little-endian;\n"
            "  server-duid \"\\000\\001\";\n"
            "  [ia-na \"\\001\\000\\000\\000\\000\\001AB\"]\n"
            "    cltt 4 2024/01/01 12:00:00;\n"
            "    [iaaddr 2001:db8::100]\n"
            "      binding state active;\n"
            "      preferred-life 375;\n"
            "      max-life 600;\n"
            "      ends 4 2024/01/01 12:10:00;\n"
            "      [on expiry]\n"
            "        log (info, \"gone\");\n"
            "  [ia-pd \"\\002\"]\n"
            "    [iaprefix 2001:db8:1::/64]\n"
            "  [ia-ta \"B\"]\n");
}

TEST_P(LeasesFile, HeaderKeepsTheIdentifierAsWritten) {
  for (const std::string name : {
           R"(ia-na "\"")",
           R"(ia-na "a\"b")",
           R"(ia-na "\\")",
           R"(ia-na "a\\b\\")",
           R"(ia-na "\001\000\377")",
           R"(ia-na "\"\\\001\\\"")",
           R"(ia-na "a  b")",
           R"(ia-na "{}#")",
           R"(ia-na "")",
           "ia-na \"a\tb\"",
           "ia-na \"\xff\x80\"",
       }) {
    EXPECT_EQ(Tree(name + " {\n  x 1;\n}\n"), "[TREE_ROOT_SECTION]\n  [" + name + "]\n    x 1;\n");
  }
}

TEST_P(LeasesFile, BraceOfAHeaderMayStandAnywhere) {
  for (const char* header :
       {"ia-na \"A\" {\n", "ia-na \"A\"{\n", "ia-na \"A\" \t\v{\n", "  ia-na \"A\"   {   \n",
        "ia-na \"A\"\n{\n", "ia-na \"A\" \n \t{\n"}) {
    EXPECT_EQ(Tree(std::string(header) + "x 1;\n}\n"),
              "[TREE_ROOT_SECTION]\n  [ia-na \"A\"]\n    x 1;\n")
        << header;
  }
}

TEST_P(LeasesFile, StatementOverTwoLinesIsOneEntry) {
  EXPECT_EQ(Tree("ends 4 2024/01/01 \n12:10:00;\n"),
            "[TREE_ROOT_SECTION]\n  ends 4 2024/01/01 12:10:00;\n");
  EXPECT_EQ(Tree("ends 4 2024/01/01\n  12:10:00\n;\n"),
            "[TREE_ROOT_SECTION]\n  ends 4 2024/01/01  12:10:00;\n");
  EXPECT_EQ(Tree("ends 4\n2024/01/01;\n"), "[TREE_ROOT_SECTION]\n  ends 42024/01/01;\n");
}

TEST_P(LeasesFile, HeaderWithASemicolonIsAnEntry) {
  EXPECT_EQ(Tree("ia-na \"A\" { iaaddr 2001:db8::1 { max-life 600; } }\nx 1;\n"),
            "[TREE_ROOT_SECTION]\n"
            "  ia-na \"A\" { iaaddr 2001:db8::1 { max-life 600; } }\n"
            "  x 1;\n");
  EXPECT_EQ(Tree("ia-na \"A;B\" {\nx 1;\n"), "[TREE_ROOT_SECTION]\n  ia-na \"A;B\" {\n  x 1;\n");
}

TEST_P(LeasesFile, SecondParseOfAnObjectBuildsNoRoot) {
  const std::string path = Given("x 1;\nia-na \"A\" {\n  y 2;\n}\n");
  Dhcpv6LeasesParser parser;
  CfSectionHolder first;
  CfSectionHolder second;
  EXPECT_TRUE(parser.ParseFile(path.c_str(), &first));
  EXPECT_TRUE(parser.ParseFile(path.c_str(), &second));
  EXPECT_EQ(TreeText(first), "[TREE_ROOT_SECTION]\n  x 1;\n  [ia-na \"A\"]\n    y 2;\n");
  EXPECT_EQ(TreeText(second), "x 1;\n[ia-na \"A\"]\n  y 2;\n");
}

TEST_P(LeasesFile, ReadingLogsNothing) {
  Tree("ia-na \"A\" {\n  x 1;\n}\n}\n{ \"");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

// ---- leases ----

const char kUsualFile[] =
    "ia-na \"\\001\\000\\000\\000\\000\\001AB\" {\n"
    "  cltt 4 2024/01/01 12:00:00;\n"
    "  iaaddr 2001:db8::100 {\n"
    "    binding state active;\n"
    "    preferred-life 375;\n"
    "    max-life 600;\n"
    "    ends 4 2024/01/01 12:10:00;\n"
    "  }\n"
    "}\n";

const char kUsualLease[] =
    "0100000000014142 address=2001:db8::100 state=active preferred=375 max=600 "
    "ends=4 2024/01/01 12:10:00";

TEST_P(LeasesFile, UsualAssociationFillsAllFieldsButTheClientsLastTime) {
  const std::string path = Given(kUsualFile);
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  ASSERT_EQ(leases.size(), 1U);
  EXPECT_EQ(leases.front().address, "2001:db8::100");
  EXPECT_EQ(leases.front().cltt, "");
  EXPECT_EQ(leases.front().duid, "0100000000014142");
  EXPECT_EQ(leases.front().preferredLife, "375");
  EXPECT_EQ(leases.front().maxLife, "600");
  EXPECT_EQ(leases.front().ends, "4 2024/01/01 12:10:00");
  EXPECT_EQ(leases.front().bindingState, "active");
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_P(LeasesFile, PrefixWithItsLengthIsTheAddress) {
  EXPECT_THAT(Leases("ia-pd \"A\" {\n  iaprefix 2001:db8:1::/64 {\n  }\n}\n"),
              ElementsAre("41 address=2001:db8:1::/64"));
}

TEST_P(LeasesFile, AllThreeKindsGiveRecordsInFileOrder) {
  EXPECT_THAT(Leases("ia-pd \"A\" {\n}\nia-na \"B\" {\n}\nia-ta \"C\" {\n}\nia-na \"D\" {\n}\n"),
              ElementsAre("41", "42", "43", "44"));
}

TEST_P(LeasesFile, AssociationWithoutInnerBlocksHasOnlyItsIdentifier) {
  EXPECT_EQ(LeasesAndLog("ia-na \"AB\" {\n}\n"), "4142");
}

TEST_P(LeasesFile, StatementsOfTheAssociationItselfDoNotCount) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n"
                         "  cltt 4 2024/01/01 12:00:00;\n"
                         "  binding state active;\n"
                         "  preferred-life 375;\n"
                         "  max-life 600;\n"
                         "  ends never;\n"
                         "  set foo = bar;\n"
                         "  abandoned;\n"
                         "  iaaddr 2001:db8::1 {\n"
                         "  }\n"
                         "}\n"),
            "41 address=2001:db8::1");
}

TEST_P(LeasesFile, LastAddressOfAnAssociationWins) {
  EXPECT_THAT(Leases("ia-na \"A\" {\n"
                     "  iaaddr 2001:db8::1 {\n"
                     "  }\n"
                     "  iaaddr 2001:db8::2 {\n"
                     "  }\n"
                     "}\n"),
              ElementsAre("41 address=2001:db8::2"));
}

TEST_P(LeasesFile, EachFieldKeepsTheLastValueMet) {
  EXPECT_THAT(Leases("ia-na \"A\" {\n"
                     "  iaaddr 2001:db8::1 {\n"
                     "    cltt 1 2024/01/01 00:00:00;\n"
                     "    binding state expired;\n"
                     "    preferred-life 1;\n"
                     "    max-life 2;\n"
                     "    ends 1 2024/01/01 01:00:00;\n"
                     "    ends never;\n"
                     "  }\n"
                     "  iaprefix 2001:db8:2::/56 {\n"
                     "    max-life 20;\n"
                     "    binding state active;\n"
                     "  }\n"
                     "}\n"),
              ElementsAre("41 address=2001:db8:2::/56 cltt=1 2024/01/01 00:00:00 state=active "
                          "preferred=1 max=20 ends=never"));
}

TEST_P(LeasesFile, FieldsOfOneAssociationDoNotReachTheNext) {
  EXPECT_THAT(Leases(std::string(kUsualFile) + "ia-na \"B\" {\n  iaaddr 2001:db8::2 {\n  }\n}\n" +
                     "ia-na \"C\" {\n}\n"),
              ElementsAre(kUsualLease, "42 address=2001:db8::2", "43"));
}

TEST_P(LeasesFile, RepeatedAssociationsAreRepeatedRecords) {
  EXPECT_THAT(Leases(std::string(kUsualFile) + kUsualFile), ElementsAre(kUsualLease, kUsualLease));
}

TEST_P(LeasesFile, EmptyIdentifierGivesNoRecord) {
  for (const char* name :
       {"ia-na \"\"", "ia-ta \"\"", "ia-pd \"\"", "ia-na \"\"\"\"", "ia-na \""}) {
    EXPECT_EQ(LeasesAndLog(std::string(name) + " {\niaaddr 2001:db8::1 {\nset foo = bar;\n}\n}\n"),
              "")
        << name;
  }
}

TEST_P(LeasesFile, OtherBlocksGiveNoRecordAndAreNotLookedInto) {
  for (const char* name : {
           "host foo",
           "host ia-na \"A\"",
           "iaaddr 2001:db8::1",
           "iaprefix 2001:db8:1::/64",
           "ia \"A\"",
           "ia-xx \"A\"",
           "ia-na\"A\"",
           "lease 10.0.0.1",
           "failover peer \"A\" state",
           // letters are compared exactly
           "IA-NA \"A\"",
           "ia-NA \"A\"",
           // a tab is no blank
           "ia-na\t\"A\"",
           "ia-\tna \"A\"",
       }) {
    EXPECT_EQ(LeasesAndLog(std::string(name) +
                           " {\nmax-life 1;\nset foo = bar;\n"
                           "iaaddr 2001:db8::1 {\nset foo = bar;\n}\n"
                           "ia-na \"A\" {\niaaddr 2001:db8::1 {\nset foo = bar;\n}\n}\n}\n"),
              "")
        << name;
  }
}

TEST_P(LeasesFile, IdentifierIsAllBehindTheKeywordAndOneCharacter) {
  const struct {
    const char* name;
    const char* duid;
  } rows[] = {
      {"ia-na \"A\"", "41"},
      {"ia-na A", "41"},
      {"ia-na  \"A\"", "2041"},
      {"ia-na \"A\" \"B\"", "412042"},
      {"ia-na \"A B\"", "412042"},
      {"ia-na \"A\" x", "412078"},
      {"ia-na \"ia-pd\"", "69612d7064"},
      // a keyword split by a blank: it is counted without the blank
      {"ia- na \"A\"", "2041"},
      {"i a-pd \"A\"", "2041"},
      {"ia - ta \"A\"", "612041"},
      // a double quote that nothing closes
      {"ia-na \"A", "41"},
      {"ia-na A\"", "41"},
      // escapes
      {R"(ia-na "\001\377A")", "01ff41"},
      {R"(ia-na "a\\b")", "615c62"},
      {R"(ia-na "\12a")", "0a"},
      {R"(ia-na "\777")", "1ff"},
      {"ia-na \"\xff\"", "ffffffff"},
      // the double quote of an escape goes first: its backslash takes the next three characters
      {R"(ia-na "a\"123")", "6153"},
      {R"(ia-na "a\"bcde")", "610065"},
      {R"(ia-na "a\"")", "6100"},
      {R"(ia-na "\"\"\"")", "5c00"},
      {R"(ia-na "a\\\"b")", "615c00"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(LeasesAndLog(std::string(row.name) + " {\n}\n"), row.duid) << row.name;
  }
}

TEST_P(LeasesFile, AddressIsAllBehindTheKeywordAndOneCharacter) {
  const struct {
    const char* name;
    const char* lease;
  } rows[] = {
      {"iaaddr 2001:db8::1", "41 address=2001:db8::1"},
      {"iaprefix 2001:db8:1::/64", "41 address=2001:db8:1::/64"},
      {"iaaddr  2001:db8::1", "41 address= 2001:db8::1"},
      {"iaaddr 2001:db8::1 x", "41 address=2001:db8::1 x"},
      {"iaaddr \"2001:db8::1\"", "41 address=\"2001:db8::1\""},
      {"ia addr 2001:db8::1", "41 address= 2001:db8::1"},
      {"ia prefix x", "41 address= x"},
      {"iaaddr iaaddr", "41 address=iaaddr"},
      {"ia addr", "41"},
      {"on expiry", "41"},
      {"IAADDR 2001:db8::1", "41"},
      {"iaaddr\t2001:db8::1", "41"},
      {"x iaaddr 2001:db8::1", "41"},
      {"iaaddr2001:db8::1", "41"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Inner(std::string(row.name) + " {\n}\n"), row.lease) << row.name;
  }
}

TEST_P(LeasesFile, EveryInnerBlockIsRead) {
  EXPECT_EQ(Inner("iaaddr 2001:db8::1 {\n  max-life 1;\n}\n"
                  "on expiry {\n  max-life 2;\n  ends never;\n}\n"),
            "41 address=2001:db8::1 max=2 ends=never");
}

TEST_P(LeasesFile, BlocksInsideAnAddressAreNotRead) {
  EXPECT_EQ(Inner("iaaddr 2001:db8::1 {\n"
                  "  on expiry {\n"
                  "    set foo = bar;\n"
                  "    max-life 2;\n"
                  "    iaaddr 2001:db8::2 {\n    }\n"
                  "  }\n"
                  "  max-life 1;\n"
                  "}\n"),
            "41 address=2001:db8::1 max=1");
}

TEST_P(LeasesFile, CommentsInAnAddressBlockAreIgnored) {
  EXPECT_EQ(Inner("iaaddr 2001:db8::1 {\n"
                  "  # ends never;\n"
                  "  max-life 600; # set foo = bar;\n"
                  "  #max-life 7;\n"
                  "  #\n"
                  "}\n"),
            "41 address=2001:db8::1 max=600");
}

TEST_P(LeasesFile, StatementThatACommentInterruptsIsPartOfTheComment) {
  EXPECT_EQ(Inner("iaaddr 2001:db8::1 {\n  max-life # 5;\n  preferred-life 6;\n}\n"),
            "41 address=2001:db8::1 preferred=6");
}

TEST_P(LeasesFile, ValuesAreTheTextOfTheFile) {
  const struct {
    const char* line;
    const char* lease;
  } rows[] = {
      {"cltt 4 2024/01/01 12:00:00;", "41 cltt=4 2024/01/01 12:00:00"},
      {"binding state active;", "41 state=active"},
      {"preferred-life 375;", "41 preferred=375"},
      {"max-life 600;", "41 max=600"},
      {"ends 4 2024/01/01 12:10:00;", "41 ends=4 2024/01/01 12:10:00"},
      {"ends never;", "41 ends=never"},
      {"cltt epoch 1704110400; # Mon Jan  1", "41 cltt=epoch 1704110400"},
      // any value will do
      {"binding state no such state;", "41 state=no such state"},
      {"max-life -1;", "41 max=-1"},
      {"max-life ends;", "41 max=ends"},
      {"max-life \"6\";", "41 max=\"6\""},
      {"max-life \"6;7\";", "41 max=\"6"},
      {"ends \n never;", "41 ends= never"},
      // no value
      {"max-life ;", "41"},
      // blanks around the value belong to it, but for one in front
      {"max-life  600;", "41 max= 600"},
      {"max-life 600 ;", "41 max=600 "},
      {"max-life   600  ;", "41 max=  600  "},
      {"ends 4  2024/01/01;", "41 ends=4  2024/01/01"},
      // each blank too many in a name of two words brings one character of it into the value
      {"binding  state active;", "41 state= active"},
      {"binding   state active;", "41 state=e active"},
      {"binding    state active;", "41 state=te active"},
      // two statements on a line
      {"max-life 6; ends never;", "41 max=6 ends=never"},
      // an empty statement
      {";", "41"},
      {"; max-life 6;", "41 max=6"},
  };
  for (const auto& row : rows) EXPECT_EQ(Line(row.line), row.lease) << row.line;
}

// ---- where the extraction ends ----

TEST_P(LeasesFile, UnknownStatementEndsTheExtraction) {
  for (const char* line : {
           "set foo = bar;",
           "iaid 5;",
           "log (info, \"x y\");",
           "binding status active;",
           "binding active;",
           "state active;",
           "Max-Life 600;",
           "max-lifes 600;",
           "on expiry { set foo = bar; }",
           // a tab is no blank
           "max-life\t600;",
           "binding\tstate active;",
           "ends\tnever;",
           // one word and its semicolon
           "abandoned;",
           "ends;",
           "binding state;",
           "max-life\n600;",
           // a word, one blank and the semicolon
           "abandoned ;",
           "binding ;",
       }) {
    EXPECT_EQ(Line(line), std::string(" | ") + kOutOfRange) << line;
  }
}

TEST_P(LeasesFile, UnknownStatementWithABlankTooManyIsPassedOver) {
  for (const char* line : {"set  foo = bar;", "set foo  = bar;", "set foo = bar  ;", "iaid  5;",
                           "abandoned  ;", "binding  active;", "on  expiry { set foo = bar; }"}) {
    EXPECT_EQ(Line(std::string(line) + "\nmax-life 6;"), "41 max=6") << line;
  }
}

TEST_P(LeasesFile, StatementsBehindTheUnknownOneAreLostWithTheirRecord) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\n"
                         "ia-na \"B\" {\n"
                         "  iaaddr 2001:db8::2 {\n"
                         "    max-life 600;\n"
                         "    set foo = bar;\n"
                         "  }\n"
                         "}\n"
                         "ia-na \"C\" {\n}\n"),
            "41 | syslog LOG_INFO basic_string::substr");
}

TEST_P(LeasesFile, KeywordAloneEndsTheExtraction) {
  for (const char* name : {"ia-na", "ia-ta", "ia-pd"}) {
    EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\n" + std::string(name) + " {\n}\nia-na \"B\" {\n}\n"),
              std::string("41 | ") + kOutOfRange)
        << name;
  }
  for (const char* name : {"iaaddr", "iaprefix", "iaaddr  "}) {
    EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\nia-na \"B\" {\n" + std::string(name) +
                           " {\n}\n}\nia-na \"C\" {\n}\n"),
              std::string("41 | ") + kOutOfRange)
        << name;
  }
}

TEST_P(LeasesFile, SplitKeywordAloneIsAnEmptyIdentifierOrAddress) {
  EXPECT_EQ(LeasesAndLog("ia- na {\n}\nia-na \"B\" {\n}\n"), "42");
  EXPECT_EQ(Inner("iaaddr 2001:db8::1 {\n}\niaadd r {\nmax-life 6;\n}\n"),
            "41 address=2001:db8::1 max=6");
}

// ---- files out of order ----

TEST_P(LeasesFile, FileCutOffInAStatementGivesWhatCameBefore) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n  iaaddr 2001:db8::1 {\n    max-life 600;\n    ends 4 20"),
            "41 address=2001:db8::1 max=600");
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\nia-na \"B"), "41");
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\nia-na \"B\" {"), "41, 42");
}

TEST_P(LeasesFile, MissingBraceHidesTheAssociationsBehindIt) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n"
                         "  iaaddr 2001:db8::1 {\n"
                         "    max-life 600;\n"
                         "  }\n"
                         "ia-na \"B\" {\n"
                         "  ends never;\n"
                         "}\n"),
            "41 address=2001:db8::1 max=600 ends=never");
}

TEST_P(LeasesFile, BehindABraceTooManyOnlyAssociationsInsideABlockAreFound) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\n"
                         "}\n"
                         "ia-na \"B\" {\n  iaaddr 2001:db8::2 {\n  }\n}\n"
                         "group {\n  ia-na \"C\" {\n  }\n}\n"),
            "41, 43");
}

TEST_P(LeasesFile, IdentifierWithASemicolonHidesItsAssociationAndThoseBehind) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n}\n"
                         "ia-na \"B;\" {\n  iaaddr 2001:db8::2 {\n  }\n}\n"
                         "ia-na \"C\" {\n}\n"),
            "41");
}

TEST_P(LeasesFile, AssociationOnOneLineIsNoBlock) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" { iaaddr 2001:db8::1 { max-life 6; } }\nia-na \"B\" {\n}\n"),
            "42");
}

TEST_P(LeasesFile, TextBehindABraceIsPartOfTheName) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" { # x\n  iaaddr 2001:db8::1 {# y\n  }\n}\n"),
            "412020232078 address=2001:db8::1 # y");
}

TEST_P(LeasesFile, BlockClosedOnItsOwnLineStaysOpen) {
  EXPECT_EQ(Inner("on expiry { }\n"
                  "  iaaddr 2001:db8::1 {\n    max-life 6;\n  }\n"
                  "  max-life 7;\n"
                  "}\n"
                  "iaaddr 2001:db8::2 {\n}\n"),
            "41 address=2001:db8::2 max=7");
}

TEST_P(LeasesFile, TextInFrontOfABraceBecomesPartOfTheNextName) {
  EXPECT_EQ(LeasesAndLog("ia-na \"A\" {\n  iaaddr 2001:db8::1 {\n    max-life 6\n  }\n}\n"
                         "ia-na \"B\" {\n}\n"),
            "41 address=2001:db8::1");
}

// ---- the caller's list and the object's life ----

TEST_P(LeasesFile, RecordsGoBehindThoseOfTheList) {
  const std::string path = Given(kUsualFile);
  std::list<_Dhcpv6LeaseStore> leases(1);
  leases.front().duid = "before";
  leases.front().ends = "never";
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  EXPECT_THAT(LeaseWords(leases), ElementsAre("before ends=never", kUsualLease, kUsualLease));
}

TEST_P(LeasesFile, SecondCallOnAnObjectAppendsNothing) {
  const std::string path = Given(kUsualFile);
  Dhcpv6LeasesParser parser;
  std::list<_Dhcpv6LeaseStore> leases;
  for (int call = 0; call < 3; ++call) {
    parser.GetLeases(path.c_str(), leases);
    EXPECT_THAT(LeaseWords(leases), ElementsAre(kUsualLease));
  }
  EXPECT_THAT(SystemLog(), IsEmpty());
}

TEST_P(LeasesFile, SecondCallOnAnObjectLooksOneLevelDeeper) {
  const std::string path = Given("group {\n" + std::string(kUsualFile) + "}\nia-na \"B\" {\n}\n");
  Dhcpv6LeasesParser parser;
  std::list<_Dhcpv6LeaseStore> first;
  std::list<_Dhcpv6LeaseStore> second;
  parser.GetLeases(path.c_str(), first);
  parser.GetLeases(path.c_str(), second);
  EXPECT_THAT(LeaseWords(first), ElementsAre("42"));
  EXPECT_THAT(LeaseWords(second), ElementsAre(kUsualLease));
}

TEST_P(LeasesFile, EmptyFileHasNoLeases) {
  EXPECT_EQ(LeasesAndLog(""), "");
  EXPECT_EQ(LeasesAndLog("\n# nothing yet\n\n"), "");
}

TEST_P(LeasesFile, FileIsClosedAndLeftAsItWas) {
  const std::string path = Given("ia-na \"A\" {\niaaddr {\n}\n}\n");
  const std::string text = ReadFile(path);
  const auto before = OpenDescriptors();
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  EXPECT_EQ(OpenDescriptors(), before);
  EXPECT_EQ(ReadFile(path), text);
}

TEST_P(LeasesFile, NulByteEndsTheReadingAndWhatStandsBeforeItCounts) {
  using namespace std::string_view_literals;
  const std::string path = Given(
      "ia-na \"A\" {\n}\n"
      "ia-na \"B\" {\n"
      "  iaaddr 2001:db8::2 {\n"
      "    max-life 600;\n"
      "    ends \0never;\n"
      "  }\n"
      "}\n"
      "ia-na \"C\" {\n}\n"sv);
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  EXPECT_THAT(LeaseWords(leases), ElementsAre("41", "42 address=2001:db8::2 max=600"));
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path +
                                       ", NUL byte in line 6!"));
}

TEST(LeasesParser, WhatEndsTheExtractionIsLoggedBehindWhatEndsTheReading) {
  using namespace std::literals;
  const ScratchFolder scratch;
  ClearSystemLog();
  const std::string path = scratch.Write("leases",
                                         "ia-na \"A\" {\n}\n"
                                         "ia-na \"B\" {\n  iaaddr 2001:db8::2 {\n"
                                         "    set foo = bar;\n  }\n}\n"
                                         "ia-na \"C\" {\n}\n"
                                         "x \0;\n"sv);
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path.c_str(), leases);
  EXPECT_THAT(LeaseWords(leases), ElementsAre("41"));
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path +
                                           ", NUL byte in line 10!",
                                       kOutOfRange));
}

TEST(LeasesParser, OnlyAnExtractionDeletesWhatItHasRead) {
  const ScratchFolder scratch;
  const std::string path = scratch.Write("leases", "ia-na \"A\" {\n}\n");
  Dhcpv6LeasesParser parser;
  std::list<_Dhcpv6LeaseStore> leases;
  parser.GetLeases(path.c_str(), leases);
  CfSectionHolder tree;
  ASSERT_TRUE(parser.ParseFile(path.c_str(), &tree));
  EXPECT_EQ(TreeText(tree), "[ia-na \"A\"]\n");
}

// ---- files that cannot be read ----

class UnreadableLeases : public ::testing::Test {
 protected:
  UnreadableLeases() : leases_(1) {
    leases_.front().duid = "before";
    ClearSystemLog();
  }

  ScratchFolder scratch_;
  Dhcpv6LeasesParser parser_;
  std::list<_Dhcpv6LeaseStore> leases_;
};

TEST_F(UnreadableLeases, MissingFileIsAWarningAndLeavesTheList) {
  const std::string path = scratch_.Path("missing.leases");
  parser_.GetLeases(path.c_str(), leases_);
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_WARNING File " + path + " doesn't exist!"));
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("before"));
}

TEST_F(UnreadableLeases, NoPathIsAWarning) {
  parser_.GetLeases(nullptr, leases_);
  parser_.GetLeases("", leases_);
  EXPECT_THAT(SystemLog(), ElementsAre("syslog LOG_WARNING File  doesn't exist!",
                                       "syslog LOG_WARNING File  doesn't exist!"));
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("before"));
}

TEST_F(UnreadableLeases, FolderIsLoggedWithTheSystemsReason) {
  const std::string path = scratch_.Path("");
  parser_.GetLeases(path.c_str(), leases_);
  EXPECT_THAT(SystemLog(),
              ElementsAre("syslog LOG_INFO EXCEPTION! Cannot read " + path + ", Is a directory!"));
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("before"));
}

TEST_F(UnreadableLeases, AfterAMissingFileTheObjectReadsAsIfNew) {
  parser_.GetLeases(scratch_.Path("missing.leases").c_str(), leases_);
  parser_.GetLeases(scratch_.Write("dhcpd6.leases", kUsualFile).c_str(), leases_);
  EXPECT_THAT(LeaseWords(leases_), ElementsAre("before", kUsualLease));
}

// ---- a parser of the caller's own ----

/// Does in place of reading a file what a test wants.
class ScriptedParser : public Dhcpv6LeasesParser {
 public:
  explicit ScriptedParser(void (*read)(ScriptedParser&, void*)) : read_(read) {}

  bool ParseFile(const char* path, void* target) override {
    paths.emplace_back(path);
    read_(*this, target);
    return false;
  }

  std::vector<std::string> paths;

 private:
  void (*read_)(ScriptedParser&, void*);
};

TEST(LeasesOfADerivedParser, ItsParseFileIsCalledAndItsResultIgnored) {
  ScriptedParser parser([](ScriptedParser& self, void* target) {
    EXPECT_TRUE(self.ParseBuffer(kUsualFile, target));
  });
  std::list<_Dhcpv6LeaseStore> leases;
  parser.GetLeases("some.leases", leases);
  EXPECT_THAT(parser.paths, ElementsAre("some.leases"));
  EXPECT_THAT(LeaseWords(leases), ElementsAre(kUsualLease));
}

TEST(LeasesOfADerivedParser, ItsParseFileFindsAllThatItHasRead) {
  ScriptedParser parser([](ScriptedParser& self, void* target) {
    self.ParseBuffer("ia-na \"A\" {\n}\nia-na \"B\" {\n}\n", target);
    const auto& tree = *static_cast<CfSectionHolder*>(target);
    EXPECT_EQ(TreeText(tree), "[TREE_ROOT_SECTION]\n  [ia-na \"A\"]\n  [ia-na \"B\"]\n");
  });
  std::list<_Dhcpv6LeaseStore> leases;
  parser.GetLeases("some.leases", leases);
  EXPECT_THAT(LeaseWords(leases), ElementsAre("41", "42"));
}

TEST(LeasesOfADerivedParser, StandardExceptionIsLoggedWithItsText) {
  const struct {
    void (*read)(ScriptedParser&, void*);
    const char* logged;
  } rows[] = {
      {[](ScriptedParser&, void*) { throw std::runtime_error("no time"); },
       "syslog LOG_INFO no time"},
      {[](ScriptedParser&, void*) { throw std::logic_error("%s%n 5 %"); },
       "syslog LOG_INFO %s%n 5 %"},
      {[](ScriptedParser&, void*) { throw std::bad_alloc(); }, "syslog LOG_INFO std::bad_alloc"},
      {[](ScriptedParser& self, void* target) {
         self.ParseBuffer(kUsualFile, target);
         throw std::runtime_error("no more time");
       },
       "syslog LOG_INFO no more time"},
  };
  for (const auto& row : rows) {
    ScriptedParser parser(row.read);
    std::list<_Dhcpv6LeaseStore> leases;
    ClearSystemLog();
    EXPECT_NO_THROW(parser.GetLeases("some.leases", leases));
    EXPECT_THAT(SystemLog(), ElementsAre(row.logged));
    EXPECT_THAT(leases, IsEmpty());
  }
}

TEST(LeasesOfADerivedParser, AnyOtherExceptionPassesToTheCaller) {
  ScriptedParser parser([](ScriptedParser&, void*) { throw 17; });
  std::list<_Dhcpv6LeaseStore> leases;
  ClearSystemLog();
  EXPECT_THROW(parser.GetLeases("some.leases", leases), int);
  EXPECT_THAT(SystemLog(), IsEmpty());
  EXPECT_THAT(leases, IsEmpty());
}

}  // namespace
}  // namespace klepur::test
