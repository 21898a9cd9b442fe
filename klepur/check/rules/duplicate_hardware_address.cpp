// Two hosts of one network with the same card: the server serves the one that it comes to first.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

namespace klepur::internal {

void DuplicateHardwareAddress(const Facts& facts, Report& report) {
  ForEachDuplicate(facts, facts.hardware, [&](const auto& here, const auto& before) {
    report.Add({.node = here.statement,
                .message = "the hardware address " + here.value.Text() + " is that of another host",
                .other = before.statement});
  });
}

}  // namespace klepur::internal
