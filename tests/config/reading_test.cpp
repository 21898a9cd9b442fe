// Blocks of the tree into records: what holds for both families.
#include <klepur/config/config_file.h>

#include <gtest/gtest.h>

#include "tests/support/blocks.h"
#include "tests/support/config_fixture.h"
#include "tests/support/record_words.h"

namespace klepur::test {
namespace {

enum class Lines { kTyped, kRaw };

template <class Family>
class Reading : public ConfigFixture<Family> {
 protected:
  using Section = typename Family::Section;

  /// The record of a block, in words; "#" before a line that is commented out. Header, lines and
  /// the expected text may hold the placeholders of Family::Text.
  std::string Read(std::string_view header, std::initializer_list<std::string_view> lines = {},
                   Lines mode = Lines::kTyped) {
    ReadInto(record_, header, lines, mode);
    return RecordWords<Family>(record_);
  }

  void ReadInto(Section& record, std::string_view header,
                std::initializer_list<std::string_view> lines, Lines mode = Lines::kTyped) {
    CfSection block = Block(Family::Text(header), {});
    for (const std::string_view line : lines) AddLine(block, Family::Text(line));
    EXPECT_TRUE(conf_.TreeToDhcp(block, record, mode == Lines::kRaw));
  }

  std::string Text(std::string_view text) { return Family::Text(text); }

  Section record_;
  typename Family::File conf_;

 private:
  static void AddLine(CfSection& block, const std::string& line) {
    const CfSection one = Block("", {line});
    block.InsertEntry(one.entryList.front());
  }
};
TYPED_TEST_SUITE(Reading, Families, FamilyNames);

// ---- Kind and name ----

TYPED_TEST(Reading, HeaderTellsKindAndName) {
  const struct {
    const char* header;
    const char* record;
  } cases[] = {
      {"TREE_ROOT_SECTION", "global | name=TREE_ROOT_SECTION"},
      {"shared-network office", "shared-network | name=office"},
      {"@header1", "subnet | name=@name1"},
      {"host pc-17", "host | name=pc-17"},
      {"if option vendor-class-identifier = \"x\"",
       "if | name=option vendor-class-identifier = \"x\""},
      // of no kind: the whole header
      {"group", "global | name=group"},
      {"class \"phones\"", "global | name=class \"phones\""},
      {"pool", "global | name=pool"},
      {"", "global | name="},
      // a keyword without its blank is none
      {"host", "global | name=host"},
      {"hostpc 1", "global | name=hostpc 1"},
      {"host\tpc", "global | name=host\tpc"},
      {"if(known)", "global | name=if(known)"},
      {"@subnet", "global | name=@subnet"},
      {"shared-network", "global | name=shared-network"},
      // letter case counts
      {"Host pc", "global | name=Host pc"},
      {"IF known", "global | name=IF known"},
      // the name is all behind the first blank
      {"host  pc", "host | name= pc"},
      {"host pc 17", "host | name=pc 17"},
      {"host ", "host | name="},
      {" host pc", "host | name=host pc"},
  };
  for (const auto& row : cases) EXPECT_EQ(this->Read(row.header), this->Text(row.record));
}

TYPED_TEST(Reading, KeywordCountsAnywhereInTheHeader) {
  const struct {
    const char* header;
    const char* record;
  } cases[] = {
      {"my shared-network office", "shared-network | name=shared-network office"},
      {"my @header1", "subnet | name=@subnet @name1"},
      {"my host pc", "host | name=host pc"},
      {"else if known", "if | name=if known"},
      // at the end of a longer word, too
      {"elsif known", "if | name=known"},
      {"ghost pc", "host | name=pc"},
      {"group host", "global | name=group host"},
  };
  for (const auto& row : cases) EXPECT_EQ(this->Read(row.header), this->Text(row.record));
}

TYPED_TEST(Reading, KindsAreTriedInTheirOrder) {
  const struct {
    const char* header;
    const char* record;
  } cases[] = {
      {"@subnet shared-network x", "shared-network | name=shared-network x"},
      {"host shared-network x", "shared-network | name=shared-network x"},
      {"if shared-network x", "shared-network | name=shared-network x"},
      {"shared-network @header1", "shared-network | name=@header1"},
      {"host @header1", "subnet | name=@subnet @name1"},
      {"if @header1", "subnet | name=@subnet @name1"},
      {"if host x", "host | name=host x"},
      {"host if x", "host | name=if x"},
  };
  for (const auto& row : cases) EXPECT_EQ(this->Read(row.header), this->Text(row.record));
}

TYPED_TEST(Reading, RootGivesTheGlobalStatements) {
  EXPECT_EQ(this->Read("TREE_ROOT_SECTION",
                       {"ddns-update-style none;", "default-lease-time 600;", "authoritative;"}),
            "global | name=TREE_ROOT_SECTION | default=600 | authoritative=exist");
}

// ---- One parameter for each type ----

TYPED_TEST(Reading, ParametersFollowTheLines) {
  EXPECT_EQ(this->Read("host pc-17", {"hardware ethernet 00:11:22:33:44:55;", "@fixed @ip1;"}),
            this->Text("host | name=pc-17 | hardware=00:11:22:33:44:55 | fixed=@ip1"));
  EXPECT_EQ(this->Read("host pc-17", {"@fixed @ip1;", "hardware ethernet 00:11:22:33:44:55;"}),
            this->Text("host | name=pc-17 | fixed=@ip1 | hardware=00:11:22:33:44:55"));
}

TYPED_TEST(Reading, UnknownLinesAreLeftOut) {
  EXPECT_EQ(this->Read("host pc", {"ddns-updates on;", "#just a remark", "max-lease-time 60;", "",
                                   "vendor \"x\";"}),
            "host | name=pc | max=60");
}

TYPED_TEST(Reading, LaterStatementReplacesTheValueAndKeepsThePlace) {
  EXPECT_EQ(
      this->Read("host pc", {"max-lease-time 1;", "default-lease-time 2;", "max-lease-time 3;"}),
      "host | name=pc | max=3 | default=2");
}

TYPED_TEST(Reading, LastStatementOfATypeDecidesTheMark) {
  EXPECT_EQ(this->Read("host pc", {"#max-lease-time 1;"}), "host | name=pc | #max=1");
  EXPECT_EQ(this->Read("host pc", {"max-lease-time 1;", "#max-lease-time 2;"}),
            "host | name=pc | #max=2");
  EXPECT_EQ(this->Read("host pc", {"#max-lease-time 1;", "max-lease-time 2;"}),
            "host | name=pc | max=2");
}

TYPED_TEST(Reading, RemarkThatHoldsAKeywordIsACommentedStatement) {
  EXPECT_EQ(this->Read("TREE_ROOT_SECTION", {"# not authoritative here"}),
            "global | name=TREE_ROOT_SECTION | #authoritative=exist");
  EXPECT_EQ(this->Read("TREE_ROOT_SECTION", {"authoritative;", "#see authoritative"}),
            "global | name=TREE_ROOT_SECTION | #authoritative=exist");
}

TYPED_TEST(Reading, BothWordsOfAWholeLineAreOneType) {
  EXPECT_EQ(this->Read("host pc", {"IPLine 1;", "authoritative;", "Special 2;"}),
            "host | name=pc | ip-line=Special 2 | authoritative=exist");
}

// ---- A line without a value takes over the text before it ----

TYPED_TEST(Reading, LineWithoutValueTakesTheValueBeforeIt) {
  const struct {
    std::initializer_list<std::string_view> lines;
    const char* params;
  } cases[] = {
      {{"default-lease-time 600;", "max-lease-time;"}, " | default=600 | max=600"},
      {{"authoritative;", "max-lease-time;"}, " | authoritative=exist | max=exist"},
      {{"@range;", "max-lease-time;"}, " | range=wrong value | max=wrong value"},
      {{"@range @ip1 @ip2;", "max-lease-time;"}, " | range=@ip1 @ip2 | max=@ip1 @ip2"},
      {{"IPLine x;", "max-lease-time;"}, " | ip-line=IPLine x | max=IPLine x"},
      {{"filename \"boot.0\";", "max-lease-time;"}, " | filename=boot.0 | max=boot.0"},
      {{"default-lease-time 600 ;", "max-lease-time;"}, " | default= | max="},
      // of a commented-out line as well
      {{"#default-lease-time 600;", "max-lease-time;"}, " | #default=600 | max=600"},
      // past lines of no type
      {{"default-lease-time 600;", "ddns-updates on;", "", "max-lease-time;"},
       " | default=600 | max=600"},
      // again and again
      {{"default-lease-time 600;", "max-lease-time;", "@fixed;"},
       " | default=600 | max=600 | fixed=600"},
      // over a value of its own
      {{"max-lease-time 7200;", "default-lease-time 600;", "max-lease-time;"},
       " | max=600 | default=600"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(this->Read("host pc", row.lines),
              this->Text(std::string("host | name=pc") + row.params));
  }
}

TYPED_TEST(Reading, FirstLineWithoutValueTakesTheName) {
  const struct {
    const char* header;
    const char* record;
  } cases[] = {
      {"host pc-17", "host | name=pc-17 | max=pc-17"},
      {"@header1", "subnet | name=@name1 | max=@name1"},
      {"if known = 1", "if | name=known = 1 | max=known = 1"},
      {"TREE_ROOT_SECTION", "global | name=TREE_ROOT_SECTION | max=TREE_ROOT_SECTION"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(this->Read(row.header, {"max-lease-time;"}), this->Text(row.record));
  }
}

TYPED_TEST(Reading, LineWithoutBlankOrSemicolonHasNoValue) {
  for (const std::string_view line :
       {"max-lease-time;", "max-lease-time 7200", "max-lease-time\t7200;", "max-lease-time"}) {
    EXPECT_EQ(this->Read("host pc", {line}), "host | name=pc | max=pc") << line;
  }
}

TYPED_TEST(Reading, ValueTakenOverByAQuotedStatementLosesItsEnds) {
  EXPECT_EQ(this->Read("host pc-17", {"filename;"}), "host | name=pc-17 | filename=c-1");
  EXPECT_EQ(this->Read("host pc-17", {"authoritative;", "filename;"}),
            "host | name=pc-17 | authoritative=exist | filename=xis");
  EXPECT_EQ(this->Read("host pc-17", {"@range;", "server-name;"}),
            "host | name=pc-17 | range=wrong value | server-name=rong valu");
  // once more for each one, down to nothing
  EXPECT_EQ(this->Read("host pc-17", {"filename;", "server-name;", "filename;", "max-lease-time;"}),
            "host | name=pc-17 | filename= | server-name=- | max=");
}

TYPED_TEST(Reading, KeywordOfTwoWordsWithoutArgumentGivesItsSecondWord) {
  EXPECT_EQ(this->Read("host pc", {"hardware ethernet;"}), "host | name=pc | hardware=ethernet");
}

TYPED_TEST(Reading, NothingIsTakenOverFromAnotherBlock) {
  this->Read("host one", {"max-lease-time 7200;"});
  EXPECT_EQ(this->Read("host two", {"max-lease-time;"}), "host | name=two | max=two");
}

// ---- Odd values ----

TYPED_TEST(Reading, QuotedValueLosesItsFirstAndLastCharacter) {
  const struct {
    const char* line;
    const char* value;
  } cases[] = {
      {"filename \"pxelinux.0\";", "pxelinux.0"},
      {"filename \"x\";", "x"},
      {"filename \"\";", ""},
      // one character or none
      {"filename \";", ""},
      {"filename x;", ""},
      {"filename ;", ""},
      // no quotes: any characters
      {"filename xy;", ""},
      {"filename pxelinux.0;", "xelinux."},
      // blanks inside: the last word only
      {"filename \"boot image.0\";", "mage.0"},
      {"filename \"a b\";", ""},
      // a semicolon inside ends the value
      {"filename \"abc;def\";", "ab"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(this->Read("host pc", {row.line}),
              std::string("host | name=pc | filename=") + row.value)
        << row.line;
  }
}

TYPED_TEST(Reading, OneLineBlockIsAStatementWithWhatFollowsItsLastBlank) {
  const struct {
    const char* line;
    const char* param;
  } cases[] = {
      {"host a { @fixed @ip1; }", " | fixed=}"},
      {"host a { hardware ethernet 0:1:2:3:4:5; @fixed @ip1; }", " | hardware=}"},
      {"host a { filename \"x\"; }", " | filename="},
      {"host a {max-lease-time 7200;}", " | max=7200"},
      {"host a { authoritative; }", " | authoritative=exist"},
      {"host a { IPLine; }", " | ip-line=host a { IPLine; "},
      {"host a { allow booting; }", ""},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(this->Read("group", {row.line}), std::string("global | name=group") + row.param)
        << row.line;
  }
}

// ---- Raw reading ----

TYPED_TEST(Reading, RawKeepsEveryLineAsItIs) {
  EXPECT_EQ(this->Read("host pc-17", {"hardware ethernet 00:11:22:33:44:55;", "@fixed @ip1;"},
                       Lines::kRaw),
            this->Text("host | name=pc-17 | raw=hardware ethernet 00:11:22:33:44:55; | "
                       "raw=@fixed @ip1;"));
  EXPECT_EQ(this->Read("@header1",
                       {"max-lease-time 2;", "#a remark", "max-lease-time 1;", "#max-lease-time 2;",
                        "max-lease-time 2;", "max-lease-time;", "ddns-updates on;", ""},
                       Lines::kRaw),
            this->Text("subnet | name=@name1 | raw=max-lease-time 2; | #raw=a remark | "
                       "raw=max-lease-time 1; | #raw=max-lease-time 2; | raw=max-lease-time 2; | "
                       "raw=max-lease-time; | raw=ddns-updates on; | raw="));
}

TYPED_TEST(Reading, RawBlockWithoutLinesHasItsName) {
  EXPECT_EQ(this->Read("shared-network office", {}, Lines::kRaw), "shared-network | name=office");
}

// ---- The record that is filled ----

TYPED_TEST(Reading, RecordUsedBeforeHoldsOnlyTheNewBlock) {
  this->Read("shared-network office", {"#max-lease-time 7200;", "authoritative;"});
  EXPECT_EQ(this->Read("host pc", {"default-lease-time 600;"}), "host | name=pc | default=600");
  EXPECT_EQ(this->Read("group", {"max-lease-time 60;"}, Lines::kRaw),
            "global | name=group | raw=max-lease-time 60;");
  EXPECT_EQ(this->Read("@header1"), this->Text("subnet | name=@name1"));
}

TYPED_TEST(Reading, NameTakesTheFirstPlaceOfARecordThatHadOne) {
  typename TypeParam::Section record;
  record.params = {{true, TypeParam::kRange, "old"}, {true, TypeParam::kName, "old"}};
  this->ReadInto(record, "host pc", {"max-lease-time 60;"});
  EXPECT_EQ(RecordWords<TypeParam>(record), "host | name=pc | max=60");
}

TYPED_TEST(Reading, ReadingLeavesTheBlockAsItIs) {
  const CfSection block = Block("host pc", {"max-lease-time 60;", "#filename;"});
  typename TypeParam::File conf;
  EXPECT_TRUE(conf.TreeToDhcp(block, this->record_, false));
  EXPECT_TRUE(conf.TreeToDhcp(block, this->record_, true));
  EXPECT_STREQ(block.GetName(), "host pc");
  ASSERT_EQ(block.entryList.size(), 2U);
  EXPECT_STREQ(block.entryList[0]->GetKeyName(), "max-lease-time 60;");
  EXPECT_STREQ(block.entryList[1]->GetKeyName(), "filename;");
  EXPECT_STREQ(block.entryList[1]->GetComment(), "#");
}

// ---- From a file ----

constexpr std::string_view kFile = R"(# the office
default-lease-time 600;
ddns-update-style none;

@header1 {
	@range @ip1
		@ip2;
	#max-lease-time 7200;
	# authoritative for
	# this office
	host a { @fixed @ip3; }
	host pc-17 {
		hardware ethernet 00:11:22:33:44:55;
		filename "pxelinux.0"; # from the server
		server-name;
	}
}
)";

TYPED_TEST(Reading, NullAmongTheLinesIsPassedOver) {
  CfSection block = Block("host a", {"max-lease-time 60;"});
  block.entryList.insert(block.entryList.begin(), nullptr);
  for (const bool rawEntries : {false, true}) {
    EXPECT_TRUE(this->conf_.TreeToDhcp(block, this->record_, rawEntries));
    EXPECT_EQ(this->record_.params.size(), 2U);
  }
  EXPECT_NE(this->conf_.GetEntryFromList(&block.entryList, "max"), nullptr);
}

TYPED_TEST(Reading, FileReadsAlikeWithEitherLineEnd) {
  for (const std::string& text : {std::string(kFile), WithCarriageReturns(kFile)}) {
    this->Given(text);
    const auto Read = [&](const char* header, bool rawEntries) {
      EXPECT_TRUE(this->Conf().TreeToDhcp(this->Node(header)->section, this->record_, rawEntries));
      return RecordWords<TypeParam>(this->record_);
    };
    EXPECT_EQ(Read("TREE_ROOT_SECTION", false), "global | name=TREE_ROOT_SECTION | default=600");
    EXPECT_EQ(Read("TREE_ROOT_SECTION", true),
              "global | name=TREE_ROOT_SECTION | #raw=the office | raw=default-lease-time 600; | "
              "raw=ddns-update-style none;");
    EXPECT_EQ(Read("@header1", false),
              this->Text("subnet | name=@name1 | range=@ip1\t\t@ip2 | #max=7200 | "
                         "#authoritative=exist | fixed=}"));
    EXPECT_EQ(Read("@header1", true),
              this->Text("subnet | name=@name1 | raw=@range @ip1\t\t@ip2; | "
                         "#raw=max-lease-time 7200; | #raw=authoritative for | #raw=this office | "
                         "raw=host a { @fixed @ip3; }"));
    EXPECT_EQ(Read("host pc-17", false),
              "host | name=pc-17 | hardware=00:11:22:33:44:55 | filename=pxelinux.0 | "
              "server-name=xelinux.");
  }
}

}  // namespace
}  // namespace klepur::test
