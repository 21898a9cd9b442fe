// A statement or block that the server knows, where the server does not take it.
#include <klepur/check/rules/rules.h>

namespace klepur::internal {
namespace {

bool IsRefused(const MisplacedFact& fact, Family family) {
  switch (family) {
    case Family::kDhcp4:
      return fact.by4;
    case Family::kDhcp6:
      return fact.by6;
    default:
      return fact.by4 && fact.by6;
  }
}

std::string ScopeName(Scopes scope) {
  return scope == kInFile ? "at file level" : "right in a block \"" + ScopesInWords(scope) + "\"";
}

}  // namespace

void MisplacedStatement(const Facts& facts, Report& report) {
  for (const MisplacedFact& fact : facts.misplaced) {
    if (!IsRefused(fact, facts.family)) continue;
    const Scopes scopes = facts.family == Family::kDhcp6 ? fact.word->scopes6 : fact.word->scopes4;
    std::string message =
        "\"" + std::string(fact.word->name) + "\" is not taken " + ScopeName(fact.scope);
    if (scopes == kNowhere) {
      message += facts.family == Family::kDhcp6 ? ", nor anywhere by the server of DHCPv6"
                                                : ", nor anywhere by the server of DHCPv4";
    } else {
      message += "; where it is: " + ScopesInWords(scopes);
    }
    report.Add({.node = fact.node, .message = std::move(message)});
  }
}

}  // namespace klepur::internal
