// How a fuzz target says that something does not hold.
#ifndef KLEPUR_FUZZ_REQUIRE_H
#define KLEPUR_FUZZ_REQUIRE_H

#include <cstdio>
#include <cstdlib>
#include <string>

namespace klepur::fuzz {

/// Says what is wrong and ends the process, which is how a finding is reported.
[[noreturn]] inline void Fail(const std::string& what) {
  std::fprintf(stderr, "\n==== %s\n", what.c_str());
  std::abort();
}

/// \param what  the promise: "both parsers read the same tree".
inline void Require(bool holds, const char* what) {
  if (!holds) Fail(std::string("Does not hold: ") + what);
}

/// \param what  what is compared: "the text written".
inline void RequireSame(const char* what, const std::string& expected, const std::string& actual) {
  if (expected == actual) return;
  Fail(std::string("Different: ") + what + "\n---- expected\n" + expected + "\n---- actual\n" +
       actual);
}

}  // namespace klepur::fuzz

#endif
