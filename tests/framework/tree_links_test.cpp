#include <klepur/framework/tree_links.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/blocks.h"
#include "tests/support/tree_text.h"

namespace klepur::internal {
namespace {

using klepur::test::Block;
using klepur::test::TreeText;

class TreeLinks : public ::testing::Test {
 protected:
  static TreeNode* Add(TreeNode& parent, const std::string& name) {
    return AppendChild(parent, Block(name, {}));
  }

  /// The name of a node, "none" for null.
  static std::string Name(const TreeNode* node) {
    return node == nullptr ? "none" : node->section.GetName();
  }

  TreeNode top_{nullptr, CfSection()};
};

class FamilyLinks : public TreeLinks {
 protected:
  TreeNode* network_ = Add(top_, "shared-network office");
  TreeNode* inner_ = Add(*network_, "subnet 10.0.0.0 netmask 255.0.0.0");
  TreeNode* host_ = Add(*inner_, "host a");
  TreeNode* subnet_ = Add(top_, "subnet 10.1.0.0 netmask 255.255.0.0");
  TreeNode* last_ = Add(top_, "host b");
};

// ---- FirstChild ----

TEST_F(FamilyLinks, FirstChildIsTheFirstInFileOrder) {
  EXPECT_EQ(FirstChild(top_), network_);
  EXPECT_EQ(FirstChild(*network_), inner_);
}

TEST_F(TreeLinks, NodeWithoutChildrenHasNoFirstChild) {
  EXPECT_EQ(FirstChild(top_), nullptr);
  top_.children = new std::list<TreeNode*>;
  EXPECT_EQ(FirstChild(top_), nullptr);
}

TEST_F(TreeLinks, NodeOutsideAnyChildListHasNoSibling) {
  EXPECT_EQ(NextSiblingHolding(top_, "host "), nullptr);
  TreeNode loose(&top_, Block("host a", {}));
  EXPECT_EQ(NextSiblingHolding(loose, "host "), nullptr);
  Add(top_, "host b");
  EXPECT_EQ(NextSiblingHolding(loose, "host "), nullptr);
}

TEST_F(FamilyLinks, FirstChildHoldingFindsThePartAnywhereInTheName) {
  EXPECT_EQ(FirstChildHolding(top_, "subnet "), subnet_);
  EXPECT_EQ(FirstChildHolding(top_, "host "), last_);
  EXPECT_EQ(FirstChildHolding(top_, "netmask"), subnet_);
  EXPECT_EQ(FirstChildHolding(top_, "office"), network_);
  EXPECT_EQ(FirstChildHolding(top_, "shared-network office"), network_);
  EXPECT_EQ(FirstChildHolding(top_, ""), network_);
}

TEST_F(FamilyLinks, FirstChildHoldingComparesLetterCaseAndStaysAmongTheChildren) {
  EXPECT_EQ(FirstChildHolding(top_, "Host "), nullptr);
  EXPECT_EQ(FirstChildHolding(top_, "host a"), nullptr);
  EXPECT_EQ(FirstChildHolding(*host_, "host "), nullptr);
}

TEST_F(TreeLinks, FirstChildHoldingFindsNothingWithoutChildren) {
  EXPECT_EQ(FirstChildHolding(top_, ""), nullptr);
  top_.children = new std::list<TreeNode*>;
  EXPECT_EQ(FirstChildHolding(top_, ""), nullptr);
}

TEST_F(TreeLinks, FirstChildHoldingPassesOverNulls) {
  top_.children = new std::list<TreeNode*>{nullptr};
  TreeNode* const host = Add(top_, "host a");
  EXPECT_EQ(FirstChildHolding(top_, "host "), host);
}

TEST_F(TreeLinks, FirstChildHoldingLooksAtTheFirst65536Children) {
  for (std::size_t i = 0; i != 65535; ++i) Add(top_, "group");
  TreeNode* const host = Add(top_, "host a");
  EXPECT_EQ(FirstChildHolding(top_, "host "), host);

  top_.children->push_front(new TreeNode(&top_, Block("group", {})));
  EXPECT_EQ(FirstChildHolding(top_, "host "), nullptr);
  EXPECT_EQ(Name(FirstChildHolding(top_, "group")), "group");
}

TEST_F(FamilyLinks, NextSiblingHoldingFindsTheNextOneOnly) {
  TreeNode* const later = Add(top_, "host c");
  EXPECT_EQ(NextSiblingHolding(*network_, "host "), last_);
  EXPECT_EQ(NextSiblingHolding(*last_, "host "), later);
  EXPECT_EQ(NextSiblingHolding(*later, "host "), nullptr);
  EXPECT_EQ(NextSiblingHolding(*later, "subnet "), nullptr);
  EXPECT_EQ(NextSiblingHolding(*network_, "netmask"), subnet_);
  EXPECT_EQ(NextSiblingHolding(*network_, "HOST "), nullptr);
  subnet_->parent = network_;
  EXPECT_EQ(NextSiblingHolding(*network_, "host "), nullptr);
  EXPECT_EQ(NextSiblingHolding(*network_, "netmask"), subnet_);
}

// ---- Unlink ----

TEST_F(FamilyLinks, UnlinkTakesOutTheNodeWithoutDeletingIt) {
  EXPECT_TRUE(Unlink(*subnet_));
  const std::unique_ptr<TreeNode> subnet(subnet_);
  EXPECT_EQ(TreeText(top_),
            "[shared-network office]\n"
            "  [subnet 10.0.0.0 netmask 255.0.0.0]\n"
            "    [host a]\n"
            "[host b]\n");
  EXPECT_EQ(Name(subnet.get()), "subnet 10.1.0.0 netmask 255.255.0.0");
}

TEST_F(FamilyLinks, UnlinkLeavesTheNodesBelowWhereTheyAre) {
  EXPECT_TRUE(Unlink(*network_));
  const std::unique_ptr<TreeNode> network(network_);
  EXPECT_EQ(TreeText(*network), "[subnet 10.0.0.0 netmask 255.0.0.0]\n  [host a]\n");
}

TEST_F(FamilyLinks, UnlinkOfTheOnlyChildLeavesAnEmptyChildList) {
  EXPECT_TRUE(Unlink(*host_));
  const std::unique_ptr<TreeNode> host(host_);
  ASSERT_NE(inner_->children, nullptr);
  EXPECT_TRUE(inner_->children->empty());
}

TEST_F(FamilyLinks, UnlinkOfANodeThatIsNotInTheListIsFalse) {
  const std::string before = TreeText(top_);
  TreeNode loose(&top_, Block("host b", {}));
  TreeNode belowALeaf(host_, CfSection());
  EXPECT_FALSE(Unlink(loose));
  EXPECT_FALSE(Unlink(belowALeaf));
  EXPECT_FALSE(Unlink(top_));
  EXPECT_EQ(TreeText(top_), before);
}

TEST_F(FamilyLinks, SecondUnlinkIsFalse) {
  EXPECT_TRUE(Unlink(*last_));
  const std::unique_ptr<TreeNode> last(last_);
  EXPECT_FALSE(Unlink(*last));
}

// ---- HoldsLine, FirstChildWithLine ----

TEST(HoldsLineTest, LineCountsWholeAndWhetherItIsCommentedOutOrNot) {
  CfSection section = Block("host a", {"fixed-address 10.0.0.5;", "#off;"});
  section.entryList.insert(section.entryList.begin(), nullptr);
  EXPECT_TRUE(HoldsLine(section, "fixed-address 10.0.0.5;"));
  EXPECT_TRUE(HoldsLine(section, "off;"));
  EXPECT_FALSE(HoldsLine(section, "fixed-address 10.0.0.5"));
  EXPECT_FALSE(HoldsLine(section, ""));
}

TEST_F(TreeLinks, FirstChildWithLineIsTheFirstAndSaysHowManyLinesThereWereToCompare) {
  std::size_t lines = 10;
  EXPECT_EQ(FirstChildWithLine(top_, "b;", lines), nullptr);
  EXPECT_EQ(lines, 10U);
  AppendChild(top_, Block("host a", {"a;"}));
  TreeNode* const b = AppendChild(top_, Block("host b", {"b;", "c;"}));
  AppendChild(top_, Block("host c", {"b;"}));
  top_.children->push_front(nullptr);
  EXPECT_EQ(FirstChildWithLine(top_, "b;", lines), b);
  EXPECT_EQ(lines, 13U);
  EXPECT_EQ(FirstChildWithLine(top_, "d;", lines), nullptr);
  EXPECT_EQ(lines, 17U);
}

// ---- Holds ----

TEST_F(FamilyLinks, BlockHoldsItselfAndWhatIsNestedInIt) {
  EXPECT_TRUE(Holds(*host_, host_));
  EXPECT_TRUE(Holds(*inner_, host_));
  EXPECT_TRUE(Holds(*network_, host_));
  EXPECT_TRUE(Holds(top_, host_));
}

TEST_F(FamilyLinks, BlockDoesNotHoldOthers) {
  EXPECT_FALSE(Holds(*subnet_, host_));
  EXPECT_FALSE(Holds(*inner_, network_));
  EXPECT_FALSE(Holds(*network_, &top_));
  EXPECT_FALSE(Holds(top_, nullptr));
}

TEST_F(FamilyLinks, BlockHoldsWhatItsChildListsSayWhateverTheParentsAre) {
  network_->children->push_front(nullptr);
  host_->parent = subnet_;
  EXPECT_TRUE(Holds(*network_, host_));
  EXPECT_FALSE(Holds(*subnet_, host_));
}

// ---- AppendChild ----

TEST_F(TreeLinks, AppendChildMakesTheChildListAndAppendsInOrder) {
  TreeNode* const a = AppendChild(top_, Block("host a", {"fixed-address 10.0.0.5;", "#off;"}));
  TreeNode* const b = Add(top_, "host b");
  EXPECT_EQ(TreeText(top_),
            "[host a]\n"
            "  fixed-address 10.0.0.5;\n"
            "  #off;\n"
            "[host b]\n");
  EXPECT_EQ(top_.children->front(), a);
  EXPECT_EQ(top_.children->back(), b);
  EXPECT_EQ(a->parent, &top_);
  EXPECT_EQ(a->children, nullptr);
}

TEST_F(TreeLinks, AppendChildUsesTheListThatIsThere) {
  auto* const list = new std::list<TreeNode*>;
  top_.children = list;
  Add(top_, "host a");
  EXPECT_EQ(top_.children, list);
  EXPECT_EQ(list->size(), 1U);
}

TEST_F(TreeLinks, AppendChildTakesOverTheLinesOfTheSection) {
  CfSection section = Block("host a", {"fixed-address 10.0.0.5;"});
  const CfSectionEntry* const entry = section.entryList[0];
  const TreeNode* const node = AppendChild(top_, std::move(section));
  EXPECT_EQ(node->section.entryList[0], entry);
}

TEST_F(TreeLinks, RootNameIsTheOneOfEveryParsedFile) {
  EXPECT_STREQ(kRootName, "TREE_ROOT_SECTION");
}

}  // namespace
}  // namespace klepur::internal
