#include <klepur/document/structure_words.h>
#include <klepur/text/letters.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace klepur::internal {
namespace {

// In the order of the alphabet.
constexpr StructureWord kWords[] = {
    {"", Begins::kStatement, 1},  // every word that is not here
    {"abandon-lease-time", Begins::kStatement, 1},
    {"adaptive-lease-time-threshold", Begins::kStatement, 1},
    {"address", Begins::kStatement, 1},
    {"algorithm", Begins::kStatement, 1},
    {"allow", Begins::kStatement, 2},
    {"always-broadcast", Begins::kStatement, 1},
    {"always-reply-rfc1048", Begins::kStatement, 1},
    {"append", Begins::kStatement, 2, Holds::kAnything},
    {"authoritative", Begins::kAlone, 1},
    {"auto-partner-down", Begins::kStatement, 1},
    {"bind-local-address6", Begins::kStatement, 1},
    {"boot-unknown-clients", Begins::kStatement, 1},
    {"break", Begins::kAlone, 1},
    {"case", Begins::kLabel, 1},
    {"check-secs-byte-order", Begins::kStatement, 1},
    {"class", Begins::kBlock, 1},
    {"db-time-format", Begins::kStatement, 1},
    {"ddns-domainname", Begins::kStatement, 1},
    {"ddns-dual-stack-mixed-mode", Begins::kStatement, 1},
    {"ddns-guard-id-must-match", Begins::kStatement, 1},
    {"ddns-hostname", Begins::kStatement, 1},
    {"ddns-local-address4", Begins::kStatement, 1},
    {"ddns-local-address6", Begins::kStatement, 1},
    {"ddns-other-guard-is-dynamic", Begins::kStatement, 1},
    {"ddns-rev-domainname", Begins::kStatement, 1},
    {"ddns-ttl", Begins::kStatement, 1},
    {"ddns-update-style", Begins::kStatement, 1},
    {"ddns-updates", Begins::kStatement, 1},
    {"default", Begins::kLabel, 1},
    {"default-lease-time", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"define", Begins::kEither, 1},
    {"delayed-ack", Begins::kStatement, 1},
    {"deny", Begins::kStatement, 2},
    {"dhcp-cache-threshold", Begins::kStatement, 1},
    {"dhcpv6-lease-file-name", Begins::kStatement, 1},
    {"dhcpv6-pid-file-name", Begins::kStatement, 1},
    {"dhcpv6-set-tee-times", Begins::kStatement, 1},
    {"do-forward-updates", Begins::kStatement, 1},
    {"do-reverse-updates", Begins::kStatement, 1},
    {"dont-use-fsync", Begins::kStatement, 1},
    {"dynamic-bootp-lease-cutoff", Begins::kStatement, 1},
    {"dynamic-bootp-lease-length", Begins::kStatement, 1},
    {"echo-client-id", Begins::kStatement, 1},
    {"else", Begins::kBranch, 1},
    {"elsif", Begins::kBranch, 1},
    {"eval", Begins::kStatement, 1, Holds::kAnything},
    {"execute", Begins::kStatement, 1, Holds::kAnything},
    {"failover", Begins::kEither, 2},
    {"filename", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"fixed-address", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"fixed-address6", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"fixed-prefix6", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"get-lease-hostnames", Begins::kStatement, 1},
    {"group", Begins::kEither, 1},
    {"hardware", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"hba", Begins::kStatement, 1},
    {"host", Begins::kBlock, 1},
    {"host-identifier", Begins::kStatement, 1, Holds::kAnything},
    {"if", Begins::kChain, 1},
    {"ignore", Begins::kStatement, 2},
    {"ignore-client-uids", Begins::kStatement, 1},
    {"include", Begins::kStatement, 1},
    {"infinite-is-reserved", Begins::kStatement, 1},
    {"interface", Begins::kStatement, 1},
    {"key", Begins::kEither, 1},
    {"lease", Begins::kStatement, 2, Holds::kAnything},
    {"lease-file-name", Begins::kStatement, 1},
    {"lease-id-format", Begins::kStatement, 1},
    {"limit-addrs-per-ia", Begins::kStatement, 1},
    {"limit-prefs-per-ia", Begins::kStatement, 1},
    {"load", Begins::kStatement, 3},
    {"local-address", Begins::kStatement, 1},
    {"local-address6", Begins::kStatement, 1},
    {"local-port", Begins::kStatement, 1},
    {"log", Begins::kStatement, 1, Holds::kAnything},
    {"log-facility", Begins::kStatement, 1},
    {"log-threshold-high", Begins::kStatement, 1},
    {"log-threshold-low", Begins::kStatement, 1},
    {"match", Begins::kStatement, 1, Holds::kAnything},
    {"max-ack-delay", Begins::kStatement, 1},
    {"max-balance", Begins::kStatement, 1},
    {"max-lease-misbalance", Begins::kStatement, 1},
    {"max-lease-ownership", Begins::kStatement, 1},
    {"max-lease-time", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"max-response-delay", Begins::kStatement, 1},
    {"max-unacked-updates", Begins::kStatement, 1},
    {"mclt", Begins::kStatement, 1},
    {"min-balance", Begins::kStatement, 1},
    {"min-lease-time", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"min-secs", Begins::kStatement, 1},
    {"next-server", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"not", Begins::kStatement, 2, Holds::kAnything},
    {"omapi-key", Begins::kStatement, 1},
    {"omapi-port", Begins::kStatement, 1},
    {"on", Begins::kEither, 1},
    {"one-lease-per-client", Begins::kStatement, 1},
    {"option", Begins::kStatement, 2, Holds::kValues, Stands::kFirst},
    {"peer", Begins::kStatement, 2, Holds::kAnything},
    {"persist-eui-64-leases", Begins::kStatement, 1},
    {"pid-file-name", Begins::kStatement, 1},
    {"ping-check", Begins::kStatement, 1},
    {"ping-cltt-secs", Begins::kStatement, 1},
    {"ping-timeout", Begins::kStatement, 1},
    {"ping-timeout-ms", Begins::kStatement, 1},
    {"pool", Begins::kBlock, 1},
    {"pool6", Begins::kBlock, 1},
    {"port", Begins::kStatement, 1},
    {"preferred-lifetime", Begins::kStatement, 1},
    {"prefix-length-mode", Begins::kStatement, 1},
    {"prefix6", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"prepend", Begins::kStatement, 2, Holds::kAnything},
    {"primary", Begins::kStatement, 1},
    {"primary6", Begins::kStatement, 1},
    {"range", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"range6", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"release-on-roam", Begins::kStatement, 1},
    {"remote-port", Begins::kStatement, 1},
    {"return", Begins::kStatement, 1, Holds::kAnything},
    {"secondary", Begins::kStatement, 1},
    {"secondary6", Begins::kStatement, 1},
    {"secret", Begins::kStatement, 1},
    {"send", Begins::kStatement, 2, Holds::kAnything},
    {"server-duid", Begins::kStatement, 1},
    {"server-id-check", Begins::kStatement, 1},
    {"server-identifier", Begins::kStatement, 1},
    {"server-name", Begins::kStatement, 1, Holds::kValues, Stands::kFirst},
    {"set", Begins::kStatement, 2, Holds::kAnything},
    {"shared-network", Begins::kBlock, 1},
    {"site-option-space", Begins::kStatement, 1},
    {"spawn", Begins::kStatement, 1, Holds::kAnything},
    {"split", Begins::kStatement, 1},
    {"stash-agent-options", Begins::kStatement, 1},
    {"subclass", Begins::kEither, 1},
    {"subnet", Begins::kBlock, 1},
    {"subnet6", Begins::kBlock, 1},
    {"supersede", Begins::kStatement, 2, Holds::kAnything},
    {"switch", Begins::kBlock, 1},
    {"unset", Begins::kStatement, 2, Holds::kAnything},
    {"update-conflict-detection", Begins::kStatement, 1},
    {"update-optimization", Begins::kStatement, 1},
    {"update-static-leases", Begins::kStatement, 1},
    {"use-eui-64", Begins::kStatement, 1},
    {"use-host-decl-names", Begins::kStatement, 1},
    {"use-lease-addr-for-default-route", Begins::kStatement, 1},
    {"user-class", Begins::kEither, 1},
    {"vendor-class", Begins::kEither, 1},
    {"vendor-option-space", Begins::kStatement, 1},
    {"zone", Begins::kBlock, 1},
};
static_assert(std::size(kWords) < 256);
static_assert(std::is_sorted(std::begin(kWords), std::end(kWords),
                             [](const StructureWord& left, const StructureWord& right) {
                               return left.text < right.text;
                             }));

constexpr std::size_t kSlots = 512;

/// A number made of a word's size and of three of its letters, the same in any case.
constexpr std::size_t HashOf(std::string_view word) {
  constexpr unsigned kCaseBit = 0x20;
  const auto letter = [word](std::size_t i) -> std::size_t {
    return static_cast<unsigned char>(word[i]) | kCaseBit;
  };
  const std::size_t last = word.size() - 1;
  return (word.size() + 37 * letter(0) + 11 * letter(last / 2) + 5 * letter(last)) % kSlots;
}

/// The numbers of the words, each in the first slot from that of its hash on that was free; 0 in the others.
constexpr std::array<std::uint8_t, kSlots> NumbersByHash() {
  std::array<std::uint8_t, kSlots> numbers = {};
  for (std::size_t number = 1; number != std::size(kWords); ++number) {
    std::size_t slot = HashOf(kWords[number].text);
    while (numbers[slot] != kUnknownWord) slot = (slot + 1) % kSlots;
    numbers[slot] = static_cast<std::uint8_t>(number);
  }
  return numbers;
}

constexpr std::array<std::uint8_t, kSlots> kNumbers = NumbersByHash();

constexpr std::uint8_t NumberInTable(std::string_view word) {
  if (word.empty()) return kUnknownWord;
  std::size_t slot = HashOf(word);
  while (kNumbers[slot] != kUnknownWord && !EqualButForCase(kWords[kNumbers[slot]].text, word)) {
    slot = (slot + 1) % kSlots;
  }
  return kNumbers[slot];
}

}  // namespace

const StructureWord& WordOf(std::uint8_t number) {
  return kWords[number];
}

bool WantsBlock(std::uint8_t number) {
  const Begins begins = WordOf(number).begins;
  return begins == Begins::kBlock || begins == Begins::kChain || begins == Begins::kBranch;
}

std::uint8_t NumberOf(std::string_view word) {
  return NumberInTable(word);
}

const std::uint8_t kWordCase = NumberInTable("case");
const std::uint8_t kWordDefault = NumberInTable("default");
const std::uint8_t kWordElse = NumberInTable("else");
const std::uint8_t kWordElsif = NumberInTable("elsif");
const std::uint8_t kWordIf = NumberInTable("if");
const std::uint8_t kWordKey = NumberInTable("key");
const std::uint8_t kWordOption = NumberInTable("option");
const std::uint8_t kWordSwitch = NumberInTable("switch");

}  // namespace klepur::internal
