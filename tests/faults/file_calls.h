// What happens when the code under test opens a file and reads from it.
#ifndef KLEPUR_TESTS_FAULTS_FILE_CALLS_H
#define KLEPUR_TESTS_FAULTS_FILE_CALLS_H

#include <sys/types.h>

#include <cstddef>
#include <functional>

namespace klepur::test {

/// While it lives, this thread's calls of open and read go through these functions. Linking this
/// file puts both in place of the system's.
class FileCalls {
 public:
  using BeforeOpen = std::function<int()>;
  using Read = std::function<ssize_t(int descriptor, char* buffer, std::size_t size)>;

  /// \param read        in place of each read; calls that it makes itself are the system's. It
  ///                    fails as the system does, with errno: see FailWith.
  /// \param beforeOpen  called before each open, which fails for the reason that it returns; 0 is
  ///                    none.
  explicit FileCalls(Read read, BeforeOpen beforeOpen = nullptr);
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;
  ~FileCalls();
};

/// What a read returns that fails for this reason.
ssize_t FailWith(int reason);

/// What the system brings up to the next line end.
ssize_t ReadLine(int descriptor, char* buffer, std::size_t size);

}  // namespace klepur::test

#endif
