#include <klepur/check/subnet_header.h>

#include <klepur/document/words_of_text.h>
#include <klepur/network/value_words.h>
#include <klepur/text/letters.h>

#include <cstddef>

namespace klepur::internal {
namespace {

/// Takes an address that may be written as several words, as 10 . 0 . 0 . 1; with blanks it is not read.
std::optional<klepur::Address> AddressOf(std::string_view text) {
  auto address = klepur::Address::ParseLenient(text);
  return address && address->IsV4() ? address : std::nullopt;
}

}  // namespace

std::optional<SubnetHeader> SubnetHeaderOf(const Item& item) {
  if (item.kind != NodeKind::kBlock || item.word == nullptr || item.word->name != "subnet")
    return {};
  SubnetHeader header;
  WordsOfText words(item.value);
  header.address_text = words.Next();
  const std::string_view netmask = words.Next();
  header.mask_text = words.Next();
  header.is_whole =
      EqualButForCase(netmask, "netmask") && !header.mask_text.empty() && words.Next().empty();
  header.address = AddressOf(header.address_text);
  header.mask = AddressOf(header.mask_text);
  return header;
}

std::optional<std::string_view> Subnet6PrefixOf(const Item& item) {
  if (item.kind != NodeKind::kBlock || item.word == nullptr || item.word->name != "subnet6")
    return {};
  return UpToLastWord(WithoutLeadingBlanks(item.value));
}

bool HasHoles(const klepur::Address& mask) {
  bool zero_before = false;
  for (std::size_t bit = 0; bit != mask.BitCount(); ++bit) {
    const bool one = (mask.Bytes()[bit / 8] >> (7 - bit % 8) & 1) != 0;
    if (one && zero_before) return true;
    zero_before = !one;
  }
  return false;
}

bool HasHostBits(const klepur::Address& address, const klepur::Address& mask) {
  for (std::size_t byte = 0; byte != mask.ByteCount(); ++byte) {
    if ((address.Bytes()[byte] & ~mask.Bytes()[byte] & 0xFF) != 0) return true;
  }
  return false;
}

}  // namespace klepur::internal
