// One operation, run until it has failed at each of its allocations.
#ifndef KLEPUR_TESTS_FAULTS_EVERY_FAULT_H
#define KLEPUR_TESTS_FAULTS_EVERY_FAULT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

#include "tests/faults/memory_fault.h"

namespace klepur::test {

/// What became of an operation while memory ran out.
struct Outcome {
  bool struck = false;  // an allocation failed
  bool threw = false;   // std::bad_alloc came out of the operation
  bool result = false;  // what it returned when none did

  /// Whether the operation was hindered: one that was not must have done its whole work.
  bool Failed() const { return threw || (struck && !result); }
};

template <class Operation>
Outcome RunShortOfMemory(std::size_t passing, Shortage shortage, Operation operation) {
  Outcome outcome;
  const MemoryFault fault(passing, shortage);
  try {
    outcome.result = operation();
  } catch (const std::bad_alloc&) {
    outcome.threw = true;
  }
  outcome.struck = fault.Struck();
  return outcome;
}

/// Runs `operation`, which returns a bool, with its first allocation failing, with its second, and
/// so on until none fails; then all of that again with every later allocation failing too.
///
/// Each time `prepare` makes what it works on, `check` looks at its outcome, and `finish` frees
/// everything: then as many blocks must be in use as before. The first run is without a fault,
/// since some things are made once in a process.
///
/// \return how often an allocation failed.
template <class Prepare, class Operation, class Check, class Finish>
std::size_t ForEveryFault(Prepare prepare, Operation operation, Check check, Finish finish) {
  prepare();
  Outcome unhindered;
  unhindered.result = operation();
  check(unhindered);
  finish();
  std::size_t struck = 0;
  for (const Shortage shortage : {Shortage::kOnce, Shortage::kFromThenOn}) {
    Outcome outcome;
    std::size_t passing = 0;
    do {
      SCOPED_TRACE(::testing::Message()
                   << "memory ran out " << (shortage == Shortage::kOnce ? "once" : "for good")
                   << " after " << passing << " allocations");
      const std::ptrdiff_t before = BlocksInUse();
      prepare();
      outcome = RunShortOfMemory(passing++, shortage, operation);
      if (outcome.struck) ++struck;
      check(outcome);
      finish();
      EXPECT_EQ(BlocksInUse(), before);
      if (::testing::Test::HasFailure()) return struck;
    } while (outcome.struck);
  }
  return struck;
}

}  // namespace klepur::test

#endif
