// A benchmark checks its answer before it reports a figure.
#ifndef KLEPUR_BENCHMARKS_CHECK_H
#define KLEPUR_BENCHMARKS_CHECK_H

#include <cstdio>
#include <cstdlib>

/// Ends the program with a message when `holds` is false.
inline void Check(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "benchmark: wrong answer: %s\n", what);
  std::exit(EXIT_FAILURE);
}

#endif
