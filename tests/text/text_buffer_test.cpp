#include <klepur/text/text_buffer.h>

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace klepur::internal {
namespace {

void ExpectHolds(const TextBuffer& buffer, std::string_view text) {
  ASSERT_EQ(buffer.view(), text);
  EXPECT_EQ(buffer.size(), text.size());
  EXPECT_EQ(std::string(buffer.data() + buffer.size(), kPadding), std::string(kPadding, '\0'));
}

TEST(TextBuffer, IsEmptyAtFirst) {
  ExpectHolds(TextBuffer(), "");
}

TEST(TextBuffer, HoldsACopy) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, std::size_t{1000}, kPadding,
        LargeMemory::kLarge - kPadding - 1, LargeMemory::kLarge - kPadding, std::size_t{5} << 20}) {
    std::string text(size, 'a');
    const TextBuffer buffer(text);
    const std::string expected = text;
    text.assign(size, 'b');
    ExpectHolds(buffer, expected);
  }
}

TEST(TextBuffer, HoldsBytesOfAnyValue) {
  const std::string_view text("a\0\xff\r\n\0", 6);
  ExpectHolds(TextBuffer(text), text);
}

TEST(TextBuffer, TakesMemoryWithItsPadding) {
  LargeMemory memory;
  memory.Grow(200, 0);
  std::memset(memory.data(), 'x', 200);
  ExpectHolds(TextBuffer(std::move(memory), 200 - kPadding), std::string(200 - kPadding, 'x'));
}

TEST(TextBuffer, IsHandedOver) {
  for (const std::size_t size : {std::size_t{100}, LargeMemory::kLarge}) {
    TextBuffer first(std::string(size, 'a'));
    const char* const data = first.data();
    TextBuffer second(std::move(first));
    EXPECT_EQ(second.data(), data);
    ExpectHolds(second, std::string(size, 'a'));
    ExpectHolds(first, "");
    TextBuffer third("b");
    third = std::move(second);
    EXPECT_EQ(third.data(), data);
    ExpectHolds(second, "");
  }
}

}  // namespace
}  // namespace klepur::internal
