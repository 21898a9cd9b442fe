// What callers change by themselves in a tree that was searched before, so that the file has had
// reason to remember where things stand.
#include <gtest/gtest.h>

#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/navigation_fixture.h"

namespace klepur::test {
namespace {

constexpr std::string_view kFile = R"(shared-network office {
  @header1 {
    host a {
      @fixed @ip1;
    }
    host b {
      @fixed @ip2;
    }
    host c {
      log c;
    }
  }
  @header2 {
    host d {
      @fixed @ip3;
    }
  }
}
@header3 {
}
)";

template <class Family, Kind kKind>
class SearchedFile : public NavigationFixture<Family, kKind> {
 public:
  using typename NavigationFixture<Family, kKind>::Section;
  using typename NavigationFixture<Family, kKind>::TreeNode;

 protected:
  SearchedFile() {
    this->Given(kFile);
    Search();
  }

  void Search() {
    Section none;
    for (int i = 0; i < 20; ++i) {
      EXPECT_FALSE(this->Conf().GotoSection("nobody", SECTION_HOST));
      EXPECT_FALSE(this->Conf().GetHostByIp("nowhere", none, false));
    }
  }

  void Go(std::string_view bareSubnet) {
    ASSERT_TRUE(this->Conf().GotoSection(this->Text(bareSubnet).c_str(), SECTION_SUBNET));
  }

  /// The host that has the address; "" when none below the current subnet does.
  std::string HostWith(std::string_view ip) {
    Section found;
    const bool hit = this->Conf().GetHostByIp(this->Text(ip).c_str(), found, false);
    return hit ? found.params.front().value : "";
  }

  bool HasHost(const char* name) { return this->Conf().GotoSection(name, SECTION_HOST); }

  static void Move(TreeNode* node, TreeNode* parent) {
    node->parent->children->remove(node);
    if (parent->children == nullptr) parent->children = new std::list<TreeNode*>;
    parent->children->push_back(node);
    node->parent = parent;
  }
};

// ---- by way of nodes that lookups returned ----

template <class Family>
class ByHand : public SearchedFile<Family, Kind::kPlain> {};
TYPED_TEST_SUITE(ByHand, Families, FamilyNames);

TYPED_TEST(ByHand, ReorderedBlocksAreWalkedInTheirNewOrder) {
  auto* const subnet = this->Node("@header1");
  auto* const a = this->Node("host a");
  subnet->children->remove(a);
  subnet->children->push_back(a);
  EXPECT_EQ(this->First(SECTION_HOST).substr(0, 8), "3 | 0=b ");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "c").substr(0, 8), "3 | 0=a ");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "miss");
}

TYPED_TEST(ByHand, ReorderedBlocksAreRemoved) {
  auto* const network = this->Node("shared-network office");
  auto* const first = this->Node("@header1");
  network->children->remove(first);
  network->children->push_back(first);
  EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 1);
  EXPECT_EQ(network->children->size(), 1U);
  EXPECT_EQ(this->Cursors(), this->Text("shared-network office / @header2"));
  EXPECT_EQ(this->Conf().RemoveSubnetSection(this->Text("@bare1").c_str()), 0);
}

TYPED_TEST(ByHand, MovedBlockIsFoundWhereItStands) {
  this->Move(this->Node("host b"), this->Node("@header2"));
  EXPECT_FALSE(this->HasHost("b"));
  EXPECT_EQ(this->HostWith("@ip2"), "");
  this->Go("@bare2");
  EXPECT_TRUE(this->HasHost("b"));
  EXPECT_EQ(this->HostWith("@ip2"), "b");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "d").substr(0, 8), "3 | 0=b ");
  EXPECT_EQ(this->Conf().RemoveHostSection("b"), 1);
  EXPECT_FALSE(this->HasHost("b"));
}

TYPED_TEST(ByHand, BlockThatIsTakenOutIsNotFoundAndOneThatIsPutBackIs) {
  auto* const subnet = this->Node("@header1");
  std::unique_ptr<typename TestFixture::TreeNode> taken(this->Node("host b"));
  subnet->children->remove(taken.get());
  this->Search();
  EXPECT_FALSE(this->HasHost("b"));
  EXPECT_EQ(this->HostWith("@ip2"), "");
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a").substr(0, 7), "3 | 0=c");
  subnet->children->push_front(taken.release());
  EXPECT_TRUE(this->HasHost("b"));
  EXPECT_EQ(this->HostWith("@ip2"), "b");
}

TYPED_TEST(ByHand, DeletedBlockIsNotFound) {
  auto* const host = this->Node("host b");
  host->parent->children->remove(host);
  delete host;
  EXPECT_FALSE(this->HasHost("b"));
  EXPECT_EQ(this->HostWith("@ip2"), "");
}

TYPED_TEST(ByHand, ChildListsThatAreExchangedAreSearched) {
  auto* const first = this->Node("@header1");
  auto* const second = this->Node("@header2");
  std::swap(first->children, second->children);
  for (auto* node : *first->children) node->parent = first;
  for (auto* node : *second->children) node->parent = second;
  EXPECT_EQ(this->HostWith("@ip3"), "d");
  EXPECT_EQ(this->HostWith("@ip1"), "");
  EXPECT_EQ(this->Conf().RemoveHostSection("d"), 1);
}

TYPED_TEST(ByHand, LinesThatArePutIntoTheListAreFound) {
  auto* const host = this->Node("host c");
  auto entry = std::make_unique<CfSectionEntry>();
  entry->SetKeyName(this->Text("@fixed 1;").c_str());
  host->section.entryList.insert(host->section.entryList.begin(), entry.release());
  EXPECT_EQ(this->HostWith("1"), "c");
  host->section.entryList.front()->SetKeyName(this->Text("@fixed 2;").c_str());
  EXPECT_EQ(this->HostWith("1"), "");
  EXPECT_EQ(this->HostWith("2"), "c");
}

TYPED_TEST(ByHand, LinesThatAreTakenOutOfTheListAreNotFound) {
  auto& lines = this->Node("host b")->section.entryList;
  const std::unique_ptr<CfSectionEntry> taken(lines.front());
  lines.clear();
  EXPECT_EQ(this->HostWith("@ip2"), "");
  this->Node("host a")->section.entryList.push_back(new CfSectionEntry(*taken));
  EXPECT_EQ(this->HostWith("@ip2"), "a");
}

TYPED_TEST(ByHand, SectionsThatAreExchangedAreFoundByTheirNewNames) {
  std::swap(this->Node("host a")->section, this->Node("host d")->section);
  EXPECT_FALSE(this->HasHost("a"));
  EXPECT_EQ(this->HostWith("@ip3"), "d");
}

bool NameAfterLines(CfSection& section) {
  for (const CfSectionEntry* entry : section.entryList) section.SetName(entry->GetKeyName());
  return true;
}

TYPED_TEST(ByHand, NamesThatAVisitorChangesAreFound) {
  this->Node("@header1")->TraverseDo(NameAfterLines);
  EXPECT_FALSE(this->HasHost("c"));
  EXPECT_NE(this->Conf().GetTreeItemByNameAt("log c;", nullptr), nullptr);
}

TYPED_TEST(ByHand, NullsInTheListsArePassedOver) {
  auto* const subnet = this->Node("@header1");
  subnet->children->push_front(nullptr);
  auto& lines = this->Node("host b")->section.entryList;
  lines.insert(lines.begin(), nullptr);
  EXPECT_EQ(this->HostWith("@ip2"), "b");
  EXPECT_TRUE(this->HasHost("c"));
}

TYPED_TEST(ByHand, WalkGoesOnBehindABlockInTheListOfTheParentThatItNames) {
  auto* const subnet = this->Node("@header1");
  auto* const moved = this->Node("host d");
  moved->section.SetName("group");
  moved->parent->children->remove(moved);
  subnet->children->insert(std::next(subnet->children->begin()), moved);
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a"), "miss");  // its parent is left as it was
  moved->parent = subnet;
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "a").substr(0, 8), "3 | 0=b ");
}

TYPED_TEST(ByHand, ParentOfTheTopmostNodePlaysNoPart) {
  auto* const root = this->Node("TREE_ROOT_SECTION");
  root->parent->parent = root;
  this->scratch_.Write("dhcpd.conf", this->Text("@header1 {\n}\n}\n}\n@header2 {\n}\n"));
  auto* const top = root->parent;
  ASSERT_TRUE(this->Conf().Open());
  EXPECT_EQ(top->children->size(), 2U);
  EXPECT_EQ(top->children->back()->section.GetName(), this->Text("@header2"));
}

TYPED_TEST(ByHand, TopmostNodeLeadsIntoTheTreeAfterAnotherOpenToo) {
  auto* const top = this->Node("TREE_ROOT_SECTION")->parent;
  ASSERT_TRUE(this->Conf().Open());
  this->Search();
  EXPECT_TRUE(this->HasHost("b"));
  auto* const subnet = top->children->front()->children->front()->children->front();
  (*std::next(subnet->children->begin()))->section.SetName("host z");
  EXPECT_FALSE(this->HasHost("b"));
  EXPECT_TRUE(this->HasHost("z"));
}

TYPED_TEST(ByHand, CursorStaysOnABlockThatHangsElsewhereByNow) {
  auto* const network = this->Node("shared-network office");
  auto* const subnet = this->Node("@header1");
  auto* const root = network->parent;
  network->children->remove(subnet);
  root->children->push_back(subnet);  // its parent is left as it was
  EXPECT_EQ(this->Conf().RemoveNetwork("office"), 1);
  subnet->parent = root;
  EXPECT_EQ(this->Cursors(), this->Text("null / @header3"));
  EXPECT_TRUE(this->Conf().GotoSection(this->Text("@bare1").c_str(), SECTION_SUBNET));
}

// ---- by way of the members that a derived class has ----

template <class Family>
class ByHeir : public SearchedFile<Family, Kind::kDerived> {};
TYPED_TEST_SUITE(ByHeir, Families, FamilyNames);

TYPED_TEST(ByHeir, ChangesBelowTheHolderAreSeen) {
  auto* const root = this->Conf().holder->topNode.children->front();
  auto* const subnet = root->children->front()->children->front();
  subnet->children->front()->section.SetName("host z");
  EXPECT_FALSE(this->HasHost("a"));
  EXPECT_TRUE(this->HasHost("z"));
}

TYPED_TEST(ByHeir, ChangesBelowACursorAreSeen) {
  auto* const host = this->Conf().currentSubnet->children->back();
  host->parent->children->pop_back();
  delete host;
  EXPECT_FALSE(this->HasHost("c"));
  EXPECT_EQ(this->NextAfter(SECTION_HOST, "b"), "miss");
}

TYPED_TEST(ByHeir, AnotherHolderIsSearched) {
  delete this->Conf().holder;
  this->Conf().holder = new CfSectionHolder;
  this->Conf().currentNetwork = nullptr;
  this->Conf().currentSubnet = nullptr;
  ASSERT_EQ(this->Conf().AddHost(this->Record(
                SECTION_HOST, {{TypeParam::kName, "z"}, {TypeParam::kMaxLeaseTime, "1"}})),
            1);
  EXPECT_TRUE(this->HasHost("z"));
  EXPECT_FALSE(this->HasHost("a"));
}

// ---- by nobody ----

template <class Family>
class ByNobody : public SearchedFile<Family, Kind::kPlain> {};
TYPED_TEST_SUITE(ByNobody, Families, FamilyNames);

TYPED_TEST(ByNobody, FileThatIsReadOnceMoreIsSearchedAnew) {
  ASSERT_TRUE(this->Conf().ReadDhcpConfigFile());
  ASSERT_TRUE(this->Conf().Open());
  this->Search();
  EXPECT_TRUE(this->HasHost("b"));
  this->scratch_.Write("dhcpd.conf", this->Text("@header1 {\n host z {\n }\n}\n"));
  ASSERT_TRUE(this->Conf().Open());
  EXPECT_TRUE(this->HasHost("z"));
  EXPECT_FALSE(this->HasHost("b"));
}

TYPED_TEST(ByNobody, BlockThatIsAddedToAnotherFilesTreeIsFoundThereOnly) {
  const std::string path = this->scratch_.Write("other.conf", this->Text("@header1 {\n}\n"));
  typename TestFixture::File other(path.c_str());
  ASSERT_TRUE(other.Open());
  auto* const subnet = other.GetTreeItemByNameAt(this->Text("@header1").c_str(), nullptr);
  ASSERT_NE(subnet, nullptr);
  const auto record = this->Record(SECTION_HOST, {{TypeParam::kName, "host z"},
                                                  {TypeParam::kMaxLeaseTime, "max-lease-time 1;"}});
  EXPECT_TRUE(this->Conf().AddTreeSection(record, subnet));
  EXPECT_FALSE(this->HasHost("z"));
  EXPECT_TRUE(other.GotoSection("z", SECTION_HOST));
  EXPECT_NE(this->Conf().GetTreeItemByNameAt("host z", subnet), nullptr);
}

}  // namespace
}  // namespace klepur::test
