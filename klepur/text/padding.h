// Internal: what must be readable behind a text.
#ifndef KLEPUR_TEXT_PADDING_H
#define KLEPUR_TEXT_PADDING_H

#include <cstddef>

namespace klepur::internal {

/// How many bytes behind a text are read together with its last ones.
inline constexpr std::size_t kPadding = 64;

}  // namespace klepur::internal

#endif
