// The table of words, and the one that the document reads by.
#include <klepur/document/structure_words.h>
#include <klepur/language/words.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/support/files.h"

namespace klepur::test {
namespace {

TEST(Words, AreFoundByTheirKeyword) {
  const struct {
    const char* keyword;
    Scopes scopes;
    const char* name;  ///< Null when there is none.
  } cases[] = {
      {"max-lease-time", kNowhere, "max-lease-time"},
      {"MAX-Lease-Time", kNowhere, "max-lease-time"},
      {"option routers", kNowhere, "option routers"},
      {"option agent.docsis-device-class", kNowhere, "option agent.DOCSIS-device-class"},
      {"allow unknown-clients", kNowhere, "allow unknown-clients"},
      {"deny bootp", kNowhere, "allow bootp"},
      {"ignore known", kNowhere, "allow known-clients"},
      {"allow members", kNowhere, "allow members of"},
      {"not authoritative", kNowhere, "not authoritative"},
      {"match", kNowhere, "match"},
      {"match if", kNowhere, "match if"},
      {"failover peer", kNowhere, "failover peer"},
      {"option space", kNowhere, "option space"},
      {"option nothing", kNowhere, nullptr},
      {"allow nothing", kNowhere, nullptr},
      {"max-lease", kNowhere, nullptr},
      {"", kNowhere, nullptr},
  };
  for (const auto& [keyword, scopes, name] : cases) {
    const Word* const word = Words().Find(keyword, scopes);
    ASSERT_EQ(word == nullptr, name == nullptr) << keyword;
    if (word != nullptr) {
      EXPECT_EQ(word->name, name) << keyword;
    }
  }
}

TEST(Words, OfSeveralTheOneOfThePlaceIsFound) {
  EXPECT_EQ(Words().Find("key")->value, "name, bare or quoted, and block, ; allowed behind");
  EXPECT_EQ(Words().Find("key", kInFile)->scopes4 & kInFile, kInFile);
  EXPECT_EQ(Words().Find("key", kInZone)->scopes4, kInZone);
  EXPECT_EQ(Words().Find("primary", kInZone)->scopes4, kInZone);
  EXPECT_EQ(Words().Find("primary", kInFailoverPeer)->scopes4, kInFailoverPeer);
  EXPECT_EQ(Words().Find("group", kInHost)->scopes4, kInHost);
}

TEST(Words, AreWhole) {
  EXPECT_GT(Words().size(), 380U);
  for (const Word& word : Words()) {
    EXPECT_FALSE(word.name.empty());
    EXPECT_GT(word.explanation.size(), 5U) << word.name;
    EXPECT_EQ(word.explanation.find('\n'), std::string_view::npos) << word.name;
    EXPECT_EQ(word.kind == WordKind::kOption, word.name.substr(0, 7) == "option " &&
                                                  word.name != "option space" &&
                                                  word.name != "option NAME code")
        << word.name;
  }
}

TEST(Words, AreAllThatTheDocumentReadsBy) {
  const auto is_first_word = [](std::string_view first) {
    for (const Word& word : Words()) {
      if (word.name.substr(0, word.name.find_first_of(" :")) == first) return true;
    }
    return first == "deny" || first == "ignore";
  };
  std::size_t count = 0;
  for (std::uint8_t number = 1; number != 0 && !internal::WordOf(number).text.empty(); ++number) {
    EXPECT_TRUE(is_first_word(internal::WordOf(number).text)) << internal::WordOf(number).text;
    ++count;
    if (internal::WordOf(number).text == "zone") break;
  }
  EXPECT_GT(count, 140U);
}

TEST(Words, HaveABlockWhereTheDocumentReadsOne) {
  for (const Word& word : Words()) {
    const bool has_block = word.value.find("block") != std::string_view::npos &&
                           word.value.find("block above") == std::string_view::npos;
    const auto begins =
        internal::WordOf(internal::NumberOf(word.name.substr(0, word.name.find(' ')))).begins;
    const bool reads_block = begins != internal::Begins::kStatement &&
                             begins != internal::Begins::kAlone &&
                             begins != internal::Begins::kLabel;
    if (has_block) {
      EXPECT_TRUE(reads_block) << word.name;
    }
  }
}

TEST(Words, PlacesAreSaidInWords) {
  EXPECT_EQ(ScopesInWords(Scopes{kNowhere}), "nowhere");
  EXPECT_EQ(ScopesInWords(Scopes{kInFile | kInGroup}), "file, group");
  EXPECT_EQ(ScopesInWords(Words().Find("max-lease-time")->scopes4), "everywhere");
  EXPECT_EQ(ToText(WordKind::kDeclaration), "declaration");
  EXPECT_EQ(ToText(ServedBy::kDhcp6), "DHCPv6");
}

TEST(Words, AreThoseOfTheManual) {
  const std::string manual = ReadFile(KLEPUR_DOCS "/words.md");
  EXPECT_NE(manual.find(WordsAsMarkdown()), std::string::npos)
      << "docs/words.md does not end with this table:\n"
      << WordsAsMarkdown();
}

}  // namespace
}  // namespace klepur::test
