// The clock and the memory of a benchmark.
#ifndef KLEPUR_BENCHMARKS_MEASURE_H
#define KLEPUR_BENCHMARKS_MEASURE_H

#include <malloc.h>
#include <sys/resource.h>
#include <time.h>

#include <chrono>

inline double Seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// The processor time that this process has had so far.
inline double ProcessorSeconds() {
  timespec now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The processor time that one call of `work` takes, in seconds. On a machine that is shared it is
/// steadier than the time that passes; waiting for a disk is not in it.
///
/// Memory that earlier work freed is given back to the system first, so that the work pays for its
/// own memory, as in a program that does nothing else, whatever ran before it.
template <class Work>
double SecondsFor(const Work& work) {
  malloc_trim(0);
  const double start = ProcessorSeconds();
  work();
  return ProcessorSeconds() - start;
}

/// The most memory that this process has had so far.
inline double PeakMegabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

#endif
