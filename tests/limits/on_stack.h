// Running a task on a stack of a known size.
#ifndef KLEPUR_TESTS_LIMITS_ON_STACK_H
#define KLEPUR_TESTS_LIMITS_ON_STACK_H

#include <cstddef>
#include <functional>

namespace klepur::test {

/// What a thread has that is not told otherwise, and what programs with many threads give theirs.
inline constexpr std::size_t kUsualStack = 8 * 1024 * 1024;
inline constexpr std::size_t kSmallStack = 256 * 1024;

/// Runs `task` in a thread with so large a stack, and waits for it. Using more ends the program.
void OnStack(std::size_t size, const std::function<void()>& task);

}  // namespace klepur::test

#endif
