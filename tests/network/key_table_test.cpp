#include <klepur/network/key_table.h>

#include <gtest/gtest.h>

#include <vector>

namespace klepur::internal {
namespace {

using Ids = std::vector<NodeId>;

bool Any(NodeId /*id*/) {
  return true;
}

TEST(KeyTable, FindsTheNodesOfAKeyOnceEach) {
  KeyTable table;
  for (const NodeId id : {7U, 3U, 7U, 5U, 3U}) table.Insert(1, id);
  table.Insert(2, 9);
  EXPECT_EQ(table.Count(), 6U);
  EXPECT_EQ(table.Find(1, Any), (Ids{3, 5, 7}));
  EXPECT_EQ(table.Count(), 4U);
  EXPECT_EQ(table.Find(1, Any), (Ids{3, 5, 7}));
  EXPECT_EQ(table.Find(2, Any), (Ids{9}));
  EXPECT_EQ(table.Find(3, Any), Ids());
}

TEST(KeyTable, TakesOutWhatIsWrongWhenItIsLookedUp) {
  KeyTable table;
  for (NodeId id = 0; id < 6; ++id) table.Insert(id % 2, id);
  const auto is_low = [](NodeId id) { return id < 2; };
  EXPECT_EQ(table.Find(0, is_low), Ids{0});
  EXPECT_EQ(table.Count(), 4U);
  EXPECT_EQ(table.Find(0, Any), Ids{0});
  EXPECT_EQ(table.Find(0, [](NodeId) { return false; }), Ids());
  EXPECT_EQ(table.Find(0, Any), Ids());
  EXPECT_EQ(table.Find(1, Any), (Ids{1, 3, 5}));
  EXPECT_EQ(table.Count(), 3U);
}

TEST(KeyTable, UsesTheRoomOfWhatWasTakenOut) {
  KeyTable table;
  for (NodeId id = 0; id < 100; ++id) {
    table.Insert(id, id);
    table.Insert(1000, 7);
    EXPECT_EQ(table.Find(1000, Any), Ids{7});
    EXPECT_EQ(table.Find(1000, [](NodeId) { return false; }), Ids());
    EXPECT_EQ(table.Find(id, Any), Ids{id});
  }
  EXPECT_EQ(table.Count(), 100U);
}

}  // namespace
}  // namespace klepur::internal
