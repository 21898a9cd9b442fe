// Two hosts of one network that are known by the same identifier.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

#include <klepur/document/node_text.h>
#include <klepur/network/identifier.h>

#include <string>

namespace klepur::internal {
namespace {

/// The bytes of an identifier, or the words of one that also names its option, "option dhcp6.client-id 1:2".
std::string Spelled(std::string_view value) {
  const auto identifier = Identifier::Parse(value);
  return identifier ? identifier->Hex() : NormalKey(value);
}

}  // namespace

void DuplicateIdentifier(const Facts& facts, Report& report) {
  std::vector<OfHost<std::string>> identifiers;
  identifiers.reserve(facts.identifiers.size());
  for (const auto& identifier : facts.identifiers) {
    identifiers.push_back({Spelled(identifier.value), identifier.statement, identifier.host});
  }
  ForEachDuplicate(facts, identifiers, [&](const auto& here, const auto& before) {
    report.Add({.node = here.statement,
                .message = "the identifier " + here.value + " is that of another host",
                .other = before.statement});
  });
}

}  // namespace klepur::internal
