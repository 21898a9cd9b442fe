// Compares reading a DHCPv6 leases file into a list of leases with only parsing it into the tree.
//
//     compare_leases FILE ROUNDS
//
// GetLeases frees its tree. So that it stands beside both readings of "only parsing", that is timed
// with and without freeing the tree.
#include <klepur/klepur.h>

#include <cstddef>
#include <cstdlib>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/check.h"
#include "benchmarks/command_line.h"
#include "benchmarks/compare.h"
#include "benchmarks/measure.h"

namespace {

double GetLeases(const std::string& path, std::size_t& count) {
  std::list<_Dhcpv6LeaseStore> leases;
  const double seconds = SecondsFor([&] { Dhcpv6LeasesParser().GetLeases(path.c_str(), leases); });
  count = leases.size();
  return seconds;
}

std::size_t CountBlocks(const CfSectionHolder& tree) {
  return tree.topNode.children->front()->children->size();
}

enum class After { kTreeKept, kTreeFreed };

double Parse(const std::string& path, After after, std::size_t& count) {
  auto holder = std::make_unique<CfSectionHolder>();
  return SecondsFor([&] {
    Check(Dhcpv6LeasesParser().ParseFile(path.c_str(), holder.get()), "the leases file is parsed");
    count = CountBlocks(*holder);
    if (after == After::kTreeFreed) holder.reset();
  });
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine arguments(argc, argv);
  const std::string& path = arguments.file;
  std::size_t leases = 0;
  std::size_t blocks = 0;
  const std::vector<Samples> samples =
      InTurn(arguments.rounds, {[&] { return GetLeases(path, leases); },
                                [&] { return Parse(path, After::kTreeKept, blocks); },
                                [&] { return Parse(path, After::kTreeFreed, blocks); }});
  Check(leases > 0 && leases == blocks, "each association gives a lease");
  const std::string work = "GetLeases, " + std::to_string(leases) + " blocks";
  PrintRow(work, samples[0], "only parsing", samples[1], 1.5);
  PrintRow(work, samples[0], "parsing, and freeing the tree", samples[2], 0);
  return EXIT_SUCCESS;
}
