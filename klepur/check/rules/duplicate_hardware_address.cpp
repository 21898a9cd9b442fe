// Two hosts of one network with the same card: the server serves the one that it comes to first.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

#include <klepur/check/statement_value.h>
#include <klepur/network/hardware_address.h>

namespace klepur::internal {

void DuplicateHardwareAddress(const Facts& facts, Report& report) {
  const auto address = [&](const HashOfHost& of) {
    return HardwareAddress::Parse(ValueBehind(1, facts.state.OwnText(of.statement)));
  };
  ForEachDuplicate(
      facts, facts.hardware, [](const auto& one) { return one.hash; },
      [&](const auto& one, const auto& other) { return address(one) == address(other); },
      [&](const auto& here, const auto& before) {
        report.Add({.node = here.statement,
                    .message = "the hardware address " + address(here)->Text() +
                               " is that of another host",
                    .other = before.statement});
      });
}

}  // namespace klepur::internal
