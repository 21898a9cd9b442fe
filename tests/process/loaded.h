// A shared object that is loaded by hand.
#ifndef KLEPUR_TESTS_PROCESS_LOADED_H
#define KLEPUR_TESTS_PROCESS_LOADED_H

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/process/every_operation.h"

namespace klepur::test {

/// Loaded while it lives.
class Loaded {
 public:
  explicit Loaded(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(handle_, nullptr) << dlerror();
  }
  Loaded(const Loaded&) = delete;
  Loaded& operator=(const Loaded&) = delete;
  ~Loaded() {
    if (handle_ == nullptr) return;
    EXPECT_EQ(dlclose(handle_), 0);
  }

  void* Symbol(const char* name) const { return dlsym(handle_, name); }

 private:
  void* handle_;
};

/// Loads the module, with it the library, uses every operation, and unloads both.
inline void UseLibrary(const std::string& folder) {
  const Loaded module(KLEPUR_PROCESS_MODULE);
  const auto run =
      reinterpret_cast<decltype(&RunEveryOperation)>(module.Symbol("RunEveryOperation"));
  ASSERT_NE(run, nullptr);
  const char* const wrong = run(folder.c_str());
  EXPECT_EQ(wrong, nullptr) << wrong;
}

}  // namespace klepur::test

#endif
