// The library changes nothing in its process but what it was called for.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <locale.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <locale>
#include <string>
#include <utility>
#include <vector>

#include "tests/process/loaded.h"
#include "tests/support/descriptors.h"
#include "tests/support/files.h"

namespace klepur::test {
namespace {

class Process : public ::testing::Test {
 protected:
  void UseLibrary() { klepur::test::UseLibrary(scratch_.Path("")); }

  ScratchFolder scratch_;
};

/// Sends what is written to standard output and standard error to a file while it lives.
class Redirected {
 public:
  explicit Redirected(const std::string& path) {
    std::fflush(nullptr);
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
      former_[stream] = dup(stream);
      dup2(file, stream);
    }
    close(file);
  }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;
  ~Redirected() {
    std::fflush(nullptr);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
      dup2(former_[stream], stream);
      close(former_[stream]);
    }
  }

 private:
  int former_[STDERR_FILENO + 1] = {};
};

TEST_F(Process, NothingIsWrittenToStandardOutputOrError) {
  const std::string path = scratch_.Path("output");
  {
    const Redirected output(path);
    UseLibrary();
  }
  EXPECT_EQ(ReadFile(path), "");
}

TEST_F(Process, WhatIsWrittenToStandardOutputAndErrorWouldBeSeen) {
  const std::string path = scratch_.Path("output");
  {
    const Redirected output(path);
    std::fputs("output ", stdout);
    std::fflush(stdout);
    std::fputs("error", stderr);
  }
  EXPECT_EQ(ReadFile(path), "output error");
}

/// Gives every signal a handler of the test's own while it lives.
class OwnHandlers {
 public:
  OwnHandlers() {
    struct sigaction own = {};
    own.sa_handler = [](int /*number*/) {};
    own.sa_flags = static_cast<int>(SA_RESETHAND);  // a crash comes through the second time
    for (int number = 1; number <= SIGRTMAX; ++number) {
      struct sigaction former = {};
      if (sigaction(number, &own, &former) == 0) former_.emplace_back(number, former);
    }
  }
  OwnHandlers(const OwnHandlers&) = delete;
  OwnHandlers& operator=(const OwnHandlers&) = delete;
  ~OwnHandlers() {
    for (const auto& [number, action] : former_) sigaction(number, &action, nullptr);
  }

 private:
  std::vector<std::pair<int, struct sigaction>> former_;
};

/// What each signal does, and which ones are blocked, in words.
std::vector<std::string> Signals() {
  std::vector<std::string> signals;
  sigset_t blocked;
  pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
  for (int number = 1; number <= SIGRTMAX; ++number) {
    struct sigaction action = {};
    if (sigaction(number, nullptr, &action) != 0) continue;
    char handler[32];
    std::snprintf(handler, sizeof handler, "%p", reinterpret_cast<void*>(action.sa_handler));
    std::string also;
    for (int other = 1; other <= SIGRTMAX; ++other) {
      if (sigismember(&action.sa_mask, other) == 1) also += " " + std::to_string(other);
    }
    signals.push_back(std::to_string(number) + ": " + handler + " with flags " +
                      std::to_string(action.sa_flags) + ", blocking" + also +
                      (sigismember(&blocked, number) == 1 ? ", blocked" : ""));
  }
  return signals;
}

TEST_F(Process, SignalHandlersAndBlockedSignalsStay) {
  const OwnHandlers own;
  const std::vector<std::string> before = Signals();
  {
    const Loaded library(KLEPUR_LIBRARY);
    EXPECT_EQ(Signals(), before);
    UseLibrary();
    EXPECT_EQ(Signals(), before);
  }
  EXPECT_EQ(Signals(), before);
}

TEST_F(Process, LocaleStays) {
  for (const char* name : {"C", "C.UTF-8"}) {
    if (setlocale(LC_ALL, name) == nullptr) continue;
    const std::string before = setlocale(LC_ALL, nullptr);
    const std::locale standard;
    const locale_t own = uselocale(nullptr);
    UseLibrary();
    EXPECT_EQ(setlocale(LC_ALL, nullptr), before);
    EXPECT_EQ(uselocale(nullptr), own);
    EXPECT_EQ(std::locale(), standard);
  }
  setlocale(LC_ALL, "C");
}

TEST_F(Process, UmaskStays) {
  const mode_t former = umask(0137);
  UseLibrary();
  EXPECT_EQ(umask(former), 0137U);
}

std::vector<std::string> Environment() {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) variables.push_back(*variable);
  return variables;
}

TEST_F(Process, EnvironmentAndWorkingDirectoryStay) {
  const std::vector<std::string> before = Environment();
  const auto folder = std::filesystem::current_path();
  UseLibrary();
  EXPECT_EQ(Environment(), before);
  EXPECT_EQ(std::filesystem::current_path(), folder);
}

std::ptrdiff_t Threads() {
  const std::filesystem::directory_iterator threads("/proc/self/task");
  return std::distance(begin(threads), end(threads));
}

TEST_F(Process, NoThreadIsStarted) {
  const std::ptrdiff_t before = Threads();
  const Loaded library(KLEPUR_LIBRARY);
  EXPECT_EQ(Threads(), before);
  UseLibrary();
  EXPECT_EQ(Threads(), before);
}

TEST_F(Process, NoFileStaysOpen) {
  UseLibrary();
  const std::ptrdiff_t before = OpenDescriptors();
  UseLibrary();
  EXPECT_EQ(OpenDescriptors(), before);
}

}  // namespace
}  // namespace klepur::test
