#include <klepur/network/host_key.h>

#include <klepur/document/node_index.h>
#include <klepur/document/node_text.h>
#include <klepur/network/host_identifier.h>
#include <klepur/network/node_kinds.h>
#include <klepur/network/quoted_text.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

#include <cstddef>
#include <optional>

namespace klepur::internal {
namespace {

using Use = std::function<void(const HostKey&)>;

std::string BytesAsText(const unsigned char* bytes, std::size_t count) {
  return {reinterpret_cast<const char*>(bytes), count};
}

void UseHardware(std::string_view value, const Use& use) {
  if (const auto hardware = HardwareAddress::Parse(value)) use(HostKey::Of(*hardware));
}

void UseAddresses(std::string_view value, const Use& use) {
  ValueWords words(value);
  while (const std::optional<ValueWord> word = words.Next()) {
    if (const auto address = klepur::Address::ParseLenient(word->text)) use(HostKey::Of(*address));
  }
}

void UseClientIdentifier(std::string_view value, const Use& use) {
  if (const auto identifier = Identifier::Parse(value)) use(HostKey::Of(*identifier));
}

void UseHostIdentifier(std::string_view value, const Use& use) {
  const auto host = HostIdentifier::Parse(value);
  if (!host || host->relay) return;
  if (host->option != "dhcp6.client-id" && host->option != "dhcp-client-identifier") return;
  use(HostKey::Of(host->identifier));
}

void UseHostName(std::string_view value, const Use& use) {
  ValueWords words(value);
  const std::optional<ValueWord> word = words.Next();
  if (!word || !words.AtEnd()) return;
  if (word->kind == ValueWord::kPlain) use(HostKey::OfHostName(std::string(word->text)));
  if (word->kind != ValueWord::kQuoted) return;
  if (auto name = Unquoted(word->text)) use(HostKey::OfHostName(*std::move(name)));
}

constexpr struct {
  std::string_view keyword;
  void (*use_value)(std::string_view value, const Use& use);
} kStatements[] = {
    {"fixed-address", UseAddresses},
    {"fixed-address6", UseAddresses},
    {"hardware", UseHardware},
    {"host-identifier", UseHostIdentifier},
    {"option dhcp-client-identifier", UseClientIdentifier},
    {"option host-name", UseHostName},
    {"uid", UseClientIdentifier},
};

}  // namespace

HostKey HostKey::Of(const HardwareAddress& hardware) {
  std::string bytes = BytesAsText(hardware.Bytes(), hardware.ByteCount());
  bytes += static_cast<char>(hardware.Type());
  return {Kind::kHardware, std::move(bytes)};
}

HostKey HostKey::Of(const klepur::Address& address) {
  return {Kind::kAddress, BytesAsText(address.Bytes(), address.ByteCount())};
}

HostKey HostKey::Of(const Identifier& identifier) {
  return {Kind::kClientIdentifier, identifier.Bytes()};
}

std::uint64_t HostKey::Hash() const {
  return NodeIndex::HashOf(bytes_, static_cast<std::uint64_t>(kind_));
}

int HostKey::Compare(const HostKey& other) const noexcept {
  if (kind_ != other.kind_) return kind_ < other.kind_ ? -1 : 1;
  return bytes_.compare(other.bytes_);
}

void ForEachHostKey(std::string_view statement, const Use& use) {
  const std::string_view first = LeadingWord(statement);
  for (const auto& row : kStatements) {
    const bool may_be = EqualButForCase(first, row.keyword.substr(0, first.size())) &&
                        LeadingWord(row.keyword).size() == first.size();
    if (may_be && KeyOf(statement) == row.keyword) row.use_value(ValueOf(statement), use);
  }
}

}  // namespace klepur::internal
