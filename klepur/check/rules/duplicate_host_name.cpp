// Two hosts of one network that are told the same name.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

#include <klepur/document/document.h>
#include <klepur/document/node_text.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <string>

namespace klepur::internal {

void DuplicateHostName(const Facts& facts, Report& report) {
  std::vector<OfHost<std::string>> names;
  names.reserve(facts.host_names.size());
  for (const auto& name : facts.host_names) {
    std::string spelled = WithoutQuotes(name.value);
    std::transform(spelled.begin(), spelled.end(), spelled.begin(), ToSmallLetter);
    names.push_back({std::move(spelled), name.statement, name.host});
  }
  ForEachDuplicate(facts, names, [&](const auto& here, const auto& before) {
    report.Add({.node = here.statement,
                .message = "the host name \"" + here.value + "\" is that of another host",
                .other = before.statement});
  });
}

}  // namespace klepur::internal
