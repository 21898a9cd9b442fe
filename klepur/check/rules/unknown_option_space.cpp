// An option of a space that neither the server nor the file has.
#include <klepur/check/rules/rules.h>

#include <klepur/check/option_names.h>

namespace klepur::internal {
namespace {

void ReportUses(const std::vector<NamedFact>& uses, const OptionNames& names, Report& report) {
  for (const NamedFact& use : uses) {
    const std::string space = OptionNames::SpaceOf(use.name);
    if (names.HasSpace(space)) continue;
    report.Add({.node = use.node,
                .message = "there is no option space \"" + space + "\"",
                .at = use.name});
  }
}

}  // namespace

void UnknownOptionSpace(const Facts& facts, Report& report) {
  if (CanDefineElsewhere(facts)) return;
  const OptionNames names(facts);
  ReportUses(facts.option_uses, names, report);
  ReportUses(facts.option_definitions, names, report);
}

}  // namespace klepur::internal
