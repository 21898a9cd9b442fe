// Reads a DHCPv6 leases file and says what it took: into the tree only, or into a list of leases. One run does
// one of them, so that each has its own peak of memory.
//
//     extract_leases parse|leases FILE
#include <klepur/klepur.h>

#include <cstdio>
#include <cstdlib>
#include <list>
#include <string_view>

#include "benchmarks/measure.h"

namespace {

std::size_t Parse(const char* path) {
  CfSectionHolder tree;
  Dhcpv6LeasesParser parser;
  if (!parser.ParseFile(path, &tree)) return 0;
  return tree.topNode.children->front()->children->size();
}

std::size_t Extract(const char* path) {
  std::list<_Dhcpv6LeaseStore> leases;
  Dhcpv6LeasesParser().GetLeases(path, leases);
  return leases.size();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view work = argc == 3 ? argv[1] : "";
  if (work != "parse" && work != "leases") {
    std::fputs("usage: extract_leases parse|leases FILE\n", stderr);
    return EXIT_FAILURE;
  }
  const double before = PeakMegabytes();
  const double start = Seconds();
  const std::size_t count = work == "parse" ? Parse(argv[2]) : Extract(argv[2]);
  std::printf("%s: %zu blocks in %.3f s, %.1f MB at the peak\n", argv[1], count, Seconds() - start,
              PeakMegabytes() - before);
  return EXIT_SUCCESS;
}
