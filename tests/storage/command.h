// Programs that a test runs.
#ifndef KLEPUR_TESTS_STORAGE_COMMAND_H
#define KLEPUR_TESTS_STORAGE_COMMAND_H

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>

namespace klepur::test {

/// How a program ended.
struct Ending {
  int status = -1;     // 128 and the signal's number when a signal ended it
  std::string output;  // all of it

  /// The first line of the output.
  std::string Word() const { return output.substr(0, output.find('\n')); }
};

/// Runs a line of shell and waits for it.
inline Ending RunShell(const std::string& line) {
  Ending ending;
  std::FILE* const pipe = popen(("exec 2>&1; " + line).c_str(), "r");
  if (pipe == nullptr) return ending;
  std::array<char, 4096> bytes;
  for (std::size_t count = 0; (count = fread(bytes.data(), 1, bytes.size(), pipe)) != 0;) {
    ending.output.append(bytes.data(), count);
  }
  const int status = pclose(pipe);
  ending.status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return ending;
}

/// A line that runs the program that saves (saver.cpp).
inline std::string Saver(const std::string& arguments) {
  return std::string(KLEPUR_SAVER) + " " + arguments;
}

}  // namespace klepur::test

#endif
