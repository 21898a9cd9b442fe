#include <klepur/text/large_memory.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::size_t kSmall = 100;
constexpr std::size_t kImpossible = std::size_t{1} << 60;

std::string_view BytesOf(const LargeMemory& memory, std::size_t size) {
  return {memory.data(), size};
}

TEST(LargeMemory, HasNothingAtFirst) {
  const LargeMemory memory;
  EXPECT_EQ(memory.data(), nullptr);
  EXPECT_EQ(memory.size(), 0U);
}

TEST(LargeMemory, SmallSizeIsWhatWasAskedFor) {
  LargeMemory memory;
  memory.Grow(kSmall, 0);
  EXPECT_EQ(memory.size(), kSmall);
  memory.Grow(LargeMemory::kLarge - 1, 0);
  EXPECT_EQ(memory.size(), LargeMemory::kLarge - 1);
}

TEST(LargeMemory, LargeSizeIsAtLeastWhatWasAskedFor) {
  for (const std::size_t size : {LargeMemory::kLarge, std::size_t{2} << 20, std::size_t{5} << 20}) {
    LargeMemory memory;
    memory.Grow(size, 0);
    EXPECT_GE(memory.size(), size);
    memory.data()[memory.size() - 1] = 'z';
  }
}

TEST(LargeMemory, NeverShrinks) {
  LargeMemory memory;
  memory.Grow(kSmall, 0);
  const char* const before = memory.data();
  memory.Grow(0, 0);
  memory.Grow(kSmall, kSmall);
  EXPECT_EQ(memory.size(), kSmall);
  EXPECT_EQ(memory.data(), before);
}

TEST(LargeMemory, KeepsItsBytesWhenItGrows) {
  LargeMemory memory;
  std::string expected;
  for (const std::size_t size :
       {std::size_t{1}, std::size_t{40}, kSmall, LargeMemory::kLarge - 1, LargeMemory::kLarge,
        std::size_t{3} << 20, std::size_t{4} << 20, std::size_t{20} << 20}) {
    memory.Grow(size, expected.size());
    ASSERT_EQ(BytesOf(memory, expected.size()), expected) << size;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.data()) % 16, 0U);
    while (expected.size() != size) expected += static_cast<char>(expected.size() * 7 % 251);
    std::memcpy(memory.data(), expected.data(), size);
  }
}

TEST(LargeMemory, StaysAsItIsWhenThereIsNoMoreMemory) {
  for (const std::size_t size : {kSmall, LargeMemory::kLarge}) {
    LargeMemory memory;
    memory.Grow(size, 0);
    std::memcpy(memory.data(), "kept", 4);
    const char* const data = memory.data();
    const std::size_t had = memory.size();
    EXPECT_THROW(memory.Grow(kImpossible, 4), std::bad_alloc);
    EXPECT_THROW(memory.Grow(SIZE_MAX, 4), std::bad_alloc);
    EXPECT_EQ(memory.data(), data);
    EXPECT_EQ(memory.size(), had);
    EXPECT_EQ(BytesOf(memory, 4), "kept");
  }
}

TEST(LargeMemory, IsHandedOver) {
  for (const std::size_t size : {kSmall, LargeMemory::kLarge}) {
    LargeMemory first;
    first.Grow(size, 0);
    std::memcpy(first.data(), "moved", 5);
    LargeMemory second(std::move(first));
    EXPECT_EQ(first.data(), nullptr);
    EXPECT_EQ(first.size(), 0U);
    LargeMemory third;
    third.Grow(kSmall, 0);
    third = std::move(second);
    EXPECT_EQ(second.data(), nullptr);
    EXPECT_EQ(BytesOf(third, 5), "moved");
  }
}

}  // namespace
}  // namespace klepur::internal
