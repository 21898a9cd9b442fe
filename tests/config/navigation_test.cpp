#include <gmock/gmock.h>

#include <climits>
#include <cstdio>
#include <list>
#include <memory>
#include <string>
#include <utility>

#include "tests/support/navigation_fixture.h"

namespace klepur::test {
namespace {

using ::testing::Each;
using ::testing::Ne;

constexpr EitherKind kFive = {5};
constexpr EitherKind kMinusOne = {-1};
constexpr EitherKind kGreatest = {INT_MAX};
constexpr EitherKind kSmallest = {INT_MIN};

constexpr std::string_view kTwoSubnetsAndAHost = R"(@header1 {
  host a {
  }
}
host b {
}
@header2 {
}
)";

constexpr std::string_view kMixedChildren = R"(@header1 {
  group first {
    host deep {
    }
  }
  host a {
  }
  if x {
  }
  class "c" {
  }
  host b {
  }
  group last {
  }
  if y {
  }
  host c {
  }
}
)";

Tree<CfSection>::TreeNode& Append(Tree<CfSection>::TreeNode& parent, const char* header) {
  CfSection section;
  section.SetName(header);
  if (parent.children == nullptr) parent.children = new std::list<Tree<CfSection>::TreeNode*>;
  parent.children->push_back(new Tree<CfSection>::TreeNode(&parent, section));
  return *parent.children->back();
}

// ---- All operations

template <class Family>
class Navigation : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(Navigation, Families, FamilyNames);

TYPED_TEST(Navigation, EveryOperationHitsInAnOpenedFile) {
  this->Given(kOffice);
  EXPECT_THAT(this->Walks(), Each(Ne("miss")));
  this->Given(kOffice);
  EXPECT_THAT(this->Lookups(), Each(Ne("miss")));
}

TYPED_TEST(Navigation, EveryOperationMissesBeforeTheFileIsRead) {
  this->Unopened(kOffice);
  EXPECT_THAT(this->Walks(), Each("miss"));
  EXPECT_THAT(this->Lookups(), Each("miss"));
}

TYPED_TEST(Navigation, GlobalSectionIsNotThereBeforeTheFileIsRead) {
  this->Unopened(kOffice);
  EXPECT_EQ(this->First(SECTION_GLOBAL), "miss");
  EXPECT_EQ(this->Goto("x", SECTION_GLOBAL), "miss");
  EXPECT_EQ(this->ByName(SECTION_GLOBAL, "x"), "miss");
}

TYPED_TEST(Navigation, EveryOperationMissesAfterAFailedOpen) {
  this->Given(kOffice);
  std::remove(this->Conf().GetConfFileName().c_str());
  ASSERT_FALSE(this->Conf().Open());
  EXPECT_THAT(this->Walks(), Each("miss"));
  EXPECT_THAT(this->Lookups(), Each("miss"));
}

TYPED_TEST(Navigation, EveryOperationMissesWithoutAHolder) {
  this->Given(kOffice);
  const std::unique_ptr<CfSectionHolder> taken(std::exchange(this->Conf().holder, nullptr));
  EXPECT_THAT(this->Walks(), Each("miss"));
  EXPECT_THAT(this->Lookups(), Each("miss"));
}

TYPED_TEST(Navigation, EveryOperationMissesWithoutATopLevel) {
  this->Given(kOffice);
  auto& topNode = this->Conf().holder->topNode;
  const std::unique_ptr<std::list<Tree<CfSection>::TreeNode*>> taken(
      std::exchange(topNode.children, nullptr));
  EXPECT_THAT(this->Walks(), Each("miss"));
  EXPECT_THAT(this->Lookups(), Each("miss"));
  for (Tree<CfSection>::TreeNode* node : *taken) delete node;
}

TYPED_TEST(Navigation, WithoutAParserOnlyTheWalksWork) {
  this->Given(kOffice);
  const std::unique_ptr<DhcpParser> taken(std::exchange(this->Conf().parser, nullptr));
  EXPECT_THAT(this->Lookups(), Each("miss"));
  EXPECT_THAT(this->Walks(), Each(Ne("miss")));
}

TYPED_TEST(Navigation, OnlyTheGlobalSectionIsFoundInAFileWithoutBlocks) {
  this->Given("log root;\n");
  EXPECT_EQ(this->First(SECTION_GLOBAL), "0 | 0=TREE_ROOT_SECTION");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->First(SECTION_SUBNET), "miss");
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
  EXPECT_EQ(this->First(SECTION_IF), "miss");
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
  EXPECT_EQ(this->Goto("a", SECTION_HOST), "miss");
}

TYPED_TEST(Navigation, RawEntriesAreHandedThrough) {
  this->Given(kOffice);
  EXPECT_EQ(this->First(SECTION_GLOBAL, true),
            "0 | 0=TREE_ROOT_SECTION | -1=log root; | -1=max-lease-time 7200;");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK, true), "1 | 0=office | -1=log office;");
  EXPECT_EQ(this->First(SECTION_SUBNET, true), this->Text("2 | 0=@name1 | -1=log one;"));
  const std::string hostA = this->Text(
      "3 | 0=a | -1=hardware ethernet 00:00:00:00:00:0a; | -1=@fixed @ip1; | -1=@fqdn \"a\";");
  EXPECT_EQ(this->First(SECTION_HOST, true), hostA);
  EXPECT_EQ(this->First(SECTION_IF, true), "4 | 0=known | -1=log known;");
  EXPECT_EQ(this->ByLine("log b;", true), "3 | 0=b | -1=log b;");
  EXPECT_EQ(this->HostByName("a", true), hostA);
  EXPECT_EQ(this->HostByIp("@ip1", true), hostA);
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a", true), hostA);
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a", true), "3 | 0=b | -1=log b;");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "known", true), "4 | 0=unknown | -1=log unknown;");
  EXPECT_EQ(this->Next(SECTION_SUBNET, true), this->Text("2 | 0=@name2 | -1=log two;"));
  this->Place("@header3", "@header1");
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK, true), "1 | 0=empty");
}

TYPED_TEST(Navigation, WithoutRawEntriesLinesOfNoKnownTypeAreLeftOut) {
  this->Given(kOffice);
  EXPECT_EQ(this->First(SECTION_GLOBAL, false),
            "0 | 0=TREE_ROOT_SECTION | " + std::to_string(TypeParam::kMaxLeaseTime) + "=7200");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK, false), "1 | 0=office");
  EXPECT_EQ(this->First(SECTION_IF, false), "4 | 0=known");
  EXPECT_EQ(this->ByLine("log b;", false), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a", false), "3 | 0=b");
}

TYPED_TEST(Navigation, HostIsFetchedWithItsTypedParameters) {
  this->Given(kOffice);
  const std::string hostA =
      RecordText(this->Record(SECTION_HOST, {{TypeParam::kName, "a"},
                                             {TypeParam::kHardwareEthernet, "00:00:00:00:00:0a"},
                                             {TypeParam::kFixedAddress, "@ip1"},
                                             {TypeParam::kHostName, "a"}}));
  EXPECT_EQ(this->First(SECTION_HOST), hostA);
  EXPECT_EQ(this->ByName(SECTION_HOST, "a"), hostA);
  EXPECT_EQ(this->HostByName("a"), hostA);
  EXPECT_EQ(this->HostByIp("@ip1"), hostA);
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a"), hostA);
}

// ---- The cursor table

template <class Family>
class CursorMoves : public NavigationFixture<Family> {
 public:
  void ExpectCursors(std::string_view expected) {
    EXPECT_EQ(this->Cursors(), this->Text(expected));
    this->Place("shared-network empty", "@header2");
  }

 protected:
  void SetUp() override {
    this->Given(kOffice);
    this->Place("shared-network empty", "@header2");
  }
};
TYPED_TEST_SUITE(CursorMoves, Families, FamilyNames);

TYPED_TEST(CursorMoves, FirstSectionMovesTheCursorOfItsKind) {
  this->First(SECTION_GLOBAL);
  this->ExpectCursors("shared-network empty / @header2");
  this->First(SECTION_SHARED_NETWORK);
  this->ExpectCursors("shared-network office / @header2");
  this->First(SECTION_SUBNET);
  this->ExpectCursors("shared-network empty / @header1");
  this->First(SECTION_HOST);
  this->ExpectCursors("shared-network empty / @header2");
  this->Place("shared-network empty", "@header1");
  ASSERT_EQ(this->First(SECTION_IF), "4 | 0=known");
  this->ExpectCursors("shared-network empty / @header1");
}

TYPED_TEST(CursorMoves, NextSectionMovesTheCursorOfItsKind) {
  this->Next(SECTION_SHARED_NETWORK);
  this->ExpectCursors("host e / @header2");
  this->Place("shared-network office", "@header1");
  this->Next(SECTION_SUBNET);
  this->ExpectCursors("shared-network office / @header2");
  this->Place("shared-network office", "@header1");
  ASSERT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  this->ExpectCursors("shared-network office / @header1");
  this->Place("shared-network office", "@header1");
  ASSERT_EQ(this->NextAfter(SECTION_IF, "known"), "4 | 0=unknown");
  this->ExpectCursors("shared-network office / @header1");
}

TYPED_TEST(CursorMoves, GotoSectionMovesBothForANetworkAndForTheGlobalSection) {
  this->Goto(nullptr, SECTION_GLOBAL);
  this->ExpectCursors("null / null");
  this->Goto("office", SECTION_SHARED_NETWORK);
  this->ExpectCursors("shared-network office / @header1");
  this->Goto("empty", SECTION_SHARED_NETWORK);
  this->ExpectCursors("shared-network empty / null");
}

TYPED_TEST(CursorMoves, GotoSectionMovesOnlyTheSubnetCursorForASubnet) {
  this->Place("shared-network office", "@header2");
  ASSERT_EQ(this->Goto("@bare1", SECTION_SUBNET), "hit");
  this->ExpectCursors("shared-network office / @header1");
  this->Place(nullptr, "@header2");
  ASSERT_EQ(this->Goto("@bare3", SECTION_SUBNET), "hit");
  this->ExpectCursors("null / @header3");
}

TYPED_TEST(CursorMoves, GotoSectionMovesNothingForHostsAndIfBlocks) {
  ASSERT_EQ(this->Goto("c", SECTION_HOST), "hit");
  this->ExpectCursors("shared-network empty / @header2");
  this->Place("shared-network empty", "@header1");
  ASSERT_EQ(this->Goto("known", SECTION_IF), "hit");
  this->ExpectCursors("shared-network empty / @header1");
}

TYPED_TEST(CursorMoves, SectionByNameMovesTheCursorOfItsKind) {
  ASSERT_NE(this->ByName(SECTION_GLOBAL, nullptr), "miss");
  this->ExpectCursors("shared-network empty / @header2");
  ASSERT_NE(this->ByName(SECTION_SHARED_NETWORK, "office"), "miss");
  this->ExpectCursors("shared-network office / @header2");
  this->Place("shared-network office", "@header2");
  ASSERT_NE(this->ByName(SECTION_SUBNET, "@bare1"), "miss");
  this->ExpectCursors("shared-network office / @header1");
  ASSERT_NE(this->ByName(SECTION_HOST, "c"), "miss");
  this->ExpectCursors("shared-network empty / @header2");
  this->Place("shared-network empty", "@header1");
  ASSERT_NE(this->ByName(SECTION_IF, "known"), "miss");
  this->ExpectCursors("shared-network empty / @header1");
}

TYPED_TEST(CursorMoves, LookupsByLineMoveNothing) {
  this->Place("shared-network empty", "@header1");
  ASSERT_NE(this->ByLine("log b;"), "miss");
  ASSERT_NE(this->HostByName("a"), "miss");
  ASSERT_NE(this->HostByIp("@ip1"), "miss");
  ASSERT_NE(this->HostByMac("00:00:00:00:00:0a"), "miss");
  this->ExpectCursors("shared-network empty / @header1");
}

// ---- GetFirstSection

template <class Family>
class FirstSection : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(FirstSection, Families, FamilyNames);

TYPED_TEST(FirstSection, TypesOutOfRangeMiss) {
  this->Given(kOffice);
  EXPECT_EQ(this->First(kFive), "miss");
  EXPECT_EQ(this->First(kMinusOne), "miss");
  EXPECT_EQ(this->First(kGreatest), "miss");
  EXPECT_EQ(this->First(kSmallest), "miss");
}

TYPED_TEST(FirstSection, GlobalIsTheRootSectionWhateverTheRecordIsNamed) {
  this->Given("log root;\nhost a {\n}\n");
  auto record = this->Record(SECTION_GLOBAL, {{TypeParam::kName, "host a"}});
  EXPECT_TRUE(this->Conf().GetFirstSection(record, false));
  EXPECT_EQ(RecordText(record), "0 | 0=TREE_ROOT_SECTION");
}

TYPED_TEST(FirstSection, GlobalNeedsNoCursor) {
  this->Given("host a {\n}\n");
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->First(SECTION_GLOBAL), "0 | 0=TREE_ROOT_SECTION");
  EXPECT_EQ(this->Cursors(), "null / null");
}

TYPED_TEST(FirstSection, NetworkMissesInAFileThatBeginsWithASubnetAndHasNoNetwork) {
  this->Given(kTwoSubnetsAndAHost);
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->First(SECTION_SUBNET), this->Text("2 | 0=@name1"));
}

TYPED_TEST(FirstSection, NetworkMissesWithoutANetworkCursorEvenIfThereIsANetwork) {
  this->Given("@header1 {\n}\nshared-network office {\n}\n");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
}

TYPED_TEST(FirstSection, NetworkIsTheFirstBlockOfTheLevelWhateverItsKind) {
  this->Given("@header1 {\n}\nhost b {\n}\nshared-network office {\n}\n");
  ASSERT_EQ(this->Goto("office", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), this->Text("2 | 0=@name1"));
  EXPECT_EQ(this->Cursors(), this->Text("@header1 / null"));
}

TYPED_TEST(FirstSection, SubnetIsTheFirstBlockOfTheLevelWhateverItsKind) {
  this->Given("shared-network office {\n  host a {\n  }\n  @header1 {\n  }\n}\n@header2 {\n}\n");
  ASSERT_EQ(this->Goto("@bare1", SECTION_SUBNET), "hit");
  EXPECT_EQ(this->First(SECTION_SUBNET), "3 | 0=a");
  EXPECT_EQ(this->Cursors(), "shared-network office / host a");
  this->Place(nullptr, "@header2");
  EXPECT_EQ(this->First(SECTION_SUBNET), "1 | 0=office");
  EXPECT_EQ(this->Cursors(), "null / shared-network office");
}

TYPED_TEST(FirstSection, SubnetLevelIsThatOfItsCursorNotOfTheNetworkCursor) {
  this->Given(kOffice);
  this->Place("shared-network office", "@header3");
  EXPECT_EQ(this->First(SECTION_SUBNET), "1 | 0=office");
  this->Place(nullptr, "@header2");
  EXPECT_EQ(this->First(SECTION_SUBNET), this->Text("2 | 0=@name1"));
}

TYPED_TEST(FirstSection, SubnetMissesWithoutASubnetCursor) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->First(SECTION_SUBNET), "miss");
}

TYPED_TEST(FirstSection, TheTopNodeIsItsOwnLevel) {
  this->Given(kOffice);
  this->Conf().currentNetwork = &this->Conf().holder->topNode;
  this->Conf().currentSubnet = &this->Conf().holder->topNode;
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK, true),
            "0 | 0=TREE_ROOT_SECTION | -1=log root; | -1=max-lease-time 7200;");
  EXPECT_EQ(this->First(SECTION_SUBNET, true),
            "0 | 0=TREE_ROOT_SECTION | -1=log root; | -1=max-lease-time 7200;");
  EXPECT_EQ(this->Cursors(), "TREE_ROOT_SECTION / TREE_ROOT_SECTION");
}

TYPED_TEST(FirstSection, TheLevelOfTheRootSectionIsTheTopNode) {
  this->Given(kTwoSubnetsAndAHost);
  this->Place("TREE_ROOT_SECTION", "TREE_ROOT_SECTION");
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "0 | 0=TREE_ROOT_SECTION");
  EXPECT_EQ(this->First(SECTION_SUBNET), "0 | 0=TREE_ROOT_SECTION");
}

TYPED_TEST(FirstSection, LevelWithoutBlocksMisses) {
  this->Given("shared-network empty {\n}\n");
  Tree<CfSection>::TreeNode& level = *this->Node("shared-network empty");
  Tree<CfSection>::TreeNode astray(&level, CfSection());
  this->Conf().currentNetwork = &astray;
  this->Conf().currentSubnet = &astray;
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->First(SECTION_SUBNET), "miss");
  level.children = new std::list<Tree<CfSection>::TreeNode*>;
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->First(SECTION_SUBNET), "miss");
  level.children->push_back(nullptr);
  EXPECT_EQ(this->First(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->First(SECTION_SUBNET), "miss");
}

TYPED_TEST(FirstSection, HostNeedNotBeTheFirstBlock) {
  this->Given(kMixedChildren);
  EXPECT_EQ(this->First(SECTION_HOST), "3 | 0=a");
  EXPECT_EQ(this->First(SECTION_IF), "4 | 0=x");
}

TYPED_TEST(FirstSection, HostsAndIfBlocksOfDeeperLevelsAreNotSeen) {
  this->Given("@header1 {\n  group g {\n    host a {\n    }\n    if x {\n    }\n  }\n}\n");
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
  EXPECT_EQ(this->First(SECTION_IF), "miss");
}

TYPED_TEST(FirstSection, HostAndIfMissWithoutASubnetCursor) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
  EXPECT_EQ(this->First(SECTION_IF), "miss");
}

TYPED_TEST(FirstSection, HostAndIfMissInABlockWithoutBlocks) {
  this->Given("@header1 {\n}\n");
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
  EXPECT_EQ(this->First(SECTION_IF), "miss");
  this->Node("@header1")->children = new std::list<Tree<CfSection>::TreeNode*>;
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
  EXPECT_EQ(this->First(SECTION_IF), "miss");
}

TYPED_TEST(FirstSection, HostIsWhateverHoldsTheWordInItsHeader) {
  struct Case {
    const char* header;
    EitherKind type;
    const char* expected;
  };
  const Case cases[] = {
      // the word anywhere in the header
      {"host a", SECTION_HOST, "3 | 0=a"},
      {"group \"host a\"", SECTION_HOST, "3 | 0=\"host a\""},
      {"ghost a", SECTION_HOST, "3 | 0=a"},
      {"if name = \"host a\"", SECTION_HOST, "3 | 0=name = \"host a\""},
      {"if x", SECTION_IF, "4 | 0=x"},
      {"elsif x", SECTION_IF, "4 | 0=x"},
      {"host if x", SECTION_IF, "3 | 0=if x"},
      // the word without its blank, or in other letters
      {"hosts a", SECTION_HOST, "miss"},
      {"host", SECTION_HOST, "miss"},
      {"HOST a", SECTION_HOST, "miss"},
      {"Host a", SECTION_HOST, "miss"},
      {"if(x)", SECTION_IF, "miss"},
      {"IF x", SECTION_IF, "miss"},
      // the other kind
      {"if x", SECTION_HOST, "miss"},
      {"host a", SECTION_IF, "miss"},
      {"else", SECTION_IF, "miss"},
  };
  for (const Case& row : cases) {
    this->Given(std::string("@header1 {\n  ") + row.header + " {\n  }\n}\n");
    EXPECT_EQ(this->First(row.type), row.expected) << row.header;
  }
}

TYPED_TEST(FirstSection, HostIsLookedForAmongTheFirst65536ChildrenOnly) {
  this->Given("@header1 {\n}\n");
  Tree<CfSection>::TreeNode& subnet = *this->Node("@header1");
  for (int i = 0; i < 65535; ++i) Append(subnet, "group g");
  Append(subnet, "host last");
  EXPECT_EQ(this->First(SECTION_HOST), "3 | 0=last");
  CfSection oneMore;
  oneMore.SetName("group one-more");
  subnet.children->push_front(new Tree<CfSection>::TreeNode(&subnet, oneMore));
  ASSERT_EQ(subnet.children->size(), 65537U);
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
}

TYPED_TEST(FirstSection, IfBlockIsLookedForAmongTheFirst65536ChildrenOnly) {
  this->Given("@header1 {\n}\n");
  Tree<CfSection>::TreeNode& subnet = *this->Node("@header1");
  for (int i = 0; i < 65535; ++i) Append(subnet, "host h");
  Append(subnet, "if last");
  EXPECT_EQ(this->First(SECTION_IF), "4 | 0=last");
  CfSection oneMore;
  oneMore.SetName("host one-more");
  subnet.children->push_front(new Tree<CfSection>::TreeNode(&subnet, oneMore));
  EXPECT_EQ(this->First(SECTION_IF), "miss");
}

TYPED_TEST(FirstSection, RecordLosesWhatItHeld) {
  this->Given("@header1 {\n  host a {\n  }\n}\n");
  auto record = this->Record(SECTION_HOST, {{TypeParam::kName, "z"}, {TypeParam::kRange, "z"}});
  EXPECT_TRUE(this->Conf().GetFirstSection(record, false));
  EXPECT_EQ(RecordText(record), "3 | 0=a");
}

// ---- GetNextSection

template <class Family>
class NextSection : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(NextSection, Families, FamilyNames);

TYPED_TEST(NextSection, TypesWithoutANextMiss) {
  this->Given(kOffice);
  EXPECT_EQ(this->NextAfter(SECTION_GLOBAL, "a"), "miss");
  EXPECT_EQ(this->NextAfter(kFive, "a"), "miss");
  EXPECT_EQ(this->NextAfter(kMinusOne, "a"), "miss");
  EXPECT_EQ(this->NextAfter(kGreatest, "a"), "miss");
  EXPECT_EQ(this->NextAfter(kSmallest, "a"), "miss");
}

TYPED_TEST(NextSection, NetworkTakesTheNextSiblingWhateverItsKind) {
  this->Given(kOffice);
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), this->Text("2 | 0=@name3"));
  EXPECT_EQ(this->Cursors(), this->Text("@header3 / @header1"));
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "1 | 0=empty");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network empty / @header1"));
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "3 | 0=e");
  EXPECT_EQ(this->Cursors(), this->Text("host e / @header1"));
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Cursors(), this->Text("host e / @header1"));
}

TYPED_TEST(NextSection, SubnetTakesTheNextSiblingWhateverItsKind) {
  this->Given(kTwoSubnetsAndAHost);
  EXPECT_EQ(this->Next(SECTION_SUBNET), "3 | 0=b");
  EXPECT_EQ(this->Cursors(), "null / host b");
  EXPECT_EQ(this->Next(SECTION_SUBNET), this->Text("2 | 0=@name2"));
  EXPECT_EQ(this->Cursors(), this->Text("null / @header2"));
}

TYPED_TEST(NextSection, SubnetAtTheLastOneOfALevelMissesAndStays) {
  this->Given(kOffice);
  EXPECT_EQ(this->Next(SECTION_SUBNET), this->Text("2 | 0=@name2"));
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header2"));
}

TYPED_TEST(NextSection, NetworkAndSubnetGoByTheCursorAloneNotByTheRecordsName) {
  this->Given(kOffice);
  EXPECT_EQ(this->NextAfter(SECTION_SUBNET, "@name3"), this->Text("2 | 0=@name2"));
  EXPECT_EQ(this->NextAfter(SECTION_SHARED_NETWORK, "empty"), this->Text("2 | 0=@name3"));
}

TYPED_TEST(NextSection, NetworkAndSubnetMissWithoutTheirCursor) {
  this->Given(kOffice);
  this->Place(nullptr, "@header1");
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
}

TYPED_TEST(NextSection, CursorThatIsNotInItsParentsListMisses) {
  this->Given("shared-network office {\n}\n");
  Tree<CfSection>::TreeNode& level = *this->Node("shared-network office");
  Tree<CfSection>::TreeNode astray(&level, CfSection());
  this->Conf().currentNetwork = &astray;
  this->Conf().currentSubnet = &astray;
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
  level.children = new std::list<Tree<CfSection>::TreeNode*>;
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
  Append(level, "host a");
  Append(level, "host b");
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
}

TYPED_TEST(NextSection, NothingFollowsTheTopNode) {
  this->Given(kOffice);
  this->Conf().currentNetwork = &this->Conf().holder->topNode;
  this->Conf().currentSubnet = &this->Conf().holder->topNode;
  EXPECT_EQ(this->Next(SECTION_SHARED_NETWORK), "miss");
  EXPECT_EQ(this->Next(SECTION_SUBNET), "miss");
}

TYPED_TEST(NextSection, HostIsTheOneBehindTheNamedOneAndIfBlocksAreSkipped) {
  this->Given("@header1 {\n  host a {\n  }\n  host b {\n  }\n  if x {\n  }\n}\n");
  EXPECT_EQ(this->First(SECTION_HOST), "3 | 0=a");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "b"), "miss");
}

TYPED_TEST(NextSection, HostAndIfSkipSiblingsOfOtherKinds) {
  this->Given(kMixedChildren);
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "b"), "3 | 0=c");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "c"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "x"), "4 | 0=y");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "y"), "miss");
}

TYPED_TEST(NextSection, HostsAndIfBlocksAreLookedForBelowTheSubnetCursorOnly) {
  constexpr std::string_view blocks =
      "  host a {\n  }\n  host b {\n  }\n  if x {\n  }\n  if y {\n  }\n}\n";
  this->Given(std::string("@header1 {\n}\n@header2 {\n").append(blocks));
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "x"), "miss");
  this->Place(nullptr, "@header2");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "x"), "4 | 0=y");
  this->Place(nullptr, "TREE_ROOT_SECTION");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
}

TYPED_TEST(NextSection, HostOfADeeperLevelIsFollowedByThatLevelOnly) {
  this->Given(
      "@header1 {\n  group g {\n    host a {\n    }\n    host b {\n    }\n  }\n"
      "  host c {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "b"), "miss");
}

TYPED_TEST(NextSection, HostOnTheCursorItselfIsFollowedByItsSiblings) {
  this->Given("host a {\n}\n@header1 {\n}\nhost b {\n}\n");
  EXPECT_EQ(this->Cursors(), "null / host a");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
}

TYPED_TEST(NextSection, HostIsTheFirstOneOfItsName) {
  this->Given(
      "@header1 {\n  host a {\n  }\n  host b {\n  }\n  host a {\n  }\n  host c {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "b"), "3 | 0=a");
}

TYPED_TEST(NextSection, HeadersAreComparedWholeAndWithRegardToCase) {
  this->Given("@header1 {\n  host pc1 {\n  }\n  host  wide {\n  }\n  host b {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "pc1"), "3 | 0= wide");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "PC1"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "pc"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "wide"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, " wide"), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "pc1"), "miss");
}

TYPED_TEST(NextSection, FollowingHostIsWhateverHoldsTheWordInItsHeader) {
  this->Given(
      "@header1 {\n  host a {\n  }\n  hosts x {\n  }\n  HOST y {\n  }\n  ghost z {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=z");
}

TYPED_TEST(NextSection, FollowingIfBlockIsWhateverHoldsTheWordInItsHeader) {
  this->Given("@header1 {\n  if x {\n  }\n  else {\n  }\n  elsif y {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "x"), "4 | 0=y");
}

TYPED_TEST(NextSection, FirstNameParameterOfTheRecordCounts) {
  this->Given(kMixedChildren);
  const auto record = this->Record(
      SECTION_HOST,
      {{TypeParam::kFixedAddress, "@ip1"}, {TypeParam::kName, "a"}, {TypeParam::kName, "b"}});
  EXPECT_EQ(this->NextAfter(record), "3 | 0=b");
}

TYPED_TEST(NextSection, NamelessRecordMisses) {
  this->Given(kMixedChildren);
  EXPECT_EQ(this->NextAfter(this->Record(SECTION_HOST, {})), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, ""), "miss");
  EXPECT_EQ(this->NextAfter(this->Record(SECTION_IF, {{TypeParam::kFixedAddress, "@ip1"}})),
            "miss");
}

TYPED_TEST(NextSection, NamelessRecordStandsForABlockWithoutAHeader) {
  this->Given("@header1 {\n  host a {\n  }\n  {\n  }\n  host b {\n  }\n}\n");
  EXPECT_EQ(this->NextAfter(this->Record(SECTION_HOST, {})), "3 | 0=b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, ""), "3 | 0=b");
}

TYPED_TEST(NextSection, HostAndIfMissWithoutASubnetCursor) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "miss");
  EXPECT_EQ(this->NextAfter(SECTION_IF, "known"), "miss");
}

TYPED_TEST(NextSection, HostBeforeANullSiblingMisses) {
  this->Given("@header1 {\n  host a {\n  }\n}\n");
  Tree<CfSection>::TreeNode& subnet = *this->Node("@header1");
  subnet.children->push_back(nullptr);
  Append(subnet, "host b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "miss");
}

TYPED_TEST(NextSection, HostBehindTheFirst65536ChildrenIsReached) {
  this->Given("@header1 {\n}\n");
  Tree<CfSection>::TreeNode& subnet = *this->Node("@header1");
  Append(subnet, "host a");
  for (int i = 0; i < 65536; ++i) Append(subnet, "group g");
  Append(subnet, "host b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "3 | 0=b");
}

TYPED_TEST(NextSection, CurrentAndNextMayBeTheSameRecord) {
  this->Given(kMixedChildren);
  auto record = this->Record(SECTION_HOST, {{TypeParam::kName, "a"}});
  EXPECT_TRUE(this->Conf().GetNextSection(record, record, false));
  EXPECT_EQ(RecordText(record), "3 | 0=b");
  EXPECT_TRUE(this->Conf().GetNextSection(record, record, false));
  EXPECT_EQ(RecordText(record), "3 | 0=c");
  EXPECT_FALSE(this->Conf().GetNextSection(record, record, false));
  EXPECT_EQ(RecordText(record), "3 | 0=c");
}

TYPED_TEST(NextSection, CurrentAndNextMayBeTheSameRecordForSubnets) {
  this->Given(kOffice);
  auto record = this->Record(SECTION_SUBNET, {});
  EXPECT_TRUE(this->Conf().GetFirstSection(record, false));
  EXPECT_TRUE(this->Conf().GetNextSection(record, record, false));
  EXPECT_EQ(RecordText(record), this->Text("2 | 0=@name2"));
}

// ---- GotoSection

template <class Family>
class GotoSection : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(GotoSection, Families, FamilyNames);

TYPED_TEST(GotoSection, GlobalClearsBothCursorsWhateverTheName) {
  for (const char* name : {static_cast<const char*>(nullptr), "", "office"}) {
    this->Given(kOffice);
    EXPECT_EQ(this->Goto(name, SECTION_GLOBAL), "hit");
    EXPECT_EQ(this->Cursors(), "null / null");
  }
}

TYPED_TEST(GotoSection, NullAndEmptyNamesMissForEveryOtherKind) {
  this->Given(kOffice);
  for (const auto type :
       {SECTION_SHARED_NETWORK, SECTION_SUBNET, SECTION_HOST, SECTION_IF, kFive, kMinusOne}) {
    EXPECT_EQ(this->Goto(nullptr, type), "miss") << type;
    EXPECT_EQ(this->Goto("", type), "miss") << type;
  }
}

TYPED_TEST(GotoSection, EmptyNameMissesEvenIfABlockHasNone) {
  this->Given(kOffice);
  this->Node("host a")->section.SetName("host ");
  EXPECT_EQ(this->Goto("", SECTION_HOST), "miss");
}

TYPED_TEST(GotoSection, TypesOutOfRangeMiss) {
  this->Given(kOffice);
  for (const char* name : {"office", "@bare1", "a", "known"}) {
    EXPECT_EQ(this->Goto(name, kFive), "miss") << name;
    EXPECT_EQ(this->Goto(name, kMinusOne), "miss") << name;
    EXPECT_EQ(this->Goto(name, kGreatest), "miss") << name;
    EXPECT_EQ(this->Goto(name, kSmallest), "miss") << name;
  }
}

TYPED_TEST(GotoSection, NetworkIsFoundFromAnywhere) {
  this->Given(kOffice);
  this->Place("shared-network empty", "@header3");
  EXPECT_EQ(this->Goto("office", SECTION_SHARED_NETWORK), "hit");
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->Goto("office", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header1"));
}

TYPED_TEST(GotoSection, NetworkInsideAnotherBlockIsFound) {
  this->Given("group g {\n  shared-network inner {\n    @header1 {\n    }\n  }\n}\n");
  EXPECT_EQ(this->Goto("inner", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network inner / @header1"));
}

TYPED_TEST(GotoSection, NetworkWithoutBlocksLeavesNoSubnetCursor) {
  this->Given("shared-network net1 {\n}\n@header1 {\n  host a {\n  }\n}\n");
  this->Place(nullptr, "@header1");
  EXPECT_EQ(this->Goto("net1", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->Cursors(), "shared-network net1 / null");
  EXPECT_EQ(this->First(SECTION_HOST), "miss");
}

TYPED_TEST(GotoSection, FirstBlockOfTheNetworkMayBeOfAnyKind) {
  this->Given("shared-network office {\n  host a {\n  }\n  @header1 {\n  }\n}\n");
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->Goto("office", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->Cursors(), "shared-network office / host a");
}

TYPED_TEST(GotoSection, OfTwoNetworksOfANameTheFirstIsTaken) {
  this->Given("shared-network n {\n  host a {\n  }\n}\nshared-network n {\n  host b {\n  }\n}\n");
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->Goto("n", SECTION_SHARED_NETWORK), "hit");
  EXPECT_EQ(this->Cursors(), "shared-network n / host a");
}

TYPED_TEST(GotoSection, SubnetIsLookedForInTheNetworkOfTheCursorOnly) {
  this->Given(kOffice);
  EXPECT_EQ(this->Goto("@bare2", SECTION_SUBNET), "hit");
  EXPECT_EQ(this->Goto("@bare3", SECTION_SUBNET), "miss");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header2"));
}

TYPED_TEST(GotoSection, SubnetIsLookedForInTheWholeFileWithoutANetwork) {
  this->Given(kOffice);
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->Goto("@bare3", SECTION_SUBNET), "hit");
  EXPECT_EQ(this->Cursors(), this->Text("null / @header3"));
  EXPECT_EQ(this->Goto("@bare2", SECTION_SUBNET), "hit");
  EXPECT_EQ(this->Cursors(), this->Text("null / @header2"));
}

TYPED_TEST(GotoSection, SubnetMayBeTheBlockOnTheNetworkCursor) {
  this->Given(kOffice);
  this->Place("@header3", nullptr);
  EXPECT_EQ(this->Goto("@bare3", SECTION_SUBNET), "hit");
  EXPECT_EQ(this->Cursors(), this->Text("@header3 / @header3"));
}

TYPED_TEST(GotoSection, HostsAndIfBlocksAreLookedForBelowTheSubnetCursor) {
  this->Given(kOffice);
  EXPECT_EQ(this->Goto("a", SECTION_HOST), "hit");
  EXPECT_EQ(this->Goto("nested", SECTION_HOST), "hit");
  EXPECT_EQ(this->Goto("known", SECTION_IF), "hit");
  EXPECT_EQ(this->Goto("c", SECTION_HOST), "miss");
  EXPECT_EQ(this->Goto("e", SECTION_HOST), "miss");
  this->Place(nullptr, "@header2");
  EXPECT_EQ(this->Goto("known", SECTION_IF), "miss");
}

TYPED_TEST(GotoSection, HostMayBeTheBlockOnTheSubnetCursor) {
  this->Given(kOffice);
  this->Place(nullptr, "host e");
  EXPECT_EQ(this->Goto("e", SECTION_HOST), "hit");
}

TYPED_TEST(GotoSection, HostsAndIfBlocksAreLookedForInTheWholeFileWithoutASubnetCursor) {
  this->Given(kOffice);
  this->Place("shared-network empty", nullptr);
  EXPECT_EQ(this->Goto("a", SECTION_HOST), "hit");
  EXPECT_EQ(this->Goto("e", SECTION_HOST), "hit");
  EXPECT_EQ(this->Goto("unknown", SECTION_IF), "hit");
  EXPECT_EQ(this->Goto("unknown", SECTION_HOST), "miss");
}

TYPED_TEST(GotoSection, NamesAreComparedWholeAndWithRegardToCase) {
  this->Given(kOffice);
  for (const char* name :
       {"Office", "offic", "offices", " office", "office ", "shared-network office", "nowhere"}) {
    EXPECT_EQ(this->Goto(name, SECTION_SHARED_NETWORK), "miss") << name;
  }
  for (const char* name : {"@header1", " @bare1", "@bare1 ", "nowhere"}) {
    EXPECT_EQ(this->Goto(name, SECTION_SUBNET), "miss") << name;
  }
  for (const char* name : {"A", "host a", "a b", "know"}) {
    EXPECT_EQ(this->Goto(name, SECTION_HOST), "miss") << name;
    EXPECT_EQ(this->Goto(name, SECTION_IF), "miss") << name;
  }
}

// ---- GetSectionByName

template <class Family>
class SectionByName : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(SectionByName, Families, FamilyNames);

TYPED_TEST(SectionByName, TypesOutOfRangeMiss) {
  this->Given(kOffice);
  for (const char* name : {"office", "@bare1", "a", "known"}) {
    EXPECT_EQ(this->ByName(kFive, name), "miss") << name;
    EXPECT_EQ(this->ByName(kMinusOne, name), "miss") << name;
    EXPECT_EQ(this->ByName(kGreatest, name), "miss") << name;
    EXPECT_EQ(this->ByName(kSmallest, name), "miss") << name;
  }
}

TYPED_TEST(SectionByName, GlobalIsTheRootSectionWhateverTheNameAndMovesNothing) {
  this->Given("log root;\n@header1 {\n}\n");
  for (const char* name : {static_cast<const char*>(nullptr), "", "office"}) {
    EXPECT_EQ(this->ByName(SECTION_GLOBAL, name), "0 | 0=TREE_ROOT_SECTION");
    EXPECT_EQ(this->Cursors(), this->Text("null / @header1"));
  }
}

TYPED_TEST(SectionByName, NullNameMissesForEveryOtherKind) {
  this->Given(kOffice);
  for (const auto type : {SECTION_SHARED_NETWORK, SECTION_SUBNET, SECTION_HOST, SECTION_IF}) {
    EXPECT_EQ(this->ByName(type, nullptr), "miss") << type;
  }
}

TYPED_TEST(SectionByName, EmptyNameMissesLikeAnyOtherThatNoBlockHas) {
  this->Given(kOffice);
  for (const auto type : {SECTION_SHARED_NETWORK, SECTION_SUBNET, SECTION_HOST, SECTION_IF}) {
    EXPECT_EQ(this->ByName(type, ""), "miss") << type;
  }
}

TYPED_TEST(SectionByName, EmptyNameFindsABlockThatHasNone) {
  this->Given(kOffice);
  this->Node("host b")->section.SetName("host ");
  this->Node("if known")->section.SetName("if ");
  this->Node("shared-network empty")->section.SetName("shared-network ");
  this->Node("@header2")->section.SetName(this->Text("@subnet ").c_str());
  EXPECT_EQ(this->ByName(SECTION_HOST, ""), "3 | 0=");
  EXPECT_EQ(this->ByName(SECTION_IF, ""), "4 | 0=");
  ASSERT_NE(this->ByName(SECTION_SUBNET, ""), "miss");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @subnet "));
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, ""), "1 | 0=");
}

TYPED_TEST(SectionByName, NetworkLeavesTheSubnetCursorUnlikeGoto) {
  this->Given(kOffice);
  this->Place(nullptr, "@header3");
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, "office"), "1 | 0=office");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header3"));
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, "empty"), "1 | 0=empty");
  EXPECT_EQ(this->Cursors(), this->Text("shared-network empty / @header3"));
}

TYPED_TEST(SectionByName, NetworkNeedsNoCursor) {
  this->Given(kOffice);
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, "office"), "1 | 0=office");
  EXPECT_EQ(this->Cursors(), "shared-network office / null");
}

TYPED_TEST(SectionByName, SubnetMissesWithoutASubnetCursorEvenIfItExists) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare1"), "miss");
  EXPECT_EQ(this->Goto("@bare1", SECTION_SUBNET), "hit");
}

TYPED_TEST(SectionByName, SubnetIsLookedForInTheNetworkOfTheCursorOnly) {
  this->Given(kOffice);
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare2"), this->Text("2 | 0=@name2"));
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare3"), "miss");
  this->Place("shared-network office", "@header3");
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare1"), this->Text("2 | 0=@name1"));
}

TYPED_TEST(SectionByName, SubnetIsLookedForInTheWholeFileWithoutANetwork) {
  this->Given(kOffice);
  this->Place(nullptr, "host e");
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare2"), this->Text("2 | 0=@name2"));
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare3"), this->Text("2 | 0=@name3"));
  EXPECT_EQ(this->Cursors(), this->Text("null / @header3"));
}

TYPED_TEST(SectionByName, HostsAndIfBlocksMissWithoutASubnetCursorUnlikeGoto) {
  this->Given(kOffice);
  this->Place(nullptr, nullptr);
  EXPECT_EQ(this->ByName(SECTION_HOST, "e"), "miss");
  EXPECT_EQ(this->ByName(SECTION_IF, "known"), "miss");
  EXPECT_EQ(this->Goto("e", SECTION_HOST), "hit");
  EXPECT_EQ(this->Goto("known", SECTION_IF), "hit");
}

TYPED_TEST(SectionByName, SubnetMayBeTheBlockOnTheNetworkCursor) {
  this->Given(kOffice);
  this->Place("@header3", "host d");
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@bare3"), this->Text("2 | 0=@name3"));
  EXPECT_EQ(this->Cursors(), this->Text("@header3 / @header3"));
}

TYPED_TEST(SectionByName, HostsAndIfBlocksAreLookedForBelowTheSubnetCursor) {
  this->Given(kOffice);
  EXPECT_EQ(this->ByName(SECTION_HOST, "b"), "3 | 0=b");
  EXPECT_NE(this->ByName(SECTION_HOST, "nested"), "miss");
  EXPECT_EQ(this->ByName(SECTION_HOST, "c"), "miss");
  EXPECT_EQ(this->ByName(SECTION_IF, "unknown"), "4 | 0=unknown");
  EXPECT_EQ(this->ByName(SECTION_IF, "a"), "miss");
  this->Place(nullptr, "host e");
  EXPECT_EQ(this->ByName(SECTION_HOST, "e"), "3 | 0=e");
}

TYPED_TEST(SectionByName, NamesAreComparedWholeAndWithRegardToCase) {
  this->Given(kOffice);
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, "Office"), "miss");
  EXPECT_EQ(this->ByName(SECTION_SHARED_NETWORK, "shared-network office"), "miss");
  EXPECT_EQ(this->ByName(SECTION_SUBNET, "@header1"), "miss");
  EXPECT_EQ(this->ByName(SECTION_HOST, "A"), "miss");
  EXPECT_EQ(this->ByName(SECTION_IF, "know"), "miss");
}

TYPED_TEST(SectionByName, RecordTakesTheKindThatTheHeaderTells) {
  this->Given("@header1 {\n  if host x {\n  }\n}\n");
  EXPECT_EQ(this->ByName(SECTION_IF, "host x"), "3 | 0=host x");
}

// ---- GetSectionByKeyname

template <class Family>
class SectionByKeyname : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(SectionByKeyname, Families, FamilyNames);

TYPED_TEST(SectionByKeyname, OnlyDirectChildrenOfTheSubnetCursorAreSearched) {
  this->Given(kOffice);
  EXPECT_EQ(this->ByLine("log b;"), "3 | 0=b");
  EXPECT_EQ(this->ByLine("log one;"), "miss");      // the cursor's own block
  EXPECT_EQ(this->ByLine("@fixed @ip3;"), "miss");  // a deeper level
  EXPECT_EQ(this->ByLine("@fixed @ip2;"), "miss");  // another subnet
  EXPECT_EQ(this->ByLine("log office;"), "miss");   // the level above
  EXPECT_EQ(this->ByLine("log root;"), "miss");
}

TYPED_TEST(SectionByKeyname, AnyKindOfBlockIsFound) {
  this->Given(kOffice);
  EXPECT_EQ(this->ByLine("log known;"), "4 | 0=known");
  this->Place("shared-network office", "shared-network office");
  EXPECT_EQ(this->ByLine("log two;"), this->Text("2 | 0=@name2"));
  this->Place(nullptr, "TREE_ROOT_SECTION");
  EXPECT_EQ(this->ByLine("log office;"), "1 | 0=office");
}

TYPED_TEST(SectionByKeyname, FirstBlockInFileOrderIsTaken) {
  this->Given("@header1 {\n  group g {\n    log x;\n  }\n  host a {\n    log x;\n  }\n}\n");
  EXPECT_EQ(this->ByLine("log x;"), "0 | 0=group g");
}

TYPED_TEST(SectionByKeyname, LinesAreComparedWholeAndWithRegardToCase) {
  this->Given("@header1 {\n  host a {\n    log level  2 ;\n  }\n}\n");
  EXPECT_EQ(this->ByLine("log level  2 ;"), "3 | 0=a");
  for (const char* line : {"log level  2", "log level 2 ;", "log level  2;", "Log level  2 ;",
                           " log level  2 ;", "log level  2 ; ", "log", ""}) {
    EXPECT_EQ(this->ByLine(line), "miss") << line;
  }
}

TYPED_TEST(SectionByKeyname, LineNeedNotBeTheFirstOfItsBlock) {
  this->Given("@header1 {\n  host a {\n    log 1;\n    log 2;\n    log 3;\n  }\n}\n");
  EXPECT_EQ(this->ByLine("log 3;"), "3 | 0=a");
}

TYPED_TEST(SectionByKeyname, CommentedOutLineIsFoundLikeAnyOther) {
  this->Given("@header1 {\n  host a {\n    # log x;\n  }\n}\n");
  EXPECT_EQ(this->ByLine("log x;"), "3 | 0=a");
  EXPECT_EQ(this->ByLine("# log x;"), "miss");
}

TYPED_TEST(SectionByKeyname, OneLineBlocksAreLinesAndHoldNone) {
  this->Given("@header1 {\n  host a { log x; }\n}\n");
  EXPECT_EQ(this->ByLine("log x;"), "miss");
}

TYPED_TEST(SectionByKeyname, MissesWithoutASubnetCursor) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->ByLine("log one;"), "miss");
  EXPECT_EQ(this->ByLine("log b;"), "miss");
}

TYPED_TEST(SectionByKeyname, MissesInABlockWithoutBlocks) {
  this->Given("@header1 {\n  log x;\n}\n");
  EXPECT_EQ(this->ByLine("log x;"), "miss");
  this->Node("@header1")->children = new std::list<Tree<CfSection>::TreeNode*>;
  EXPECT_EQ(this->ByLine("log x;"), "miss");
}

TYPED_TEST(SectionByKeyname, NullLineMisses) {
  this->Given("@header1 {\n  host a {\n    #\n  }\n}\n");
  EXPECT_EQ(this->ByLine(""), "3 | 0=a");
  EXPECT_EQ(this->ByLine(nullptr), "miss");
}

// ---- GetHostByName, GetHostByIp, GetHostByMACAddress

template <class Family>
class HostLookup : public NavigationFixture<Family> {};
TYPED_TEST_SUITE(HostLookup, Families, FamilyNames);

TYPED_TEST(HostLookup, HostOfAnotherSubnetIsNotFound) {
  this->Given(R"(@header1 {
  host a {
    hardware ethernet 00:00:00:00:00:0a;
    @fixed @ip1;
    @fqdn "a";
  }
}
@header2 {
  host b {
    hardware ethernet 00:00:00:00:00:0b;
    @fixed @ip2;
    @fqdn "b";
  }
}
)");
  EXPECT_NE(this->HostByName("a"), "miss");
  EXPECT_NE(this->HostByIp("@ip1"), "miss");
  EXPECT_NE(this->HostByMac("00:00:00:00:00:0a"), "miss");
  EXPECT_EQ(this->HostByName("b"), "miss");
  EXPECT_EQ(this->HostByIp("@ip2"), "miss");
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0b"), "miss");
}

TYPED_TEST(HostLookup, HostIsFoundByACommentedOutLine) {
  this->Given(R"(@header1 {
  host a {
    # hardware ethernet 00:00:00:00:00:0a;
    # @fixed @ip1;
    # @fqdn "a";
  }
}
)");
  const std::string hostA = this->First(SECTION_HOST);
  ASSERT_NE(hostA, "miss");
  EXPECT_EQ(this->HostByName("a"), hostA);
  EXPECT_EQ(this->HostByIp("@ip1"), hostA);
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a"), hostA);
}

TYPED_TEST(HostLookup, HostOfADeeperLevelIsNotFound) {
  this->Given(kOffice);
  EXPECT_EQ(this->HostByIp("@ip3"), "miss");
}

TYPED_TEST(HostLookup, AnyKindOfBlockWithTheLineIsFound) {
  this->Given(R"(@header1 {
  group g {
    @fixed @ip1;
  }
  if x {
    @fqdn "a";
  }
  class "c" {
    hardware ethernet 00:00:00:00:00:0a;
  }
}
)");
  EXPECT_EQ(this->HostByIp("@ip1", true), this->Text("0 | 0=group g | -1=@fixed @ip1;"));
  EXPECT_EQ(this->HostByName("a", true), this->Text("4 | 0=x | -1=@fqdn \"a\";"));
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a", true),
            "0 | 0=class \"c\" | -1=hardware ethernet 00:00:00:00:00:0a;");
}

TYPED_TEST(HostLookup, LineMustStandExactlyAsTheLibraryWritesIt) {
  struct Case {
    const char* line;
    const char* name;
    const char* ip;
    const char* mac;
  };
  const Case cases[] = {
      // by host name
      {"@fqdn \"pc1\";", "hit", "miss", "miss"},
      {"@fqdn pc1;", "miss", "miss", "miss"},
      {"@fqdn  \"pc1\";", "miss", "miss", "miss"},
      {"@fqdn \"pc1\" ;", "miss", "miss", "miss"},
      {"@fqdn \"PC1\";", "miss", "miss", "miss"},
      {"@fqdn \"pc12\";", "miss", "miss", "miss"},
      // by address
      {"@fixed @ip1;", "miss", "hit", "miss"},
      {"@fixed  @ip1;", "miss", "miss", "miss"},
      {"@fixed\t@ip1;", "miss", "miss", "miss"},
      {"@fixed @ip1 ;", "miss", "miss", "miss"},
      {"@fixed @ip1, @ip2;", "miss", "miss", "miss"},
      {"@fixed @ip2, @ip1;", "miss", "miss", "miss"},
      {"@fixed \"@ip1\";", "miss", "miss", "miss"},
      {"# @fixed @ip1;", "miss", "hit", "miss"},
      // by hardware address
      {"hardware ethernet 00:11:22:33:44:aa;", "miss", "miss", "hit"},
      {"hardware ethernet 00:11:22:33:44:AA;", "miss", "miss", "miss"},
      {"hardware  ethernet 00:11:22:33:44:aa;", "miss", "miss", "miss"},
      {"hardware ethernet 0:11:22:33:44:aa;", "miss", "miss", "miss"},
      {"hardware token-ring 00:11:22:33:44:aa;", "miss", "miss", "miss"},
  };
  const auto outcome = [](const std::string& found) { return found == "miss" ? "miss" : "hit"; };
  for (const Case& row : cases) {
    this->Given(std::string("@header1 {\n  host h {\n    ") + row.line + "\n  }\n}\n");
    EXPECT_STREQ(outcome(this->HostByName("pc1")), row.name) << row.line;
    EXPECT_STREQ(outcome(this->HostByIp("@ip1")), row.ip) << row.line;
    EXPECT_STREQ(outcome(this->HostByMac("00:11:22:33:44:aa")), row.mac) << row.line;
  }
}

TYPED_TEST(HostLookup, StatementWithTwoAddressesIsFoundByBothTogether) {
  this->Given("@header1 {\n  host h {\n    @fixed @ip1, @ip2;\n  }\n}\n");
  EXPECT_EQ(this->HostByIp("@ip1, @ip2", true), this->Text("3 | 0=h | -1=@fixed @ip1, @ip2;"));
}

TYPED_TEST(HostLookup, EmptyTextLooksForAnEmptyLine) {
  this->Given("@header1 {\n  host a {\n    log a;\n  }\n  host b {\n    #\n  }\n}\n");
  EXPECT_EQ(this->HostByName(""), "3 | 0=b");
  EXPECT_EQ(this->HostByIp(""), "3 | 0=b");
  EXPECT_EQ(this->HostByMac(""), "3 | 0=b");
}

TYPED_TEST(HostLookup, EmptyTextMissesWithoutAnEmptyLine) {
  this->Given("@header1 {\n  host a {\n    @fqdn \"\";\n    @fixed ;\n  }\n}\n");
  EXPECT_EQ(this->HostByName(""), "miss");
  EXPECT_EQ(this->HostByIp(""), "miss");
  EXPECT_EQ(this->HostByMac(""), "miss");
}

TYPED_TEST(HostLookup, NullTextMisses) {
  this->Given("@header1 {\n  host a {\n    #\n  }\n}\n");
  EXPECT_EQ(this->HostByName(nullptr), "miss");
  EXPECT_EQ(this->HostByIp(nullptr), "miss");
  EXPECT_EQ(this->HostByMac(nullptr), "miss");
}

TYPED_TEST(HostLookup, MissesWithoutASubnetCursorAndInABlockWithoutBlocks) {
  this->Given(kOffice);
  this->Place("shared-network office", nullptr);
  EXPECT_EQ(this->HostByName("a"), "miss");
  EXPECT_EQ(this->HostByIp("@ip1"), "miss");
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a"), "miss");
  this->Place(nullptr, "shared-network empty");
  EXPECT_EQ(this->HostByName("a"), "miss");
  EXPECT_EQ(this->HostByIp("@ip1"), "miss");
  EXPECT_EQ(this->HostByMac("00:00:00:00:00:0a"), "miss");
}

}  // namespace
}  // namespace klepur::test
