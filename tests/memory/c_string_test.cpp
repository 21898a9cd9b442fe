#include <klepur/memory/c_string.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

using Text = CString<24>;

/// Texts of every length up to well past what has room in the object.
std::vector<std::string> TextsOfAllLengths() {
  std::vector<std::string> texts(1);
  while (texts.size() < 42) {
    texts.push_back(texts.back() + static_cast<char>('0' + texts.size()));
  }
  return texts;
}

TEST(CStringTest, IsEmptyAtFirst) {
  EXPECT_STREQ(Text().Get(), "");
}

TEST(CStringTest, KeepsItsOwnCopyOfAText) {
  for (const std::string& text : TextsOfAllLengths()) {
    std::string given = text;
    const Text copy(given.c_str());
    given.assign(given.size(), '!');
    EXPECT_EQ(copy.Get(), text);
  }
}

TEST(CStringTest, CopyIsIndependent) {
  for (const std::string& text : TextsOfAllLengths()) {
    Text original(text.c_str());
    const Text copy(original);
    original = Text("other");
    EXPECT_EQ(copy.Get(), text);
    EXPECT_STREQ(original.Get(), "other");
  }
}

TEST(CStringTest, TextIsCopiedToAPlaceWithRoomForIt) {
  for (const std::string& text : TextsOfAllLengths()) {
    const Text original(text);
    EXPECT_GE(original.RoomToCopy(), text.size());
    std::vector<char> place(original.RoomToCopy() + 1, '.');
    char* const end = original.Copy(place.data());
    EXPECT_EQ(std::string(place.data(), end), text);
    EXPECT_EQ(place.back(), '.');
  }
}

TEST(CStringTest, MovingLeavesAnEmptyText) {
  for (const std::string& text : TextsOfAllLengths()) {
    Text first(text.c_str());
    Text second(std::move(first));
    EXPECT_EQ(second.Get(), text);
    EXPECT_STREQ(first.Get(), "") << text;  // NOLINT(bugprone-use-after-move)
    first = std::move(second);
    EXPECT_EQ(first.Get(), text);
    EXPECT_STREQ(second.Get(), "") << text;  // NOLINT(bugprone-use-after-move)
  }
}

TEST(CStringTest, AssignmentReplacesATextOfAnyLength) {
  for (const std::string& before : TextsOfAllLengths()) {
    for (const std::string& text : TextsOfAllLengths()) {
      Text replaced(before.c_str());
      replaced = Text(text.c_str());
      EXPECT_EQ(replaced.Get(), text) << "in place of '" << before << "'";
    }
  }
}

TEST(CStringTest, AssignmentToItselfChangesNothing) {
  for (const std::string& text : TextsOfAllLengths()) {
    Text held(text.c_str());
    Text& same = held;
    held = std::move(same);
    EXPECT_EQ(held.Get(), text);
  }
}

}  // namespace
}  // namespace klepur::internal
