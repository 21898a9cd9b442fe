// Two host blocks of one name, in whatever groups they stand: the server refuses the second.
#include <klepur/check/equal_values.h>
#include <klepur/check/rules/rules.h>

#include <klepur/document/words_of_text.h>

#include <functional>
#include <string>
#include <vector>

namespace klepur::internal {
namespace {

/// What stands behind the keyword of a header.
std::string_view NameOf(std::string_view header) {
  WordsOfText words(header);
  words.Next();
  const std::string_view first = words.Next();
  if (first.empty()) return {};
  return UpToLastWord(header.substr(static_cast<std::size_t>(first.data() - header.data())));
}

}  // namespace

void DuplicateHost(const Facts& facts, Report& report) {
  std::vector<std::string_view> names;
  names.reserve(facts.hosts.size());
  for (const HostFact& host : facts.hosts) names.push_back(NameOf(facts.state.OwnText(host.node)));
  ForEachEqual(
      facts.hosts.size(),
      [&](std::uint32_t i) {
        return static_cast<std::uint32_t>(std::hash<std::string_view>{}(names[i]));
      },
      [&](std::uint32_t i, std::uint32_t j) { return names[i] == names[j]; },
      [&](std::uint32_t earlier, std::uint32_t later) {
        if (names[later].empty()) return;
        report.Add({.node = facts.hosts[later].node,
                    .message = "there is another host \"" + std::string(names[later]) + "\"",
                    .other = facts.hosts[earlier].node});
      });
}

}  // namespace klepur::internal
