// Two host blocks of one name, in whatever groups they stand: the server refuses the second.
#include <klepur/check/equal_values.h>
#include <klepur/check/host_names.h>
#include <klepur/check/rules/rules.h>

#include <string>

namespace klepur::internal {

void DuplicateHost(const Facts& facts, Report& report) {
  const auto name = [&](std::uint32_t i) {
    return NameInHeader(facts.state.OwnText(facts.hosts[i].node));
  };
  LargeArray<std::uint32_t> hashes;
  hashes.reserve(facts.hosts.size());
  for (const HostFact& host : facts.hosts) hashes.push_back(host.name_hash);
  ForEachEqual(
      hashes, [&](std::uint32_t i, std::uint32_t j) { return name(i) == name(j); },
      [&](std::uint32_t earlier, std::uint32_t later) {
        if (name(later).empty()) return;
        report.Add({.node = facts.hosts[later].node,
                    .message = "there is another host \"" + std::string(name(later)) + "\"",
                    .other = facts.hosts[earlier].node});
      });
}

}  // namespace klepur::internal
