// The clock and the memory of a benchmark.
#ifndef KLEPUR_BENCHMARKS_MEASURE_H
#define KLEPUR_BENCHMARKS_MEASURE_H

#include <sys/resource.h>

#include <chrono>

inline double Seconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// The most memory that this process has had so far.
inline double PeakMegabytes() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

#endif
