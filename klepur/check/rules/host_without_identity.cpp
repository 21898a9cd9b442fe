// A host that no client can be told to be.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void HostWithoutIdentity(const Facts& facts, Report& report) {
  // What is included in a host cannot identify it: the server takes no such statement there.
  for (const HostFact& host : facts.hosts) {
    if (host.has_hardware || host.has_identifier) continue;
    report.Add({.node = host.node,
                .message = "the host has neither a hardware address nor an identifier"});
  }
}

}  // namespace klepur::internal
