#include <klepur/framework/tree_index.h>

#include <gtest/gtest.h>
#include <klepur/framework/entry_changes.h>
#include <klepur/framework/name_match.h>

#include <cstdint>
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

  static void Delete(TreeNode* node) {
    node->parent->children->remove(node);
    delete node;
  }

  /// Hangs a living node under another one and tells the tables so.
  static void Move(TreeNode* node, TreeNode* parent) {
    node->parent->children->remove(node);
    node->parent = parent;
    parent->children->push_back(node);
    node->section.SetName(std::string(node->section.GetName()).c_str());
  }

  CfSectionHolder holder_;
  TreeIndex& index_ = TreeIndex::Of(holder_);
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

TEST_F(TreeIndexTest, HolderHasOneIndex) {
  EXPECT_EQ(&TreeIndex::Of(holder_), &index_);
}

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
  c_->section.AddEntry("fixed-address 10.0.0.2;", nullptr, "#");
  Host(*first_, "e", "10.0.0.2");
  WarmUp();
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
    const TreeIndex::Edit edit(&index_, b_->section);
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
    const TreeIndex::Edit edit(&index_, b_->section);
    b_->section.SetName("host e");
    index_.Drop();
  }
  for (int again = 0; again < 2; ++again) {
    EXPECT_EQ(Named("host b"), nullptr);
    EXPECT_EQ(Named("host e"), b_);
    WarmUp();
  }
}

TEST_F(TreeIndexTest, EditOfASectionOutsideTheTreeOrWithoutAnIndexDoesNothing) {
  CfSection loose;
  {
    const TreeIndex::Edit edit(&index_, loose);
    const TreeIndex::Edit none(nullptr, a_->section);
    loose.SetName("host e");
  }
  EXPECT_EQ(Named("host e"), nullptr);
  EXPECT_EQ(Named("host a"), a_);
}

// ---- changes that nobody tells the index ----

TEST_F(TreeIndexTest, RenamedNodeIsNoticed) {
  b_->section.SetName("host e");
  EXPECT_EQ(Named("host b"), nullptr);
  EXPECT_EQ(Named("host e"), b_);
}

TEST_F(TreeIndexTest, AssignedSectionIsNoticed) {
  b_->section = Block("host e", {"fixed-address 10.0.0.5;"});
  EXPECT_EQ(Named("host e"), b_);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
}

TEST_F(TreeIndexTest, SectionThatWasMovedFromIsNoticed) {
  const CfSection taken = std::move(b_->section);
  EXPECT_EQ(Named("host b"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  EXPECT_STREQ(taken.GetName(), "host b");
  EXPECT_EQ(Named("", first_), b_);
}

TEST_F(TreeIndexTest, ChangedLinesAreNoticed) {
  a_->section.AddEntry("fixed-address 10.0.0.11;", nullptr, nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.11"), a_);
  CfSectionEntry entry;
  entry.SetKeyName("fixed-address 10.0.0.12;");
  a_->section.InsertEntry(&entry);
  EXPECT_EQ(Addressed(first_, "10.0.0.12"), a_);
  b_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.22;");
  EXPECT_EQ(Addressed(first_, "10.0.0.22"), b_);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  WarmUp();
  *b_->section.entryList.front() = entry;
  EXPECT_EQ(Addressed(first_, "10.0.0.22"), nullptr);
  WarmUp();
  a_->section.RemoveEntry(a_->section.entryList.front());
  EXPECT_EQ(Addressed(first_, "10.0.0.1"), nullptr);
  c_->section.ClearEntryList();
  EXPECT_EQ(Addressed(first_, "10.0.0.3"), nullptr);
}

TEST_F(TreeIndexTest, EachChangeOfALineIsNoticed) {
  for (int i = 20; i < 60; ++i) {
    const std::string address = "10.0.0." + std::to_string(i);
    b_->section.entryList.front()->SetKeyName(("fixed-address " + address + ";").c_str());
    EXPECT_EQ(Addressed(first_, address), b_);
  }
}

TEST_F(TreeIndexTest, LineThatIsDeletedByHandIsNoticed) {
  delete b_->section.entryList.front();
  b_->section.entryList.clear();
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
}

TEST_F(TreeIndexTest, LineThatIsDeletedByHandLeavesNoTraceWhenItsNodeGoes) {
  TreeNode* const e = Host(*second_, "e", "10.1.0.5");
  TreeNode* const f = Host(*second_, "f", "10.1.0.5");
  Host(*second_, "g", "10.1.0.5");
  WarmUp();
  delete f->section.entryList.front();
  f->section.entryList.clear();
  ASSERT_TRUE(index_.Remove(*f));
  index_.Append(*first_, Block("host h", {}));
  EXPECT_EQ(Addressed(second_, "10.1.0.5"), e);
}

TEST_F(TreeIndexTest, LineThatIsTakenOutByHandDoesNoHarmWhenItsNodeGoes) {
  const std::unique_ptr<CfSectionEntry> taken(b_->section.entryList.front());
  b_->section.entryList.clear();
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  ASSERT_TRUE(index_.Remove(*b_));
  CfSectionHolder other;  // whose node may well get the memory that was the removed one's
  Host(other.topNode, "b", "10.0.0.2");
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  index_.Append(*second_, Block("host e", {"fixed-address 10.0.0.2;"}));
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
}

TEST_F(TreeIndexTest, LineThatWasTakenOutMayOutliveItsSectionAndItsTree) {
  auto holder = std::make_unique<CfSectionHolder>();
  TreeNode* const host = Host(holder->topNode, "a", "10.0.0.1");
  const std::unique_ptr<CfSectionEntry> taken(host->section.entryList.front());
  host->section.entryList.clear();
  holder.reset();
  taken->SetKeyName("fixed-address 10.0.0.2;");
  EXPECT_STREQ(taken->GetKeyName(), "fixed-address 10.0.0.2;");
}

TEST_F(TreeIndexTest, EditsOfOneTreeLeaveTheTablesOfAnotherInUse) {
  const std::uint64_t before = EntryChanges();
  {
    const TreeIndex::Edit edit(&index_, a_->section);
    a_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.9;");
  }
  ASSERT_TRUE(index_.Remove(*b_));
  EXPECT_EQ(EntryChanges(), before);
  a_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.1;");
  EXPECT_NE(EntryChanges(), before);
}

TEST_F(TreeIndexTest, NodeThatIsBuiltByHandIsNoticed) {
  auto* const e = new TreeNode(first_, Block("host e", {"fixed-address 10.0.0.5;"}));
  EXPECT_EQ(Named("host e"), nullptr);
  WarmUp();
  first_->children->push_front(e);
  EXPECT_EQ(Named("host e"), e);
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), e);
  WarmUp();
  EXPECT_EQ(Named("host e"), e);
  EXPECT_EQ(index_.NextSiblingHolding(*e, ""), a_);
}

TEST_F(TreeIndexTest, NodeThatIsDeletedByHandIsNoticed) {
  Delete(a_);
  EXPECT_EQ(Named("host a"), nested_);
  EXPECT_EQ(Addressed(first_, "10.0.0.1"), nullptr);
  WarmUp();
  second_->DeleteAllItems();
  EXPECT_EQ(Named("host a"), nullptr);
  EXPECT_EQ(Addressed(second_, "10.1.0.4"), nullptr);
  EXPECT_EQ(index_.NextSiblingHolding(*b_, ""), c_);
}

TEST_F(TreeIndexTest, NodeThatIsTakenOutOfItsListByHandIsNotFound) {
  first_->children->remove(b_);
  const std::unique_ptr<TreeNode> taken(b_);
  EXPECT_EQ(Named("host b"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  EXPECT_EQ(index_.NextSiblingHolding(*a_, ""), c_);
  EXPECT_FALSE(index_.Remove(*b_));
}

TEST_F(TreeIndexTest, BlockThatALookupMissesIsNotSearchedAnyMore) {
  root_->children->remove(first_);
  const std::unique_ptr<TreeNode> taken(first_);
  EXPECT_EQ(Named("subnet 10.0.0.0"), nullptr);
  EXPECT_EQ(Named("host a"), nested_);
}

TEST_F(TreeIndexTest, BlockThatARemovalMissesIsNotSearchedAnyMore) {
  root_->children->remove(first_);
  const std::unique_ptr<TreeNode> taken(first_);
  EXPECT_FALSE(index_.Remove(*first_));
  EXPECT_EQ(Named("host a"), nested_);
}

TEST_F(TreeIndexTest, NullInAChildListIsPassedOver) {
  first_->children->push_front(nullptr);
  WarmUp();
  EXPECT_EQ(Named("host c"), c_);
  EXPECT_EQ(Addressed(first_, "10.0.0.3"), c_);
}

TEST_F(TreeIndexTest, ListThatIsFoundToHoldANullIsWalkedFromThenOn) {
  first_->children->remove(b_);
  first_->children->push_front(nullptr);
  const std::unique_ptr<TreeNode> taken(b_);
  // The list is as long as it was, so nothing shows before a table of other lines is made of it.
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(index_.FirstChildWithLine(*first_, "max-lease-time 1;"), nullptr);
  }
  EXPECT_EQ(Named("host b"), nullptr);
}

TEST_F(TreeIndexTest, BlockThatHoldsANullIsRemovedWhole) {
  second_->children->push_front(nullptr);
  ASSERT_TRUE(index_.Remove(*second_));
  EXPECT_EQ(Named("host d"), nullptr);
  EXPECT_EQ(Named("host a", root_), a_);
  EXPECT_EQ(root_->children->size(), 1U);
}

TEST_F(TreeIndexTest, ChildListThatIsTakenAwayByHandIsNotSearched) {
  const std::unique_ptr<std::list<TreeNode*>> taken(std::exchange(first_->children, nullptr));
  EXPECT_EQ(Named("host b"), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), nullptr);
  EXPECT_FALSE(index_.Remove(*b_));
  for (TreeNode* node : *taken) delete node;
}

TEST_F(TreeIndexTest, NullInTheLinesIsPassedOver) {
  b_->section.entryList.insert(b_->section.entryList.begin(), nullptr);
  EXPECT_EQ(Addressed(first_, "10.0.0.2"), b_);
  {
    const TreeIndex::Edit edit(&index_, b_->section);
    b_->section.entryList.back()->SetKeyName("fixed-address 10.0.0.5;");
  }
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
  index_.Drop();
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
  WarmUp();
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), b_);
  ASSERT_TRUE(index_.Remove(*b_));
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), nullptr);
}

/// Answers no search but that for its own name.
class Loner : public TreeNode {
 public:
  using TreeNode::TreeNode;
};

TEST_F(TreeIndexTest, TreeWithANodeOfADerivedClassIsWalked) {
  auto* const loner = new Loner(first_, Block("host e", {"fixed-address 10.0.0.5;"}));
  first_->children->push_back(loner);
  WarmUp();
  EXPECT_EQ(Named("host e"), loner);
  EXPECT_EQ(Addressed(first_, "10.0.0.5"), loner);
}

TEST_F(TreeIndexTest, BlocksNestedHoweverDeepAreFoundAndRemoved) {
  TreeNode* const outermost = AppendChild(*first_, Block("nested 0", {}));
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

TEST_F(TreeIndexTest, NodeThatChangedPlacesWithOneOfAnotherTreeIsWalkedTo) {
  CfSectionHolder other;
  TreeNode* const subnet = AppendChild(other.topNode, Block("subnet 10.2.0.0", {}));
  TreeNode* const e = Host(*subnet, "e", "10.2.0.1");
  Move(e, first_);
  Move(b_, subnet);
  WarmUp();
  EXPECT_EQ(Named("host e"), e);
  e->section.SetName("host f");
  EXPECT_EQ(Named("host e"), nullptr);
  EXPECT_EQ(Named("host f"), e);
  WarmUp();
  ASSERT_TRUE(index_.Remove(*e));
  EXPECT_EQ(Named("host f"), nullptr);
}

TEST_F(TreeIndexTest, NodeMayOutliveItsHolder) {
  auto holder = std::make_unique<CfSectionHolder>();
  TreeNode loose(&holder->topNode, Block("host a", {}));
  holder.reset();
  loose.section.SetName("host b");
  EXPECT_STREQ(loose.section.GetName(), "host b");
}

TEST_F(TreeIndexTest, KeywordsWithoutEndAreLookedForAllTheSame) {
  for (int i = 0; i < 100; ++i) {
    const std::string line = "keyword-" + std::to_string(i) + " x;";
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
  c_->section.AddEntry("authoritative;", nullptr, nullptr);
  for (int again = 0; again < 20; ++again) {
    EXPECT_EQ(index_.FirstChildWithLine(*first_, "authoritative;"), c_);
    EXPECT_EQ(index_.FirstChildWithLine(*first_, "authoritative"), nullptr);
    EXPECT_EQ(index_.FirstChildWithLine(*first_, ""), nullptr);
  }
}

}  // namespace
}  // namespace klepur::internal
