// Classes, failover peers, groups and keys that are used and not declared, or declared below; options that are
// defined below.
#include <klepur/check/rules/references.h>
#include <klepur/check/rules/rules.h>

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

void OptionBeforeDefinition(const Facts& facts, Report& report) {
  const Declarations definitions(facts.option_definitions, Case::kIgnored);
  std::vector<NamedFact> defined;
  for (const NamedFact& use : facts.option_uses) {
    if (definitions.Find(use.name) != kNoNode) defined.push_back(use);
  }
  ReportUndeclared(facts, defined, definitions, "option", report);
}

}  // namespace klepur::internal
