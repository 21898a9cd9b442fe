// Two host blocks of one name, in whatever groups they stand: the server refuses the second.
#include <klepur/check/rules/rules.h>

#include <klepur/document/node_text.h>

#include <string>
#include <unordered_map>

namespace klepur::internal {

void DuplicateHost(const Facts& facts, Report& report) {
  std::unordered_map<std::string, NodeId> hosts;
  hosts.reserve(facts.hosts.size());
  for (const HostFact& host : facts.hosts) {
    const std::string name = NameIn(facts.state.OwnText(host.node));
    if (name.empty()) continue;
    const auto [before, is_new] = hosts.try_emplace(name, host.node);
    if (is_new) continue;
    report.Add({.node = host.node,
                .message = "there is another host \"" + name + "\"",
                .other = before->second});
  }
}

}  // namespace klepur::internal
