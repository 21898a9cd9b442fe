#include <klepur/check/meaning_gathering.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include <klepur/document/words_of_text.h>
#include <klepur/language/word_rows.h>
#include <klepur/network/decimal.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

constexpr unsigned kMostSeconds = 0xFFFFFFFF;

/// What a word's statements and headers refer to, or set.
enum class Role : std::uint8_t {
  kNone,
  kClassUse,
  kDefaultLeaseTime,
  kGroup,
  kKeyUse,
  kMaxLeaseTime,
  kMinLeaseTime,
  kPeerUse,
  kRange,
  kRouters,
};

constexpr std::pair<std::string_view, Role> kRoles[] = {
    {"add", Role::kClassUse},
    {"allow members of", Role::kClassUse},
    {"default-lease-time", Role::kDefaultLeaseTime},
    {"failover peer", Role::kPeerUse},
    {"group", Role::kGroup},
    {"key", Role::kKeyUse},
    {"max-lease-time", Role::kMaxLeaseTime},
    {"min-lease-time", Role::kMinLeaseTime},
    {"omapi-key", Role::kKeyUse},
    {"option routers", Role::kRouters},
    {"prefix6", Role::kRange},
    {"range", Role::kRange},
    {"range6", Role::kRange},
    {"subclass", Role::kClassUse},
    {"user-class", Role::kClassUse},
    {"vendor-class", Role::kClassUse},
};

std::vector<Role> AllRoles() {
  std::vector<Role> all;
  all.reserve(kWordCount);
  for (const Word& word : Words()) {
    const auto* const found = std::find_if(std::begin(kRoles), std::end(kRoles),
                                           [&](const auto& row) { return row.first == word.name; });
    all.push_back(found == std::end(kRoles) ? Role::kNone : found->second);
  }
  return all;
}

Role RoleOf(const Word* word) {
  static const std::vector<Role> all = AllRoles();
  return word == nullptr ? Role::kNone : all[static_cast<std::size_t>(word - kWordRows)];
}

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

}  // namespace

void GatherReferences(const Item& item, Facts& facts) {
  const bool block = item.kind == NodeKind::kBlock;
  switch (RoleOf(item.word)) {
    case Role::kClassUse:
      return AddName(item, facts.class_uses);
    case Role::kGroup:
      if (block) return AddName(item, facts.groups);
      if (item.around.scope == kInHost) AddName(item, facts.group_uses);
      return;
    case Role::kKeyUse:
      // Elsewhere "omapi-key" does nothing, and "key" is a block without its "{".
      if (!block && item.around.scope == (item.word->name == "key" ? kInZone : kInFile)) {
        AddName(item, facts.key_uses);
      }
      return;
    case Role::kPeerUse:
      if (!block && item.around.scope != kInFile) AddName(item, facts.failover_peer_uses);
      return;
    case Role::kRange:
      facts.subnets_with_ranges.push_back(item.around.subnet);
      return;
    case Role::kRouters:
      return AddRouters(item, facts);
    case Role::kDefaultLeaseTime:
      return AddSetting(item, Setting::kDefaultLeaseTime, facts);
    case Role::kMaxLeaseTime:
      return AddSetting(item, Setting::kMaxLeaseTime, facts);
    case Role::kMinLeaseTime:
      return AddSetting(item, Setting::kMinLeaseTime, facts);
    case Role::kNone:
      return;
  }
}

void FinishFacts(Facts& facts) {
  facts.subnet_table.Make(facts.subnets);
  std::uint32_t address = 0;
  for (std::uint32_t host = 0; host != facts.hosts.size(); ++host) {
    const HostFact& fact = facts.hosts[host];
    NodeId last = kNoNode;
    while (address != facts.fixed_addresses.size() && facts.fixed_addresses[address].host < host) {
      ++address;  // of a host that has others in it
    }
    for (; address != facts.fixed_addresses.size() && facts.fixed_addresses[address].host == host;
         ++address) {
      const SubnetFact* const subnet =
          facts.subnet_table.Around(facts.fixed_addresses[address].value);
      if (subnet == nullptr || subnet->Network() == last) continue;
      last = subnet->Network();
      facts.homes.push_back({host, last});
    }
    if (last != kNoNode) continue;
    const NodeId around = fact.shared_network != kNoNode ? fact.shared_network : fact.subnet;
    facts.homes.push_back({host, around != kNoNode ? around : kRoot});
  }
}

}  // namespace klepur::internal
