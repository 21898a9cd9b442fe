// Values for properties that hold for all of them; the same in every run.
#ifndef KLEPUR_TESTS_NETWORK_RANDOM_VALUES_H
#define KLEPUR_TESTS_NETWORK_RANDOM_VALUES_H

#include <klepur/network/address.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>

namespace klepur {

class RandomValues {
 public:
  explicit RandomValues(unsigned seed) : engine_(seed) {}

  unsigned Below(unsigned limit) { return static_cast<unsigned>(engine_() % limit); }

  /// Any bytes, often with runs of zeros.
  std::string Bytes(std::size_t count) {
    const unsigned zeros = Below(3);
    std::string bytes(count, '\0');
    for (char& byte : bytes) byte = static_cast<char>(Below(3) < zeros ? 0 : Below(256));
    return bytes;
  }

  /// One of each family.
  std::array<Address, 2> Addresses() {
    const std::string bytes = Bytes(Address::kMostBytes);
    const auto* const first = reinterpret_cast<const unsigned char*>(bytes.data());
    return {Address::FromV4Bytes(first), Address::FromV6Bytes(first)};
  }

 private:
  std::mt19937 engine_;
};

}  // namespace klepur

#endif
