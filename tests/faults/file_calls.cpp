#include "tests/faults/file_calls.h"

#include <fcntl.h>
#include <stdarg.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

using klepur::test::FileCalls;

thread_local FileCalls::Read readInPlace;
thread_local FileCalls::BeforeOpen beforeEachOpen;
thread_local bool inside = false;  // one of the two functions is running

/// Calls one of the functions above; what it does itself goes to the system.
template <class Call>
auto FromOutside(const Call& call) {
  struct Mark {
    Mark() { inside = true; }
    Mark(const Mark&) = delete;
    Mark& operator=(const Mark&) = delete;
    ~Mark() { inside = false; }
  };
  const Mark mark;
  return call();
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
  if (beforeEachOpen && !inside) {
    if (const int reason = FromOutside(beforeEachOpen); reason != 0) {
      return static_cast<int>(klepur::test::FailWith(reason));
    }
  }
  va_list arguments;
  va_start(arguments, flags);
  const unsigned int mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned int) : 0;
  va_end(arguments);
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

ssize_t read(int descriptor, void* buffer, std::size_t size) {
  if (!readInPlace || inside) return syscall(SYS_read, descriptor, buffer, size);
  return FromOutside([&] { return readInPlace(descriptor, static_cast<char*>(buffer), size); });
}

}  // extern "C"

namespace klepur::test {

FileCalls::FileCalls(Read read, BeforeOpen beforeOpen) {
  readInPlace = std::move(read);
  beforeEachOpen = std::move(beforeOpen);
}

FileCalls::~FileCalls() {
  readInPlace = nullptr;
  beforeEachOpen = nullptr;
}

ssize_t FailWith(int reason) {
  errno = reason;
  return -1;
}

ssize_t ReadLine(int descriptor, char* buffer, std::size_t size) {
  std::size_t count = 0;
  while (count != size && (count == 0 || buffer[count - 1] != '\n')) {
    const ssize_t got = ::read(descriptor, buffer + count, 1);
    if (got < 0) return got;
    if (got == 0) break;
    ++count;
  }
  return static_cast<ssize_t>(count);
}

}  // namespace klepur::test
