// Looking up one host by a statement, over sizes of its subnet.
#include "benchmarks/operations.h"
#include "benchmarks/over_sizes.h"

BENCHMARK(Each<OpenedHosts, FindByMacAddress>)->Name("GetHostByMACAddress")->Apply(OverSizes);
BENCHMARK(Each<OpenedHosts, FindByAddress>)->Name("GetHostByIp")->Apply(OverSizes);
BENCHMARK(Each<OpenedHosts, FindByHostName>)->Name("GetHostByName")->Apply(OverSizes);
