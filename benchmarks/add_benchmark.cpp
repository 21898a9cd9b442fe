// Adding one block, its duplicate test included, over sizes of the file.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(EachUndone<OpenedHosts, On::kNew, AddHost, RemoveHost>)
    ->Name("AddSection, host")
    ->Apply(OverSizes);
BENCHMARK(Each<OpenedHosts, AddHostTwice>)
    ->Name("AddSection, host that is there")
    ->Apply(OverSizes);
BENCHMARK(EachUndone<OpenedSubnets, On::kNew, AddSubnet, RemoveSubnet>)
    ->Name("AddSection, subnet")
    ->Apply(OverSizes);
