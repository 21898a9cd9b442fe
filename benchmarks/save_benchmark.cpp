// Save over sizes.
#include "benchmarks/over_sizes.h"

static void Save(benchmark::State& state) {
  OpenedHosts opened(SizeOf(state));
  const ScratchFile target;
  bool saved = true;
  for (auto _ : state) saved = opened.file.Save(target.Path()) == 1 && saved;
  Check(saved, "the file is saved");
}
BENCHMARK(Save)->Apply(OverSizes);
