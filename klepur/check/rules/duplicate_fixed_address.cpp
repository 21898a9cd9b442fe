// Two hosts with the same fixed address: when both are on, they are in each other's way.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void DuplicateFixedAddress(const Facts& facts, Report& report) {
  ForEachDuplicate(facts, facts.fixed_addresses, [&](const auto& here, const auto& before) {
    report.Add({.node = here.statement,
                .message = "the address " + here.value.Text() + " is that of another host",
                .other = before.statement});
  });
}

}  // namespace klepur::internal
