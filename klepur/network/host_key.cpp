#include <klepur/network/host_key.h>

#include <klepur/document/node_text.h>
#include <klepur/network/host_identifier.h>
#include <klepur/network/quoted_text.h>
#include <klepur/network/value_words.h>

#include <cstddef>
#include <optional>

namespace klepur::internal {
namespace {

using Kind = HostKey::Kind;

std::string_view AsText(const unsigned char* bytes, std::size_t count) {
  return {reinterpret_cast<const char*>(bytes), count};
}

/// The bytes of a hardware address and its type behind them.
class HardwareKey {
 public:
  explicit HardwareKey(const HardwareAddress& address) : size_(address.ByteCount() + 1) {
    AsText(address.Bytes(), address.ByteCount()).copy(bytes_, sizeof bytes_);
    bytes_[size_ - 1] = static_cast<char>(address.Type());
  }

  std::string_view Bytes() const { return {bytes_, size_}; }

 private:
  char bytes_[HardwareAddress::kMostBytes + 1] = {};
  std::size_t size_;
};

void UseHardware(std::string_view value, const UseKey& use) {
  if (const auto hardware = HardwareAddress::Parse(value)) use(HardwareKey(*hardware).Bytes());
}

void UseAddresses(std::string_view value, const UseKey& use) {
  ValueWords words(value);
  while (const std::optional<ValueWord> word = words.Next()) {
    const auto address = klepur::Address::ParseLenient(word->text);
    if (address) use(AsText(address->Bytes(), address->ByteCount()));
  }
}

void UseClientIdentifier(std::string_view value, const UseKey& use) {
  if (const auto identifier = Identifier::Parse(value)) use(identifier->Bytes());
}

void UseHostIdentifier(std::string_view value, const UseKey& use) {
  const auto host = HostIdentifier::Parse(value);
  if (!host || host->relay) return;
  if (host->option != "dhcp6.client-id" && host->option != "dhcp-client-identifier") return;
  use(host->identifier.Bytes());
}

void UseHostName(std::string_view value, const UseKey& use) {
  ValueWords words(value);
  const std::optional<ValueWord> word = words.Next();
  if (!word || !words.AtEnd()) return;
  if (word->kind == ValueWord::kPlain) use(word->text);
  if (word->kind != ValueWord::kQuoted) return;
  if (const auto name = Unquoted(word->text)) use(*name);
}

constexpr struct {
  Kind kind;
  std::string_view keyword;
  void (*use_value)(std::string_view value, const UseKey& use);
} kStatements[] = {
    {Kind::kAddress, "fixed-address", UseAddresses},
    {Kind::kAddress, "fixed-address6", UseAddresses},
    {Kind::kHardware, "hardware", UseHardware},
    {Kind::kClientIdentifier, "host-identifier", UseHostIdentifier},
    {Kind::kClientIdentifier, "option dhcp-client-identifier", UseClientIdentifier},
    {Kind::kHostName, "option host-name", UseHostName},
    {Kind::kClientIdentifier, "uid", UseClientIdentifier},
};

}  // namespace

HostKey HostKey::Of(const HardwareAddress& hardware) {
  return {Kind::kHardware, std::string(HardwareKey(hardware).Bytes())};
}

HostKey HostKey::Of(const klepur::Address& address) {
  return {Kind::kAddress, std::string(AsText(address.Bytes(), address.ByteCount()))};
}

HostKey HostKey::Of(const Identifier& identifier) {
  return {Kind::kClientIdentifier, identifier.Bytes()};
}

void ForEachHostKey(Kind kind, std::string_view statement, const UseKey& use) {
  for (const auto& row : kStatements) {
    if (row.kind != kind) continue;
    if (const auto value = ValueOfKey(statement, row.keyword)) row.use_value(*value, use);
  }
}

}  // namespace klepur::internal
