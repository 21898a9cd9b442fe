// What the tree keeps beside its nodes stays true when edits are taken back.
#include <klepur/document/syntax_tree.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include <klepur/document/structure_reader.h>
#include <klepur/text/text_buffer.h>

namespace klepur::internal {
namespace {

/// A tree of this many statements in the file, and edits of it.
class LastChild : public testing::Test {
 protected:
  void Given(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i != count; ++i) text += "a;";
    const TextBuffer buffer(text);
    StructureReader(tree_, buffer.view(), 0).Read(kRoot);
  }

  NodeId Append() {
    SyntaxNode node;
    node.kind = NodeKind::kStatement;
    tree_.KeepHead(kRoot);
    const NodeId id = tree_.Append(node);
    tree_.Link(id, kRoot, tree_.KnownLastChild(kRoot));
    return id;
  }

  void Remove(NodeId id) {
    tree_.Unlink(id);
    tree_.MarkGone(id);
  }

  NodeId Walked() const {
    NodeId last = kNoNode;
    for (NodeId id = tree_.FirstChild(kRoot); id != kNoNode; id = tree_[id].next) last = id;
    return last;
  }

  void ExpectLast(NodeId last) {
    EXPECT_EQ(Walked(), last);
    EXPECT_EQ(tree_.LastChild(kRoot), last);
    EXPECT_EQ(tree_.KnownLastChild(kRoot), last);
    EXPECT_EQ(tree_.LastChild(kRoot), last);
  }

  SyntaxTree tree_;
};

TEST_F(LastChild, IsTheFormerOneWhenAddedOnesAreTakenBack) {
  for (const std::size_t added : {1U, 3U, 63U, 64U, 65U, 200U}) {
    tree_ = SyntaxTree();
    Given(3);
    ExpectLast(3);
    const SyntaxTree::Mark mark = tree_.GetMark();
    NodeId last = kNoNode;
    for (std::size_t i = 0; i != added; ++i) last = Append();
    ExpectLast(last);
    tree_.RollBack(mark);
    ExpectLast(3);
    ExpectLast(Append());
  }
}

TEST_F(LastChild, IsTheRemovedOneWhenRemovingIsTakenBack) {
  for (const NodeId removed : {1U, 2U, 64U, 65U, 66U, 150U}) {
    tree_ = SyntaxTree();
    Given(150);
    ExpectLast(150);
    const SyntaxTree::Mark mark = tree_.GetMark();
    for (NodeId id = 150; id != 150 - removed; --id) Remove(id);
    ExpectLast(removed == 150 ? kNoNode : 150 - removed);
    tree_.RollBack(mark);
    ExpectLast(150);
  }
}

TEST_F(LastChild, IsFoundAgainWhenOnlyPartIsTakenBack) {
  Given(2);
  const NodeId kept = Append();
  const SyntaxTree::Mark mark = tree_.GetMark();
  Remove(kept);
  ExpectLast(2);
  const NodeId added = Append();
  ExpectLast(added);
  tree_.RollBack(mark);
  ExpectLast(kept);
  const SyntaxTree::Mark again = tree_.GetMark();
  Remove(kept);
  Remove(2);
  Remove(1);
  ExpectLast(kNoNode);
  tree_.RollBack(again);
  ExpectLast(kept);
}

TEST_F(LastChild, OfBlocksThatWereMovedIsTheirOwnAgain) {
  const TextBuffer buffer("g {a;b;} h {c;}");
  StructureReader(tree_, buffer.view(), 0).Read(kRoot);
  const NodeId g = 1;
  const NodeId b = 3;
  const NodeId h = 4;
  const NodeId c = 5;
  EXPECT_EQ(tree_.KnownLastChild(g), b);
  EXPECT_EQ(tree_.KnownLastChild(h), c);
  const SyntaxTree::Mark mark = tree_.GetMark();
  tree_.Unlink(b);
  tree_.Link(b, h, c);
  EXPECT_EQ(tree_.KnownLastChild(g), b - 1);
  EXPECT_EQ(tree_.KnownLastChild(h), b);
  tree_.RollBack(mark);
  EXPECT_EQ(tree_.KnownLastChild(g), b);
  EXPECT_EQ(tree_.KnownLastChild(h), c);
}

}  // namespace
}  // namespace klepur::internal
