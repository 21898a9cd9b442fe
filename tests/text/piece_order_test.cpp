#include <klepur/text/piece_order.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <random>
#include <vector>

namespace klepur::internal {
namespace {

struct Entry {
  PieceOrder::Piece piece;
  Extent extent;
};

void ExpectSame(const PieceOrder& order, const std::vector<Entry>& model) {
  Extent before;
  for (const Entry& entry : model) {
    ASSERT_TRUE(order.Has(entry.piece));
    EXPECT_EQ(order.Of(entry.piece).bytes, entry.extent.bytes);
    EXPECT_EQ(order.Of(entry.piece).lines, entry.extent.lines);
    EXPECT_EQ(order.Before(entry.piece).bytes, before.bytes);
    EXPECT_EQ(order.Before(entry.piece).lines, before.lines);
    for (std::size_t line = 0; line != entry.extent.lines; ++line) {
      EXPECT_EQ(order.WithLineEnd(before.lines + line), entry.piece);
    }
    before += entry.extent;
  }
  EXPECT_EQ(order.All().bytes, before.bytes);
  EXPECT_EQ(order.All().lines, before.lines);
}

TEST(PieceOrder, HasNothingAtFirst) {
  const PieceOrder order;
  EXPECT_FALSE(order.Has(0));
  EXPECT_EQ(order.All().bytes, 0U);
}

TEST(PieceOrder, TellsWhatStandsBeforeEachPieceWhileTheyComeAndGo) {
  std::mt19937 random(1);
  const auto below = [&random](std::size_t count) { return random() % count; };
  PieceOrder order;
  std::vector<Entry> model;
  std::vector<PieceOrder::Piece> gone;
  PieceOrder::Piece next = 0;
  for (int step = 0; step != 1500; ++step) {
    const Extent extent = {below(100), below(3)};
    const std::size_t what = below(step < 800 ? 5 : 8);
    if (model.empty() || what < 4) {
      PieceOrder::Piece piece = next;
      if (!gone.empty() && what == 0) {  // one comes back
        piece = gone.back();
        gone.pop_back();
      } else {
        ++next;
      }
      const std::size_t place = below(model.size() + 1);
      order.Insert(piece, place == 0 ? PieceOrder::kNone : model[place - 1].piece, extent);
      model.insert(model.begin() + static_cast<std::ptrdiff_t>(place), {piece, extent});
    } else if (what == 4) {
      Entry& entry = model[below(model.size())];
      entry.extent = extent;
      order.Resize(entry.piece, extent);
    } else {
      const auto entry = model.begin() + static_cast<std::ptrdiff_t>(below(model.size()));
      order.Erase(entry->piece);
      EXPECT_FALSE(order.Has(entry->piece));
      gone.push_back(entry->piece);
      model.erase(entry);
    }
    if (step % 50 == 0) ExpectSame(order, model);
  }
  ExpectSame(order, model);
  order.Clear();
  EXPECT_FALSE(order.Has(0));
  EXPECT_EQ(order.All().lines, 0U);
}

/// Would take as many steps as there are pieces, each time, if it were one list.
TEST(PieceOrder, StaysShallowWhenPiecesComeInOrder) {
  constexpr PieceOrder::Piece kPieces = 200'000;
  PieceOrder order;
  for (PieceOrder::Piece piece = 0; piece != kPieces; ++piece) {
    order.Insert(piece, piece == 0 ? PieceOrder::kNone : piece - 1, {2, 1});
    ASSERT_EQ(order.Before(piece).bytes, 2 * piece);
  }
  for (PieceOrder::Piece piece = 0; piece != kPieces; ++piece) {
    ASSERT_EQ(order.WithLineEnd(piece), piece);
  }
}

}  // namespace
}  // namespace klepur::internal
