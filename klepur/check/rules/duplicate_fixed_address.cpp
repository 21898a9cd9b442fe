// Two hosts with the same fixed address: when both are on, they are in each other's way.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void DuplicateFixedAddress(const Facts& facts, Report& report) {
  const auto address = [&](const FixedAddressFact& of) { return facts.AddressOf(of); };
  ForEachDuplicate(
      facts, facts.fixed_addresses, [&](const auto& one) { return address(one).Hash(); },
      [&](const auto& one, const auto& other) { return address(one) == address(other); },
      [&](const auto& here, const auto& before) {
        report.Add({.node = here.statement,
                    .message = "the address " + address(here).Text() + " is that of another host",
                    .other = before.statement});
      });
}

}  // namespace klepur::internal
