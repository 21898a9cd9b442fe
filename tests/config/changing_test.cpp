#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

constexpr EitherKind kEveryKind[] = {SECTION_GLOBAL, SECTION_SHARED_NETWORK, SECTION_SUBNET,
                                     SECTION_HOST, SECTION_IF};

constexpr std::string_view kBlocks = R"(default-lease-time 1;
shared-network n {
  default-lease-time 2;
  @header1 {
    default-lease-time 3;
    host a {
      default-lease-time 4;
    }
    if x {
      default-lease-time 5;
    }
    group g {
      host deep {
        default-lease-time 6;
      }
    }
  }
}
@header2 {
  default-lease-time 7;
  host other {
    default-lease-time 8;
  }
}
)";

// ---- Which block is changed

template <class Family>
class Choosing : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Type;

  /// Both ways to give the block of this kind and name the line "max-lease-time 1;" in place of
  /// "default-lease-time ...": by merging and by setting.
  std::vector<std::pair<int, std::string>> Outcomes(std::string_view file, const char* network,
                                                    const char* subnet, Type type,
                                                    std::string_view name) {
    std::vector<std::pair<int, std::string>> outcomes;
    for (const bool merge : {true, false}) {
      this->Given(file);
      this->Place(network, subnet);
      const int result = merge ? Merge(type, name) : Set(type, name);
      outcomes.emplace_back(result, this->State());
    }
    return outcomes;
  }

  int Merge(Type type, std::string_view name) {
    return this->Conf().ChangeSection(this->Record(type, {{Family::kName, name},
                                                          {Family::kDefaultLeaseTime, ""},
                                                          {Family::kMaxLeaseTime, "1"}}),
                                      nullptr);
  }

  int Set(Type type, std::string_view name) {
    return this->Conf().SetSectionParams(
        this->Record(type, {{Family::kName, name}, {-1, "max-lease-time 1;"}}));
  }
};
TYPED_TEST_SUITE(Choosing, Families, FamilyNames);

struct ChoiceCase {
  const char* what;
  EitherKind type;
  const char* name;
  const char* network;  // the cursors; null for none
  const char* subnet;
  const char* changed;  // the line that is replaced; null when the operation fails
};

constexpr ChoiceCase kChoices[] = {
    // the root section, wherever the cursors are
    {"global", SECTION_GLOBAL, "TREE_ROOT_SECTION", "shared-network n", "@header1",
     "default-lease-time 1;"},
    {"global without cursors and by another name", SECTION_GLOBAL, "x", nullptr, nullptr,
     "default-lease-time 1;"},

    // the network on the cursor, whatever the name
    {"current network", SECTION_SHARED_NETWORK, "n", "shared-network n", "@header1",
     "default-lease-time 2;"},
    {"network by another name", SECTION_SHARED_NETWORK, "other", "shared-network n", nullptr,
     "default-lease-time 2;"},
    {"network cursor on a subnet", SECTION_SHARED_NETWORK, "n", "@header2", nullptr,
     "default-lease-time 7;"},
    {"no current network", SECTION_SHARED_NETWORK, "n", nullptr, "@header1", nullptr},

    // the block on the subnet cursor, whatever the name
    {"current subnet", SECTION_SUBNET, "@name1", "shared-network n", "@header1",
     "default-lease-time 3;"},
    {"subnet named after another", SECTION_SUBNET, "@name2", "shared-network n", "@header1",
     "default-lease-time 3;"},
    {"subnet cursor on a host", SECTION_SUBNET, "@name1", nullptr, "host a",
     "default-lease-time 4;"},
    {"no current subnet", SECTION_SUBNET, "@name1", "shared-network n", nullptr, nullptr},

    // the host or if block of the name from the subnet cursor on, however deep
    {"host", SECTION_HOST, "a", nullptr, "@header1", "default-lease-time 4;"},
    {"if block", SECTION_IF, "x", nullptr, "@header1", "default-lease-time 5;"},
    {"deep host", SECTION_HOST, "deep", nullptr, "@header1", "default-lease-time 6;"},
    {"host on the cursor itself", SECTION_HOST, "a", nullptr, "host a", "default-lease-time 4;"},
    {"host in another subnet", SECTION_HOST, "other", nullptr, "@header1", nullptr},
    {"host without a current subnet", SECTION_HOST, "a", "shared-network n", nullptr, nullptr},
    {"if block without a current subnet", SECTION_IF, "x", "shared-network n", nullptr, nullptr},
    {"host by an if block's name", SECTION_HOST, "x", nullptr, "@header1", nullptr},
    {"if block by a host's name", SECTION_IF, "a", nullptr, "@header1", nullptr},
    {"host in another letter case", SECTION_HOST, "A", nullptr, "@header1", nullptr},
    {"host without a name", SECTION_HOST, "", nullptr, "@header1", nullptr},
};

TYPED_TEST(Choosing, TypeAndCursorsDecide) {
  for (const ChoiceCase& test : kChoices) {
    const std::string cursors = std::string(test.network == nullptr ? "null" : test.network) +
                                " / " + (test.subnet == nullptr ? "null" : test.subnet);
    std::string tree = this->Text(cursors + R"(
[TREE_ROOT_SECTION]
  default-lease-time 1;
  [shared-network n]
    default-lease-time 2;
    [@header1]
      default-lease-time 3;
      [host a]
        default-lease-time 4;
      [if x]
        default-lease-time 5;
      [group g]
        [host deep]
          default-lease-time 6;
  [@header2]
    default-lease-time 7;
    [host other]
      default-lease-time 8;
)");
    if (test.changed != nullptr) tree = Replace(tree, {{test.changed, "max-lease-time 1;"}});
    const int expected = test.changed == nullptr ? 0 : 1;
    for (const auto& [result, state] :
         this->Outcomes(kBlocks, test.network, test.subnet, test.type, test.name)) {
      EXPECT_EQ(result, expected) << test.what;
      EXPECT_EQ(state, tree) << test.what;
    }
  }
}

TYPED_TEST(Choosing, SubnetRecordWithoutACurrentSubnetFails) {
  this->Given(kBlocks);
  this->Place("shared-network n", nullptr);
  const std::string before = this->State();
  EXPECT_EQ(this->Merge(SECTION_SUBNET, "@name1"), 0);
  EXPECT_EQ(this->Set(SECTION_SUBNET, "@name1"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Choosing, HostThatIsNotBelowTheCurrentSubnetFails) {
  this->Given(kBlocks);
  const std::string before = this->State();
  EXPECT_EQ(this->Merge(SECTION_HOST, "other"), 0);
  EXPECT_EQ(this->Merge(SECTION_HOST, "missing"), 0);
  EXPECT_EQ(this->Set(SECTION_HOST, "other"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Choosing, RecordOfNoKindFails) {
  this->Given(kBlocks);
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Merge(type, "a"), 0) << type;
    EXPECT_EQ(this->Set(type, "a"), 0) << type;
    EXPECT_EQ(this->Conf().ChangeSection(this->Timed(type, "a"), "new"), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Choosing, FirstHostOfTheNameIsChanged) {
  this->Given("@header1 {\ngroup g {\nhost a {\n}\n}\nhost a {\n}\n}\n");
  EXPECT_EQ(this->Merge(SECTION_HOST, "a"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [group g]
      [host a]
        max-lease-time 1;
    [host a]
)"));
}

TYPED_TEST(Choosing, FirstNameOfARecordCounts) {
  this->Given("@header1 {\nhost a {\n}\nhost b {\n}\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Record(SECTION_HOST, {{TypeParam::kMaxLeaseTime, "1"},
                                                                   {TypeParam::kName, "b"},
                                                                   {TypeParam::kName, "a"}}),
                                       nullptr),
            1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host a]
    [host b]
      max-lease-time 1;
)"));
}

TYPED_TEST(Choosing, HostWithoutANameIsTheOneWithAnEmptyName) {
  this->Given("@header1 {\nhost a {\n}\n}\n");
  this->Node("host a")->section.SetName("host ");
  EXPECT_EQ(this->Conf().ChangeSection(
                this->Record(SECTION_HOST, {{TypeParam::kMaxLeaseTime, "1"}}), nullptr),
            1);
  EXPECT_EQ(this->Conf().SetSectionParams(this->Record(SECTION_HOST, {{-1, "log x;"}})), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"
                                      "    [host ]\n      log x;\n"));
}

TYPED_TEST(Choosing, NothingIsChangedInAFileThatWasNeverOpened) {
  this->Unopened(kBlocks);
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Merge(type, "@name1"), 0) << type;
    EXPECT_EQ(this->Set(type, "@name1"), 0) << type;
  }
  EXPECT_EQ(this->State(), "null / null\n");
}

TYPED_TEST(Choosing, AParserIsWanted) {
  this->Given(kBlocks);
  const std::string before = this->State();
  this->WithoutParser();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Merge(type, "a"), 0) << type;
    EXPECT_EQ(this->Set(type, "a"), 0) << type;
  }
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Choosing, AHolderIsWanted) {
  this->Given(kBlocks);
  this->WithoutHolder();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Merge(type, "a"), 0) << type;
    EXPECT_EQ(this->Set(type, "a"), 0) << type;
  }
}

// ---- ChangeSection: the name

template <class Family>
class Renaming : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Type;

  int Rename(Type type, std::string_view name, std::string_view newName) {
    return this->Conf().ChangeSection(this->Timed(type, name), this->Text(newName).c_str());
  }
};
TYPED_TEST_SUITE(Renaming, Families, FamilyNames);

TYPED_TEST(Renaming, BlockGetsTheHeaderOfItsKindAndTheNewName) {
  this->Given("shared-network n {\n@header1 {\nhost a {\n}\nif x {\n}\n}\n}\n");
  EXPECT_EQ(this->Rename(SECTION_HOST, "a", "h2"), 1);
  EXPECT_EQ(this->Rename(SECTION_IF, "x", "y = z"), 1);
  EXPECT_EQ(this->Rename(SECTION_SUBNET, "@name1", "@name2"), 1);
  EXPECT_EQ(this->Rename(SECTION_SHARED_NETWORK, "n", "o"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network o / @header2
[TREE_ROOT_SECTION]
  [shared-network o]
    max-lease-time 1;
    [@header2]
      max-lease-time 1;
      [host h2]
        max-lease-time 1;
      [if y = z]
        max-lease-time 1;
)"));
}

TYPED_TEST(Renaming, NullKeepsTheName) {
  this->Given("@header1 {\nhost a {\n}\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_HOST, "a"), nullptr), 1);
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_SUBNET, "@name3"), nullptr), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    max-lease-time 1;
    [host a]
      max-lease-time 1;
)"));
}

TYPED_TEST(Renaming, NewNameOfAGlobalRecordIsIgnored) {
  this->Given("host a {\n}\n");
  EXPECT_EQ(this->Rename(SECTION_GLOBAL, "TREE_ROOT_SECTION", "new"), 1);
  EXPECT_EQ(this->State(), R"(null / host a
[TREE_ROOT_SECTION]
  max-lease-time 1;
  [host a]
)");
}

TYPED_TEST(Renaming, EmptyNewNameLeavesNoHeader) {
  this->Given("@header1 {\nhost a {\n}\n}\n");
  EXPECT_EQ(this->Rename(SECTION_HOST, "a", ""), 1);
  EXPECT_EQ(this->Rename(SECTION_SUBNET, "@name1", ""), 1);
  EXPECT_EQ(this->State(), R"(null / 
[TREE_ROOT_SECTION]
  []
    max-lease-time 1;
    []
      max-lease-time 1;
)");
}

TYPED_TEST(Renaming, RecordsKindMakesTheHeaderWhateverTheBlockIs) {
  this->Given("host a {\n}\n");
  EXPECT_EQ(this->Rename(SECTION_SUBNET, "@name1", "@name2"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header2
[TREE_ROOT_SECTION]
  [@header2]
    max-lease-time 1;
)"));
}

TYPED_TEST(Renaming, NameThatIsTakenIsNotRefused) {
  this->Given("@header1 {\nhost a {\n}\nhost b {\n}\n}\n");
  EXPECT_EQ(this->Rename(SECTION_HOST, "b", "a"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host a]
    [host a]
      max-lease-time 1;
)"));
}

TYPED_TEST(Renaming, RecordOfOnlyANameJustRenames) {
  this->Given("@header1 {\nhost a {\nlog a;\n}\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Bare(SECTION_HOST, "a"), "b"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host b]
      log a;
)"));
}

TYPED_TEST(Renaming, NewNameStaysWhenTheRecordHasNoParameters) {
  this->Given("shared-network n {\n@header1 {\n}\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Record(SECTION_SHARED_NETWORK, {}), "o"), 0);
  EXPECT_EQ(
      this->Conf().ChangeSection(this->Record(SECTION_SUBNET, {}), this->Text("@name2").c_str()),
      0);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network o / @header2
[TREE_ROOT_SECTION]
  [shared-network o]
    [@header2]
)"));
}

TYPED_TEST(Renaming, NewNameStaysWhenALineIsNotFound) {
  this->Given("@header1 {\nhost a {\nmax-lease-time  9;\nlog a;\n}\n}\n");
  EXPECT_EQ(this->Rename(SECTION_HOST, "a", "b"), 0);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host b]
      max-lease-time  9;
      log a;
)"));
}

TYPED_TEST(Renaming, BlockThatIsNotFoundIsNotRenamed) {
  this->Given("@header1 {\nhost a {\n}\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Rename(SECTION_HOST, "b", "c"), 0);
  EXPECT_EQ(this->Rename(SECTION_SHARED_NETWORK, "n", "c"), 0);
  EXPECT_EQ(this->State(), before);
}

// ---- ChangeSection: the lines

template <class Family>
class Changing : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Params;
  using typename EditFixture<Family>::Section;

  /// A host of these lines in a subnet, "#" before those that are commented out. They are put into
  /// the tree as they stand.
  void GivenHost(std::initializer_list<std::string_view> lines) {
    this->Given("@header1 {\nhost a {\n}\n}\n");
    CfSection& host = this->Node("host a")->section;
    for (const std::string_view line : lines) {
      const std::string text = this->Text(line);
      const bool commented = text.starts_with('#');
      host.AddEntry(text.c_str() + (commented ? 1 : 0), nullptr, commented ? "#" : nullptr);
    }
  }

  /// Merges these parameters, "#" before the values of those that are marked, into the host.
  int Change(Params params) {
    Section record = this->Marked(SECTION_HOST, params);
    record.params.push_front({false, Family::kName, "a"});
    return this->Conf().ChangeSection(record, nullptr);
  }

  /// The expected state with these lines in the host.
  std::string Host(std::initializer_list<std::string_view> lines) {
    std::string text = "null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n    [host a]\n";
    for (const std::string_view line : lines) text += "      " + std::string(line) + "\n";
    return this->Text(text);
  }
};
TYPED_TEST_SUITE(Changing, Families, FamilyNames);

TYPED_TEST(Changing, OnlyTheLineOfTheTypeIsRewritten) {
  this->GivenHost({"log before;", "#a comment", "max-lease-time 9;", "#another one", "log behind;",
                   "default-lease-time 8;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log before;", "#a comment", "max-lease-time 1;",
                                       "#another one", "log behind;", "default-lease-time 8;"}));
}

TYPED_TEST(Changing, EachFormOfStatementIsRewrittenInPlace) {
  this->GivenHost({"@fixed @ip1;", "filename \"old\";", "@range @ip1 @ip2;",
                   "deny unknown-clients;", "IPLine old;", "max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"},
                          {TypeParam::kIpLine, "Special new"},
                          {TypeParam::kDenyUnknownClients, "yes"},
                          {TypeParam::kRange, "@ip2 @ip3"},
                          {TypeParam::kFilename, "new one"},
                          {TypeParam::kFixedAddress, "@ip3"}}),
            1);
  EXPECT_EQ(this->State(),
            this->Host({"@fixed @ip3;", "filename \"new one\";", "@range @ip2 @ip3;",
                        "deny unknown-clients;", "Special new;", "max-lease-time 1;"}));
}

TYPED_TEST(Changing, ChangeThatChangesNothingSucceeds) {
  this->GivenHost({"log x;", "max-lease-time 9;", "#@fixed @ip1;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "9"}, {TypeParam::kFixedAddress, "#@ip1"}}),
            1);
  EXPECT_EQ(this->Change({}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "max-lease-time 9;", "#@fixed @ip1;"}));
}

TYPED_TEST(Changing, TypeThatTheBlockLacksIsAppended) {
  this->GivenHost({"log x;", "#a comment"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}, {TypeParam::kHostName, "#a"}}), 1);
  EXPECT_EQ(this->State(),
            this->Host({"log x;", "#a comment", "max-lease-time 1;", "#@fqdn \"a\";"}));
  EXPECT_EQ(this->Entry("host a", 2).GetComment(), nullptr);
  EXPECT_STREQ(this->Entry("host a", 3).GetComment(), "#");
}

TYPED_TEST(Changing, EmptyValueRemovesTheLine) {
  this->GivenHost({"log x;", "max-lease-time 9;", "#@fixed @ip1;", "#a comment"});
  EXPECT_EQ(this->Change({{TypeParam::kFixedAddress, ""}, {TypeParam::kMaxLeaseTime, "#"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "#a comment"}));
}

TYPED_TEST(Changing, EmptyValueOfATypeThatTheBlockLacksAddsNothing) {
  this->GivenHost({"log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}, {TypeParam::kAuthoritative, ""}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;"}));
}

TYPED_TEST(Changing, TypesThatNoStatementHasAddNothing) {
  this->GivenHost({"log x;", "max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kReserved, "1"},
                          {TypeParam::kLast + 1, "1"},
                          {-1, "log x;"},
                          {-2, "1"},
                          {INT_MAX, "1"},
                          {TypeParam::kName, "b"}}),
            1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "max-lease-time 9;"}));
}

TYPED_TEST(Changing, LineWithoutAValueCountsAsLacking) {
  this->GivenHost({"max-lease-time ;", "log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time ;", "log x;", "max-lease-time 1;"}));
}

TYPED_TEST(Changing, EmptyValueDoesNotRemoveALineWithoutOne) {
  this->GivenHost({"max-lease-time ;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time ;"}));
}

// ---- comment marks

TYPED_TEST(Changing, CommentedOutLineBecomesLive) {
  this->GivenHost({"#max-lease-time 9;", "#@fixed @ip1;", "#a comment"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}, {TypeParam::kFixedAddress, "@ip1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 1;", "@fixed @ip1;", "#a comment"}));
}

TYPED_TEST(Changing, LiveLineIsCommentedOut) {
  this->GivenHost({"max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "#1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"#max-lease-time 1;"}));
  EXPECT_STREQ(this->Entry("host a", 0).GetComment(), "#");
}

TYPED_TEST(Changing, CommentThatIsThereIsKept) {
  this->GivenHost({"#max-lease-time 9;"});
  this->Entry("host a", 0).SetComment("## mine");
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "#1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"#max-lease-time 1;"}));
  EXPECT_STREQ(this->Entry("host a", 0).GetComment(), "## mine");
}

TYPED_TEST(Changing, AnyCommentIsUndone) {
  this->GivenHost({"#max-lease-time 9;"});
  this->Entry("host a", 0).SetComment("## mine");
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 1;"}));
  EXPECT_EQ(this->Entry("host a", 0).GetComment(), nullptr);
}

// ---- two parameters of one type in the record

TYPED_TEST(Changing, SecondParameterOfATypeNoLongerFindsTheLine) {
  this->GivenHost({"max-lease-time 9;", "log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"},
                          {TypeParam::kMaxLeaseTime, "2"},
                          {TypeParam::kDefaultLeaseTime, "3"}}),
            0);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 2;", "log x;"})) << "the last one's line";
}

TYPED_TEST(Changing, SecondParameterOfARemovedTypeNoLongerFindsTheLine) {
  this->GivenHost({"max-lease-time 9;", "log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}, {TypeParam::kMaxLeaseTime, "2"}}), 0);
  EXPECT_EQ(this->State(), this->Host({"log x;"}));
}

TYPED_TEST(Changing, SecondParameterFindsTheLineThatTheFirstLeftAsItWas) {
  this->GivenHost({"max-lease-time 9;", "log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}, {TypeParam::kMaxLeaseTime, "9"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 9;", "log x;"}));
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "9"}, {TypeParam::kMaxLeaseTime, ""}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;"}));
}

TYPED_TEST(Changing, SecondParameterFindsAnotherLineOfTheSameText) {
  this->GivenHost({"max-lease-time 9;", "log x;", "max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}, {TypeParam::kMaxLeaseTime, "2"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "max-lease-time 2;"}));
}

TYPED_TEST(Changing, MarkOfTheFirstParameterGoesWithTheValueOfTheLast) {
  this->GivenHost({"max-lease-time 9;", "@fixed @ip1;", "@fixed @ip1;"});
  EXPECT_EQ(this->Change({{TypeParam::kFixedAddress, "#@ip2"}, {TypeParam::kFixedAddress, "@ip3"}}),
            1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 9;", "#@fixed @ip3;", "#@fixed @ip3;"}));
}

TYPED_TEST(Changing, TypeThatTheBlockLacksIsAppendedForEachParameter) {
  this->GivenHost({"log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}, {TypeParam::kMaxLeaseTime, "2"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "max-lease-time 2;", "max-lease-time 2;"}));
}

TYPED_TEST(Changing, EmptyParameterAppendsTheLineOfTheOtherOne) {
  this->GivenHost({"log x;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}, {TypeParam::kMaxLeaseTime, "2"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"log x;", "max-lease-time 2;", "max-lease-time 2;"}));
}

// ---- two lines of one type in the block

TYPED_TEST(Changing, OfTwoLinesOfATypeTheLastIsRewritten) {
  this->GivenHost({"@range @ip1 @ip2;", "log x;", "@range @ip2 @ip3;"});
  EXPECT_EQ(this->Change({{TypeParam::kRange, "@ip1 @ip3"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"@range @ip1 @ip2;", "log x;", "@range @ip1 @ip3;"}));
}

TYPED_TEST(Changing, OfTwoLinesOfATypeTheLastIsRemoved) {
  this->GivenHost({"@range @ip1 @ip2;", "log x;", "@range @ip2 @ip3;"});
  EXPECT_EQ(this->Change({{TypeParam::kRange, ""}}), 1);
  EXPECT_EQ(this->State(), this->Host({"@range @ip1 @ip2;", "log x;"}));
}

TYPED_TEST(Changing, OfTwoEqualLinesTheFirstIsRewritten) {
  this->GivenHost({"#max-lease-time 9;", "log x;", "max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 1;", "log x;", "max-lease-time 9;"}));
}

TYPED_TEST(Changing, CommentedOutLineCountsLikeALiveOne) {
  this->GivenHost({"max-lease-time 8;", "#max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 8;", "max-lease-time 1;"}));
}

TYPED_TEST(Changing, LastLineWithoutAValueMakesTheTypeCountAsLacking) {
  this->GivenHost({"max-lease-time 8;", "max-lease-time ;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(),
            this->Host({"max-lease-time 8;", "max-lease-time ;", "max-lease-time 1;"}));
}

// ---- lines found by their text

TYPED_TEST(Changing, LineInAnotherSpacingIsNotFound) {
  const std::pair<const char*, int> kCases[] = {
      {"max-lease-time  9;", TypeParam::kMaxLeaseTime},
      {"max-lease-time\t 9;", TypeParam::kMaxLeaseTime},
      {"deny  unknown-clients; deny unknown-clients ;", TypeParam::kDenyUnknownClients},
      {"@range @ip1  @ip2;", TypeParam::kRange},
      {"@range @ip1 @ip2 ;", TypeParam::kRange},
      {"@range @ip1, @ip2;", TypeParam::kRange},
  };
  for (const auto& [line, type] : kCases) {
    for (const char* value : {"@ip3", ""}) {
      this->GivenHost({"default-lease-time 8;", line, "log x;"});
      EXPECT_EQ(this->Change({{TypeParam::kDefaultLeaseTime, "1"},
                              {type, value},
                              {TypeParam::kFilename, "not reached"}}),
                0)
          << line;
      EXPECT_EQ(this->State(), this->Host({"default-lease-time 1;", line, "log x;"}))
          << "what was done before stays";
    }
  }
}

TYPED_TEST(Changing, ValueThatIsReadOnlyInPartIsNotFound) {
  const std::pair<const char*, int> kCases[] = {
      {"@fixed @ip1, @ip2;", TypeParam::kFixedAddress},
      {"filename \"two words\";", TypeParam::kFilename},
      {"hardware ethernet 00:11:22:33:44:55; # mine", TypeParam::kHardwareEthernet},
      {"filename bare;", TypeParam::kFilename},
  };
  for (const auto& [line, type] : kCases) {
    this->GivenHost({line});
    EXPECT_EQ(this->Change({{type, "new"}}), 0) << line;
    EXPECT_EQ(this->State(), this->Host({line})) << line;
  }
}

TYPED_TEST(Changing, TwoWordsThatReadAsNothingCountAsLacking) {
  this->GivenHost({"filename \"a b\";"});
  EXPECT_EQ(this->Change({{TypeParam::kFilename, "new"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"filename \"a b\";", "filename \"new\";"}));
}

TYPED_TEST(Changing, FirstLineThatHoldsTheTextIsRewritten) {
  this->GivenHost(
      {"#old: default-lease-time 9;", "log x;", "max-lease-time 9;", "default-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kDefaultLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"default-lease-time 1;", "log x;", "max-lease-time 9;",
                                       "default-lease-time 9;"}));
}

TYPED_TEST(Changing, LineOfAnotherTypeThatHoldsTheTextIsRewritten) {
  this->GivenHost({"#hardware ethernet or max-lease-time 9;", "max-lease-time 9;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time 1;", "max-lease-time 9;"}));
}

TYPED_TEST(Changing, NegatedFlagIsRewrittenAsAPlainOne) {
  this->GivenHost({"not authoritative;"});
  EXPECT_EQ(this->Change({{TypeParam::kAuthoritative, "exist"}}), 1);
  EXPECT_EQ(this->State(), this->Host({"authoritative;"}));
}

TYPED_TEST(Changing, FlagWithoutASemicolonIsNotFound) {
  this->GivenHost({"#authoritative or not"});
  EXPECT_EQ(this->Change({{TypeParam::kAuthoritative, ""}}), 0);
  EXPECT_EQ(this->State(), this->Host({"#authoritative or not"}));
}

TYPED_TEST(Changing, ListWithoutAddressesIsNotFound) {
  this->GivenHost({"@range;"});
  EXPECT_EQ(this->Change({{TypeParam::kRange, "@ip1 @ip2"}}), 0);
  EXPECT_EQ(this->State(), this->Host({"@range;"}));
}

TYPED_TEST(Changing, ValueCarriedOverFromTheLineBeforeIsNotFound) {
  this->GivenHost({"default-lease-time 8;", "max-lease-time;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 0);
  EXPECT_EQ(this->State(), this->Host({"default-lease-time 8;", "max-lease-time;"}));
}

TYPED_TEST(Changing, ValueCarriedOverFromTheNameIsNotFound) {
  this->GivenHost({"max-lease-time;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, ""}}), 0);
  EXPECT_EQ(this->State(), this->Host({"max-lease-time;"}));
}

TYPED_TEST(Changing, ValueCarriedOverFindsAnotherLineThatHoldsIt) {
  this->GivenHost({"max-lease-time 8;", "default-lease-time 8;", "max-lease-time;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(),
            this->Host({"max-lease-time 1;", "default-lease-time 8;", "max-lease-time;"}));
}

TYPED_TEST(Changing, EmptyValueCarriedOverCountsAsLacking) {
  this->GivenHost({"default-lease-time ;", "max-lease-time;"});
  EXPECT_EQ(this->Change({{TypeParam::kMaxLeaseTime, "1"}}), 1);
  EXPECT_EQ(this->State(),
            this->Host({"default-lease-time ;", "max-lease-time;", "max-lease-time 1;"}));
}

TYPED_TEST(Changing, NestedBlocksAndOtherBlocksStay) {
  this->Given(
      "max-lease-time 9;\n@header1 {\nmax-lease-time 9;\nhost a {\nmax-lease-time 9;\n}\n}\n"
      "@header2 {\nmax-lease-time 9;\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_SUBNET, "@name2"), nullptr), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  max-lease-time 9;
  [@header1]
    max-lease-time 1;
    [host a]
      max-lease-time 9;
  [@header2]
    max-lease-time 9;
)"));
}

TYPED_TEST(Changing, RecordWithoutParametersFails) {
  this->Given("shared-network n {\n@header1 {\nlog x;\n}\n}\n");
  const std::string before = this->State();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().ChangeSection(this->Record(type, {}), nullptr), 0) << type;
  }
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Changing, BlockThatWasReadCanBeWrittenBack) {
  this->GivenHost({"log x;", "max-lease-time 9;", "#@fqdn \"a\";", "IPLine 1;"});
  typename TestFixture::Section record;
  record.type = SECTION_HOST;
  ASSERT_TRUE(this->Conf().GetFirstSection(record, false));
  EXPECT_EQ(this->Conf().ChangeSection(record, nullptr), 1);
  EXPECT_EQ(this->State(),
            this->Host({"log x;", "max-lease-time 9;", "#@fqdn \"a\";", "IPLine 1;"}));
}

TYPED_TEST(Changing, SavedFileHasTheChange) {
  this->Given("@header1 {\nlog x;\nmax-lease-time 9;\n#a comment\n}\n");
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_SUBNET, "@name1"), nullptr), 1);
  EXPECT_EQ(this->Saved(),
            this->Text("\n@header1\n{\n\tlog x;\n\tmax-lease-time 1;\n#\ta comment\n}\n"));
}

// ---- ChangeTreeSection

template <class Family>
class ChangingTreeSections : public EditFixture<Family> {};
TYPED_TEST_SUITE(ChangingTreeSections, Families, FamilyNames);

TYPED_TEST(ChangingTreeSections, NullSectionFails) {
  this->Given(kBlocks);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(SECTION_HOST, "a"), nullptr, nullptr), 0);
  EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(SECTION_HOST, "a"), nullptr, "b"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(ChangingTreeSections, AnySectionIsChangedWithoutAFile) {
  this->Unopened("");
  CfSection section;
  section.SetName("group g");
  section.AddEntry("max-lease-time 9;", nullptr, nullptr);
  EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(SECTION_HOST, "a"), &section, "b"), 1);
  EXPECT_STREQ(section.GetName(), "host b");
  ASSERT_EQ(section.entryList.size(), 1U);
  EXPECT_STREQ(section.entryList[0]->GetKeyName(), "max-lease-time 1;");
}

TYPED_TEST(ChangingTreeSections, NoHolderIsWanted) {
  this->Given(kBlocks);
  this->WithoutHolder();
  CfSection section;
  EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(SECTION_HOST, "a"), &section, "b"), 1);
  EXPECT_STREQ(section.GetName(), "host b");
  ASSERT_EQ(section.entryList.size(), 1U);
  EXPECT_STREQ(section.entryList[0]->GetKeyName(), "max-lease-time 1;");
}

TYPED_TEST(ChangingTreeSections, RecordOfNoKindGivesAnEmptyName) {
  for (const auto type : kNoKinds) {
    CfSection section;
    section.SetName("host a");
    this->Unopened("");
    EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(type, "a"), &section, "b"), 1) << type;
    EXPECT_STREQ(section.GetName(), "") << type;
    ASSERT_EQ(section.entryList.size(), 1U) << type;
    EXPECT_STREQ(section.entryList[0]->GetKeyName(), "max-lease-time 1;") << type;
  }
}

TYPED_TEST(ChangingTreeSections, GlobalRecordRenamesNoSection) {
  this->Unopened("");
  CfSection section;
  section.SetName("host a");
  EXPECT_EQ(this->Conf().ChangeTreeSection(this->Timed(SECTION_GLOBAL, "a"), &section, "b"), 1);
  EXPECT_STREQ(section.GetName(), "host a");
}

// ---- SetSectionParams

template <class Family>
class SettingParams : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Params;

  void GivenLines() {
    this->Given("@header1 {\nlog x;\n#a comment\nmax-lease-time 9;\nhost a {\nlog a;\n}\n}\n");
  }

  int Set(Params params) {
    return this->Conf().SetSectionParams(this->Marked(SECTION_SUBNET, params));
  }

  std::string Subnet(std::string_view lines) {
    return this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n" + std::string(lines) +
                      "    [host a]\n      log a;\n");
  }
};
TYPED_TEST_SUITE(SettingParams, Families, FamilyNames);

TYPED_TEST(SettingParams, LinesOfTheRecordReplaceAllEntries) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{TypeParam::kName, "@name2"},
                       {TypeParam::kMaxLeaseTime, "max-lease-time 1;"},
                       {TypeParam::kRange, "#@range @ip1 @ip2;"},
                       {-1, "log y;"}}),
            1);
  EXPECT_EQ(this->State(),
            this->Subnet("    max-lease-time 1;\n    #@range @ip1 @ip2;\n    log y;\n"));
  EXPECT_EQ(this->Entry("@header1", 0).GetComment(), nullptr);
  EXPECT_STREQ(this->Entry("@header1", 1).GetComment(), "#");
}

TYPED_TEST(SettingParams, ValuesAreStoredAsTheyStand) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{TypeParam::kMaxLeaseTime, "1"},
                       {TypeParam::kReserved, " no line "},
                       {TypeParam::kLast + 1, "{"},
                       {INT_MAX, "x"},
                       {-2, "y"}}),
            1);
  EXPECT_EQ(this->State(), this->Subnet("    1\n     no line \n    {\n    x\n    y\n"));
}

TYPED_TEST(SettingParams, EmptyValuesAreStoredToo) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{TypeParam::kMaxLeaseTime, ""}, {-1, "log y;"}, {-1, "#"}}), 1);
  EXPECT_EQ(this->State(), this->Subnet("    \n    log y;\n    #\n"));
  EXPECT_EQ(this->Node("@header1")->section.entryList.size(), 3U);
}

TYPED_TEST(SettingParams, EachParameterOfATypeHasItsOwnLineAndMark) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{7, "a;"}, {7, "#b;"}, {7, "c;"}}), 1);
  EXPECT_EQ(this->State(), this->Subnet("    a;\n    #b;\n    c;\n"));
}

TYPED_TEST(SettingParams, RecordOfOnlyANameEmptiesTheBlockAndReportsFailure) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{TypeParam::kName, "@name1"}}), 0);
  EXPECT_EQ(this->State(), this->Subnet(""));
}

TYPED_TEST(SettingParams, RecordWithoutParametersLeavesTheBlockAlone) {
  this->GivenLines();
  EXPECT_EQ(this->Set({}), 0);
  EXPECT_EQ(this->State(), this->Subnet("    log x;\n    #a comment\n    max-lease-time 9;\n"));
}

TYPED_TEST(SettingParams, NamesAreNoLinesWhereverTheyStand) {
  this->GivenLines();
  EXPECT_EQ(this->Set({{-1, "a;"}, {TypeParam::kName, "x"}, {-1, "b;"}, {TypeParam::kName, "y"}}),
            1);
  EXPECT_EQ(this->State(), this->Subnet("    a;\n    b;\n"));
}

TYPED_TEST(SettingParams, BlockThatWasReadRawCanBeWrittenBack) {
  this->GivenLines();
  typename TestFixture::Section record;
  record.type = SECTION_SUBNET;
  ASSERT_TRUE(this->Conf().GetFirstSection(record, true));
  EXPECT_EQ(this->Conf().SetSectionParams(record), 1);
  EXPECT_EQ(this->State(), this->Subnet("    log x;\n    #a comment\n    max-lease-time 9;\n"));
}

}  // namespace
}  // namespace klepur::test
