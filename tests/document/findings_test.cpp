// What is wrong with a text is told with its place, and what follows it is read on.
#include <klepur/document/document.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/document/document_test.h"
#include "tests/support/document_tree.h"

namespace klepur::test {
namespace {

using namespace std::string_literals;

class Findings : public EditTest {
 protected:
  std::string Codes() const {
    std::string codes;
    for (const Finding& finding : Doc().Findings()) {
      if (finding.severity == Severity::kNote) continue;
      codes += (codes.empty() ? "" : ", ") + std::string(ToText(finding.code));
    }
    return codes;
  }
};
KLEPUR_WITH_BOTH_LINE_ENDS(Findings);

TEST_P(Findings, StandOnTheByteTheyAreAbout) {
  const struct {
    const char* text;
    const char* findings;
  } cases[] = {
      {"authoritative;\n", ""},
      // Braces.
      {"group {\n}\n}\n", "3:1 error stray brace\n"},
      {"}\n", "1:1 error stray brace\n"},
      {"host a { } }\nhost b { }\n", "1:12 error stray brace\n"},
      {"authoritative;\n{ filename \"a\"; }\n", "2:1 error missing header\n"},
      // Semicolons.
      {";\n", "1:1 error empty statement\n"},
      {"authoritative;;\n", "1:15 error empty statement\n"},
      {"group {\n  ;\n}\n", "2:3 error empty statement\n"},
      {"host a { };\n", "1:11 error semicolon behind block\n"},
      {"host a {\n}\n# c\n", ""},
      {"group {\n  pool { };\n}\n", "2:11 error semicolon behind block\n"},
      {"key k { secret \"a\"; };\n", ""},
      {"KEY k { secret \"a\"; };\n", ""},
      {"key k { secret \"a\"; };;\n", "1:23 error empty statement\n"},
      // Quotes.
      {"option domain-name \"a;\n", "1:20 error unclosed quote\n"},
      {"# \"\noption domain-name \"a;\nauthoritative;\n", "2:20 error unclosed quote\n"},
      {"option domain-name \"a\\\";\n", "1:20 error unclosed quote\n"},
      {"log \"a\n\".b;\n", "1:5 error unclosed quote\n"},
      {"log \"a\n\"\"b;\n", "1:5 error unclosed quote\n"},
      {"log \"a\n\"\xE4;\n", "1:5 error unclosed quote\n"},
      // Blocks that are not there.
      {"host a;\n", "1:7 error missing block\n"},
      {"if known\n  max-lease-time 7200;\n", "2:3 error missing block\n"},
      {"if known max-lease-time 7200;\n", "1:29 error missing block\n"},
      {"if known { } else filename \"a\";\n", "1:31 error missing block\n"},
      // A statement in another one's line.
      {"hardware ethernet 0:0:0:0:0:1 fixed-address 10.0.0.1;\n", "1:31 error missing semicolon\n"},
      {"range 10.0.0.1 10.0.0.2 option routers 10.0.0.9;\n", "1:25 error missing semicolon\n"},
      {"option routers 10.0.0.9 OPTION domain-name \"a\";\n", "1:25 error missing semicolon\n"},
      {"authoritative option routers 10.0.0.9;\n", "1:15 error missing semicolon\n"},
      // Not wrong.
      {"option host-name range;\noption routers a, range;\nnext-server range;\n", ""},
      {"option domain-name = option x;\nmatch if option x = option y;\n", ""},
      {"host-identifier option dhcp6.client-id 0:1;\n", ""},
      {"host a { group b; }\n", ""},
      {"pool { no failover peer range 10.0.0.1; }\n", ""},
      {"pool {\n  NO failover # c\n  peer\n  range 10.0.0.1;\n}\n", ""},
      {"pool { no failover peer; }\n", "1:24 error empty statement\n"},
      {"option domain-name \"a\n}\n\";\n", ""},
      {"# }\n# {\n# ;\n# \"\n", ""},
      {"option x code 200 = { text };\n", ""},
      {"if known { } else { }\n", ""},
      {"unknown;\nunknown 1 2;\nunknown { }\n", ""},
  };
  for (const auto& [text, findings] : cases) {
    Given(text);
    EXPECT_EQ(FindingsText(Doc()), findings) << text;
  }
}

TEST_P(Findings, ComeInTheOrderOfTheText) {
  Given(
      "host a { };\n"
      "}\n"
      ";\n"
      "host b { } }\n"
      "option domain-name \"a;\n");
  EXPECT_EQ(FindingsText(Doc()),
            "1:11 error semicolon behind block\n"
            "2:1 error stray brace\n"
            "3:1 error empty statement\n"
            "4:12 error stray brace\n"
            "5:20 error unclosed quote\n");
}

TEST_P(Findings, HaveASentenceEach) {
  Given(
      "host a { };\n"
      "}\n"
      ";\n"
      "max-lease-time 600\n"
      "group {\n");
  EXPECT_GE(Doc().Findings().size(), 5U);
  for (const Finding& finding : Doc().Findings()) {
    EXPECT_GT(finding.message.size(), 10U);
    EXPECT_EQ(finding.message.find('\n'), std::string::npos) << finding.message;
  }
}

TEST_P(Findings, UnclosedBlockIsToldAtItsBrace) {
  Given(
      "subnet 10.0.0.0 netmask 255.255.255.0 {\n"
      "  range 10.0.0.10 10.0.0.20;\n"
      "host a { fixed-address 10.0.0.5; }\n"
      "host b { fixed-address 10.0.0.6; }\n");
  EXPECT_EQ(Codes(), "unclosed block");
  EXPECT_EQ(Doc().Findings()[0].where, (Position{1, 39}));
  EXPECT_EQ(Find("host b").FirstChild().Value(), "10.0.0.6");
}

TEST_P(Findings, UnclosedBlockSeemsToEndBeforeWhatIsNotDeeper) {
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1;\n"
      "\n"
      "  host b { fixed-address 10.0.0.2; }\n");
  EXPECT_EQ(FindingsText(Doc()),
            "1:7 error unclosed block\n"
            "2:10 error unclosed block\n"
            "5:3 note block seems to end\n"
            "5:36 note end in block\n"
            "5:36 note end in block\n");
}

TEST_P(Findings, BlockThatTookTheBraceOfAnotherSeemsToEndBeforeThat) {
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1;\n"
      "\n"
      "  host b { fixed-address 10.0.0.2; }\n"
      "}\n");
  EXPECT_EQ(FindingsText(Doc()),
            "1:7 error unclosed block\n"
            "5:3 note block seems to end\n"
            "6:1 note end in block\n");
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1;\n"
      "}\n");
  EXPECT_EQ(FindingsText(Doc()),
            "1:7 error unclosed block\n"
            "4:1 note block seems to end\n"
            "4:1 note end in block\n");
}

TEST_P(Findings, ValueThatIsNotClosedIsToldWhereItEnds) {
  Given("option x code 200 = {\n  integer 8, text ;\nauthoritative;\n");
  EXPECT_EQ(FindingsText(Doc()), "2:19 error unclosed value\n");
}

TEST_P(Findings, EachUnclosedBlockIsTold) {
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.5;\n");
  std::vector<Position> places;
  for (const Finding& finding : Doc().Findings()) {
    if (finding.code == FindingCode::kUnclosedBlock) places.push_back(finding.where);
  }
  EXPECT_EQ(places, (std::vector<Position>{{1, 7}, {2, 10}}));
}

TEST_P(Findings, EndOfTheTextInABlockIsANote) {
  Given(
      "group {\n"
      "  filename \"a\";\n");
  const std::vector<Finding> findings = Doc().Findings();
  ASSERT_FALSE(findings.empty());
  for (const Finding& finding : findings) {
    EXPECT_EQ(finding.severity == Severity::kNote, finding.code == FindingCode::kEndInBlock);
  }
}

// One mistake, and what follows is read as if it had not been made.

TEST_P(Findings, MissingSemicolonSpoilsOneStatement) {
  const struct {
    const char* text;
    const char* tree;
    std::size_t line;  ///< Of the next word, or of the last one where none follows.
  } cases[] = {
      {"max-lease-time 600\nmin-lease-time 60;\nhost a { }\n",
       "max-lease-time: 600\nmin-lease-time: 60\n[host a]\n", 2},
      {"group {\n  max-lease-time 600\n}\nhost a { }\n",
       "[group]\n  max-lease-time: 600\n[host a]\n", 3},
      {"max-lease-time 600\nhost a {\n  fixed-address 10.0.0.1;\n}\nauthoritative;\n",
       "max-lease-time: 600\n[host a]\n  fixed-address: 10.0.0.1\nauthoritative\n", 2},
      {"host a { fixed-address 10.0.0.1 }\nhost b { }\n",
       "[host a]\n  fixed-address: 10.0.0.1\n[host b]\n", 1},
      {"option routers 10.0.0.1\n  # the other\noption domain-name \"a\";\nhost b { }\n",
       "option routers: 10.0.0.1\n", 3},
      {"authoritative\nmax-lease-time 600;\n", "authoritative\nmax-lease-time: 600\n", 2},
      {"max-lease-time 600", "max-lease-time: 600\n", 1},
      {"option domain-name \"a\"\noption routers 10.0.0.1;\n",
       "option domain-name: \"a\"\noption routers: 10.0.0.1\n", 2},
      {"allow unknown-clients\nif known { }\nelse { }\n",
       "allow unknown-clients\n[if known]\n[else]\n", 2},
      {"include \"a\"\ninclude \"b\";\n", "include: \"a\"\ninclude: \"b\"\n", 2},
  };
  for (const auto& [text, tree, line] : cases) {
    Given(text);
    EXPECT_EQ(Codes(), "missing semicolon") << text;
    ASSERT_FALSE(Doc().Findings().empty()) << text;
    EXPECT_EQ(Doc().Findings()[0].where.line, line) << text;
    const std::string got = DocumentTree(Doc());
    EXPECT_EQ(got.substr(0, std::string_view(tree).size()), tree) << text;
  }
}

TEST_P(Findings, WordsOnTheNextLineAreNoNewStatementWhereOneMustGoOn) {
  const char* const texts[] = {
      "option domain-name-servers\n  10.0.0.1,\n  10.0.0.2;\n",
      "option\n  host-name \"a\";\n",
      "set x =\n  option host-name;\n",
      "match if\n  option x = 1;\n",
      "log(info,\n  option host-name);\n",
      "set x = concat(\n  hardware,\n  option host-name);\n",
      "allow members of\n  \"a\";\n",
      "max-lease-time\n  600\n  ;\n",
      "match if not\n  option x = 1;\n",
  };
  for (const char* const text : texts) {
    Given(text);
    EXPECT_EQ(FindingsText(Doc()), "") << text;
    EXPECT_FALSE(Root().FirstChild().Next()) << text;
  }
}

TEST_P(Findings, MissingBraceSpoilsNoStatementBelow) {
  Given(
      "group {\n"
      "  host a {\n"
      "    fixed-address 10.0.0.1;\n"
      "  host b {\n"
      "    fixed-address 10.0.0.2;\n"
      "  }\n"
      "}\n"
      "subnet 10.0.0.0 netmask 255.0.0.0 {\n"
      "}\n");
  EXPECT_EQ(Codes(), "unclosed block");
  EXPECT_EQ(Find("host b").Child("fixed-address").Value(), "10.0.0.2");
  EXPECT_TRUE(Find("subnet 10.0.0.0 netmask 255.0.0.0"));
}

TEST_P(Findings, BraceTooManySpoilsNothingBelow) {
  Given(
      "group {\n"
      "  filename \"a\";\n"
      "}}\n"
      "host a { fixed-address 10.0.0.1; }\n"
      "group {\n"
      "  filename \"b\";\n"
      "}\n");
  EXPECT_EQ(DocumentTree(Doc()),
            "[group]\n"
            "  filename: \"a\"\n"
            "stray }\n"
            "[host a]\n"
            "  fixed-address: 10.0.0.1\n"
            "[group]\n"
            "  filename: \"b\"\n");
}

TEST_P(Findings, OpenQuoteSpoilsOneStatement) {
  Given(
      "host a {\n"
      "  option host-name \"a;\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n"
      "host b { fixed-address 10.0.0.2; }\n");
  EXPECT_EQ(DocumentTree(Doc()),
            "[host a]\n"
            "  option host-name: \"a\n"
            "  fixed-address: 10.0.0.1\n"
            "[host b]\n"
            "  fixed-address: 10.0.0.2\n");
  EXPECT_EQ(FindingsText(Doc()), "2:20 error unclosed quote\n");
}

TEST_P(Findings, QuoteThatIsClosedByAnotherStringsOpeningOneIsTheOpenOne) {
  Given(
      "option domain-name \"a;\n"
      "filename \"b\";\n"
      "authoritative;\n");
  EXPECT_EQ(DocumentTree(Doc()),
            "option domain-name: \"a\n"
            "filename: \"b\"\n"
            "authoritative\n");
  EXPECT_EQ(FindingsText(Doc()), "1:20 error unclosed quote\n");
}

TEST_P(Findings, MissingOpeningBraceSpoilsNoBlockBelow) {
  Given(
      "host a\n"
      "  fixed-address 10.0.0.1;\n"
      "}\n"
      "host b { fixed-address 10.0.0.2; }\n");
  EXPECT_FALSE(Doc().Findings().empty());
  EXPECT_EQ(Find("host b").Parent(), Root());
}

TEST_P(Findings, OpenOptionValueSpoilsOneStatement) {
  Given(
      "option x code 200 = { integer 8, text ;\n"
      "authoritative;\n");
  EXPECT_EQ(Codes(), "unclosed value");
  EXPECT_TRUE(Root().Child("authoritative"));
}

TEST(FindingsInBytes, ByteOrderMarkAndNul) {
  EXPECT_EQ(FindingsText(Document("\xEF\xBB\xBF"
                                  "authoritative;\n")),
            "1:1 error byte order mark\n");
  EXPECT_EQ(FindingsText(Document("# a\0b\noption domain-name \"\0\";\n"s)), "");
  // The server passes over one NUL before a statement, and stops at two.
  EXPECT_EQ(FindingsText(Document("authoritative;\n\0authoritative;\n"s)), "");
  const std::vector<Finding> two = Document("authoritative;\n\0\0authoritative;\n"s).Findings();
  ASSERT_EQ(two.size(), 1U);
  EXPECT_EQ(two[0].code, FindingCode::kNul);
  EXPECT_EQ(two[0].where.line, 2U);
}

TEST_P(Findings, FollowTheEdits) {
  Given(
      "host a { };\n"
      "}\n"
      "max-lease-time 600\n"
      "authoritative;\n");
  Edit([&] { Root().Add("min-lease-time 60;", Placement::Before(Find("host a"))); });
  EXPECT_EQ(FindingsText(Doc()).substr(0, 58),
            "2:11 error semicolon behind block\n"
            "3:1 error stray brace\n"
            "5:");
  EXPECT_EQ(Codes(), "semicolon behind block, stray brace, missing semicolon");
  Edit([&] { Root().Set("max-lease-time", "7200"); });
  Edit([&] { Find("host a").Remove(); });
  EXPECT_EQ(FindingsText(Doc()).substr(0, 22), "2:1 error stray brace\n");
}

}  // namespace
}  // namespace klepur::test
