// Internal: calls of the system that a signal may interrupt.
#ifndef KLEPUR_TEXT_UNINTERRUPTED_H
#define KLEPUR_TEXT_UNINTERRUPTED_H

#include <cerrno>

namespace klepur::internal {

/// Calls again what a signal interrupts.
template <class Call>
auto Uninterrupted(Call call) {
  for (;;) {
    const auto result = call();
    if (result >= 0 || errno != EINTR) return result;
  }
}

}  // namespace klepur::internal

#endif
