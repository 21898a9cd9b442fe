// Loading and unloading the library leaves nothing behind.
#include <gtest/gtest.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "tests/process/loaded.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

#ifdef KLEPUR_SANITIZED
constexpr bool kSanitized = true;  // they keep freed memory and books of their own
#else
constexpr bool kSanitized = false;
#endif

constexpr int kTimes = kSanitized ? 20 : 500;
constexpr std::size_t kKibibyte = 1024;

std::size_t ResidentBytes() {
  std::size_t size = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/// How many pieces of memory the process has mapped, each part of a loaded library among them.
std::ptrdiff_t Mappings() {
  std::ifstream maps("/proc/self/maps");
  return std::count(std::istreambuf_iterator<char>(maps), {}, '\n');
}

bool IsMapped(const std::string& name) {
  std::ifstream maps("/proc/self/maps");
  const std::string text{std::istreambuf_iterator<char>(maps), {}};
  return text.find(name) != std::string::npos;
}

class Unloading : public ::testing::Test {
 protected:
  /// Runs `task` until what is made once is made, and then so often that the smallest leak would be
  /// more than what comes and goes in the system's own books.
  static void ExpectNothingKept(const std::function<void()>& task) {
    for (int i = 0; i != 20; ++i) task();
    const std::ptrdiff_t descriptors = OpenDescriptors();
    const std::ptrdiff_t mappings = Mappings();
    const std::size_t inUse = mallinfo2().uordblks;
    const std::size_t resident = ResidentBytes();
    for (int i = 0; i != kTimes; ++i) task();
    EXPECT_EQ(OpenDescriptors(), descriptors);
    if (kSanitized) return;
    EXPECT_EQ(Mappings(), mappings);
    EXPECT_LE(mallinfo2().uordblks, inUse + 8 * kKibibyte);
    EXPECT_LE(ResidentBytes(), resident + 512 * kKibibyte);
  }

  ScratchFolder scratch_;
};

TEST_F(Unloading, LoadingAndUnloadingKeepsNothing) {
  ExpectNothingKept([] { const Loaded library(KLEPUR_LIBRARY); });
}

TEST_F(Unloading, LoadingUsingAndUnloadingKeepsNothing) {
  const std::string folder = scratch_.Path("");
  ExpectNothingKept([&] { UseLibrary(folder); });
}

TEST_F(Unloading, UsingWithoutUnloadingKeepsNothing) {
  const Loaded library(KLEPUR_LIBRARY);
  const std::string folder = scratch_.Path("");
  ExpectNothingKept([&] { UseLibrary(folder); });
}

TEST_F(Unloading, LibraryIsGoneOnceItIsUnloaded) {
  {
    const Loaded library(KLEPUR_LIBRARY);
    EXPECT_TRUE(IsMapped("libklepur.so"));
  }
  EXPECT_FALSE(IsMapped("libklepur.so"));
  UseLibrary(scratch_.Path(""));
  EXPECT_FALSE(IsMapped("libklepur.so"));
}

}  // namespace
}  // namespace klepur::test
