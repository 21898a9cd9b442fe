// Two hosts of one network that are known by the same identifier.
#include <klepur/check/rules/duplicates.h>
#include <klepur/check/rules/rules.h>

#include <klepur/check/text_hash.h>
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
  ForEachDuplicate(
      facts, facts.identifiers, [](const auto& one) { return HashOf(Spelled(one.value)); },
      [](const auto& one, const auto& other) { return Spelled(one.value) == Spelled(other.value); },
      [&](const auto& here, const auto& before) {
        report.Add({.node = here.statement,
                    .message = "the identifier " + Spelled(here.value) + " is that of another host",
                    .other = before.statement});
      });
}

}  // namespace klepur::internal
