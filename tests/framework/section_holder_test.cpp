#include <klepur/framework/section_holder.h>

#include <gtest/gtest.h>

#include <list>
#include <memory>
#include <type_traits>

namespace {

using TreeNode = Tree<CfSection>::TreeNode;

static_assert(std::has_virtual_destructor_v<CfSectionHolder>);

class CountedNode : public TreeNode {
 public:
  explicit CountedNode(TreeNode* above) : TreeNode(above, CfSection()) {
    if (above->children == nullptr) above->children = new std::list<TreeNode*>;
    above->children->push_back(this);
    ++alive;
  }
  ~CountedNode() override { --alive; }

  inline static int alive = 0;
};

TEST(SectionHolder, StartsWithANamelessTopNodeWithoutChildren) {
  const CfSectionHolder holder;
  EXPECT_EQ(holder.topNode.parent, nullptr);
  EXPECT_EQ(holder.topNode.children, nullptr);
  EXPECT_STREQ(holder.topNode.section.GetName(), "");
  EXPECT_TRUE(holder.topNode.section.entryList.empty());
}

TEST(SectionHolder, DeletesTheWholeTree) {
  auto holder = std::make_unique<CfSectionHolder>();
  TreeNode* const root = new CountedNode(&holder->topNode);
  new CountedNode(root);
  new CountedNode(new CountedNode(root));
  new CountedNode(&holder->topNode);
  ASSERT_EQ(CountedNode::alive, 5);
  holder.reset();
  EXPECT_EQ(CountedNode::alive, 0);
}

}  // namespace
