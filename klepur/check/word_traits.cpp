#include <klepur/check/word_traits.h>

#include <klepur/language/word_rows.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

constexpr std::pair<std::string_view, Scope> kInsides[] = {
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

constexpr std::pair<std::string_view, Reference> kReferences[] = {
    {"add", Reference::kClassUse},
    {"allow members of", Reference::kClassUse},
    {"default-lease-time", Reference::kDefaultLeaseTime},
    {"failover peer", Reference::kPeerUse},
    {"group", Reference::kGroup},
    {"key", Reference::kKeyUse},
    {"max-lease-time", Reference::kMaxLeaseTime},
    {"min-lease-time", Reference::kMinLeaseTime},
    {"omapi-key", Reference::kKeyUse},
    {"option routers", Reference::kRouters},
    {"prefix6", Reference::kRange},
    {"range", Reference::kRange},
    {"range6", Reference::kRange},
    {"subclass", Reference::kClassUse},
    {"user-class", Reference::kClassUse},
    {"vendor-class", Reference::kClassUse},
};

constexpr WordTraits kOfNoWord;

/// What a table says of a name; zero when it is not there.
template <class Rows>
auto Among(const Rows& rows, std::string_view name) {
  const auto* const found = std::find_if(std::begin(rows), std::end(rows),
                                         [&](const auto& row) { return row.first == name; });
  return found == std::end(rows) ? decltype(found->second){} : found->second;
}

WordTraits MakeTraits(const Word& word) {
  WordTraits traits;
  traits.role = word.value == "OPTION value" ? Role::kOptionChange : Among(kRoles, word.name);
  traits.reference = Among(kReferences, word.name);
  traits.inside = Among(kInsides, word.name);
  traits.is_option = word.kind == WordKind::kOption;
  traits.has_expression = word.kind == WordKind::kConditional ||
                          word.value.find("expression") != std::string_view::npos ||
                          word.name == "host-identifier";
  traits.tells4 = word.name == "subnet" || word.name == "range" || word.name == "pool";
  traits.tells6 = word.scopes4 == kNowhere && word.scopes6 != kNowhere;
  return traits;
}

std::vector<WordTraits> AllTraits() {
  std::vector<WordTraits> all;
  all.reserve(kWordCount);
  for (const Word& word : Words()) all.push_back(MakeTraits(word));
  return all;
}

}  // namespace

const WordTraits& TraitsOf(const Word* word) {
  static const std::vector<WordTraits> all = AllTraits();
  return word == nullptr ? kOfNoWord : all[static_cast<std::size_t>(word - kWordRows)];
}

}  // namespace klepur::internal
