// Internal: finding what is there twice.
#ifndef KLEPUR_CHECK_EQUAL_VALUES_H
#define KLEPUR_CHECK_EQUAL_VALUES_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <klepur/text/large_array.h>

namespace klepur::internal {

/// The numbers of those hashes that may be there more than once, ascending: all that are, and of the others one
/// in some eight. It looks at two bits for each, which stay in the cache where a table would not.
inline std::vector<std::uint32_t> MayBeTwice(const LargeArray<std::uint32_t>& hashes) {
  const auto bits = static_cast<unsigned>(std::bit_width(hashes.size() | 32U) + 3);  // of a place
  const auto shift = bits < 32 ? 32U - bits : 0U;
  LargeArray<std::uint64_t> places;  // of 32 each: whether there once below, and twice above
  const std::uint32_t words = std::uint32_t{1} << (27U - shift);
  places.reserve(words);
  while (places.size() != words) places.push_back(0);
  const auto word = [&](std::uint32_t hash) -> std::uint64_t& {
    return places[hash >> shift >> 5U];
  };
  const auto once = [&](std::uint32_t hash) { return std::uint64_t{1} << (hash >> shift & 31U); };
  for (const std::uint32_t hash : hashes) {
    std::uint64_t& place = word(hash);
    place |= (place & once(hash)) << 32U | once(hash);
  }
  std::vector<std::uint32_t> numbers;
  for (std::uint32_t i = 0; i != hashes.size(); ++i) {
    if ((word(hashes[i]) & once(hashes[i]) << 32U) != 0) numbers.push_back(i);
  }
  return numbers;
}

/// Calls `use(earlier, later)` with the numbers of each value that equals an earlier one, and of the last of
/// these, in the order of the values. Given are their hashes, all bits of which must be good ones; `equal(i, j)`
/// is asked where two are the same.
///
/// Cost: linear.
template <class Equal, class Use>
void ForEachEqual(const LargeArray<std::uint32_t>& hashes, const Equal& equal, const Use& use) {
  const std::vector<std::uint32_t> numbers = MayBeTwice(hashes);
  constexpr std::uint32_t kFree = 0xFFFFFFFF;
  std::vector<std::uint32_t> slots(std::bit_ceil(numbers.size() * 2 + 2), kFree);
  for (const std::uint32_t i : numbers) {  // a slot holds the last value of a kind
    std::size_t at = hashes[i] & (slots.size() - 1);
    while (slots[at] != kFree && !(hashes[slots[at]] == hashes[i] && equal(slots[at], i))) {
      at = (at + 1) & (slots.size() - 1);
    }
    if (slots[at] != kFree) use(slots[at], i);
    slots[at] = i;
  }
}

}  // namespace klepur::internal

#endif
