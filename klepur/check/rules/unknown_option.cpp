// An option that neither the server nor the file defines.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/option_names.h>

namespace klepur::internal {

void UnknownOption(const Facts& facts, Report& report) {
  if (CanDefineElsewhere(facts)) return;
  const OptionNames names(facts);
  for (const NamedFact& use : facts.option_uses) {
    if (!names.HasSpace(OptionNames::SpaceOf(use.name)) || names.HasOption(use.name)) continue;
    std::string message = "there is no option " + Excerpt(use.name);
    std::optional<Mend> mend;
    if (const std::string_view meant = NearestOption(use.name); !meant.empty()) {
      message += "; \"" + std::string(meant) + "\" may be meant";
      mend = report.Rewrite(use.node, use.name, meant);
    }
    report.Add(
        {.node = use.node, .message = std::move(message), .at = use.name, .mend = std::move(mend)});
  }
}

}  // namespace klepur::internal
