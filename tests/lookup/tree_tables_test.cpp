#include <klepur/lookup/tree_tables.h>

#include <gtest/gtest.h>
#include <klepur/framework/section_holder.h>

#include <memory>
#include <string>

#include "tests/support/blocks.h"

namespace klepur::internal {
namespace {

using klepur::test::Block;

/// The tables of
///
///     subnet 10.0.0.0
///       host a  { fixed-address 10.0.0.1; }
///       host b  { fixed-address 10.0.0.2; }
///       group
///         host a  { fixed-address 10.0.0.3; }
class TreeTablesTest : public ::testing::Test {
 protected:
  TreeTablesTest() { tables_ = TreeTables::Of(holder_.topNode, 6); }

  static TreeNode* Host(TreeNode& parent, const std::string& name, const std::string& address) {
    return AppendChild(parent, Block("host " + name, {"fixed-address " + address + ";"}));
  }

  KnownNode& Known(const TreeNode* node) const { return *tables_->Find(*node); }

  TreeNode* Named(const char* name, const TreeNode* start = nullptr) const {
    return tables_->FirstNamed(Known(start == nullptr ? &holder_.topNode : start), name);
  }

  /// Looks often enough that there is a table of the keyword in the end.
  TreeNode* Addressed(const TreeNode* parent, const std::string& address) const {
    const std::string line = "fixed-address " + address + ";";
    TreeNode* const walked = tables_->FirstChildWithLine(Known(parent), line.c_str());
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(tables_->FirstChildWithLine(Known(parent), line.c_str()), walked) << line;
    }
    return walked;
  }

  CfSectionHolder holder_;
  TreeNode* subnet_ = AppendChild(holder_.topNode, Block("subnet 10.0.0.0", {}));
  TreeNode* a_ = Host(*subnet_, "a", "10.0.0.1");
  TreeNode* b_ = Host(*subnet_, "b", "10.0.0.2");
  TreeNode* group_ = AppendChild(*subnet_, Block("group", {}));
  TreeNode* nested_ = Host(*group_, "a", "10.0.0.3");
  std::unique_ptr<TreeTables> tables_;
};

TEST_F(TreeTablesTest, EachNodeIsKnownWithItsPlaceAndNoOther) {
  for (TreeNode* node : {subnet_, a_, b_, group_, nested_}) {
    const KnownNode* const known = tables_->Find(*node);
    ASSERT_NE(known, nullptr);
    EXPECT_EQ(known->node, node);
    EXPECT_EQ(known->parent->node, node->parent);
    EXPECT_EQ(*known->place, node);
  }
  const TreeNode loose(subnet_, CfSection());
  EXPECT_EQ(tables_->Find(loose), nullptr);
}

TEST_F(TreeTablesTest, FindsTheFirstOfANameInABlock) {
  EXPECT_EQ(Named("host a"), a_);
  EXPECT_EQ(Named("host a", group_), nested_);
  EXPECT_EQ(Named("host a", nested_), nested_);
  EXPECT_EQ(Named("host b", group_), nullptr);
  EXPECT_EQ(Named("host c"), nullptr);
  EXPECT_EQ(Named("", subnet_), nullptr);
}

TEST_F(TreeTablesTest, FindsALineStraightBelow) {
  EXPECT_EQ(Addressed(subnet_, "10.0.0.2"), b_);
  EXPECT_EQ(Addressed(subnet_, "10.0.0.3"), nullptr);
  EXPECT_EQ(Addressed(group_, "10.0.0.3"), nested_);
  EXPECT_EQ(Addressed(nested_, "10.0.0.3"), nullptr);
}

TEST_F(TreeTablesTest, WhatWasEnteredIsFound) {
  EXPECT_EQ(Addressed(subnet_, "10.0.0.4"), nullptr);
  TreeNode* const c = Host(*subnet_, "c", "10.0.0.4");
  ASSERT_TRUE(tables_->Enter(Known(subnet_), *c));
  EXPECT_EQ(Named("host c"), c);
  EXPECT_EQ(Addressed(subnet_, "10.0.0.4"), c);
  EXPECT_EQ(*Known(c).place, c);
}

TEST_F(TreeTablesTest, WhatWasRemovedIsUnknownWithAllThatIsInIt) {
  tables_->Remove(Known(group_));
  EXPECT_EQ(tables_->Find(*group_), nullptr);
  EXPECT_EQ(tables_->Find(*nested_), nullptr);
  EXPECT_EQ(Named("group"), nullptr);
  EXPECT_EQ(Named("host a"), a_);
  tables_->Remove(Known(a_));
  EXPECT_EQ(Named("host a"), nullptr);
}

TEST_F(TreeTablesTest, ChangedTextsAreFoundOnceTheyAreEntered) {
  EXPECT_EQ(Addressed(subnet_, "10.0.0.5"), nullptr);
  KnownNode& known = Known(b_);
  tables_->RemoveTexts(known);
  EXPECT_EQ(Named("host b"), nullptr);
  b_->section.SetName("host c");
  b_->section.entryList.front()->SetKeyName("fixed-address 10.0.0.5;");
  tables_->EnterTexts(known);
  EXPECT_EQ(Named("host c"), b_);
  EXPECT_EQ(Addressed(subnet_, "10.0.0.5"), b_);
  EXPECT_EQ(Addressed(subnet_, "10.0.0.2"), nullptr);
}

TEST_F(TreeTablesTest, TreeThatIsNestedTooDeepHasNone) {
  TreeNode* innermost = group_;
  int depth = 3;
  for (; TreeTables::Of(holder_.topNode, 6) != nullptr; ++depth) {
    ASSERT_LT(depth, 1000);
    innermost = AppendChild(*innermost, Block("group", {}));
  }
  EXPECT_GT(depth, 50);
  tables_ = nullptr;
  holder_.topNode.DeleteAllItems();
  EXPECT_NE(TreeTables::Of(holder_.topNode, 6), nullptr);
}

}  // namespace
}  // namespace klepur::internal
