#include <klepur/document/key_table.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace klepur::internal {
namespace {

using Ids = std::vector<NodeId>;

using Has = KeyTable::Has;

Has Any(NodeId /*id*/) {
  return Has::kKey;
}

Has None(NodeId /*id*/) {
  return Has::kNeither;
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
  const auto is_low = [](NodeId id) { return id < 2 ? Has::kKey : Has::kNeither; };
  EXPECT_EQ(table.Find(0, is_low), Ids{0});
  EXPECT_EQ(table.Count(), 4U);
  EXPECT_EQ(table.Find(0, Any), Ids{0});
  EXPECT_EQ(table.Find(0, None), Ids());
  EXPECT_EQ(table.Find(0, Any), Ids());
  EXPECT_EQ(table.Find(1, Any), (Ids{1, 3, 5}));
  EXPECT_EQ(table.Count(), 3U);
}

TEST(KeyTable, KeepsTheNodesOfAnotherKeyOfTheSameHash) {
  KeyTable table;
  for (NodeId id = 0; id < 4; ++id) table.Insert(5, id);
  const auto is_odd = [](NodeId id) { return id % 2 == 1 ? Has::kKey : Has::kHash; };
  EXPECT_EQ(table.Find(5, is_odd), (Ids{1, 3}));
  EXPECT_EQ(table.Count(), 4U);
  EXPECT_EQ(table.Find(5, Any), (Ids{0, 1, 2, 3}));
}

TEST(KeyTable, KeepsAllOthersWhenNodesAreTakenOut) {
  // Hashes that want to stand in a few neighbouring slots, around the end of the table too.
  const std::vector<std::uint64_t> hashes = {62, 126, 63, 190, 0, 127, 1, 64, 254, 2, 318, 191};
  for (const std::uint64_t gone : hashes) {
    KeyTable table;
    for (const std::uint64_t hash : hashes) table.Insert(hash, static_cast<NodeId>(hash));
    EXPECT_EQ(table.Find(gone, None), Ids());
    for (const std::uint64_t hash : hashes) {
      EXPECT_EQ(table.Find(hash, Any), hash == gone ? Ids() : Ids{static_cast<NodeId>(hash)})
          << hash << " without " << gone;
    }
    EXPECT_EQ(table.Count(), hashes.size() - 1);
  }
}

TEST(KeyTable, KeepsItsNodesWhileItGrows) {
  KeyTable table;
  for (NodeId id = 0; id < 5000; ++id) {
    table.Insert(id % 1000, id);
    if (id % 37 == 0) {
      EXPECT_EQ(table.Find(id % 1000, Any).back(), id);
    }
  }
  EXPECT_EQ(table.Count(), 5000U);
  for (NodeId id = 0; id < 1000; ++id) {
    ASSERT_EQ(table.Find(id, Any), (Ids{id, id + 1000, id + 2000, id + 3000, id + 4000}));
  }
}

TEST(KeyTable, UsesTheRoomOfWhatWasTakenOut) {
  KeyTable table;
  for (NodeId id = 0; id < 100; ++id) {
    table.Insert(id, id);
    table.Insert(1000, 7);
    EXPECT_EQ(table.Find(1000, Any), Ids{7});
    EXPECT_EQ(table.Find(1000, None), Ids());
    EXPECT_EQ(table.Find(id, Any), Ids{id});
  }
  EXPECT_EQ(table.Count(), 100U);
}

}  // namespace
}  // namespace klepur::internal
