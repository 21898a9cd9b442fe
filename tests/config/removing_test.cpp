#include <gmock/gmock.h>

#include <list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/edit_fixture.h"

namespace klepur::test {
namespace {

using ::testing::Each;

constexpr EitherKind kEveryKind[] = {SECTION_SHARED_NETWORK, SECTION_SUBNET, SECTION_HOST,
                                     SECTION_IF};

/// Lends a node a wrong parent and gives it its own back, so that the tree can be deleted.
class WrongParent {
 public:
  WrongParent(Tree<CfSection>::TreeNode* node, Tree<CfSection>::TreeNode* parent)
      : node_(node), own_(node->parent) {
    node_->parent = parent;
  }
  WrongParent(const WrongParent&) = delete;
  WrongParent& operator=(const WrongParent&) = delete;
  ~WrongParent() { node_->parent = own_; }

 private:
  Tree<CfSection>::TreeNode* node_;
  Tree<CfSection>::TreeNode* own_;
};

// ---- RemoveSection

template <class Family>
class Removing : public EditFixture<Family> {};
TYPED_TEST_SUITE(Removing, Families, FamilyNames);

TYPED_TEST(Removing, GlobalRecordIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_GLOBAL, "TREE_ROOT_SECTION")), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Removing, RecordOfNoKindIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kNoKinds) {
    EXPECT_EQ(this->Conf().RemoveSection(this->Bare(type, "a")), 0) << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Removing, RecordWithoutANameIsRefused) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().RemoveSection(this->Record(type, {})), 0) << type;
    EXPECT_EQ(this->Conf().RemoveSection(this->Timed(type, "")), 0) << type;
    EXPECT_EQ(this->Conf().RemoveSection(
                  this->Record(type, {{TypeParam::kName, ""}, {TypeParam::kName, "a"}})),
              0)
        << type;
    EXPECT_EQ(this->State(), before) << type;
  }
}

TYPED_TEST(Removing, EachKindIsRemovedByItsName) {
  this->Given(
      "shared-network lab {\n}\nshared-network office {\n@subnet lan {\nhost a {\n}\nif a {\n}\n"
      "host b {\n}\n}\nhost a {\n}\n}\n");
  this->Place("shared-network office", "@subnet lan");
  EXPECT_EQ(this->Conf().RemoveSection(this->Timed(SECTION_HOST, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @subnet lan
[TREE_ROOT_SECTION]
  [shared-network lab]
  [shared-network office]
    [@subnet lan]
      [if a]
      [host b]
    [host a]
)"));
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_IF, "a")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @subnet lan
[TREE_ROOT_SECTION]
  [shared-network lab]
  [shared-network office]
    [@subnet lan]
      [host b]
    [host a]
)"));
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_SUBNET, "lan, x:y")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / host a
[TREE_ROOT_SECTION]
  [shared-network lab]
  [shared-network office]
    [host a]
)"));
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_SHARED_NETWORK, "lab")), 1);
  EXPECT_EQ(this->State(), R"(shared-network office / host a
[TREE_ROOT_SECTION]
  [shared-network office]
    [host a]
)");
}

TYPED_TEST(Removing, SubnetNameIsCutAtTheCommaElseTheBlank) {
  for (const char* name : {"lan", "lan, x", "lan,x", "lan x", "lan ", "lan,x,"}) {
    this->Given("host e {\n}\n@subnet lan {\n}\n");
    EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_SUBNET, name)), 1) << name;
    EXPECT_EQ(this->State(), "null / host e\n[TREE_ROOT_SECTION]\n  [host e]\n") << name;
  }
}

TYPED_TEST(Removing, SubnetNameEndingInItsFirstCommaThrowsAndRemovesNothing) {
  for (const char* name : {"lan,", ","}) {
    this->Given("@subnet lan {\n}\n@subnet lan, {\n}\n");
    const std::string before = this->State();
    try {
      this->Conf().RemoveSection(this->Bare(SECTION_SUBNET, name));
      ADD_FAILURE() << name;
    } catch (const std::out_of_range& error) {
      EXPECT_STREQ(error.what(), "basic_string::substr") << name;
    }
    EXPECT_EQ(this->State(), before) << name;
  }
}

TYPED_TEST(Removing, OtherNamesAreNotCut) {
  this->Given("@header1 {\nhost a, {\n}\nif a, b {\n}\n}\nshared-network n, {\n}\n");
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_HOST, "a,")), 1);
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_IF, "a, b")), 1);
  EXPECT_EQ(this->Conf().RemoveSection(this->Bare(SECTION_SHARED_NETWORK, "n,")), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
)"));
}

TYPED_TEST(Removing, NothingIsRemovedFromAFileThatWasNeverOpened) {
  this->Unopened(kOffice);
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().RemoveSection(this->Bare(type, "a")), 0) << type;
  }
  EXPECT_EQ(this->Conf().RemoveNetwork("office"), 0);
  EXPECT_EQ(this->Conf().RemoveSubnetSection("lan"), 0);
  EXPECT_EQ(this->Conf().RemoveHostSection("a"), 0);
  EXPECT_EQ(this->Conf().RemoveIFSection("a"), 0);
  EXPECT_EQ(this->State(), "null / null\n");
}

TYPED_TEST(Removing, RemoveSectionWantsAParser) {
  this->Given("@header1 {\nhost a {\n}\nif a {\n}\n}\nshared-network a {\n}\n@subnet a {\n}\n");
  const std::string before = this->State();
  this->WithoutParser();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().RemoveSection(this->Bare(type, "a")), 0) << type;
  }
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Removing, CalledDirectlyNoParserIsNeeded) {
  this->Given("@header1 {\nhost a {\n}\nif a {\n}\n}\nshared-network a {\n}\n@subnet a {\n}\n");
  this->WithoutParser();
  EXPECT_EQ(this->Conf().RemoveNetwork("a"), 1);
  EXPECT_EQ(this->Conf().RemoveSubnetSection("a"), 1);
  EXPECT_EQ(this->Conf().RemoveHostSection("a"), 1);
  EXPECT_EQ(this->Conf().RemoveIFSection("a"), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"));
}

TYPED_TEST(Removing, WithoutAHolderEveryRemovalFails) {
  this->Given(kOffice);
  this->WithoutHolder();
  for (const auto type : kEveryKind) {
    EXPECT_EQ(this->Conf().RemoveSection(this->Bare(type, "a")), 0) << type;
  }
  EXPECT_EQ(this->Conf().RemoveNetwork("office"), 0);
  EXPECT_EQ(this->Conf().RemoveSubnetSection("lan"), 0);
  EXPECT_EQ(this->Conf().RemoveHostSection("a"), 0);
  EXPECT_EQ(this->Conf().RemoveIFSection("a"), 0);
}

TYPED_TEST(Removing, NullNameRemovesNothing) {
  this->Given(kOffice);
  const std::string before = this->State();
  EXPECT_EQ(this->Conf().RemoveNetwork(nullptr), 0);
  EXPECT_EQ(this->Conf().RemoveSubnetSection(nullptr), 0);
  EXPECT_EQ(this->Conf().RemoveHostSection(nullptr), 0);
  EXPECT_EQ(this->Conf().RemoveIFSection(nullptr), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Removing, BlockThatIsNotFoundChangesNothing) {
  this->Given(kOffice);
  const std::string before = this->State();
  for (const char* name : {"", "Office", "offic", "office ", "A", "nested", "c", "d", "lan"}) {
    EXPECT_EQ(this->Conf().RemoveNetwork(name), 0) << name;
    EXPECT_EQ(this->Conf().RemoveSubnetSection(name), 0) << name;
    EXPECT_EQ(this->Conf().RemoveHostSection(name), 0) << name;
    EXPECT_EQ(this->Conf().RemoveIFSection(name), 0) << name;
  }
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(Removing, CalledDirectlyAnEmptyNameIsOneLikeAnyOther) {
  this->Given("@header1 {\nhost h {\n}\nif i {\n}\n}\nshared-network n {\n}\n@subnet s {\n}\n");
  this->Node("host h")->section.SetName("host ");
  this->Node("if i")->section.SetName("if ");
  this->Node("shared-network n")->section.SetName("shared-network ");
  this->Node("@subnet s")->section.SetName(this->Text("@subnet ").c_str());
  EXPECT_EQ(this->Conf().RemoveNetwork(""), 1);
  EXPECT_EQ(this->Conf().RemoveSubnetSection(""), 1);
  EXPECT_EQ(this->Conf().RemoveHostSection(""), 1);
  EXPECT_EQ(this->Conf().RemoveIFSection(""), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"));
}

TYPED_TEST(Removing, SavedFileIsWithoutTheBlock) {
  this->Given("log root;\n@header1 {\nhost a {\nlog a;\n}\nhost b {\nlog b;\n}\n}\nhost e {\n}\n");
  EXPECT_EQ(this->Conf().RemoveHostSection("a"), 1);
  EXPECT_EQ(this->Saved(), this->Text(R"(log root;

@header1
{

	host b
	{
		log b;
	}

}

host e
{

}
)"));
}

// ---- RemoveNetwork

template <class Family>
class RemovingNetworks : public EditFixture<Family> {
 public:
  int Remove(const char* name) { return this->Conf().RemoveNetwork(name); }
};
TYPED_TEST_SUITE(RemovingNetworks, Families, FamilyNames);

TYPED_TEST(RemovingNetworks, ItsSubnetsAndTheirHostsGoWithIt) {
  this->Given(kOffice);
  EXPECT_EQ(this->Remove("office"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header3
[TREE_ROOT_SECTION]
  log root;
  max-lease-time 7200;
  [@header3]
    [host d]
  [shared-network empty]
  [host e]
)"));
}

struct CursorCase {
  const char* what;
  const char* blocks;   // the whole file
  const char* network;  // the cursors before; null for none
  const char* subnet;
  const char* removed;
  const char* expected;  // cursors and tree
};

constexpr CursorCase kNetworkCases[] = {
    // the current network stands first: the cursors move to the block that follows
    {"the next is a network with blocks",
     "shared-network n {\n@header1 {\n}\n}\nshared-network o {\n@header2 {\n}\nhost h {\n}\n}\n",
     "shared-network n", "@header1", "n",
     "shared-network o / @header2\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [@header2]\n"
     "    [host h]\n"},
    {"the next is a network without blocks", "shared-network n {\n}\nshared-network o {\n}\n",
     "shared-network n", nullptr, "n",
     "shared-network o / null\n[TREE_ROOT_SECTION]\n  [shared-network o]\n"},
    {"the next is a subnet",
     "shared-network n {\n@header1 {\n}\n}\n@header2 {\n}\nshared-network o {\n}\n",
     "shared-network n", "@header1", "n",
     "null / @header2\n[TREE_ROOT_SECTION]\n  [@header2]\n  [shared-network o]\n"},
    {"the next is of no kind", "shared-network n {\n}\ngroup g {\n@header1 {\n}\n}\n",
     "shared-network n", nullptr, "n",
     "null / group g\n[TREE_ROOT_SECTION]\n  [group g]\n    [@header1]\n"},
    {"the next has the keyword somewhere in its header",
     "shared-network n {\n}\nclass shared-network x {\nhost h {\n}\n}\n", "shared-network n",
     nullptr, "n",
     "class shared-network x / host h\n[TREE_ROOT_SECTION]\n  [class shared-network x]\n"
     "    [host h]\n"},
    {"there is no other", "log root;\nshared-network n {\n@header1 {\n}\n}\n", "shared-network n",
     "@header1", "n", "null / null\n[TREE_ROOT_SECTION]\n  log root;\n"},

    // it does not: they move to the first block
    {"the first is a network",
     "shared-network o {\n@header1 {\n}\n}\nshared-network n {\n@header2 {\n}\n}\nhost h {\n}\n",
     "shared-network n", "@header2", "n",
     "shared-network o / @header1\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [@header1]\n"
     "  [host h]\n"},
    {"the first is a subnet", "@header1 {\n}\nhost h {\n}\nshared-network n {\n@header2 {\n}\n}\n",
     "shared-network n", "@header2", "n",
     "null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n  [host h]\n"},
    {"the first is a host", "host h {\n}\nshared-network n {\n}\nshared-network o {\n}\n",
     "shared-network n", nullptr, "n",
     "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n  [shared-network o]\n"},
    {"the subnet cursor stood elsewhere",
     "host h {\n}\nshared-network n {\n@header1 {\n}\n}\n@header2 {\n}\n", "shared-network n",
     "@header2", "n", "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n  [@header2]\n"},
    {"the first holds the removed one", "group g {\nshared-network n {\n}\n}\nhost h {\n}\n",
     "shared-network n", nullptr, "n",
     "null / group g\n[TREE_ROOT_SECTION]\n  [group g]\n  [host h]\n"},
    {"the first is a network whose second block is the removed one",
     "shared-network o {\nhost h {\n}\nshared-network n {\n}\n}\n", "shared-network n", nullptr,
     "n", "shared-network o / host h\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [host h]\n"},
    {"the first is a network whose first block is the removed one",
     "shared-network o {\nshared-network n {\n}\nhost h {\n}\n}\n", "shared-network n", nullptr,
     "n", "shared-network o / null\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [host h]\n"},

    // another one is current: the cursors stay where they are
    {"cursors in another network",
     "shared-network n {\n@header1 {\n}\n}\nshared-network o {\n@header2 {\n}\n}\n",
     "shared-network o", "@header2", "n",
     "shared-network o / @header2\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [@header2]\n"},
    {"no network cursor", "shared-network n {\n}\nhost h {\n}\n@header1 {\n}\n", nullptr,
     "@header1", "n", "null / @header1\n[TREE_ROOT_SECTION]\n  [host h]\n  [@header1]\n"},
    {"no cursors", "shared-network n {\n}\nhost h {\n}\n", nullptr, nullptr, "n",
     "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},
    {"the current one is around it",
     "shared-network o {\n@header1 {\n}\nshared-network n {\n}\n}\n", "shared-network o",
     "@header1", "n",
     "shared-network o / @header1\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [@header1]\n"},

    // ... but a cursor into the removed block becomes null
    {"subnet cursor on a block in it",
     "shared-network n {\n@header1 {\n}\n}\nshared-network o {\n@header2 {\n}\n}\n",
     "shared-network o", "@header1", "n",
     "shared-network o / null\n[TREE_ROOT_SECTION]\n  [shared-network o]\n    [@header2]\n"},
    {"subnet cursor deep in it",
     "shared-network n {\ngroup g {\n@header1 {\nhost a {\n}\n}\n}\n}\nhost h {\n}\n", nullptr,
     "host a", "n", "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},
    {"subnet cursor on it", "shared-network n {\n}\nhost h {\n}\n", nullptr, "shared-network n",
     "n", "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},
    {"both cursors in it",
     "shared-network n {\nshared-network o {\n@header1 {\n}\n}\n}\nhost h {\n}\n",
     "shared-network o", "@header1", "n", "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},
    {"network cursor in it, subnet cursor outside",
     "shared-network n {\nshared-network o {\n}\n}\nhost h {\n}\n", "shared-network o", "host h",
     "n", "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n"},

    // the first of the name, in file order and however deep
    {"a nested one comes first",
     "group g {\nshared-network n {\nhost a {\n}\n}\n}\nshared-network n {\nhost b {\n}\n}\n",
     nullptr, "group g", "n",
     "null / group g\n[TREE_ROOT_SECTION]\n  [group g]\n  [shared-network n]\n    [host b]\n"},
};

TYPED_TEST(RemovingNetworks, CursorsMoveAsPromised) {
  for (const CursorCase& test : kNetworkCases) {
    SCOPED_TRACE(test.what);
    this->Given(test.blocks);
    this->Place(test.network, test.subnet);
    EXPECT_EQ(this->Remove(test.removed), 1);
    EXPECT_EQ(this->State(), this->Text(test.expected));
  }
}

TYPED_TEST(RemovingNetworks, CurrentFirstNetworkHandsTheCursorsToTheNextNetwork) {
  this->Given("shared-network n {\n}\nshared-network o {\n@header1 {\n}\n}\n");
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network o / @header1
[TREE_ROOT_SECTION]
  [shared-network o]
    [@header1]
)"));
}

TYPED_TEST(RemovingNetworks, CurrentFirstNetworkHandsTheSubnetCursorToTheNextBlock) {
  this->Given("shared-network n {\n}\nhost h {\n}\n");
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n");
}

TYPED_TEST(RemovingNetworks, OnlyTopLevelBlockLeavesNoCursors) {
  this->Given("shared-network n {\n@header1 {\n}\n}\n");
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), "null / null\n[TREE_ROOT_SECTION]\n");
}

TYPED_TEST(RemovingNetworks, CurrentLaterNetworkHandsTheCursorsToTheFirstBlock) {
  this->Given("@header1 {\n}\nshared-network n {\n@header2 {\n}\n}\nhost h {\n}\n");
  ASSERT_TRUE(this->Conf().GotoSection("n", SECTION_SHARED_NETWORK));
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
  [host h]
)"));
}

TYPED_TEST(RemovingNetworks, NetworkThatIsNotCurrentLeavesTheCursors) {
  this->Given("shared-network n {\n@header1 {\n}\n}\nshared-network o {\n@header2 {\n}\n}\n");
  EXPECT_EQ(this->Remove("o"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network n / @header1
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
)"));
}

TYPED_TEST(RemovingNetworks, EmptiedChildListStays) {
  this->Given("shared-network n {\n}\n");
  EXPECT_EQ(this->Remove("n"), 1);
  auto* const root = this->Conf().GetTreeItemByNameAt(nullptr, nullptr);
  ASSERT_NE(root->children, nullptr);
  EXPECT_TRUE(root->children->empty());
}

TYPED_TEST(RemovingNetworks, NetworkThatServesAsTheRootCanGo) {
  this->Unopened("");
  ASSERT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "n")), 1);
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), "null / null\n");
  EXPECT_EQ(this->Remove("n"), 0);
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_HOST, "h")), 1);
  EXPECT_EQ(this->State(), "null / null\n[host h]\n  max-lease-time 1;\n");
}

TYPED_TEST(RemovingNetworks, CursorsHandedToABlockOfTheRemovedRootBecomeNull) {
  this->Unopened("");
  ASSERT_EQ(this->Conf().AddNetwork(this->Timed(SECTION_SHARED_NETWORK, "n")), 1);
  ASSERT_EQ(this->Conf().AddHost(this->Timed(SECTION_HOST, "h")), 1);
  EXPECT_EQ(this->State(), R"(shared-network n / null
[shared-network n]
  max-lease-time 1;
  [host h]
    max-lease-time 1;
)");
  EXPECT_EQ(this->Remove("n"), 1);
  EXPECT_EQ(this->State(), "null / null\n");
}

// ---- RemoveSubnetSection

template <class Family>
class RemovingSubnets : public EditFixture<Family> {
 public:
  int Remove(std::string_view name) {
    return this->Conf().RemoveSubnetSection(this->Text(name).c_str());
  }
};
TYPED_TEST_SUITE(RemovingSubnets, Families, FamilyNames);

TYPED_TEST(RemovingSubnets, ItsHostsAndIfBlocksGoWithIt) {
  this->Given(kOffice);
  EXPECT_EQ(this->Remove("@bare1"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network office / @header2
[TREE_ROOT_SECTION]
  log root;
  max-lease-time 7200;
  [shared-network office]
    log office;
    [@header2]
      log two;
      [host c]
        @fixed @ip2;
  [@header3]
    [host d]
  [shared-network empty]
  [host e]
)"));
}

constexpr CursorCase kSubnetCases[] = {
    // the current subnet stands first below the current network
    {"the next is a subnet", "shared-network n {\n@header1 {\n}\n@header2 {\n}\nhost h {\n}\n}\n",
     "shared-network n", "@header1", "@bare1",
     "shared-network n / @header2\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header2]\n"
     "    [host h]\n"},
    {"the next is of no kind", "shared-network n {\n@header1 {\n}\ngroup g {\n}\n}\nhost h {\n}\n",
     "shared-network n", "@header1", "@bare1",
     "shared-network n / group g\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [group g]\n"
     "  [host h]\n"},
    {"the next is a network",
     "shared-network n {\n@header1 {\n}\nshared-network o {\nhost h {\n}\n}\n}\n",
     "shared-network n", "@header1", "@bare1",
     "shared-network o / host h\n[TREE_ROOT_SECTION]\n  [shared-network n]\n"
     "    [shared-network o]\n      [host h]\n"},
    {"there is no other", "host h {\n}\nshared-network n {\n@header1 {\nhost a {\n}\n}\n}\n",
     "shared-network n", "@header1", "@bare1",
     "shared-network n / null\n[TREE_ROOT_SECTION]\n  [host h]\n  [shared-network n]\n"},

    // it does not
    {"the first is a subnet",
     "shared-network n {\n@header2 {\n}\nhost h {\n}\n@header1 {\n}\n@header3 {\n}\n}\n",
     "shared-network n", "@header1", "@bare1",
     "shared-network n / @header2\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header2]\n"
     "    [host h]\n    [@header3]\n"},
    {"the first is a network without blocks",
     "shared-network n {\nshared-network o {\n}\n@header1 {\n}\n}\n", "shared-network n",
     "@header1", "@bare1",
     "shared-network o / null\n[TREE_ROOT_SECTION]\n  [shared-network n]\n"
     "    [shared-network o]\n"},
    {"the first holds the removed one",
     "shared-network n {\ngroup g {\n@header1 {\n}\n@header2 {\n}\n}\n}\n", "shared-network n",
     "@header1", "@bare1",
     "shared-network n / group g\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [group g]\n"
     "      [@header2]\n"},

    // no network is current: the level is the root
    {"the next at the top is a subnet", "@header1 {\n}\n@header2 {\n}\n", nullptr, "@header1",
     "@bare1", "null / @header2\n[TREE_ROOT_SECTION]\n  [@header2]\n"},
    {"the next at the top is a network", "@header1 {\n}\nshared-network n {\n@header2 {\n}\n}\n",
     nullptr, "@header1", "@bare1",
     "shared-network n / @header2\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header2]\n"},
    {"the first at the top is a host", "host h {\n}\n@header1 {\n}\n@header2 {\n}\n", nullptr,
     "@header1", "@bare1", "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n  [@header2]\n"},
    {"there is no other at the top", "log root;\n@header1 {\n}\n", nullptr, "@header1", "@bare1",
     "null / null\n[TREE_ROOT_SECTION]\n  log root;\n"},
    {"the first at the top is the network of the removed one",
     "shared-network n {\nhost h {\n}\n@header1 {\n}\n}\n", nullptr, "@header1", "@bare1",
     "shared-network n / host h\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [host h]\n"},
    {"and the removed one is its first block",
     "shared-network n {\n@header1 {\n}\n@header2 {\n}\n}\n", nullptr, "@header1", "@bare1",
     "shared-network n / null\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header2]\n"},

    // the network cursor on the subnet itself
    {"without blocks", "@header1 {\n}\n@header2 {\n}\n", "@header1", "@header1", "@bare1",
     "null / null\n[TREE_ROOT_SECTION]\n  [@header2]\n"},
    {"with a block, which goes too", "@header1 {\nhost a {\n}\n}\n@header2 {\n}\n", "@header1",
     "@header1", "@bare1", "null / null\n[TREE_ROOT_SECTION]\n  [@header2]\n"},
    {"with a network, which goes too",
     "@header1 {\nshared-network n {\nhost a {\n}\n}\n}\n@header2 {\n}\n", "@header1", "@header1",
     "@bare1", "null / null\n[TREE_ROOT_SECTION]\n  [@header2]\n"},
    {"with the subnet cursor elsewhere", "@header1 {\nhost a {\n}\n}\n@header2 {\n}\n", "@header1",
     "@header2", "@bare1", "null / @header2\n[TREE_ROOT_SECTION]\n  [@header2]\n"},

    // another subnet is current: the cursors stay where they are
    {"subnet cursor on a sibling", "shared-network n {\n@header1 {\n}\n@header2 {\n}\n}\n",
     "shared-network n", "@header2", "@bare1",
     "shared-network n / @header2\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header2]\n"},
    {"subnet cursor in another network",
     "shared-network n {\n@header1 {\n}\n}\nshared-network o {\n@header2 {\n}\n}\n",
     "shared-network n", "@header2", "@bare1",
     "shared-network n / @header2\n[TREE_ROOT_SECTION]\n  [shared-network n]\n"
     "  [shared-network o]\n    [@header2]\n"},
    {"no cursors", "@header1 {\n}\nhost h {\n}\n", nullptr, nullptr, "@bare1",
     "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},

    // ... but a cursor into the removed block becomes null
    {"subnet cursor on a host in it", "@header1 {\nhost a {\n}\n}\nhost h {\n}\n", nullptr,
     "host a", "@bare1", "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n"},
    {"subnet cursor on a subnet in it",
     "shared-network n {\n@header1 {\ngroup g {\n@header2 {\n}\n}\n}\n@header3 {\n}\n}\n",
     "shared-network n", "@header2", "@bare1",
     "shared-network n / null\n[TREE_ROOT_SECTION]\n  [shared-network n]\n    [@header3]\n"},

    // the first of the name below the current network
    {"one of the name stands before the network",
     "@header1 {\nlog outer;\n}\nshared-network n {\nhost h {\n}\n@header1 {\nlog inner;\n}\n}\n",
     "shared-network n", "host h", "@bare1",
     "shared-network n / host h\n[TREE_ROOT_SECTION]\n  [@header1]\n    log outer;\n"
     "  [shared-network n]\n    [host h]\n"},
    {"without a network the whole file is searched",
     "host h {\n}\nshared-network n {\ngroup g {\n@header1 {\n}\n}\n}\n", nullptr, "host h",
     "@bare1",
     "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n  [shared-network n]\n    [group g]\n"},
};

TYPED_TEST(RemovingSubnets, CursorsMoveAsPromised) {
  for (const CursorCase& test : kSubnetCases) {
    SCOPED_TRACE(test.what);
    this->Given(test.blocks);
    this->Place(test.network, test.subnet);
    EXPECT_EQ(this->Remove(test.removed), 1);
    EXPECT_EQ(this->State(), this->Text(test.expected));
  }
}

TYPED_TEST(RemovingSubnets, OnlyBlockOfANetworkLeavesTheNetworkCurrent) {
  this->Given("shared-network n {\n@header1 {\nhost a {\n}\n}\n}\nhost h {\n}\n");
  EXPECT_EQ(this->Remove("@bare1"), 1);
  EXPECT_EQ(this->State(), R"(shared-network n / null
[TREE_ROOT_SECTION]
  [shared-network n]
  [host h]
)");
  ASSERT_NE(this->Conf().currentNetwork->children, nullptr);
  EXPECT_TRUE(this->Conf().currentNetwork->children->empty());
}

TYPED_TEST(RemovingSubnets, BlockOnTheNetworkCursorItselfIsFoundBeforeThoseInIt) {
  this->Given("@header1 {\n@header1 {\n}\n}\nhost h {\n}\n");
  this->Place("@header1", "host h");
  EXPECT_EQ(this->Remove("@bare1"), 1);
  EXPECT_EQ(this->State(), "null / host h\n[TREE_ROOT_SECTION]\n  [host h]\n");
}

TYPED_TEST(RemovingSubnets, SubnetOutsideTheCurrentNetworkIsNotFound) {
  this->Given("shared-network n {\nhost h {\n}\n}\n@header1 {\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("@bare1"), 0);
  EXPECT_EQ(this->State(), before);
}

// ---- RemoveHostSection and RemoveIFSection, which differ in nothing but the keyword

template <class Family>
class RemovingBelowSubnets : public EditFixture<Family> {
 public:
  int Remove(const char* name) {
    return Family::kIsHost ? this->Conf().RemoveHostSection(name)
                           : this->Conf().RemoveIFSection(name);
  }
};
TYPED_TEST_SUITE(RemovingBelowSubnets, FamiliesAndKinds, FamilyAndKindNames);

TYPED_TEST(RemovingBelowSubnets, BlockGoesWithAllThatIsNestedInIt) {
  this->Given(
      "@header1 {\nhost x {\n}\n@kind a {\nlog a;\ngroup g {\nhost b {\n}\n}\n}\n"
      "if y {\n}\n}\nhost b {\n}\n");
  EXPECT_EQ(this->Remove("a"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [host x]
    [if y]
  [host b]
)"));
}

TYPED_TEST(RemovingBelowSubnets, FirstOfANameGoesFirst) {
  this->Given("@header1 {\n@kind a {\nlog 1;\n}\n@kind a {\nlog 2;\n}\n}\n");
  EXPECT_EQ(this->Remove("a"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(null / @header1
[TREE_ROOT_SECTION]
  [@header1]
    [@kind a]
      log 2;
)"));
  EXPECT_EQ(this->Remove("a"), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"));
  EXPECT_EQ(this->Remove("a"), 0);
}

TYPED_TEST(RemovingBelowSubnets, EmptiedChildListStays) {
  this->Given("@header1 {\n@kind a {\n}\n}\n");
  EXPECT_EQ(this->Remove("a"), 1);
  ASSERT_NE(this->Conf().currentSubnet->children, nullptr);
  EXPECT_TRUE(this->Conf().currentSubnet->children->empty());
}

TYPED_TEST(RemovingBelowSubnets, OtherKindOfTheSameNameStays) {
  this->Given("@header1 {\nhost a {\n}\nif a {\n}\nhost a b {\n}\nif a b {\n}\n}\n");
  EXPECT_EQ(this->Remove("a b"), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"
                                      "    [host a]\n    [if a]\n    [") +
                               (TypeParam::kIsHost ? "if" : "host") + " a b]\n");
}

TYPED_TEST(RemovingBelowSubnets, WithoutACurrentSubnetNothingIsRemoved) {
  this->Given("@header1 {\n@kind a {\n}\n}\n@kind b {\n}\n");
  this->Place(nullptr, nullptr);
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->Remove("b"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(RemovingBelowSubnets, BlockInAnotherSubnetIsNotRemoved) {
  this->Given("@header1 {\n}\n@header2 {\n@kind a {\n}\n}\n@kind b {\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->Remove("b"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(RemovingBelowSubnets, BlockDeeperDownIsNotRemovedAndHidesTheOneBehindIt) {
  this->Given("@header1 {\ngroup g {\n@kind a {\n}\n}\n@kind a {\n}\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(RemovingBelowSubnets, BlockOnTheCursorIsNotRemovedAndHidesThoseBelowIt) {
  this->Given("@kind a {\n@kind a {\n}\n}\n");
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(RemovingBelowSubnets, TopNodeIsItsOwnParentButInNoList) {
  this->Given("@header1 {\n}\n");
  auto& top = this->Conf().holder->topNode;
  top.section.SetName(this->Text("@kind a").c_str());
  this->Conf().currentSubnet = &top;
  const std::string before = this->State();
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->State(), before);
}

TYPED_TEST(RemovingBelowSubnets, NetworkCursorIntoTheBlockBecomesNull) {
  this->Given("@header1 {\n@kind a {\nshared-network n {\n}\n}\n}\n");
  this->Place("shared-network n", "@header1");
  EXPECT_EQ(this->Remove("a"), 1);
  EXPECT_EQ(this->State(), this->Text("null / @header1\n[TREE_ROOT_SECTION]\n  [@header1]\n"));
}

TYPED_TEST(RemovingBelowSubnets, NetworkCursorStaysOtherwise) {
  this->Given("shared-network n {\n@header1 {\n@kind a {\n}\n}\n}\n");
  EXPECT_EQ(this->Remove("a"), 1);
  EXPECT_EQ(this->State(), this->Text(R"(shared-network n / @header1
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
)"));
}

TYPED_TEST(RemovingBelowSubnets, BlockThatItsParentDoesNotHoldStays) {
  this->Given("@header1 {\ngroup g {\n@kind a {\n}\n}\n}\n");
  const std::string before = this->State();
  const WrongParent wrong(this->Node("@kind a"), this->Node("@header1"));
  EXPECT_EQ(this->Remove("a"), 0);
  EXPECT_EQ(this->State(), before);
}

// ---- Trees whose links do not agree

template <class Family>
class RemovingFromABrokenTree : public EditFixture<Family> {
 public:
  /// A network, and groups with a full, an empty and no child list.
  void Given() {
    EditFixture<Family>::Given(
        "shared-network n {\n@header1 {\nhost a {\n}\nhost b {\n}\nhost c {\n}\n}\n}\n"
        "group full {\nhost f {\n}\n}\ngroup none {\n}\n");
    this->Node("group none")->children = nullptr;
    this->Conf().AddTreeSection(this->Record(SECTION_HOST, {{0, "group empty"}}), nullptr);
    this->Node("group empty")->children = new std::list<Tree<CfSection>::TreeNode*>;
  }

  static constexpr const char* kStrangers[] = {"group full", "group empty", "group none"};
};
TYPED_TEST_SUITE(RemovingFromABrokenTree, Families, FamilyNames);

TYPED_TEST(RemovingFromABrokenTree, ChildNotHeldByItsParentStopsTheRemovalOfASubnet) {
  for (const char* stranger : this->kStrangers) {
    this->Given();
    const WrongParent wrong(this->Node("host b"), this->Node(stranger));
    EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 0) << stranger;
    EXPECT_EQ(this->State(), this->Text(R"(shared-network n / null
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
      [host b]
      [host c]
  [group full]
    [host f]
  [group none]
  [group empty]
)")) << stranger;
  }
}

TYPED_TEST(RemovingFromABrokenTree, ChildNotHeldByItsParentStopsTheRemovalOfANetwork) {
  for (const char* stranger : this->kStrangers) {
    this->Given();
    const WrongParent wrong(this->Node("@header1"), this->Node(stranger));
    EXPECT_EQ(this->Conf().RemoveNetwork("n"), 0) << stranger;
    EXPECT_EQ(this->State(), this->Text(R"(null / group full
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
      [host a]
      [host b]
      [host c]
  [group full]
    [host f]
  [group none]
  [group empty]
)")) << stranger;
  }
}

TYPED_TEST(RemovingFromABrokenTree, SubnetNotHeldByItsParentStaysWithoutItsChildren) {
  for (const char* stranger : this->kStrangers) {
    this->Given();
    this->Place(nullptr, "group full");
    auto* const subnet = this->Node("@header1");
    const WrongParent wrong(subnet, this->Node(stranger));
    EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 0) << stranger;
    EXPECT_EQ(this->State(), this->Text(R"(null / group full
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
  [group full]
    [host f]
  [group none]
  [group empty]
)")) << stranger;
    ASSERT_NE(subnet->children, nullptr);
    EXPECT_TRUE(subnet->children->empty());
  }
}

TYPED_TEST(RemovingFromABrokenTree, NetworkNotHeldByItsParentStaysWithoutItsChildren) {
  for (const char* stranger : this->kStrangers) {
    this->Given();
    this->Place(nullptr, "@header1");
    const WrongParent wrong(this->Node("shared-network n"), this->Node(stranger));
    EXPECT_EQ(this->Conf().RemoveNetwork("n"), 0) << stranger;
    EXPECT_EQ(this->State(), this->Text(R"(null / null
[TREE_ROOT_SECTION]
  [shared-network n]
  [group full]
    [host f]
  [group none]
  [group empty]
)")) << stranger;
  }
}

TYPED_TEST(RemovingFromABrokenTree, NullAmongTheChildrenStopsTheRemoval) {
  this->Given();
  this->Node("@header1")->children->insert(++this->Node("@header1")->children->begin(), nullptr);
  EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 0);
  EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 0);
  const auto* const children = this->Node("@header1")->children;
  ASSERT_EQ(children->size(), 3U);
  EXPECT_EQ(children->front(), nullptr);
  EXPECT_STREQ(children->back()->section.GetName(), "host c");
}

// ---- After a removal

/// Cursors that stood in what was removed.
template <class Family>
class AfterRemoval : public EditFixture<Family> {
 public:
  using typename EditFixture<Family>::Section;

  /// A network with all kinds of blocks, and a host behind it that is left over.
  void GivenCursorsInTheNetwork() {
    this->Given(
        "shared-network n {\n@header1 {\nhost a {\n@fixed @ip1;\n}\nif known {\n}\n}\n}\n"
        "host h {\n}\n");
  }
};
TYPED_TEST_SUITE(AfterRemoval, Families, FamilyNames);

TYPED_TEST(AfterRemoval, NavigationBelowANullSubnetMisses) {
  this->GivenCursorsInTheNetwork();
  this->Place(nullptr, "@header1");
  ASSERT_EQ(this->Conf().RemoveNetwork("n"), 1);
  ASSERT_EQ(this->Cursors(), "null / null");
  const std::vector<std::string> results = {this->First(SECTION_SHARED_NETWORK),
                                            this->First(SECTION_SUBNET),
                                            this->First(SECTION_HOST),
                                            this->First(SECTION_IF),
                                            this->Next(SECTION_SHARED_NETWORK),
                                            this->Next(SECTION_SUBNET),
                                            this->NextAfter(SECTION_HOST, "a"),
                                            this->NextAfter(SECTION_IF, "known"),
                                            this->ByName(SECTION_SUBNET, "@bare1"),
                                            this->ByName(SECTION_HOST, "h"),
                                            this->ByName(SECTION_IF, "known"),
                                            this->ByLine("@fixed @ip1;"),
                                            this->HostByName("a"),
                                            this->HostByIp("@ip1"),
                                            this->HostByMac("00:00:00:00:00:0a"),
                                            this->Goto("n", SECTION_SHARED_NETWORK),
                                            this->Goto("@bare1", SECTION_SUBNET),
                                            this->Goto("a", SECTION_HOST),
                                            this->Goto("known", SECTION_IF)};
  EXPECT_THAT(results, Each("miss"));
  EXPECT_EQ(this->First(SECTION_GLOBAL), "0 | 0=TREE_ROOT_SECTION");
  EXPECT_EQ(this->Goto("h", SECTION_HOST), "hit");
  EXPECT_EQ(this->State(), "null / null\n[TREE_ROOT_SECTION]\n  [host h]\n");
}

TYPED_TEST(AfterRemoval, EditsBelowANullSubnetDoAsWithoutOne) {
  this->GivenCursorsInTheNetwork();
  this->Place(nullptr, "host a");
  ASSERT_EQ(this->Conf().RemoveNetwork("n"), 1);
  std::string address = "was here";
  EXPECT_EQ(this->Conf().GetSubnet(address), 0);
  EXPECT_EQ(address, "was here");
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_SUBNET, "@name1"), nullptr), 0);
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_HOST, "h"), nullptr), 0);
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_IF, "known"), nullptr), 0);
  EXPECT_EQ(this->Conf().ChangeSection(this->Timed(SECTION_SHARED_NETWORK, "n"), nullptr), 0);
  EXPECT_EQ(this->Conf().SetSectionParams(this->Timed(SECTION_SUBNET, "@name1")), 0);
  EXPECT_EQ(this->Conf().RemoveHostSection("h"), 0);
  EXPECT_EQ(this->Conf().RemoveIFSection("known"), 0);
  EXPECT_EQ(this->Conf().RemoveSubnetSection("lan"), 0);
  EXPECT_EQ(this->Conf().AddSection(this->Timed(SECTION_HOST, "h")), 1);
  EXPECT_EQ(this->State(), R"(null / null
[TREE_ROOT_SECTION]
  [host h]
  [host h]
    max-lease-time 1;
)");
  EXPECT_EQ(this->Saved(), "\nhost h\n{\n}\n\nhost h\n{\n\tmax-lease-time 1;\n}\n");
}

TYPED_TEST(AfterRemoval, EveryOperationRunsOnWhatIsLeft) {
  for (const CursorCase& test : kNetworkCases) {
    SCOPED_TRACE(test.what);
    this->Given(test.blocks);
    this->Place(test.network, test.subnet);
    ASSERT_EQ(this->Conf().RemoveNetwork(test.removed), 1);
    this->Walks();
    this->Lookups();
    EXPECT_EQ(this->Cursors(), "null / null") << "the last lookup clears them";
  }
}

TYPED_TEST(AfterRemoval, EveryEditRunsOnWhatIsLeft) {
  for (const CursorCase& test : kSubnetCases) {
    for (const bool add : {true, false}) {
      SCOPED_TRACE(test.what);
      this->Given(test.blocks);
      this->Place(test.network, test.subnet);
      ASSERT_EQ(this->Conf().RemoveSubnetSection(this->Text(test.removed).c_str()), 1);
      for (const auto type : kEveryKind) {
        const auto record = this->Timed(type, "@name1");
        if (add) this->Conf().AddSection(record);
        this->Conf().ChangeSection(record, nullptr);
        this->Conf().SetSectionParams(record);
        this->Conf().RemoveSection(record);
      }
      this->Conf().RemoveNetwork("n");
      this->Conf().RemoveNetwork("o");
      this->Walks();
      this->Lookups();
      EXPECT_EQ(this->Conf().Save(""), 1);
    }
  }
}

TYPED_TEST(AfterRemoval, OpenStartsAfresh) {
  this->GivenCursorsInTheNetwork();
  this->Place(nullptr, "host a");
  ASSERT_EQ(this->Conf().RemoveNetwork("n"), 1);
  EXPECT_TRUE(this->Conf().Open());
  EXPECT_EQ(this->State(), this->Text(R"(shared-network n / @header1
[TREE_ROOT_SECTION]
  [shared-network n]
    [@header1]
      [host a]
        @fixed @ip1;
      [if known]
  [host h]
)"));
}

}  // namespace
}  // namespace klepur::test
