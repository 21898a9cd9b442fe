#include <klepur/network/address.h>

#include <klepur/network/dotted.h>
#include <klepur/network/hash_bytes.h>

#include <arpa/inet.h>
#include <algorithm>
#include <cstring>

namespace klepur {
namespace {

constexpr std::size_t kTextSize = INET6_ADDRSTRLEN;  // with the zero byte at the end

/// A text that ends in a zero byte, as inet_pton wants it. What does not fit is no address.
class AddressText {
 public:
  bool Append(char c) {
    if (c == '\0' || length_ == kTextSize - 1) return false;
    text_[length_++] = c;
    return true;
  }

  const char* Ended() {
    text_[length_] = '\0';
    return text_;
  }

 private:
  char text_[kTextSize] = {};
  std::size_t length_ = 0;
};

std::optional<Address> Converted(AddressText& text, bool isV6) {
  unsigned char bytes[Address::kMostBytes];
  if (inet_pton(isV6 ? AF_INET6 : AF_INET, text.Ended(), bytes) != 1) return std::nullopt;
  return isV6 ? Address::FromV6Bytes(bytes) : Address::FromV4Bytes(bytes);
}

bool HasColon(std::string_view text) {
  return text.find(':') != std::string_view::npos;
}

}  // namespace

std::optional<Address> Address::Parse(std::string_view text) noexcept {
  AddressText copy;
  for (const char c : text) {
    if (!copy.Append(c)) return std::nullopt;
  }
  return Converted(copy, HasColon(text));
}

std::optional<Address> Address::ParseLenient(std::string_view text) noexcept {
  if (const auto number = internal::ReadDotted(text)) {
    unsigned char bytes[4];
    for (unsigned i = 0; i != 4; ++i)
      bytes[i] = static_cast<unsigned char>(*number >> (24 - 8 * i));
    return FromV4Bytes(bytes);
  }
  return HasColon(text) ? Parse(text) : std::nullopt;
}

Address Address::FromV4Bytes(const unsigned char* bytes) noexcept {
  Address address;
  std::copy_n(bytes, 4, address.bytes_);
  return address;
}

Address Address::FromV6Bytes(const unsigned char* bytes) noexcept {
  Address address;
  address.byteCount_ = 16;
  std::copy_n(bytes, 16, address.bytes_);
  return address;
}

std::string Address::Text() const {
  char text[kTextSize];
  return inet_ntop(IsV6() ? AF_INET6 : AF_INET, bytes_, text, sizeof text);
}

std::optional<Address> Address::Next() const noexcept {
  Address next = *this;
  for (std::size_t i = byteCount_; i-- > 0;) {
    if (++next.bytes_[i] != 0) return next;
  }
  return std::nullopt;
}

std::optional<Address> Address::Previous() const noexcept {
  Address previous = *this;
  for (std::size_t i = byteCount_; i-- > 0;) {
    if (previous.bytes_[i]-- != 0) return previous;
  }
  return std::nullopt;
}

Address Address::WithHostBitsSet(unsigned length) const noexcept {
  Address address = *this;
  for (unsigned bit = length; bit < BitCount(); bit = bit / 8 * 8 + 8) {
    address.bytes_[bit / 8] |= static_cast<unsigned char>(0xffU >> (bit % 8));
  }
  return address;
}

Address Address::WithHostBitsCleared(unsigned length) const noexcept {
  Address address = *this;
  for (unsigned bit = length; bit < BitCount(); bit = bit / 8 * 8 + 8) {
    address.bytes_[bit / 8] &= static_cast<unsigned char>(~(0xffU >> (bit % 8)));
  }
  return address;
}

int Address::Compare(const Address& other) const noexcept {
  if (byteCount_ != other.byteCount_) return byteCount_ < other.byteCount_ ? -1 : 1;
  return std::memcmp(bytes_, other.bytes_, sizeof bytes_);
}

std::size_t Address::Hash() const noexcept {
  return internal::HashBytes(bytes_, byteCount_);
}

}  // namespace klepur
