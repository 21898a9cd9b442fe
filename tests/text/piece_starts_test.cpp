#include <klepur/text/piece_starts.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <map>
#include <random>
#include <vector>

namespace klepur::internal {
namespace {

using Model = std::map<PieceStarts::Address, PieceStarts::Piece>;

/// Everything that can be asked about an address.
void ExpectSameAt(const PieceStarts& starts, const Model& model, PieceStarts::Address address) {
  const auto behind = model.upper_bound(address);
  EXPECT_EQ(starts.Behind(address), behind == model.end() ? PieceStarts::kNone : behind->first);
  if (behind == model.begin()) return;
  PieceStarts::Place place = starts.UpTo(address);
  auto before = std::prev(behind);
  EXPECT_EQ(starts[place], before->second);
  for (int steps = 3; steps != 0 && before != model.begin(); --steps) {
    place = starts.Before(place);
    EXPECT_EQ(starts[place], (--before)->second);
  }
}

void ExpectSame(const PieceStarts& starts, const Model& model) {
  ASSERT_EQ(starts.IsEmpty(), model.empty());
  if (model.empty()) return;
  EXPECT_EQ(starts.Last(), model.rbegin()->first);
  for (const auto& [address, piece] : model) {
    ExpectSameAt(starts, model, address);
    ExpectSameAt(starts, model, address + 1);
    if (address != 0) ExpectSameAt(starts, model, address - 1);
  }
}

TEST(PieceStarts, AreEmptyAtFirst) {
  const PieceStarts starts;
  EXPECT_TRUE(starts.IsEmpty());
  EXPECT_EQ(starts.Behind(0), PieceStarts::kNone);
}

TEST(PieceStarts, KeepTheFirstOfAnAddressOrTheLast) {
  PieceStarts starts;
  starts.PutNew(5, 1);
  starts.PutNew(5, 2);
  EXPECT_EQ(starts[starts.UpTo(5)], 1U);
  starts.Put(5, 3);
  EXPECT_EQ(starts[starts.UpTo(7)], 3U);
  starts.Set(5, 4);
  EXPECT_EQ(starts[starts.UpTo(7)], 4U);
  EXPECT_EQ(starts.Last(), 5U);
}

TEST(PieceStarts, AreInOrderHoweverTheyCome) {
  std::vector<std::vector<PieceStarts::Address>> orders(5);
  std::mt19937 random(1);
  for (PieceStarts::Address i = 0; i != 1000; ++i) {
    orders[0].push_back(2 * i);                            // ascending
    orders[1].push_back(2000 - 2 * i);                     // descending
    orders[2].push_back(i % 2 == 0 ? 5 * i : 10'000 - i);  // from both ends
    orders[3].push_back(i % 2 == 0 ? 2 * i : 10'000 + i);  // two ascending runs
    orders[4].push_back(static_cast<PieceStarts::Address>(random() % 3000));
  }
  for (const std::vector<PieceStarts::Address>& order : orders) {
    PieceStarts starts;
    Model model;
    for (std::uint32_t i = 0; i != order.size(); ++i) {
      if (i % 3 == 0) {
        starts.Put(order[i], i);
        model[order[i]] = i;
      } else {
        starts.PutNew(order[i], i);
        model.emplace(order[i], i);
      }
    }
    ExpectSame(starts, model);
    for (auto& [address, piece] : model) starts.Set(address, piece += 7);
    ExpectSame(starts, model);
  }
}

}  // namespace
}  // namespace klepur::internal
