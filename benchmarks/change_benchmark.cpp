// Changing one line of one block, over sizes of the file. Subnets are gone to first.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(Each<OpenedHosts, ChangeHost>)->Name("ChangeSection, host")->Apply(OverSizes);
BENCHMARK(Each<OpenedSubnets, ChangeSubnet>)->Name("ChangeSection, subnet")->Apply(OverSizes);
BENCHMARK(Each<OpenedSubnets, ChangeHostOfItsSubnet>)
    ->Name("ChangeSection, host in any subnet")
    ->Apply(OverSizes);
