#include <klepur/check/rule.h>

#include <klepur/check/check_rules.h>
#include <klepur/check/rules/rules.h>

#include <iterator>

namespace klepur {
namespace internal {
namespace {

constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;
constexpr Severity kNote = Severity::kNote;

constexpr Rule kTable[] = {
    // Structure: what reading finds. structure_rules.cpp
    {"unclosed-block", kError, "A block is never closed"},
    {"stray-brace", kError, "A closing brace belongs to no block"},
    {"missing-semicolon", kError, "A statement ends without its \";\""},
    {"text-before-brace", kError, "Words before a \"}\" are no whole statement"},
    {"empty-statement", kError, "A \";\" ends nothing"},
    {"semicolon-behind-block", kError, "A \";\" stands behind the \"}\" of a block"},
    {"unclosed-quote", kError, "A quote is never closed"},
    {"unclosed-value", kError, "The braces of an option definition are not closed"},
    {"missing-header", kError, "A \"{\" has no words before it"},
    {"branch-without-if", kError, "An \"else\" or \"elsif\" follows no \"if\""},
    {"byte-order-mark", kError, "The file begins with a byte order mark"},
    {"nul-byte", kError, "NUL bytes stand where the server stops at them"},
    {"missing-block", kError, "A block's \"{\" is missing", nullptr, Shown::kBroken, MissingBlock},

    // Values: the parts of values that are no value of their type. value_types.cpp
    {"swallowed-statement", kError,
     "A \";\" is missing, and the next statement is part of the value"},
    {"missing-value", kError, "A value, or a part of it, is missing"},
    {"surplus-value", kError, "More stands behind a keyword than it takes"},
    {"malformed-address", kError, "An address is none"},
    {"malformed-prefix", kError, "A prefix is none"},
    {"blank-behind-prefix", kError, "A blank stands before the \";\" of a fixed-prefix6"},
    {"malformed-range", kError, "A range is none"},
    {"malformed-hardware-address", kError, "A hardware address is none"},
    {"hardware-address-length", kWarning, "An ethernet address does not have six bytes"},
    {"malformed-time", kError, "A time is no number of seconds"},
    {"malformed-number", kError, "A number is none, or is too large"},
    {"malformed-flag", kError, "A flag is neither on nor off"},
    {"malformed-text", kError, "A text has no quotes"},
    {"malformed-data", kError, "Bytes are neither a text nor in hexadecimal"},
    {"malformed-date", kError, "A date is none"},
    {"malformed-duid", kError, "The identifier of the server is none"},
    {"malformed-expression", kError, "An expression or condition cannot be read"},
    {"unknown-choice", kError, "A value is none of those that there are"},

    // Networks.
    {"malformed-subnet", kError, "The header of a subnet is not that of one", nullptr,
     Shown::kSubnets, MalformedSubnet},
    {"host-bits", kError, "The address of a network has bits of a host", nullptr, Shown::kSubnets,
     HostBits},
    {"netmask-with-holes", kWarning, "Ones stand behind zeros in a netmask", nullptr,
     Shown::kSubnets, NetmaskWithHoles},

    // Words.
    {"misspelled-keyword", kError, "A keyword is a letter or two away from one that there is",
     nullptr, Shown::kUnknownWords, MisspelledKeyword},
    {"unknown-statement", kError, "The server does not know what a statement or block begins with",
     nullptr, Shown::kUnknownWords, UnknownStatement},
    {"foreign-character", kError, "A word has a character that is not of ASCII", nullptr,
     Shown::kUnknownWords, ForeignCharacter},
    {"unknown-permission", kError, "Nothing is called so that can be allowed, denied or ignored",
     nullptr, Shown::kUnknownWords, UnknownPermission},
    {"lone-word", kWarning, "The server passes over a word that it does not know", nullptr,
     Shown::kUnknownWords, LoneWord},
    {"misplaced-statement", kError, "The server does not take a statement or block where it stands",
     MisplacedStatement},
    {"malformed-name", kError, "The name of a block is missing, or its quotes are wrong", nullptr,
     Shown::kBlocks, MalformedName},
    {"surplus-block", kError, "A keyword that has no block is followed by one", nullptr,
     Shown::kBroken, SurplusBlock},
    {"label-without-colon", kError, "A case of a switch does not end in a colon", nullptr,
     Shown::kBroken, LabelWithoutColon},
    {"unknown-option", kError, "Neither the server nor the file defines an option", UnknownOption},
    {"unknown-option-space", kError, "Neither the server nor the file has an option space",
     UnknownOptionSpace},
    {"malformed-definition", kError, "The definition of an option has no number or no type",
     MalformedDefinition},

    // Meaning: hosts.
    {"duplicate-host", kError, "Two hosts have the same name", DuplicateHost},
    {"duplicate-hardware-address", kWarning,
     "Two hosts of a network have the same hardware address", DuplicateHardwareAddress},
    {"duplicate-identifier", kWarning, "Two hosts of a network have the same identifier",
     DuplicateIdentifier},
    {"duplicate-host-name", kWarning, "Two hosts of a network are told the same host name",
     DuplicateHostName},
    {"duplicate-fixed-address", kWarning, "Two hosts have the same fixed address",
     DuplicateFixedAddress},
    {"duplicate-fixed-prefix", kWarning, "Two hosts have the same prefix", DuplicateFixedPrefix},
    {"host-without-identity", kWarning, "A host has neither a hardware address nor an identifier",
     HostWithoutIdentity},
    {"fixed-address-outside-subnets", kWarning, "A fixed address is in no subnet",
     FixedAddressOutsideSubnets},
    {"fixed-address-in-range", kWarning, "A fixed address is given out by a range as well",
     FixedAddressInRange},
    {"fixed-prefix-in-pool", kWarning, "A host's prefix is given out by a pool as well",
     FixedPrefixInPool},

    // Meaning: networks.
    {"network-address-handed-out", kWarning, "A subnet's network or broadcast address is given out",
     NetworkAddressHandedOut},
    {"overlapping-subnets", kWarning, "Two subnets have addresses in common", OverlappingSubnets},
    {"subnet-without-addresses", kNote, "A subnet has no range and no host",
     SubnetWithoutAddresses},
    {"router-outside-subnet", kWarning,
     "A router is not in the subnet of the clients that are told of it", RouterOutsideSubnet},
    {"range-outside-subnet", kError, "A range is not within its subnet", RangeOutsideSubnet},
    {"reversed-range", kWarning, "A range goes from high to low", ReversedRange},
    {"overlapping-ranges", kError, "Two ranges of IPv4 give out the same address",
     OverlappingRanges},
    {"overlapping-ranges6", kWarning, "Two ranges of IPv6 give out the same address",
     OverlappingRanges6},
    {"overlapping-prefix-pools", kWarning, "Two pools give out the same prefix",
     OverlappingPrefixPools},
    {"prefix-pool-with-addresses", kWarning, "A prefix is given out, and addresses in it",
     PrefixPoolWithAddresses},
    {"lease-times-at-odds", kWarning, "A lease time is above one that it should be below",
     LeaseTimesAtOdds},

    // Meaning: names.
    {"undeclared-class", kError, "A class is used and not declared above", UndeclaredClass},
    {"undeclared-failover-peer", kError, "A failover peer is used and not declared above",
     UndeclaredFailoverPeer},
    {"undeclared-group", kError, "A group is used and not declared above", UndeclaredGroup},
    {"undeclared-key", kError, "A key is used and not declared above", UndeclaredKey},
    {"option-before-definition", kError, "An option is used above its definition",
     OptionBeforeDefinition},
    {"unused-class", kNote, "A class is declared and never used", UnusedClass},
    {"unused-failover-peer", kError, "A failover peer is declared and never used",
     UnusedFailoverPeer},
    {"unused-group", kNote, "A group without blocks is declared and never used", UnusedGroup},
    {"unused-key", kNote, "A key is declared and never used", UnusedKey},
    {"unused-option", kNote, "An option is defined and never used", UnusedOption},
    {"missing-include", kError, "An included file does not exist", MissingInclude},
};

}  // namespace

const Rule* const kRules = kTable;
const std::size_t kRuleCount = std::size(kTable);

std::size_t RuleNumber(std::string_view name) noexcept {
  std::size_t rule = 0;
  while (rule != kRuleCount && kRules[rule].name != name) ++rule;
  return rule;
}

}  // namespace internal

std::vector<CheckRule> CheckRules() {
  std::vector<CheckRule> rules;
  for (const internal::Rule& rule : internal::kTable) {
    rules.push_back({rule.name, rule.severity, rule.title});
  }
  return rules;
}

std::optional<CheckRule> FindCheckRule(std::string_view name) noexcept {
  const std::size_t number = internal::RuleNumber(name);
  if (number == internal::kRuleCount) return std::nullopt;
  const internal::Rule& rule = internal::kRules[number];
  return CheckRule{rule.name, rule.severity, rule.title};
}

}  // namespace klepur
