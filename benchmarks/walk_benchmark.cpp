// One step from a host to the next, over sizes of its subnet.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(Each<OpenedHosts, WalkToHost>)->Name("GetNextSection, host")->Apply(OverSizes);
