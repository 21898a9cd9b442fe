#include <klepur/check/meaning_gathering.h>

#include <cstddef>
#include <optional>

#include <klepur/document/words_of_text.h>
#include <klepur/network/decimal.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

constexpr unsigned kMostSeconds = 0xFFFFFFFF;

/// A lease time; "infinite" and -1 are the longest one.
std::optional<unsigned> SecondsOf(std::string_view value) {
  const std::string_view word = FirstWord(value);
  if (EqualButForCase(word, "infinite") || word == "-1") return kMostSeconds;
  // A zero in front makes a number octal.
  if (word.size() > 1 && word.front() == '0') return std::nullopt;
  return ParseDecimal(word, kMostSeconds);
}

void AddSetting(const Item& item, Setting setting, Facts& facts) {
  if (const auto seconds = SecondsOf(item.value)) {
    facts.settings.push_back({setting, *seconds, item.id, item.around.id});
  }
}

void AddRouters(const Item& item, Facts& facts) {
  ValueWords words(item.value);
  while (!words.AtEnd()) {
    if (const auto address = klepur::Address::ParseLenient(words.Next()->text)) {
      facts.routers.push_back({*address, item.id, item.around.id});
    }
  }
}

void AddName(const Item& item, std::vector<NamedFact>& facts) {
  const std::string_view name = FirstWord(item.value);
  if (!name.empty()) facts.push_back({item.id, name});
}

/// Hosts get addresses where their fixed addresses are.
void FindHomes(Facts& facts) {
  std::uint32_t address = 0;
  for (std::uint32_t host = 0; host != facts.hosts.size(); ++host) {
    NodeId last = kNoNode;
    for (; address != facts.fixed_addresses.size() && facts.fixed_addresses[address].host == host;
         ++address) {
      const SubnetFact* const subnet = facts.SubnetOf(facts.fixed_addresses[address]);
      if (subnet == nullptr || subnet->Network() == last) continue;
      if (last == kNoNode) {
        facts.hosts[host].network = subnet->Network();
      } else {
        facts.more_homes.push_back({host, subnet->Network()});
      }
      last = subnet->Network();
    }
  }
}

}  // namespace

void GatherReferences(const Item& item, Facts& facts) {
  const bool block = item.kind == NodeKind::kBlock;
  switch (item.traits.reference) {
    case Reference::kClassUse:
      return AddName(item, facts.class_uses);
    case Reference::kGroup:
      if (block) return AddName(item, facts.groups);
      if (item.around.scope == kInHost) AddName(item, facts.group_uses);
      return;
    case Reference::kKeyUse:
      // Elsewhere "omapi-key" does nothing, and "key" is a block without its "{".
      if (!block && item.around.scope == (item.word->name == "key" ? kInZone : kInFile)) {
        AddName(item, facts.key_uses);
      }
      return;
    case Reference::kPeerUse:
      if (!block && item.around.scope != kInFile) AddName(item, facts.failover_peer_uses);
      return;
    case Reference::kRange:
      facts.subnets_with_ranges.push_back(item.around.subnet);
      return;
    case Reference::kRouters:
      return AddRouters(item, facts);
    case Reference::kDefaultLeaseTime:
      return AddSetting(item, Setting::kDefaultLeaseTime, facts);
    case Reference::kMaxLeaseTime:
      return AddSetting(item, Setting::kMaxLeaseTime, facts);
    case Reference::kMinLeaseTime:
      return AddSetting(item, Setting::kMinLeaseTime, facts);
    case Reference::kNone:
      return;
  }
}

void FinishFacts(Facts& facts) {
  facts.subnet_table.Make(facts.subnets);
  for (FixedAddressFact& address : facts.fixed_addresses) {
    if (const SubnetFact* const subnet = facts.subnet_table.Around(facts.AddressOf(address)))
      address.subnet =
          static_cast<std::uint32_t>(subnet - facts.subnets.data()) & FixedAddressFact::kNoSubnet;
  }
  FindHomes(facts);
}

}  // namespace klepur::internal
