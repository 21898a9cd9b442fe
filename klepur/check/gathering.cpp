#include <klepur/check/gathering.h>

#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/language/word_rows.h>
#include <klepur/network/quoted_text.h>
#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

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
  if (value.find('#') == std::string_view::npos) {
    while (!value.empty() && IsValueBlank(value.front())) value.remove_prefix(1);
    while (!value.empty() && IsValueBlank(value.back())) value.remove_suffix(1);
    return value;
  }
  return UpToLastWord(WithoutLeadingBlanks(value));
}

/// What a word's statements are gathered as.
enum class Role : std::uint8_t {
  kNone,
  kFixedAddress,
  kFixedPrefix,
  kHardware,
  kHostName,
  kIdentifier,
  kInclude,
  kOptionChange,  ///< "append NAME value" and the like.
  kPrefixRange,
  kRange,
};

// Up to this one they say something of the host that they stand in.
constexpr Role kLastOfHosts = Role::kIdentifier;

constexpr std::pair<std::string_view, Role> kRoles[] = {
    {"fixed-address", Role::kFixedAddress},
    {"fixed-address6", Role::kFixedAddress},
    {"fixed-prefix6", Role::kFixedPrefix},
    {"hardware", Role::kHardware},
    {"host-identifier", Role::kIdentifier},
    {"include", Role::kInclude},
    {"option dhcp-client-identifier", Role::kIdentifier},
    {"option host-name", Role::kHostName},
    {"prefix6", Role::kPrefixRange},
    {"range", Role::kRange},
    {"range6", Role::kRange},
    {"uid", Role::kIdentifier},
};

/// What is asked of every statement, worked out once for each word.
struct WordTraits {
  Role role = Role::kNone;
  bool is_option = false;
  bool has_expression = false;
};

std::vector<WordTraits> AllTraits() {
  std::vector<WordTraits> all;
  all.reserve(kWordCount);
  for (const Word& word : Words()) {
    WordTraits traits;
    const auto* const found = std::find_if(std::begin(kRoles), std::end(kRoles),
                                           [&](const auto& row) { return row.first == word.name; });
    if (found != std::end(kRoles)) traits.role = found->second;
    if (word.value == "OPTION value") traits.role = Role::kOptionChange;
    traits.is_option = word.kind == WordKind::kOption;
    traits.has_expression = word.kind == WordKind::kConditional ||
                            word.value.find("expression") != std::string_view::npos ||
                            word.name == "host-identifier";
    all.push_back(traits);
  }
  return all;
}

const WordTraits& TraitsOf(const Word* word) {
  static const std::vector<WordTraits> all = AllTraits();
  return all[static_cast<std::size_t>(word - kWordRows)];
}

bool AddFixedAddresses(const Item& item, Facts& facts) {
  facts.hosts[item.around.host].has_fixed_address = true;
  ValueWords words(item.value);
  bool one = false;
  while (!words.AtEnd()) {
    const std::string_view word = words.Next()->text;
    if (const auto address = klepur::Address::ParseLenient(word)) {
      facts.fixed_addresses.push_back({*address, item.id, item.around.host});
      one = words.AtEnd() && address->IsV6() == (item.word->name.back() == '6');
    }
  }
  return one && facts.fixed_addresses.back().statement == item.id &&
         (facts.fixed_addresses.size() == 1 ||
          facts.fixed_addresses[facts.fixed_addresses.size() - 2].statement != item.id);
}

bool AddHardware(const Item& item, Facts& facts) {
  facts.hosts[item.around.host].has_hardware = true;
  const auto address = HardwareAddress::Parse(item.value);
  if (!address) return false;
  facts.hardware.push_back({*address, item.id, item.around.host});
  return address->Type() == HardwareAddress::kEthernet && address->ByteCount() == 6;
}

bool GatherOfHost(const Item& item, Role role, Facts& facts) {
  const std::uint32_t host = item.around.host;
  switch (role) {
    case Role::kHardware:
      return AddHardware(item, facts);
    case Role::kFixedAddress:
      return AddFixedAddresses(item, facts);
    case Role::kFixedPrefix:
      facts.hosts[host].has_fixed_address = true;
      if (const auto prefix = Prefix::Parse(Trimmed(item.value))) {
        facts.fixed_prefixes.push_back({*prefix, item.id, host});
      }
      return false;
    case Role::kHostName: {
      const std::string_view name = Trimmed(item.value);
      facts.host_names.push_back({name, item.id, host});
      return !name.empty() && name.front() == '"' && QuotedLength(name) == name.size();
    }
    case Role::kIdentifier:
      facts.hosts[host].has_identifier = true;
      facts.identifiers.push_back({Trimmed(item.value), item.id, host});
      return false;
    default:
      return false;
  }
}

template <class Value>
void AddOfSubnet(const Item& item, const std::optional<Value>& value,
                 LargeArray<OfSubnet<Value>>& facts) {
  const Frame& around = item.around;
  if ((around.scope & (kInSubnet | kInPool)) == 0) return;
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
  if (item.word == nullptr) return item.value.find('(') != std::string_view::npos;
  if (TraitsOf(item.word).has_expression) return true;
  const std::size_t begin = item.value.find_first_not_of(' ');
  if (begin == std::string_view::npos || IsWordByte(item.value[begin])) return false;
  const std::string_view value = WithoutLeadingBlanks(item.value);
  return !value.empty() && value.front() == '=';
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

}  // namespace

bool GatherStatement(const Item& item, Facts& facts) {
  if (HasExpression(item)) GatherExpression(item, facts);
  const WordTraits traits = item.word == nullptr ? WordTraits() : TraitsOf(item.word);
  if (!traits.is_option && EqualButForCase(item.first, "option")) GatherOption(item, facts);
  if (traits.role == Role::kNone) return false;
  const bool of_host = item.around.scope == kInHost && traits.role <= kLastOfHosts;
  if (of_host) return GatherOfHost(item, traits.role, facts);
  switch (traits.role) {
    case Role::kRange:
      AddOfSubnet(item, AddressRange::Parse(item.value), facts.ranges);
      break;
    case Role::kPrefixRange:
      AddOfSubnet(item, PrefixRange::Parse(item.value), facts.prefix_ranges);
      break;
    case Role::kInclude:
      facts.includes.push_back({item.id, Trimmed(item.value)});
      break;
    case Role::kOptionChange:
      AddOptionUse(item.id, FirstWord(item.value), facts);
      break;
    default:
      break;
  }
  return false;
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
