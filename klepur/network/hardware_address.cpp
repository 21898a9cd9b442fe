#include <klepur/network/hardware_address.h>

#include <klepur/network/decimal.h>
#include <klepur/network/hash_bytes.h>
#include <klepur/network/hex_bytes.h>
#include <klepur/network/value_words.h>

#include <algorithm>
#include <cstring>

namespace klepur {
namespace {

constexpr struct {
  unsigned char number;
  std::string_view name;
} kTypes[] = {
    {HardwareAddress::kEthernet, "ethernet"},
    {HardwareAddress::kTokenRing, "token-ring"},
    {HardwareAddress::kFddi, "fddi"},
    {HardwareAddress::kInfiniband, "infiniband"},
};

constexpr std::string_view kUsual = "ethernet ";     // what nearly all begin with
constexpr std::string_view kOtherType = "unknown-";  // in lower case only, unlike the names

bool IsUsual(std::string_view value) {
  return value.size() >= kUsual.size() &&
         std::memcmp(value.data(), kUsual.data(), kUsual.size()) == 0;
}

std::optional<unsigned char> TypeOf(std::string_view name) {
  for (const auto& type : kTypes) {
    if (internal::SameKeyword(type.name, name)) return type.number;
  }
  if (!name.starts_with(kOtherType)) return std::nullopt;
  const auto number = internal::ParseDecimal(name.substr(kOtherType.size()), 0xff);
  return number ? std::optional(static_cast<unsigned char>(*number)) : std::nullopt;
}

}  // namespace

std::optional<HardwareAddress> HardwareAddress::Parse(std::string_view value) noexcept {
  std::string_view numbers = internal::WithoutLeadingBlanks(value);
  std::optional<unsigned char> type;
  if (IsUsual(numbers)) {
    numbers.remove_prefix(kUsual.size());
    type = static_cast<unsigned char>(kEthernet);  // a copy: who refers to the constant exports it
  } else {
    internal::ValueWords words(numbers);
    const std::optional<std::string_view> name = words.NextPlain();
    if (name) type = TypeOf(*name);
    numbers = words.Rest();
  }
  if (!type) return std::nullopt;
  unsigned char bytes[kMostBytes] = {};
  const auto count = internal::ReadHexList(numbers, {bytes, sizeof bytes});
  return count ? FromBytes(*type, bytes, *count) : std::nullopt;
}

std::optional<HardwareAddress> HardwareAddress::ParseAnySpelling(std::string_view text,
                                                                 unsigned char type) noexcept {
  unsigned char bytes[kMostBytes] = {};
  const auto count = internal::ReadTypedHex(text, {bytes, sizeof bytes});
  return count ? FromBytes(type, bytes, *count) : std::nullopt;
}

std::optional<HardwareAddress> HardwareAddress::FromBytes(unsigned char type,
                                                          const unsigned char* bytes,
                                                          std::size_t count) noexcept {
  if (count > kMostBytes) return std::nullopt;
  HardwareAddress address;
  address.type_ = type;
  address.byteCount_ = static_cast<unsigned char>(count);
  std::copy_n(bytes, count, address.bytes_);
  return address;
}

std::string HardwareAddress::TypeName() const {
  for (const auto& type : kTypes) {
    if (type.number == type_) return std::string(type.name);
  }
  return std::string(kOtherType) + std::to_string(type_);
}

std::string HardwareAddress::Text() const {
  return internal::HexList(bytes_, byteCount_);
}

std::string HardwareAddress::Value() const {
  return TypeName() + ' ' + Text();
}

int HardwareAddress::Compare(const HardwareAddress& other) const noexcept {
  if (type_ != other.type_) return type_ < other.type_ ? -1 : 1;
  // Behind byteCount_ the bytes are zero, so the shorter address stands in front.
  const int order = std::memcmp(bytes_, other.bytes_, sizeof bytes_);
  return order != 0 ? order : int{byteCount_} - int{other.byteCount_};
}

std::size_t HardwareAddress::Hash() const noexcept {
  return internal::HashBytes(bytes_, byteCount_) * 131 + type_;
}

}  // namespace klepur
