// Addresses that are none. Where the server wants one of IPv4 a name does as well, and what begins as an
// address does, with a number and a dot, is no name.
#include <klepur/check/value_reader.h>

#include <klepur/network/address.h>
#include <klepur/network/decimal.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool IsByte(std::string_view text) {
  return ParseDecimal(text, 255).has_value();
}

/// The text up to the next dot, which is taken off with it.
std::string_view TakePart(std::string_view& text) {
  const std::size_t dot = std::min(text.find('.'), text.size());
  const std::string_view part = text.substr(0, dot);
  text.remove_prefix(std::min(dot + 1, text.size()));
  return part;
}

bool IsAddressOfBytes(std::string_view text) {
  if (text.empty() || text.back() == '.') return false;
  for (int part = 0; part != 4; ++part) {
    if (!IsByte(TakePart(text))) return false;
  }
  return text.empty();
}

/// Words with dots between, and maybe one at the end.
bool IsName(std::string_view text) {
  return text.front() != '.' && text.front() != '_' && text.find("..") == std::string_view::npos &&
         std::all_of(text.begin(), text.end(),
                     [](char byte) { return IsWordByte(byte) || byte == '.'; });
}

bool BeginsAsAddress(std::string_view text) {
  std::string_view rest = text;
  const std::string_view part = TakePart(rest);
  return part.size() != text.size() && IsDecimalNumber(part);
}

}  // namespace

void ReadAddressOrName(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain) {
    const auto address = klepur::Address::ParseLenient(word.text);
    if (address && address->IsV4()) return;
    if (BeginsAsAddress(word.text) ? IsAddressOfBytes(word.text) : IsName(word.text)) return;
  }
  problem = {
      "malformed-address", word.text,
      Excerpt(word.text) + " is no address of IPv4: four numbers up to 255 with dots between"};
}

void ReadAddress6(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const ValueWord word = *words.Next();
  if (word.kind == ValueWord::kPlain) {
    const auto address = klepur::Address::Parse(word.text);
    if (address && address->IsV6()) return;
  }
  problem = {"malformed-address", word.text, Excerpt(word.text) + " is no address of IPv6"};
}

}  // namespace klepur::internal
