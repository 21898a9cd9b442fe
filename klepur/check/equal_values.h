// Internal: finding what is there twice.
#ifndef KLEPUR_CHECK_EQUAL_VALUES_H
#define KLEPUR_CHECK_EQUAL_VALUES_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace klepur::internal {

/// Calls `use(earlier, later)` with the numbers of each value that equals an earlier one, and of the last of
/// these, in the order of the values.
///
///     ForEachEqual(facts.hardware.size(), [&](auto i) { return std::hash<HardwareAddress>{}(facts.hardware[i].value); },
///                  [&](auto i, auto j) { return facts.hardware[i].value == facts.hardware[j].value; }, use);
///
/// Cost: linear.
template <class Hash, class Equal, class Use>
void ForEachEqual(std::uint32_t count, const Hash& hash, const Equal& equal, const Use& use) {
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t last = 0;  // the number of the last value of this kind and one; 0 for a free slot
  };
  std::size_t room = 16;
  while (room < std::size_t{count} * 2) room *= 2;
  std::vector<Slot> slots(room);
  // Hashes of neighbours may be neighbours, and the low bits alike.
  const auto mixed = [&](std::uint32_t i) {
    return static_cast<std::uint32_t>((std::uint64_t{hash(i)} * 0x9E3779B97F4A7C15U) >> 32U);
  };
  constexpr std::uint32_t kAhead = 16;  // fetched from memory before they are looked at
  std::uint32_t hashes[kAhead] = {};
  for (std::uint32_t ahead = 0; ahead != std::min(kAhead, count); ++ahead)
    hashes[ahead] = mixed(ahead);
  for (std::uint32_t i = 0; i != count; ++i) {
    const std::uint32_t high = hashes[i % kAhead];
    if (count - i > kAhead) {
      hashes[i % kAhead] = mixed(i + kAhead);
      __builtin_prefetch(&slots[hashes[i % kAhead] & (room - 1)]);
    }
    std::size_t at = high & (room - 1);
    while (slots[at].last != 0 && !(slots[at].hash == high && equal(slots[at].last - 1, i))) {
      at = (at + 1) & (room - 1);
    }
    if (slots[at].last != 0) use(slots[at].last - 1, i);
    slots[at] = {high, i + 1};
  }
}

}  // namespace klepur::internal

#endif
