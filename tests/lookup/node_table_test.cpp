#include <klepur/lookup/node_table.h>

#include <gtest/gtest.h>
#include <klepur/lookup/known_node.h>

#include <cstddef>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

/// Nodes of one family: a top, and children in the order of the file.
class NodeTableTest : public ::testing::Test {
 protected:
  NodeTableTest() : children_(8) {
    for (std::size_t i = 0; i < children_.size(); ++i) {
      children_[i].parent = &top_;
      children_[i].depth = 1;
      children_[i].ordinal = i;
    }
  }

  /// The number of the first child from `start` on with this hash; -1 when there is none.
  std::ptrdiff_t First(std::size_t hash, KnownNode* start = nullptr) const {
    const KnownNode* const found = table_.FirstFrom(hash, start == nullptr ? &top_ : start,
                                                    [](const KnownNode&) { return true; });
    return found == nullptr ? -1 : found - children_.data();
  }

  mutable KnownNode top_;
  std::vector<KnownNode> children_;
  NodeTable table_;
};

TEST_F(NodeTableTest, EmptyTableFindsNothing) {
  EXPECT_EQ(First(0), -1);
  EXPECT_EQ(First(17), -1);
}

TEST_F(NodeTableTest, NodeIsFoundByItsHash) {
  table_.Insert(17, &children_[3]);
  EXPECT_EQ(First(17), 3);
  EXPECT_EQ(First(18), -1);
}

TEST_F(NodeTableTest, NodeThatIsEnteredTwiceIsTakenOutByOneErase) {
  table_.Insert(17, &children_[3]);
  table_.Insert(17, &children_[3]);
  table_.Erase(17, &children_[3]);
  EXPECT_EQ(First(17), -1);
}

TEST_F(NodeTableTest, ErasingWhatIsNotThereChangesNothing) {
  table_.Erase(17, &children_[3]);
  table_.Insert(17, &children_[3]);
  table_.Erase(17, &children_[4]);
  table_.Erase(18, &children_[3]);
  EXPECT_EQ(First(17), 3);
}

TEST_F(NodeTableTest, OfSeveralNodesTheFirstInTheFileIsFoundWhateverTheOrderOfEntering) {
  for (const std::size_t number : {5U, 2U, 7U, 3U}) table_.Insert(17U, &children_[number]);
  EXPECT_EQ(First(17), 2);
  EXPECT_EQ(First(17, &children_[3]), 3);
  EXPECT_EQ(First(17, &children_[4]), 5);
  table_.Erase(17, &children_[2]);
  EXPECT_EQ(First(17), 3);
  for (const std::size_t number : {3U, 7U, 5U}) table_.Erase(17U, &children_[number]);
  EXPECT_EQ(First(17), -1);
}

TEST_F(NodeTableTest, NestedNodeComesBehindTheOneItIsInAndBeforeThatOnesNextSibling) {
  KnownNode nested;
  nested.parent = &children_[2];
  nested.depth = 2;
  table_.Insert(17, &children_[3]);
  table_.Insert(17, &nested);
  table_.Insert(17, &children_[2]);
  EXPECT_EQ(First(17), 2);
  const auto any = [](const KnownNode&) { return true; };
  table_.Erase(17, &children_[2]);
  EXPECT_EQ(table_.FirstFrom(17, &top_, any), &nested);
  EXPECT_EQ(table_.FirstFrom(17, &children_[2], any), &nested);
  EXPECT_EQ(table_.FirstFrom(17, &children_[3], any), &children_[3]);
}

TEST_F(NodeTableTest, NodesThatAreNotAcceptedArePassedOver) {
  for (const std::size_t number : {1U, 2U, 3U}) table_.Insert(17U, &children_[number]);
  const auto odd = [](const KnownNode& node) { return node.ordinal % 2 == 1; };
  EXPECT_EQ(table_.FirstFrom(17, &children_[2], odd), &children_[3]);
  const auto none = [](const KnownNode&) { return false; };
  EXPECT_EQ(table_.FirstFrom(17, &top_, none), nullptr);
  table_.Insert(18, &children_[4]);
  EXPECT_EQ(table_.FirstFrom(18, &top_, none), nullptr);
}

TEST_F(NodeTableTest, OnlyNodeWithAHashIsFoundWithoutAPlaceInTheFile) {
  EXPECT_EQ(table_.Only(17), nullptr);
  table_.Insert(17, &children_[3]);
  EXPECT_EQ(table_.Only(17), &children_[3]);
  EXPECT_EQ(table_.Only(18), nullptr);
}

TEST_F(NodeTableTest, RoomThatIsMadeKeepsWhatIsThere) {
  for (const std::size_t count : {0U, 1U, 1000U, 10U}) {
    table_.Reserve(count);
    for (std::size_t number = 0; number < children_.size(); ++number) {
      table_.Insert(number * count, &children_[number]);
      table_.Insert(number * count, &children_[number]);
    }
    EXPECT_EQ(First(3 * count), count == 0 ? 0 : 3);
  }
}

TEST_F(NodeTableTest, SeveralNodesWithAHashStayTogetherWhenTheTableMoves) {
  for (const std::size_t number : {5U, 2U}) table_.Insert(17U, &children_[number]);
  NodeTable other = std::move(table_);
  table_ = std::move(other);
  EXPECT_EQ(First(17), 2);
}

TEST_F(NodeTableTest, HashesThatFallOnTheSameSlotsStayApartWhileNodesComeAndGo) {
  std::mt19937 random(20260101);
  std::map<std::size_t, std::size_t> expected;  // hash to number
  for (int round = 0; round < 20000; ++round) {
    // A few low bits and many high ones: most hashes share their place in a small table.
    const std::size_t hash = (random() % 4) + ((random() % 64) << 32);
    const std::size_t number = random() % children_.size();
    const auto known = expected.find(hash);
    if (known == expected.end()) {
      table_.Insert(hash, &children_[number]);
      expected[hash] = number;
    } else {
      table_.Erase(hash, &children_[known->second]);
      expected.erase(known);
    }
    const std::size_t probe = (random() % 4) + ((random() % 64) << 32);
    const auto there = expected.find(probe);
    ASSERT_EQ(First(probe),
              there == expected.end() ? -1 : static_cast<std::ptrdiff_t>(there->second));
  }
}

}  // namespace
}  // namespace klepur::internal
