// Hardware addresses that the server does not take, and those of ethernet that are not six bytes long, which
// it takes and never meets.
#include <klepur/check/value_reader.h>

#include <klepur/network/hardware_address.h>

namespace klepur::internal {

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
                 Excerpt(value) + " is no hardware address, as ethernet 00:16:3e:00:00:01"};
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
