#include <klepur/network/value_address.h>

#include <klepur/network/decimal.h>

#include <string_view>

namespace klepur::internal {
namespace {

/// Takes the slash if it is what comes next.
bool SkipSlash(ValueWords& words) {
  if (words.AtEnd() || words.Rest().front() != '/') return false;
  words = ValueWords(words.Rest().substr(1));
  return true;
}

}  // namespace

std::optional<Address> TakeAddress(ValueWords& words) noexcept {
  const std::optional<std::string_view> word = words.NextPlain();
  return word ? Address::ParseLenient(*word) : std::nullopt;
}

std::optional<AddressAndLength> TakeAddressAndLength(ValueWords& words) noexcept {
  const std::string_view text = words.Rest();
  std::optional<std::string_view> word = words.NextPlain();
  if (!word) return std::nullopt;
  const std::string_view spelled = word->substr(0, word->find('/'));
  const std::optional<Address> address = Address::ParseLenient(spelled);
  if (!address) return std::nullopt;

  words = ValueWords(text.substr(spelled.size()));
  if (!SkipSlash(words)) return AddressAndLength{*address, std::nullopt};
  word = words.NextPlain();
  const std::optional<unsigned> length =
      word ? ParseDecimal(*word, address->BitCount()) : std::nullopt;
  if (!length) return std::nullopt;
  return AddressAndLength{*address, length};
}

}  // namespace klepur::internal
