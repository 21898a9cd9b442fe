// Memory runs out while texts and records are held.
#include <klepur/text/file_bytes.h>
#include <klepur/text/large_array.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <variant>

#include "tests/faults/every_fault.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

using Array = internal::LargeArray<std::uint64_t>;

TEST(TextMemory, ArrayKeepsWhatWasAddedBeforeMemoryRanOut) {
  constexpr std::uint32_t kRecords = 500000;  // small memory, and then pages that move twice
  std::unique_ptr<Array> array;
  const auto fill = [&] {
    while (array->size() != kRecords) array->push_back(array->size());
    return true;
  };
  const auto check = [&](const Outcome& outcome) {
    EXPECT_EQ(outcome.threw, outcome.struck);
    EXPECT_EQ(array->size() == kRecords, !outcome.struck);
    fill();
    for (std::uint32_t i = 0; i != kRecords; ++i) ASSERT_EQ((*array)[i], i);
  };
  const std::size_t struck = ForEveryFault([&] { array = std::make_unique<Array>(); }, fill, check,
                                           [&] { array.reset(); });
  EXPECT_GT(struck, 20U);
}

TEST(TextMemory, FileIsReadOrClosedAgain) {
  const ScratchFolder scratch;
  for (const std::size_t size : {std::size_t{10}, std::size_t{3} << 20}) {
    const std::string text(size, 'a');
    const std::string path = scratch.Write("file", text);
    const std::ptrdiff_t descriptors = OpenDescriptors();
    bool same = false;
    const auto read = [&] {
      const auto result = internal::ReadFileBytes(path);
      same = std::get<internal::TextBuffer>(result).view() == text;
      return true;
    };
    const auto check = [&](const Outcome& outcome) {
      EXPECT_EQ(outcome.threw, outcome.struck);
      EXPECT_EQ(same, !outcome.struck);
      EXPECT_EQ(OpenDescriptors(), descriptors);
    };
    EXPECT_GT(ForEveryFault([&] { same = false; }, read, check, [] {}), 0U);
  }
}

}  // namespace
}  // namespace klepur::test
