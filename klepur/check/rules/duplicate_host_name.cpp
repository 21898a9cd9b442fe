// Two hosts of one network that are told the same name.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

#include <klepur/check/host_names.h>
#include <klepur/check/statement_value.h>

namespace klepur::internal {

void DuplicateHostName(const Facts& facts, Report& report) {
  const auto name = [&](const HashOfHost& of) {
    return SpelledHostName(Trimmed(ValueBehind(2, facts.state.OwnText(of.statement))));
  };
  ForEachDuplicate(
      facts, facts.host_names, [](const auto& one) { return one.hash; },
      [&](const auto& one, const auto& other) { return name(one) == name(other); },
      [&](const auto& here, const auto& before) {
        report.Add({.node = here.statement,
                    .message = "the host name \"" + name(here) + "\" is that of another host",
                    .other = before.statement});
      });
}

}  // namespace klepur::internal
