#include <klepur/check/gathering.h>

#include <klepur/check/host_names.h>
#include <klepur/check/statement_value.h>
#include <klepur/check/text_hash.h>
#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>
#include <klepur/network/dotted.h>
#include <klepur/network/hardware_address.h>
#include <klepur/network/quoted_text.h>
#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace klepur::internal {
namespace {

/// What stands between the quotes of a value that is one text without backslashes, as most are.
std::optional<std::string_view> PlainText(std::string_view value) {
  value = WithoutLeadingBlanks(value);
  if (value.size() < 2 || value.front() != '"') return std::nullopt;
  std::size_t end = 1;
  while (end != value.size() && value[end] != '"' && value[end] != '\\') ++end;
  if (end + 1 != value.size() || value[end] != '"') return std::nullopt;
  return value.substr(1, end - 1);
}

/// Those of the host that the statement stands in, as the others below. Each says whether the value is right for
/// sure.
bool AddFixedAddresses(const Item& item, Facts& facts) {
  const std::uint32_t host = item.around.host;
  facts.hosts[host].has_fixed_address = true;
  const bool wants_v6 = item.word->name.back() == '6';
  if (const auto only = ReadDotted(WithoutLeadingBlanks(item.value))) {
    facts.fixed_addresses.push_back({*only, item.id, host});
    return !wants_v6;
  }
  ValueWords words(item.value);
  bool one = false;
  while (!words.AtEnd()) {
    const std::string_view word = words.Next()->text;
    if (const auto dotted = ReadDotted(word)) {
      facts.fixed_addresses.push_back({*dotted, item.id, host});
      one = words.AtEnd() && !wants_v6;
    } else if (const auto address = klepur::Address::ParseLenient(word)) {
      facts.fixed_addresses.push_back({facts.addresses6.size(), item.id, host, 1});
      facts.addresses6.push_back(*address);
      one = words.AtEnd() && wants_v6;
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
  const std::uint32_t hash = HashOfBytes(address->Bytes(), address->ByteCount(), address->Type());
  facts.hardware.push_back({hash, item.id, item.around.host});
  return address->Type() == HardwareAddress::kEthernet && address->ByteCount() == 6;
}

bool AddHostName(const Item& item, Facts& facts) {
  const auto plain = PlainText(item.value);
  const std::string_view name = plain ? std::string_view() : Trimmed(item.value);
  const std::uint32_t hash = plain ? HashButForCase(*plain) : HashButForCase(SpelledHostName(name));
  facts.host_names.push_back({hash, item.id, item.around.host});
  return plain || (!name.empty() && name.front() == '"' && QuotedLength(name) == name.size());
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
    case Role::kHostName:
      return AddHostName(item, facts);
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
  if (item.traits.has_expression) return true;
  const std::size_t begin = item.value.find_first_not_of(' ');
  if (begin == std::string_view::npos || IsWordByte(item.value[begin])) return false;
  const std::string_view value = WithoutLeadingBlanks(item.value);
  return !value.empty() && value.front() == '=';
}

/// Where a host gets its addresses by where it stands.
NodeId NetworkOf(const Frame& frame) {
  if (frame.shared_network != kNoNode) return frame.shared_network;
  return frame.subnet != kNoNode ? frame.subnet : kRoot;
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
  const WordTraits& traits = item.traits;
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
  frame.scope = item.traits.inside;
  switch (frame.scope) {
    case kInHost:
      frame.host = facts.hosts.size();
      facts.hosts.push_back(
          {item.id, HashOf(NameOfHost(item.value)), frame.subnet, NetworkOf(frame)});
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
