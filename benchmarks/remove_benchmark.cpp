// Removing one block, over sizes of the file.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(EachUndone<OpenedHosts, On::kPresent, RemoveHost, AddHost>)
    ->Name("RemoveSection, host")
    ->Apply(OverSizes);
BENCHMARK(EachUndone<OpenedSubnets, On::kPresent, RemoveSubnet, AddSubnet>)
    ->Name("RemoveSection, subnet")
    ->Apply(OverSizes);
