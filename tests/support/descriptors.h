// How many files the program has open.
#ifndef KLEPUR_TESTS_SUPPORT_DESCRIPTORS_H
#define KLEPUR_TESTS_SUPPORT_DESCRIPTORS_H

#include <filesystem>
#include <iterator>

namespace klepur::test {

/// The number of open file descriptors; to compare before and after.
inline std::ptrdiff_t OpenDescriptors() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return std::distance(begin(descriptors), end(descriptors));
}

}  // namespace klepur::test

#endif
