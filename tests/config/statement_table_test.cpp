#include <klepur/config/statement_table.h>

#include <gtest/gtest.h>

#include <cstring>

namespace klepur::internal {
namespace {

constexpr Statement kTable[] = {
    {1, "tftp-server-name", Form::kQuoted},  // before the row that its keyword holds
    {2, "server-name", Form::kQuoted},      {3, "range", Form::kBlankList},
    {4, "lease-time", Form::kPlain},        {5, "IPLine", Form::kWholeLine},
    {5, "Special", Form::kWholeLine},       {6, "authoritative", Form::kFlag},
};
static_assert(EveryRowReachable(kTable));

TEST(Classify, FirstRowWhoseKeywordStandsInTheLineDecides) {
  const struct {
    const char* line;
    int type;
  } cases[] = {
      // anywhere in the line
      {"lease-time 7200;", 4},
      {"max-lease-time 7200;", 4},
      {"not authoritative;", 6},
      {"orange", 3},
      {"lease-time", 4},
      // the order of the rows, not that of the words
      {"tftp-server-name \"boot\";", 1},
      {"server-name \"boot\";", 2},
      {"server-name \"x\"; tftp-server-name \"y\";", 1},
      {"authoritative lease-time range;", 3},
      // letter case and spacing count
      {"Range 1;", -1},
      {"lease- time 1;", -1},
      // no keyword
      {"", -1},
      {";", -1},
      {"ddns-updates on;", -1},
  };
  for (const auto& row : cases) EXPECT_EQ(Classify(kTable, row.line), row.type) << row.line;
}

TEST(Classify, WholeLineNeedsItsSemicolonAnywhere) {
  const struct {
    const char* line;
    int type;
  } cases[] = {
      {"IPLine 10.0.0.1;", 5}, {"Special;", 5},  {"; Special", 5},
      {"IPLine 10.0.0.1", -1}, {"Special", -1},  {"IPLine Special", -1},
      {"Special IPLine;", 5},  {"special;", -1}, {"ipline;", -1},
  };
  for (const auto& row : cases) EXPECT_EQ(Classify(kTable, row.line), row.type) << row.line;
}

TEST(Classify, LineThatOneRowDeclinesGoesToTheNext) {
  EXPECT_EQ(Classify(kTable, "IPLine authoritative"), 6);
  EXPECT_EQ(Classify(kTable, "IPLine authoritative;"), 5);
}

TEST(Classify, EmptyTableKnowsNoLine) {
  EXPECT_EQ(Classify({}, "range 1;"), -1);
}

TEST(FindStatement, GivesTheFirstRowOfTheType) {
  EXPECT_EQ(FindStatement(kTable, 1), &kTable[0]);
  EXPECT_EQ(FindStatement(kTable, 5), &kTable[4]);
  EXPECT_EQ(FindStatement(kTable, 6), &kTable[6]);
}

TEST(FindStatement, GivesNullForEveryNumberWithoutRow) {
  for (const int type : {-1, 0, 7, 1000000}) EXPECT_EQ(FindStatement(kTable, type), nullptr);
  EXPECT_EQ(FindStatement({}, 1), nullptr);
}

TEST(EveryRowReachable, HoldsWhenNoKeywordHoldsAnEarlierOne) {
  static constexpr Statement kLongerFirst[] = {{1, "range6", Form::kPlain},
                                               {2, "range", Form::kPlain}};
  static constexpr Statement kSameTypeTwice[] = {{1, "IPLine", Form::kWholeLine},
                                                 {1, "Special", Form::kWholeLine}};
  static constexpr Statement kOverlapping[] = {{1, "ab", Form::kPlain}, {2, "bc", Form::kPlain}};
  static constexpr Statement kOne[] = {{1, "", Form::kPlain}};
  EXPECT_TRUE(EveryRowReachable(kLongerFirst));
  EXPECT_TRUE(EveryRowReachable(kSameTypeTwice));
  EXPECT_TRUE(EveryRowReachable(kOverlapping));
  EXPECT_TRUE(EveryRowReachable(kOne));
  EXPECT_TRUE(EveryRowReachable({}));
}

TEST(EveryRowReachable, FailsForARowBehindAPartOfItsKeyword) {
  static constexpr Statement kAtItsFront[] = {{1, "range", Form::kPlain},
                                              {2, "range6", Form::kPlain}};
  static constexpr Statement kAtItsEnd[] = {{1, "server-name", Form::kPlain},
                                            {2, "tftp-server-name", Form::kPlain}};
  static constexpr Statement kFarBehind[] = {{1, "name", Form::kPlain},
                                             {2, "range", Form::kPlain},
                                             {3, "file", Form::kPlain},
                                             {4, "filename", Form::kPlain}};
  static constexpr Statement kTheSameTwice[] = {{1, "range", Form::kPlain},
                                                {2, "range", Form::kPlain}};
  static constexpr Statement kBehindAnEmptyOne[] = {{1, "", Form::kPlain},
                                                    {2, "range", Form::kPlain}};
  EXPECT_FALSE(EveryRowReachable(kAtItsFront));
  EXPECT_FALSE(EveryRowReachable(kAtItsEnd));
  EXPECT_FALSE(EveryRowReachable(kFarBehind));
  EXPECT_FALSE(EveryRowReachable(kTheSameTwice));
  EXPECT_FALSE(EveryRowReachable(kBehindAnEmptyOne));
}

const char* BehindFirstBlank(const char* line) {
  return std::strchr(line, ' ') + 1;
}

const char* AtTheEnd(const char* line) {
  return line + std::strlen(line);
}

TEST(ReadValue, TakesTheValueAsItsFormSays) {
  const struct {
    Form form;
    const char* line;
    const char* value;
  } cases[] = {
      {Form::kFlag, "authoritative;", "exist"},
      {Form::kFlag, "", "exist"},

      {Form::kPlain, "max-lease-time 7200;", "7200"},
      {Form::kPlain, "option routers 10.0.0.1;", "10.0.0.1"},
      {Form::kPlain, "option routers 10.0.0.1, 10.0.0.2;", "10.0.0.2"},
      {Form::kPlain, "max-lease-time 7200 ;", ""},
      {Form::kPlain, "host a { fixed-address 10.0.0.5; }", "}"},

      {Form::kQuoted, "filename \"pxelinux.0\";", "pxelinux.0"},
      {Form::kQuoted, "filename \"\";", ""},
      {Form::kQuoted, "filename \";", ""},
      {Form::kQuoted, "filename ;", ""},
      {Form::kQuoted, "filename pxelinux.0;", "xelinux."},
      {Form::kQuoted, "filename \"boot image\";", "mage"},

      {Form::kCommaList, "servers 10.1.1.1,10.1.1.2;", "10.1.1.1, 10.1.1.2"},
      {Form::kCommaList, "servers 10.1.1.1;", "10.1.1.1"},
      {Form::kCommaList, "servers ;", "wrong value"},
      {Form::kBlankList, "range 10.0.0.10 10.0.0.20;", "10.0.0.10 10.0.0.20"},
      {Form::kBlankList, "range 10.0.0.10,10.0.0.20", "10.0.0.10 10.0.0.20"},
      {Form::kBlankList, "range ", "wrong value"},

      {Form::kWholeLine, "IPLine 10.0.0.1;", "IPLine 10.0.0.1"},
      {Form::kWholeLine, "IPLine; # kept", "IPLine; # kep"},
      {Form::kWholeLine, ";", ""},
  };
  for (const auto& row : cases) {
    std::string value = "before";
    ReadValue(row.form, row.line, &BehindFirstBlank, value);
    EXPECT_EQ(value, row.value) << row.line;
  }
}

TEST(ReadValue, PlainLineWithoutValueLeavesTheTextAsItIs) {
  for (const char* line : {"max-lease-time;", "max-lease-time 7200", "max-lease-time", ""}) {
    std::string value = "before";
    ReadValue(Form::kPlain, line, &BehindFirstBlank, value);
    EXPECT_EQ(value, "before") << line;
  }
}

TEST(ReadValue, QuotedLineWithoutValueTakesTheEndsOffTheText) {
  const struct {
    const char* before;
    const char* after;
  } cases[] = {{"before", "efor"}, {"abc", "b"}, {"ab", ""}, {"a", ""}, {"", ""}};
  for (const auto& row : cases) {
    std::string value = row.before;
    ReadValue(Form::kQuoted, "filename;", &BehindFirstBlank, value);
    EXPECT_EQ(value, row.after) << row.before;
  }
}

TEST(ReadValue, ListStartsWhereTheFamilySays) {
  for (const Form form : {Form::kCommaList, Form::kBlankList}) {
    std::string value;
    ReadValue(form, "range 10.0.0.10 10.0.0.20;", &AtTheEnd, value);
    EXPECT_EQ(value, "wrong value");
  }
}

TEST(WriteLine, PutsTheValueAsItsFormSays) {
  const struct {
    Statement statement;
    const char* value;
    const char* line;
  } cases[] = {
      {{1, "authoritative", Form::kFlag}, "exist", "authoritative;"},
      {{1, "authoritative", Form::kFlag}, "", "authoritative;"},
      {{1, "max-lease-time", Form::kPlain}, "7200", "max-lease-time 7200;"},
      {{1, "max-lease-time", Form::kPlain}, "", "max-lease-time ;"},
      {{1, "filename", Form::kQuoted}, "pxelinux.0", "filename \"pxelinux.0\";"},
      {{1, "filename", Form::kQuoted}, "a\"b\\", "filename \"a\"b\\\";"},
      {{1, "servers", Form::kCommaList}, "10.1.1.1, 10.1.1.2", "servers 10.1.1.1, 10.1.1.2;"},
      {{1, "servers", Form::kCommaList}, "10.1.1.1 10.1.1.2", "servers 10.1.1.1 10.1.1.2;"},
      {{1, "range", Form::kBlankList}, "10.0.0.10 10.0.0.20", "range 10.0.0.10 10.0.0.20;"},
      {{1, "IPLine", Form::kWholeLine}, "Special 10.0.0.1", "Special 10.0.0.1;"},
      {{1, "IPLine", Form::kWholeLine}, "IPLine;", "IPLine;;"},
  };
  for (const auto& row : cases) EXPECT_EQ(WriteLine(row.statement, row.value), row.line);
}

using Types = SectionTypes<struct AnyVocabulary>;

constexpr BlockTable kBlocks = MakeBlockTable<struct AnyVocabulary>("lan ");

TEST(KindOf, FirstPrefixFoundAnywhereDecides) {
  const struct {
    const char* header;
    Types::SectionType kind;
  } cases[] = {
      {"shared-network office", Types::SECTION_SHARED_NETWORK},
      {"lan 10.0.0.0", Types::SECTION_SUBNET},
      {"host pc", Types::SECTION_HOST},
      {"if known", Types::SECTION_IF},
      // anywhere
      {"elsif known", Types::SECTION_IF},
      {"ghost pc", Types::SECTION_HOST},
      // the order of the rows
      {"if host lan shared-network x", Types::SECTION_SHARED_NETWORK},
      {"if host lan x", Types::SECTION_SUBNET},
      {"if host x", Types::SECTION_HOST},
      // none
      {"subnet 10.0.0.0", Types::SECTION_GLOBAL},
      {"group", Types::SECTION_GLOBAL},
      {"host", Types::SECTION_GLOBAL},
      {"HOST pc", Types::SECTION_GLOBAL},
      {"", Types::SECTION_GLOBAL},
  };
  for (const auto& row : cases) EXPECT_EQ(KindOf(kBlocks, row.header), row.kind) << row.header;
}

TEST(PrefixOf, GivesWhatAHeaderOfTheKindBeginsWith) {
  EXPECT_EQ(PrefixOf(kBlocks, Types::SECTION_SHARED_NETWORK), "shared-network ");
  EXPECT_EQ(PrefixOf(kBlocks, Types::SECTION_SUBNET), "lan ");
  EXPECT_EQ(PrefixOf(kBlocks, Types::SECTION_HOST), "host ");
  EXPECT_EQ(PrefixOf(kBlocks, Types::SECTION_IF), "if ");
}

TEST(PrefixOf, IsEmptyForAKindWithoutRow) {
  EXPECT_EQ(PrefixOf(kBlocks, Types::SECTION_GLOBAL), "");
  EXPECT_EQ(PrefixOf(kBlocks, 5), "");
  EXPECT_EQ(PrefixOf(kBlocks, -1), "");
}

}  // namespace
}  // namespace klepur::internal
