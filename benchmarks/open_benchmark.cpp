// Open over sizes.
#include "benchmarks/over_sizes.h"

static void Open(benchmark::State& state) {
  const ScratchFile source;
  WriteHosts(source.Path(), SizeOf(state), Present::kAll);
  DhcpConfigFile file(source.Name());
  bool opened = true;
  for (auto _ : state) opened = file.Open() && opened;  // from the second on, frees the last tree
  Check(opened, "the file is opened");
}
BENCHMARK(Open)->Apply(OverSizes);
