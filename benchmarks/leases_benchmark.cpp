// Parsing a leases file, and reading it into a list of leases, over sizes.
#include <list>

#include "benchmarks/over_sizes.h"

static void ParseLeases(benchmark::State& state) {
  const ScratchFile source;
  WriteLeases(source.Path(), SizeOf(state));
  for (auto _ : state) {
    CfSectionHolder tree;
    Check(Dhcpv6LeasesParser().ParseFile(source.Name(), &tree), "the leases file is parsed");
  }
}
BENCHMARK(ParseLeases)->Apply(OverSizes);

static void GetLeases(benchmark::State& state) {
  const std::size_t count = SizeOf(state);
  const ScratchFile source;
  WriteLeases(source.Path(), count);
  for (auto _ : state) {
    std::list<_Dhcpv6LeaseStore> leases;
    Dhcpv6LeasesParser().GetLeases(source.Name(), leases);
    Check(leases.size() == count, "each association gives a lease");
  }
}
BENCHMARK(GetLeases)->Apply(OverSizes);
