#include <klepur/framework/tree.h>

#include <gtest/gtest.h>

#include "tests/support/tree_text.h"

TEST(TreeNode, DeleteAllItemsOnALeafReturnsZeroAndChangesNothing) {
  Tree<CfSection>::TreeNode leaf(nullptr, CfSection());
  leaf.section.SetName("host a");
  EXPECT_EQ(leaf.DeleteAllItems(), 0);
  EXPECT_EQ(leaf.children, nullptr);
  EXPECT_STREQ(leaf.section.GetName(), "host a");
}
