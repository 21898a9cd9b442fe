#include <klepur/config4/netmask.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace klepur::internal {
namespace {

constexpr int kOctets = 4;
constexpr int kMostDigits = 3;

/// A walk over an address that remembers the digits of the octets before.
class OctetReader {
 public:
  explicit OctetReader(const char* text)
      : position_(text),
        end_(text + std::strlen(text)),
        remaining_(static_cast<std::int16_t>(end_ - text)) {}

  bool AtEnd() const { return position_ > end_; }

  /// Reads the digits up to the next dot over those of the octet before.
  bool NextIsZero() {
    for (int count = 0; count < kMostDigits && *position_ != '.' && remaining_ > 0; ++count) {
      digits_[count] = *position_++;
      --remaining_;
    }
    return static_cast<std::uint16_t>(std::strtol(digits_, nullptr, 10)) == 0;
  }

  char TakeSeparator() {
    --remaining_;
    return *position_++;
  }

 private:
  const char* position_;
  const char* end_;
  std::int16_t
      remaining_;  // counted with 16 bits, so nothing is read of a text of 32768 characters
  char digits_[kMostDigits + 1] = {};
};

}  // namespace

std::string NetmaskOf(const char* subnet) {
  std::string mask;
  OctetReader reader(subnet);
  for (int octet = 0; octet < kOctets && !reader.AtEnd(); ++octet) {
    mask += reader.NextIsZero() ? "0" : "255";
    mask += reader.TakeSeparator();
  }
  return mask;
}

}  // namespace klepur::internal
