#include <klepur/network/host_identifier.h>

#include <klepur/network/decimal.h>
#include <klepur/network/value_words.h>

#include <limits>
#include <utility>

namespace klepur {
namespace {

using internal::ValueWords;

std::string InLowerCase(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) c = internal::LowerCase(c);
  return lower;
}

/// Takes what says who must send the option; false when nothing does.
bool TakeSender(ValueWords& words, std::optional<unsigned>& relay) {
  if (words.Skip("option")) return true;
  if (!words.Skip("v6relopt")) return false;
  const std::optional<std::string_view> number = words.NextPlain();
  if (number) relay = internal::ParseDecimal(*number, std::numeric_limits<unsigned>::max());
  return relay.has_value();
}

}  // namespace

std::optional<HostIdentifier> HostIdentifier::Parse(std::string_view value) {
  ValueWords words(value);
  HostIdentifier host;
  if (!TakeSender(words, host.relay)) return std::nullopt;
  const std::optional<std::string_view> option = words.NextPlain();
  std::optional<Identifier> identifier = Identifier::Parse(words.Rest());
  if (!option || !identifier) return std::nullopt;
  host.option = InLowerCase(*option);
  host.identifier = *std::move(identifier);
  return host;
}

int HostIdentifier::Compare(const HostIdentifier& other) const noexcept {
  if (const int order = option.compare(other.option)) return order;
  if (relay != other.relay) return relay < other.relay ? -1 : 1;
  return identifier.Compare(other.identifier);
}

}  // namespace klepur
