// What a fuzz target offers to whatever runs it: libFuzzer or the replay driver.
#ifndef KLEPUR_FUZZ_TARGET_H
#define KLEPUR_FUZZ_TARGET_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/support/system_log.h"

/// Checks one input; ends the process at a finding. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace klepur::fuzz {

/// Calls `check` with the input. The log is empty before, and behind it, where libFuzzer would take
/// what is kept for a leak.
template <class Check>
int RunTarget(const std::uint8_t* data, std::size_t size, Check check) {
  test::ClearSystemLog();
  check(std::string(reinterpret_cast<const char*>(data), size));
  test::ClearSystemLog();
  return 0;
}

}  // namespace klepur::fuzz

#endif
