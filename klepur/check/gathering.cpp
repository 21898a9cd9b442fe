#include <klepur/check/gathering.h>

#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::pair<std::string_view, Scope> kBlockScopes[] = {
    {"host", kInHost},
    {"subnet", kInSubnet},
    {"subnet6", kInSubnet},
    {"pool", kInPool},
    {"pool6", kInPool},
    {"group", kInGroup},
    {"shared-network", kInSharedNetwork},
    {"class", kInClass},
    {"subclass", kInSubclass},
    {"vendor-class", kInSubclass},
    {"user-class", kInSubclass},
    {"if", kInIf},
    {"elsif", kInIf},
    {"else", kInIf},
    {"switch", kInSwitch},
    {"on", kInOn},
    {"failover peer", kInFailoverPeer},
    {"zone", kInZone},
    {"key", kInKey},
};

/// kNowhere for blocks that can hold anything, as far as is known.
Scope ScopeOf(const Word* word) {
  if (word == nullptr) return kNowhere;
  const auto* const found =
      std::find_if(std::begin(kBlockScopes), std::end(kBlockScopes),
                   [&](const auto& block) { return block.first == word->name; });
  return found == std::end(kBlockScopes) ? kNowhere : found->second;
}

std::string_view Trimmed(std::string_view value) {
  return UpToLastWord(WithoutLeadingBlanks(value));
}

void AddFixedAddresses(const Item& item, Facts& facts) {
  HostFact& host = facts.hosts[item.around.host];
  host.has_fixed_address = true;
  ValueWords words(item.value);
  while (!words.AtEnd()) {
    const std::string_view word = words.Next()->text;
    if (const auto address = klepur::Address::ParseLenient(word)) {
      facts.fixed_addresses.push_back({*address, item.id, item.around.host});
    }
  }
}

void GatherOfHost(const Item& item, std::string_view name, Facts& facts) {
  const std::uint32_t host = item.around.host;
  HostFact& fact = facts.hosts[host];
  if (name == "hardware") {
    fact.has_hardware = true;
    if (const auto address = HardwareAddress::Parse(item.value)) {
      facts.hardware.push_back({*address, item.id, host});
    }
  } else if (name == "fixed-address" || name == "fixed-address6") {
    AddFixedAddresses(item, facts);
  } else if (name == "fixed-prefix6") {
    fact.has_fixed_address = true;
    if (const auto prefix = Prefix::Parse(Trimmed(item.value))) {
      facts.fixed_prefixes.push_back({*prefix, item.id, host});
    }
  } else if (name == "option host-name") {
    facts.host_names.push_back({Trimmed(item.value), item.id, host});
  } else if (name == "host-identifier" || name == "uid" ||
             name == "option dhcp-client-identifier") {
    fact.has_identifier = true;
    facts.identifiers.push_back({Trimmed(item.value), item.id, host});
  }
}

template <class Value>
void AddOfSubnet(const Item& item, const std::optional<Value>& value,
                 LargeArray<OfSubnet<Value>>& facts) {
  const Frame& around = item.around;
  if (value) facts.push_back({*value, item.id, around.subnet, around.pool, around.shared_network});
}

/// Whether a word is followed by the name of an option in an expression.
bool NamesOption(std::string_view word) {
  return EqualButForCase(word, "option") || EqualButForCase(word, "exists") ||
         EqualButForCase(word, "config-option");
}

void AddOptionUse(NodeId node, std::string_view name, Facts& facts) {
  if (name.empty() || name.front() == '"' || FindTwoWords("option", name) != nullptr) return;
  facts.option_uses.push_back({node, name});
}

/// The options that an expression asks for.
void GatherExpression(const Item& item, Facts& facts) {
  WordsOfText words(item.value);
  for (std::string_view word = words.Next(); !word.empty(); word = words.Next()) {
    if (!NamesOption(word)) continue;
    const WordsOfText before = words;
    const std::string_view name = words.Next();
    if (!name.empty() && IsLetter(name.front())) {
      WordsOfText behind = words;
      if (behind.Next() != ".") AddOptionUse(item.id, name, facts);
    } else {
      words = before;
    }
  }
}

bool HasExpression(const Item& item) {
  const Word* const word = item.word;
  if (word == nullptr) return item.value.find('(') != std::string_view::npos;
  if (word->kind == WordKind::kConditional) return true;
  const std::string_view value = WithoutLeadingBlanks(item.value);
  if (!value.empty() && value.front() == '=') return true;
  return word->value.find("expression") != std::string_view::npos ||
         word->name == "host-identifier";
}

/// "option NAME code ..." and "option space NAME", and the options that are set.
void GatherOption(const Item& item, Facts& facts) {
  WordsOfText words(item.value);
  const std::string_view next = words.Next();
  if (EqualButForCase(item.second, "space")) {
    facts.option_spaces.push_back({item.id, next});
  } else if (EqualButForCase(next, "code")) {
    const std::string_view number = words.Next();
    if (!number.empty() && number != ",")
      facts.option_definitions.push_back({item.id, item.second});
  } else if (next.empty() || next.front() != '.') {
    AddOptionUse(item.id, item.second, facts);
  }
}

/// "append NAME value" and the like.
bool IsOptionChange(const Word& word) {
  return word.value == "OPTION value";
}

}  // namespace

void GatherStatement(const Item& item, Facts& facts) {
  if (HasExpression(item)) GatherExpression(item, facts);
  if (EqualButForCase(item.first, "option")) {
    if (item.word == nullptr || item.word->kind != WordKind::kOption)
      return GatherOption(item, facts);
  } else if (item.word == nullptr) {
    return;
  }
  const std::string_view name = item.word->name;
  if (item.around.host != kNoHost && item.around.scope == kInHost) {
    GatherOfHost(item, name, facts);
  } else if (name == "range" || name == "range6") {
    AddOfSubnet(item, AddressRange::Parse(item.value), facts.ranges);
  } else if (name == "prefix6") {
    AddOfSubnet(item, PrefixRange::Parse(item.value), facts.prefix_ranges);
  } else if (name == "include") {
    facts.includes.push_back({item.id, Trimmed(item.value)});
  } else if (IsOptionChange(*item.word)) {
    AddOptionUse(item.id, FirstWord(item.value), facts);
  }
}

Frame GatherBlock(const Item& item, Facts& facts) {
  if (HasExpression(item)) GatherExpression(item, facts);
  Frame frame = item.around;
  frame.id = item.id;
  frame.scope = ScopeOf(item.word);
  switch (frame.scope) {
    case kInHost:
      frame.host = facts.hosts.size();
      facts.hosts.push_back({item.id, frame.subnet, frame.shared_network});
      break;
    case kInSubnet:
      frame.subnet = item.id;
      if (const auto prefix = Prefix::ParseSubnet(Trimmed(item.value))) {
        facts.subnets.push_back({*prefix, item.id, frame.shared_network});
      }
      break;
    case kInSharedNetwork:
      frame.shared_network = item.id;
      break;
    case kInPool:
      frame.pool = item.id;
      break;
    case kInClass:
      facts.classes.push_back({item.id, Trimmed(item.value)});
      break;
    case kInKey:
      facts.keys.push_back({item.id, Trimmed(item.value)});
      break;
    case kInFailoverPeer:
      facts.failover_peers.push_back({item.id, Trimmed(item.value)});
      break;
    default:
      break;
  }
  return frame;
}

}  // namespace klepur::internal
