// Hardware addresses that the server does not take, and those of ethernet that are not six bytes long, which
// it takes and never meets.
#include <klepur/check/value_reader.h>

#include <klepur/network/hardware_address.h>

#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <string>

namespace klepur::internal {
namespace {

/// Six bytes that are written with dashes or dots, with colons; empty when they are no six bytes.
std::string WithColons(std::string_view text) {
  constexpr std::size_t kDigits = 12;
  std::string address;
  std::size_t digits = 0;
  for (const char byte : UpToLastWord(text)) {
    if (byte == '-' || byte == '.' || byte == ':') continue;
    const char small = ToSmallLetter(byte);
    if (!IsDigit(byte) && (small < 'a' || small > 'f')) return {};
    if (digits != 0 && digits % 2 == 0) address += ':';
    address += byte;
    ++digits;
  }
  return digits == kDigits ? address : std::string();
}

}  // namespace

void ReadHardware(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const auto address = HardwareAddress::Parse(value);
  if (!address) {
    const ValueWord kind = *words.Next();
    const std::string_view rest = words.Rest();
    if (rest.empty() && !SameKeyword(kind.text, "ethernet")) {
      problem = {"malformed-hardware-address", kind.text,
                 Excerpt(kind.text) + " is no kind of hardware with an address"};
    } else if (rest.empty()) {
      problem = {"hardware-address-length", kind.text, "the hardware address has no bytes"};
    } else {
      problem = {"malformed-hardware-address", rest,
                 Excerpt(value) + " is no hardware address, as ethernet 00:16:3e:00:00:01",
                 SameKeyword(kind.text, "ethernet") ? WithColons(rest) : std::string(),
                 UpToLastWord(rest)};
    }
    return;
  }
  words = ValueWords(value.substr(value.size()));
  if (address->Type() != HardwareAddress::kEthernet || address->ByteCount() == 6) return;
  problem = {"hardware-address-length", value,
             "the ethernet address " + address->Text() + " has " +
                 std::to_string(address->ByteCount()) + " bytes, not 6"};
}

}  // namespace klepur::internal
