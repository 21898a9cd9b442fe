#include <klepur/network/distance.h>

#include <cstddef>
#include <limits>

namespace klepur::internal {

std::uint64_t CountPrefixes(const Address& first, const Address& last, unsigned length) noexcept {
  constexpr std::uint64_t kMost = std::numeric_limits<std::uint64_t>::max();
  // Made from the first bit on. Once a difference of the bits so far is not zero, it never shrinks.
  std::uint64_t difference = 0;
  for (unsigned bit = 0; bit < length; ++bit) {
    const unsigned mask = 0x80U >> (bit % 8);
    const bool inLast = (last.Bytes()[bit / 8] & mask) != 0;
    const bool inFirst = (first.Bytes()[bit / 8] & mask) != 0;
    if (difference > kMost / 2) return kMost;
    difference = 2 * difference + (inLast ? 1 : 0) - (inFirst ? 1 : 0);
  }
  return difference == kMost ? kMost : difference + 1;
}

}  // namespace klepur::internal
