#include "tests/limits/on_stack.h"

#include <gtest/gtest.h>
#include <pthread.h>

namespace klepur::test {
namespace {

void* Run(void* task) {
  (*static_cast<const std::function<void()>*>(task))();
  return nullptr;
}

}  // namespace

void OnStack(std::size_t size, const std::function<void()>& task) {
  pthread_attr_t attributes;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
  std::function<void()> copy = task;
  pthread_t thread = {};
  ASSERT_EQ(pthread_create(&thread, &attributes, Run, &copy), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

}  // namespace klepur::test
