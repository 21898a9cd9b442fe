#include <klepur/network/prefix_range.h>

#include <klepur/network/distance.h>
#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>

#include <algorithm>

namespace klepur {
namespace {

Prefix LowestOfV6() {
  constexpr unsigned char kZero[Address::kMostBytes] = {};
  return *Prefix::Of(Address::FromV6Bytes(kZero), 1);
}

}  // namespace

PrefixRange::PrefixRange() noexcept : PrefixRange(LowestOfV6(), LowestOfV6()) {}

PrefixRange::PrefixRange(const Prefix& one, const Prefix& other) noexcept
    : first_(std::min(one, other)), last_(std::max(one, other)), isReversed_(other < one) {}

std::optional<PrefixRange> PrefixRange::Parse(std::string_view value) noexcept {
  internal::ValueWords words(value);
  const std::optional<Address> one = internal::TakeAddress(words);
  if (!one || one->IsV4()) return std::nullopt;
  const auto other = internal::TakeAddressAndLength(words);
  if (!other || other->address.IsV4() || !words.AtEnd()) return std::nullopt;
  const unsigned length = other->length.value_or(0);
  if (length == 0 || length == one->BitCount()) return std::nullopt;
  return PrefixRange(*Prefix::Of(*one, length), *Prefix::Of(other->address, length));
}

AddressRange PrefixRange::Addresses() const noexcept {
  return *AddressRange::Of(first_.First(), last_.Last());
}

std::uint64_t PrefixRange::Count() const noexcept {
  return internal::CountPrefixes(first_.GetAddress(), last_.GetAddress(), Length());
}

std::string PrefixRange::Text() const {
  return first_.GetAddress().Text() + ' ' + last_.GetAddress().Text() + " /" +
         std::to_string(Length());
}

int PrefixRange::Compare(const PrefixRange& other) const noexcept {
  const int order = first_.Compare(other.first_);
  return order != 0 ? order : last_.Compare(other.last_);
}

std::size_t PrefixRange::Hash() const noexcept {
  return first_.Hash() * 131 + last_.Hash();
}

}  // namespace klepur
