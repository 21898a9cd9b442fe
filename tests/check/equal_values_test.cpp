// Finding values that are there more than once.
#include <klepur/check/equal_values.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace klepur::internal {
namespace {

/// "0-2 1-3" for the pairs that are told of letters, where the hash of a letter is what `hash_of` says.
template <class HashOf>
std::string Pairs(const std::string& letters, const HashOf& hash_of) {
  LargeArray<std::uint32_t> hashes;
  for (const char letter : letters) hashes.push_back(hash_of(letter));
  std::string pairs;
  ForEachEqual(
      hashes, [&](std::uint32_t i, std::uint32_t j) { return letters[i] == letters[j]; },
      [&](std::uint32_t earlier, std::uint32_t later) {
        pairs += (pairs.empty() ? "" : " ") + std::to_string(earlier) + "-" + std::to_string(later);
      });
  return pairs;
}

std::uint32_t GoodHash(char letter) {
  return static_cast<std::uint32_t>(letter) * 0x9E3779B1U;
}

TEST(ForEachEqual, TellsEachWithTheLastOneBefore) {
  const struct {
    const char* letters;
    const char* pairs;
  } cases[] = {
      {"", ""},
      {"a", ""},
      {"abc", ""},
      {"aa", "0-1"},
      {"abab", "0-2 1-3"},
      {"aaa", "0-1 1-2"},
      {"abcba", "1-3 0-4"},
  };
  for (const auto& [letters, pairs] : cases) {
    EXPECT_EQ(Pairs(letters, GoodHash), pairs) << letters;
    EXPECT_EQ(Pairs(letters, [](char) { return 7U; }), pairs) << letters << ", all of one hash";
    EXPECT_EQ(Pairs(letters, [](char) { return 0xFFFFFFFFU; }), pairs) << letters;
  }
}

TEST(MayBeTwice, LeavesOutMostThatAreThereOnce) {
  constexpr std::uint32_t kCount = 10000;
  LargeArray<std::uint32_t> hashes;
  for (std::uint32_t i = 0; i != kCount; ++i) hashes.push_back(i * 0x9E3779B1U);
  EXPECT_LT(MayBeTwice(hashes).size(), kCount / 2);
  for (std::uint32_t i = 0; i != kCount; ++i) hashes.push_back(hashes[i]);
  EXPECT_EQ(MayBeTwice(hashes).size(), 2 * kCount);
}

}  // namespace
}  // namespace klepur::internal
