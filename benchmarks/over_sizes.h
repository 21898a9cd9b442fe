// Running an operation on files of growing size, with Google Benchmark.
#ifndef KLEPUR_BENCHMARKS_OVER_SIZES_H
#define KLEPUR_BENCHMARKS_OVER_SIZES_H

#include <benchmark/benchmark.h>
#include <klepur/klepur.h>

#include <cstddef>
#include <string>

#include "benchmarks/check.h"
#include "benchmarks/inputs.h"
#include "benchmarks/scratch_file.h"

/// The sizes, 1 000 to 200 000 hosts, and that the growth of the cost with them is printed.
inline void OverSizes(benchmark::internal::Benchmark* run) {
  for (const int hosts : {1'000, 10'000, 50'000, 200'000}) run->Arg(hosts);
  run->Complexity();
}

/// The size of this run.
inline std::size_t SizeOf(benchmark::State& state) {
  state.SetComplexityN(state.range(0));
  return static_cast<std::size_t>(state.range(0));
}

inline void WriteAllHosts(const std::string& path, std::size_t count) {
  WriteHosts(path, count, Present::kAll);
}

/// A generated file, opened.
template <class File, void (*write)(const std::string& path, std::size_t count)>
struct Opened {
  explicit Opened(std::size_t count) : file(source.Name()) {
    write(source.Path(), count);
    Check(file.Open(), "the file is opened");
  }

  const ScratchFile source;
  File file;
};
using OpenedHosts = Opened<DhcpConfigFile, WriteAllHosts>;
using OpenedSubnets = Opened<Dhcpv6ConfigFile, WriteSubnets>;

/// All numbers below a count that is no multiple of 7919, again and again, each far from the one
/// before.
class ScatteredNumbers {
 public:
  explicit ScatteredNumbers(std::size_t count) : count_(count) {}
  std::size_t Next() { return next_ = (next_ + 7919) % count_; }

 private:
  std::size_t count_;
  std::size_t next_ = 0;
};

/// Times `run` on one host or subnet after the other. What the first call may prepare for the later
/// ones is not counted.
template <class OpenedFile, auto run>
void Each(benchmark::State& state) {
  const std::size_t count = SizeOf(state);
  OpenedFile opened(count);
  ScatteredNumbers numbers(count);
  bool right = run(opened.file, numbers.Next());
  for (auto _ : state) right = run(opened.file, numbers.Next()) && right;
  Check(right, "an operation over sizes");
}

enum class On { kPresent, kNew };

/// The same for an operation that changes how many there are: `undo` brings the number back and is
/// not timed.
template <class OpenedFile, On on, auto run, auto undo>
void EachUndone(benchmark::State& state) {
  const std::size_t count = SizeOf(state);
  const std::size_t first = on == On::kNew ? count : 0;
  OpenedFile opened(count);
  ScatteredNumbers numbers(count);
  bool right = true;
  for (auto _ : state) {
    const std::size_t number = first + numbers.Next();
    right = run(opened.file, number) && right;
    state.PauseTiming();
    right = undo(opened.file, number) && right;
    state.ResumeTiming();
  }
  Check(right, "an operation over sizes");
}

#endif
