// Classes, failover peers, groups, keys and options that are used and not declared, or declared below.
#include <klepur/check/rules/references.h>
#include <klepur/check/rules/rules.h>

#include <klepur/language/word_index.h>

namespace klepur::internal {

void UndeclaredClass(const Facts& facts, Report& report) {
  ReportUndeclared(facts, facts.class_uses, Declarations(facts.classes, Case::kMatters), "class",
                   report);
}

void UndeclaredFailoverPeer(const Facts& facts, Report& report) {
  ReportUndeclared(facts, facts.failover_peer_uses,
                   Declarations(facts.failover_peers, Case::kMatters), "failover peer", report);
}

void UndeclaredGroup(const Facts& facts, Report& report) {
  ReportUndeclared(facts, facts.group_uses, Declarations(facts.groups, Case::kMatters), "group",
                   report);
}

void UndeclaredKey(const Facts& facts, Report& report) {
  ReportUndeclared(facts, facts.key_uses, Declarations(facts.keys, Case::kIgnored), "key", report);
}

void UndeclaredOption(const Facts& facts, Report& report) {
  const Declarations definitions(facts.option_definitions, Case::kIgnored);
  ReportUndeclared(facts, facts.unknown_options, definitions, "option", report);
  std::vector<NamedFact> unknown;
  for (const NamedFact& use : facts.option_uses) {
    const std::string name = Spelled(use.name, Case::kIgnored);
    // The server's own parameters can be asked for as options of the space "server".
    if (name.rfind("server.", 0) == 0 || FindTwoWords("option", name) != nullptr) continue;
    unknown.push_back(use);
  }
  ReportUndeclared(facts, unknown, definitions, "option", report);
}

}  // namespace klepur::internal
