#include <klepur/lookup/tree_index.h>

#include <gtest/gtest.h>
#include <klepur/framework/name_match.h>
#include <klepur/framework/section_holder.h>

#include <list>
#include <memory>
#include <string>
#include <utility>

#include "tests/support/blocks.h"

namespace klepur::internal {
namespace {

using klepur::test::Block;

/// A tree of two subnets with hosts, and its index with the tables made:
///
///     root
///       subnet 10.0.0.0
///         host a  { fixed-address 10.0.0.1; }
///         host b  { fixed-address 10.0.0.2; }
///         host c  { fixed-address 10.0.0.3; }
///       subnet 10.1.0.0
///         group
///           host a  { fixed-address 10.1.0.1; }
///         host d  { fixed-address 10.1.0.4; }
class TreeIndexTest : public ::testing::Test {
 protected:
  TreeIndexTest() { WarmUp(); }

  static TreeNode* Host(TreeNode& parent, const std::string& name, const std::string& address) {
    return AppendChild(parent, Block("host " + name, {"fixed-address " + address + ";"}));
  }

  /// Makes the tables of names and addresses.
  void WarmUp() {
    for (int i = 0; i < 20; ++i) {
      index_.FirstNamed(holder_.topNode, "host nobody");
      for (TreeNode* subnet : {first_, second_}) Addressed(subnet, "10.9.9.9");
    }
  }

  /// The first node of this name in `start`; also checks that a walk finds the same one.
  TreeNode* Named(const std::string& name, TreeNode* start = nullptr) {
    TreeNode& from = start == nullptr ? holder_.topNode : *start;
    CfSection probe;
    probe.SetName(name.c_str());
    TreeNode* const found = index_.FirstNamed(from, name.c_str());
    EXPECT_EQ(found, from.FindIf(probe, Condition2)) << name;
    return found;
  }

  TreeNode* Addressed(TreeNode* subnet, const std::string& address) {
    return index_.FirstChildWithLine(*subnet, ("fixed-address " + address + ";").c_str());
  }

  CfSectionHolder holder_;
  TreeIndex index_{holder_.topNode};
  TreeNode* root_ = AppendChild(holder_.topNode, Block("root", {}));
  TreeNode* first_ = AppendChild(*root_, Block("subnet 10.0.0.0", {}));
  TreeNode* a_ = Host(*first_, "a", "10.0.0.1");
  TreeNode* b_ = Host(*first_, "b", "10.0.0.2");
  TreeNode* c_ = Host(*first_, "c", "10.0.0.3");
  TreeNode* second_ = AppendChild(*root_, Block("subnet 10.1.0.0", {}));
  TreeNode* group_ = AppendChild(*second_, Block("group", {}));
  TreeNode* nested_ = Host(*group_, "a", "10.1.0.1");
  TreeNode* d_ = Host(*second_, "d", "10.1.0.4");
};

// ---- lookups ----

TEST_F(TreeIndexTest, FindsTheFirstOfANameInFileOrder) {
  EXPECT_EQ(Named("root"), root_);
  EXPECT_EQ(Named("host a"), a_);
  EXPECT_EQ(Named("host d"), d_);
  EXPECT_EQ(Named("host A"), nullptr);
  EXPECT_EQ(Named("host "), nullptr);
}

TEST_F(TreeIndexTest, FindsOnlyWhatIsInTheStart) {
  EXPECT_EQ(Named("host a", first_), a_);
  EXPECT_EQ(Named("host a", second_), nested_);
  EXPECT_EQ(Named("host a", nested_), nested_);
  EXPECT_EQ(Named("host a", b_), nullptr);
  EXPECT_EQ(Named("host d", first_), nullptr);
  EXPECT_EQ(Named("host b", second_), nullptr);
}

TEST_F(TreeIndexTest, FindsALineStraightBelow) {
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), b_);
  EXPECT_EQ(Addressed(second_, "10.1.0.4"), d_);
  EXPECT_EQ(Addressed(second_, "10.1.0.1"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.20"), nullptr);
  EXPECT_EQ(Addressed(d_, "10.1.0.4"), nullptr);
}

TEST_F(TreeIndexTest, FindsTheFirstOfSeveralWithALine) {
  {
    const TreeIndex::Edit edit(index_, *c_);
    c_->section.AddEntry("fixed-address 10.0.0.2;", nullptr, "#");
  }
  index_.Append(*first_, Block("host e", {"fixed-address 10.0.0.2;"}));
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), b_);
  ASSERT_TRUE(index_.Remove(*b_));
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), c_);
}

TEST_F(TreeIndexTest, FindsTheNextSibling) {
  EXPECT_EQ(index_.NextSiblingHolding(*a_, ""), b_);
  EXPECT_EQ(index_.NextSiblingHolding(*a_, "host c"), c_);
  EXPECT_EQ(index_.NextSiblingHolding(*c_, ""), nullptr);
  EXPECT_EQ(index_.NextSiblingHolding(*group_, "host "), d_);
  EXPECT_EQ(index_.NextSiblingHolding(holder_.topNode, ""), nullptr);
}

// ---- changes by way of the index ----

TEST_F(TreeIndexTest, WhatIsAppendedIsFound) {
  TreeNode* const e = index_.Append(*first_, Block("host e", {"fixed-address 10.0.0.5;"}));
  EXPECT_EQ(e->parent, first_);
  EXPECT_EQ(first_->children->back(), e);
  EXPECT_EQ(Named("host e"), e);
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), e);
  EXPECT_EQ(index_.NextSiblingHolding(*c_, ""), e);
  TreeNode* const first = index_.Append(*e, Block("host f", {}));
  EXPECT_EQ(Named("host f", first_), first);
}

TEST_F(TreeIndexTest, AppendedDuplicateIsFoundWhereItStandsInTheFile) {
  TreeNode* const early = index_.Append(*first_, Block("host d", {}));
  EXPECT_EQ(Named("host d"), early);
  index_.Append(*second_, Block("host d", {}));
  EXPECT_EQ(Named("host d", second_), d_);
}

TEST_F(TreeIndexTest, WhatIsRemovedIsNotFoundAnyMore) {
  ASSERT_TRUE(index_.Remove(*a_));
  EXPECT_EQ(Named("host a"), nested_);
  EXPECT_EQ(Addressed(first_, "10.0.0.1"), nullptr);
  ASSERT_TRUE(index_.Remove(*second_));
  EXPECT_EQ(Named("host a"), nullptr);
  EXPECT_EQ(Named("host d"), nullptr);
  EXPECT_EQ(index_.NextSiblingHolding(*first_, ""), nullptr);
  EXPECT_EQ(root_->children->size(), 1U);
}

TEST_F(TreeIndexTest, NodeThatItsParentDoesNotHoldIsNotRemoved) {
  EXPECT_FALSE(index_.Remove(holder_.topNode));
  TreeNode loose(first_, Block("host e", {}));
  EXPECT_FALSE(index_.Remove(loose));
  EXPECT_EQ(first_->children->size(), 3U);
}

TEST_F(TreeIndexTest, EditedSectionIsFoundByItsNewTexts) {
  {
    const TreeIndex::Edit edit(index_, *b_);
    b_->section.SetName("host e");
    b_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.5;");
  }
  EXPECT_EQ(Named("host b"), nullptr);
  EXPECT_EQ(Named("host e"), b_);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
}

TEST_F(TreeIndexTest, EditMayOutliveTheTables) {
  {
    const TreeIndex::Edit edit(index_, *b_);
    b_->section.SetName("host e");
    index_.Drop();
  }
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(Named("host b"), nullptr);
    EXPECT_EQ(Named("host e"), b_);
    WarmUp();
  }
}

TEST_F(TreeIndexTest, EditOfANodeOutsideTheTreeDoesNothing) {
  TreeNode loose(first_, Block("host e", {"fixed-address 10.0.0.5;"}));
  {
    const TreeIndex::Edit edit(index_, loose);
    loose.section.SetName("host f");
  }
  EXPECT_EQ(Named("host f"), nullptr);
  EXPECT_EQ(Named("host a"), a_);
}

TEST_F(TreeIndexTest, WhatIsRemovedLeavesNoTraceForANodeInItsPlace) {
  ASSERT_TRUE(index_.Remove(*b_));
  CfSectionHolder other;  // whose node may well get the memory that was the removed one's
  Host(other.topNode, "b", "10.0.0.2");
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  index_.Append(*second_, Block("host e", {"fixed-address 10.0.0.2;"}));
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
}

// ---- changes by hand ----

TEST_F(TreeIndexTest, ChangeByHandIsSeenOnceTheTablesAreDropped) {
  b_->section.SetName("host e");
  b_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.5;");
  first_->children->remove(a_);
  first_->children->push_back(a_);
  index_.Drop();
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(Named("host b"), nullptr);
    EXPECT_EQ(Named("host e"), b_);
    EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
    EXPECT_EQ(index_.NextSiblingHolding(*c_, ""), a_);
    WarmUp();
  }
}

TEST_F(TreeIndexTest, ChangesByHandAreSeenAtOnceWhereOnlyWalksAreRight) {
  index_.WalkFromNowOn();
  WarmUp();
  for (int i = 20; i < 60; ++i) {
    const std::string number = std::to_string(i);
    b_->section.SetName(("host " + number).c_str());
    EXPECT_EQ(Named("host " + number), b_);
    const std::string line = "fixed-address 10.0.0." + number + ";";
    b_->section.entryList.front()->SetKeyName(line.c_str());
    EXPECT_EQ(Addressed(first_, "10.0.0." + number), b_);
    first_->children->remove(c_);
    first_->children->insert(first_->children->begin(), c_);
    EXPECT_EQ(index_.NextSiblingHolding(*c_, "host "), i % 2 == 0 ? a_ : b_);
    first_->children->remove(a_);
    i % 2 == 0 ? first_->children->push_back(a_) : first_->children->push_front(a_);
    WarmUp();
  }
}

TEST_F(TreeIndexTest, NodeThatIsTakenOutByHandIsNotRemovedWhereOnlyWalksAreRight) {
  index_.WalkFromNowOn();
  first_->children->remove(b_);
  const std::unique_ptr<TreeNode> taken(b_);
  EXPECT_FALSE(index_.Remove(*b_));
  EXPECT_EQ(index_.NextSiblingHolding(*b_, ""), nullptr);
  first_->children->push_front(nullptr);
  EXPECT_EQ(Named("host c"), c_);
  EXPECT_EQ(Addressed(first_, "10.0.0.3"), c_);
  const std::unique_ptr<std::list<TreeNode*>> list(std::exchange(first_->children, nullptr));
  EXPECT_FALSE(index_.Remove(*c_));
  EXPECT_EQ(Addressed(first_, "10.0.0.3"), nullptr);
  for (TreeNode* node : *list) delete node;
}

// ---- trees of other kinds ----

TEST_F(TreeIndexTest, BlocksNestedHoweverDeepAreFoundAndRemoved) {
  TreeNode* const outermost = index_.Append(*first_, Block("nested 0", {}));
  TreeNode* innermost = outermost;
  for (int depth = 1; depth < 120; ++depth) {
    WarmUp();  // the tables, as long as they go so deep
    innermost = index_.Append(*innermost, Block("nested " + std::to_string(depth), {}));
    EXPECT_EQ(Named("nested " + std::to_string(depth)), innermost);
    EXPECT_EQ(Named("nested 0"), outermost);
  }
  TreeNode* const above = innermost->parent;
  EXPECT_TRUE(index_.Remove(*innermost));
  EXPECT_EQ(above->children->size(), 0U);
  EXPECT_EQ(Named("nested 119"), nullptr);
  EXPECT_TRUE(index_.Remove(*outermost));
  EXPECT_EQ(Named("nested 0"), nullptr);
}

TEST_F(TreeIndexTest, NodeOfAnotherTreeIsWalked) {
  CfSectionHolder other;
  TreeNode* const subnet = AppendChild(other.topNode, Block("subnet 10.2.0.0", {}));
  TreeNode* const host = Host(*subnet, "a", "10.2.0.1");
  EXPECT_EQ(index_.FirstNamed(other.topNode, "host a"), host);
  EXPECT_EQ(Addressed(subnet, "10.2.0.1"), host);
  EXPECT_EQ(index_.FirstNamed(other.topNode, "host b"), nullptr);
}

TEST_F(TreeIndexTest, NodeOfAnotherTreeIsAppendedAndRemovedAllTheSame) {
  CfSectionHolder other;
  TreeNode* const a = index_.Append(other.topNode, Block("host a", {"fixed-address 10.2.0.1;"}));
  TreeNode* const b = index_.Append(other.topNode, Block("host b", {}));
  WarmUp();
  EXPECT_EQ(index_.NextSiblingHolding(*a, ""), b);
  EXPECT_EQ(Addressed(&other.topNode, "10.2.0.1"), a);
  ASSERT_TRUE(index_.Remove(*a));
  EXPECT_EQ(index_.FirstNamed(other.topNode, "host a"), nullptr);
  EXPECT_EQ(index_.FirstNamed(other.topNode, "host b"), b);
  EXPECT_EQ(Named("host a"), a_);
}

TEST_F(TreeIndexTest, KeywordsWithoutEndAreLookedForAllTheSame) {
  for (int i = 0; i < 100; ++i) {
    const std::string line = "keyword-" + std::to_string(i) + " x;";
    const TreeIndex::Edit edit(index_, *c_);
    c_->section.AddEntry(line.c_str(), nullptr, nullptr);
  }
  for (int i = 99; i >= 0; --i) {
    const std::string line = "keyword-" + std::to_string(i) + " x;";
    for (int again = 0; again < 20; ++again) {
      ASSERT_EQ(index_.FirstChildWithLine(*first_, line.c_str()), c_) << line;
    }
  }
}

TEST_F(TreeIndexTest, LineWithoutABlankIsFound) {
  {
    const TreeIndex::Edit edit(index_, *c_);
    c_->section.AddEntry("authoritative;", nullptr, nullptr);
  }
  for (int again = 0; again < 20; ++again) {
    EXPECT_EQ(index_.FirstChildWithLine(*first_, "authoritative;"), c_);
    EXPECT_EQ(index_.FirstChildWithLine(*first_, "authoritative"), nullptr);
    EXPECT_EQ(index_.FirstChildWithLine(*first_, ""), nullptr);
  }
}

}  // namespace
}  // namespace klepur::internal
