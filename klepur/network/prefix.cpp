#include <klepur/network/prefix.h>

#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>

namespace klepur {
namespace {

/// How many bits of a mask are set in front of the first that is not.
unsigned LeadingOnes(const Address& mask) {
  unsigned count = 0;
  while (count < mask.BitCount() && (mask.Bytes()[count / 8] & (0x80U >> (count % 8))) != 0) {
    ++count;
  }
  return count;
}

std::optional<Prefix> WithNetmask(const Address& address, const Address& mask) {
  if (!address.IsV4() || !mask.IsV4()) return std::nullopt;
  const std::optional<Prefix> prefix = Prefix::Of(address, LeadingOnes(mask));
  return prefix->Netmask() == mask ? prefix : std::nullopt;
}

}  // namespace

std::optional<Prefix> Prefix::Of(const Address& address, unsigned length) noexcept {
  if (length > address.BitCount()) return std::nullopt;
  return Prefix(address, length);
}

std::optional<Prefix> Prefix::Parse(std::string_view text) noexcept {
  internal::ValueWords words(text);
  const auto spelled = internal::TakeAddressAndLength(words);
  if (!spelled || !spelled->length || !words.AtEnd()) return std::nullopt;
  return Of(spelled->address, *spelled->length);
}

std::optional<Prefix> Prefix::ParseWithNetmask(std::string_view address,
                                               std::string_view netmask) noexcept {
  const std::optional<Address> network = Address::ParseLenient(address);
  const std::optional<Address> mask = Address::ParseLenient(netmask);
  return network && mask ? WithNetmask(*network, *mask) : std::nullopt;
}

std::optional<Prefix> Prefix::ParseSubnet(std::string_view name) noexcept {
  internal::ValueWords words(name);
  const std::optional<Address> network = internal::TakeAddress(words);
  if (network && words.Skip("netmask")) {
    const std::optional<Address> mask = internal::TakeAddress(words);
    return mask && words.AtEnd() ? WithNetmask(*network, *mask) : std::nullopt;
  }
  const std::optional<Prefix> prefix = Parse(name);
  return prefix && prefix->address_.IsV6() ? prefix : std::nullopt;
}

std::optional<Address> Prefix::Broadcast() const noexcept {
  if (address_.IsV6() || length_ >= 31) return std::nullopt;
  return Last();
}

Address Prefix::Netmask() const noexcept {
  return address_.WithHostBitsSet(0).WithHostBitsCleared(length_);
}

Prefix Prefix::WithoutHostBits() const noexcept {
  return {First(), length_};
}

bool Prefix::Contains(const Address& address) const noexcept {
  return First() <= address && address <= Last();
}

bool Prefix::Contains(const Prefix& other) const noexcept {
  return Contains(other.First()) && Contains(other.Last());
}

bool Prefix::Overlaps(const Prefix& other) const noexcept {
  return Contains(other.First()) || other.Contains(First());
}

std::string Prefix::Text() const {
  return address_.Text() + '/' + std::to_string(length_);
}

int Prefix::Compare(const Prefix& other) const noexcept {
  const int order = address_.Compare(other.address_);
  return order != 0 ? order : int{length_} - int{other.length_};
}

std::size_t Prefix::Hash() const noexcept {
  return address_.Hash() * 131 + length_;
}

}  // namespace klepur
