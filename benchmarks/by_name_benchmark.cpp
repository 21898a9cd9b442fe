// Going to or fetching one block by its name, over sizes of the file.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(Each<OpenedHosts, GoToHost>)->Name("GotoSection, host")->Apply(OverSizes);
BENCHMARK(Each<OpenedSubnets, GoToSubnet>)->Name("GotoSection, subnet")->Apply(OverSizes);
BENCHMARK(Each<OpenedHosts, FetchHost>)->Name("GetSectionByName, host")->Apply(OverSizes);
BENCHMARK(Each<OpenedSubnets, FetchSubnet>)->Name("GetSectionByName, subnet")->Apply(OverSizes);
