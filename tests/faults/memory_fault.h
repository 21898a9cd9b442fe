// Memory that runs out while the code under test works.
#ifndef KLEPUR_TESTS_FAULTS_MEMORY_FAULT_H
#define KLEPUR_TESTS_FAULTS_MEMORY_FAULT_H

#include <cstddef>

namespace klepur::test {

/// Whether there is memory again after the allocation that failed.
enum class Shortage { kOnce, kFromThenOn };

/// While it lives, an allocation of this thread fails: operator new throws std::bad_alloc, and mmap
/// and mremap give no pages.
class MemoryFault {
 public:
  /// \param passing  how many allocations succeed before it.
  MemoryFault(std::size_t passing, Shortage shortage);
  MemoryFault(const MemoryFault&) = delete;
  MemoryFault& operator=(const MemoryFault&) = delete;
  ~MemoryFault();

  /// Whether an allocation has failed.
  bool Struck() const;
};

/// How many blocks operator new has given that operator delete has not taken back.
std::ptrdiff_t BlocksInUse();

}  // namespace klepur::test

#endif
