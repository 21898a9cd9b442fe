// How large "large" is.
#ifndef KLEPUR_TESTS_LIMITS_SIZES_H
#define KLEPUR_TESTS_LIMITS_SIZES_H

#include <cstddef>

namespace klepur::test {

#ifdef KLEPUR_SANITIZED
// Sanitizers make everything many times slower and larger: builds with them test a fifteenth of the
// sizes that are named here, and 3000 blocks in place of 5000. That is still more than any 16-bit
// number counts, and deeper than recursion reaches on a small stack, at 88 bytes a call. All other
// builds test the whole sizes.
inline constexpr std::size_t kPart = 15;
#else
inline constexpr std::size_t kPart = 1;
#endif

/// A million blocks nested in each other.
inline constexpr std::size_t kDeep = 1'000'000 / kPart;

/// Five thousand of them where they are saved: the text grows with the square of this, since each
/// line is indented.
inline constexpr std::size_t kDeepSaved = kPart == 1 ? 5'000 : 3'000;

/// A million blocks beside each other, or lines in one block.
inline constexpr std::size_t kMany = 1'000'000 / kPart;

/// A hundred million bytes in one line.
inline constexpr std::size_t kLong = 100'000'000 / kPart;

}  // namespace klepur::test

#endif
