// A fixed address that is in no subnet of the file: the server never gives it out.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void FixedAddressOutsideSubnets(const Facts& facts, Report& report) {
  // Included files and the file that includes this one can have subnets too.
  if (facts.subnets.empty() || !facts.includes.empty()) return;
  for (const auto& address : facts.fixed_addresses) {
    if (facts.SubnetOf(address) != nullptr) continue;
    report.Add({.node = address.statement,
                .message = "the address " + facts.AddressOf(address).Text() + " is in no subnet"});
  }
}

}  // namespace klepur::internal
