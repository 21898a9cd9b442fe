#include <klepur/check/meaning_gathering.h>

#include <optional>
#include <utility>

#include <klepur/document/words_of_text.h>
#include <klepur/network/decimal.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

namespace klepur::internal {
namespace {

constexpr unsigned kMostSeconds = 0xFFFFFFFF;

constexpr std::pair<std::string_view, Setting> kSettings[] = {
    {"default-lease-time", Setting::kDefaultLeaseTime},
    {"max-lease-time", Setting::kMaxLeaseTime},
    {"min-lease-time", Setting::kMinLeaseTime},
};

bool Is(const Item& item, std::string_view first) {
  return EqualButForCase(item.first, first);
}

/// A lease time; "infinite" and -1 are the longest one.
std::optional<unsigned> SecondsOf(std::string_view value) {
  const std::string_view word = FirstWord(value);
  if (EqualButForCase(word, "infinite") || word == "-1") return kMostSeconds;
  // A zero in front makes a number octal.
  if (word.size() > 1 && word.front() == '0') return std::nullopt;
  return ParseDecimal(word, kMostSeconds);
}

void GatherSetting(const Item& item, Facts& facts) {
  for (const auto& [name, setting] : kSettings) {
    if (item.word == nullptr || item.word->name != name) continue;
    if (const auto seconds = SecondsOf(item.value)) {
      facts.settings.push_back({setting, *seconds, item.id, item.around.id});
    }
  }
}

void GatherRouters(const Item& item, Facts& facts) {
  if (item.word == nullptr || item.word->name != "option routers") return;
  ValueWords words(item.value);
  while (!words.AtEnd()) {
    if (const auto address = klepur::Address::ParseLenient(words.Next()->text)) {
      facts.routers.push_back({*address, item.id, item.around.id});
    }
  }
}

/// What stands behind the second word of "members of NAME", "failover peer NAME".
std::string_view WordBehind(const Item& item, std::string_view second) {
  WordsOfText words(item.text);
  words.Next();
  if (!EqualButForCase(words.Next(), second)) return {};
  std::string_view name = words.Next();
  if (EqualButForCase(second, "members") && EqualButForCase(name, "of")) name = words.Next();
  return name == ";" ? std::string_view() : name;
}

std::string_view SecondWord(const Item& item) {
  WordsOfText words(item.text);
  words.Next();
  const std::string_view name = words.Next();
  return name == ";" ? std::string_view() : name;
}

void Add(const Item& item, std::string_view name, std::vector<NamedFact>& facts) {
  if (!name.empty()) facts.push_back({item.id, name});
}

}  // namespace

void GatherReferences(const Item& item, Facts& facts) {
  const bool statement = item.kind == NodeKind::kStatement;
  if (Is(item, "subclass") || Is(item, "vendor-class") || Is(item, "user-class")) {
    Add(item, SecondWord(item), facts.class_uses);
  } else if (Is(item, "allow") || Is(item, "deny")) {
    Add(item, WordBehind(item, "members"), facts.class_uses);
  } else if (Is(item, "group")) {
    Add(item, SecondWord(item), statement ? facts.group_uses : facts.groups);
  } else if (statement && (Is(item, "key") || Is(item, "omapi-key"))) {
    Add(item, SecondWord(item), facts.key_uses);
  } else if (statement && Is(item, "failover")) {
    Add(item, WordBehind(item, "peer"), facts.failover_peer_uses);
  } else if (statement) {
    GatherSetting(item, facts);
    GatherRouters(item, facts);
  }
}

void FinishFacts(Facts& facts) {
  facts.subnet_table.Make(facts.subnets);
  std::uint32_t address = 0;
  for (std::uint32_t host = 0; host != facts.hosts.size(); ++host) {
    const HostFact& fact = facts.hosts[host];
    NodeId last = kNoNode;
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
