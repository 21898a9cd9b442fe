#include <klepur/network/range.h>

#include <klepur/network/distance.h>
#include <klepur/network/value_address.h>
#include <klepur/network/value_words.h>

#include <utility>

namespace klepur {
namespace {

using Use = AddressRange::Use;
using internal::AddressAndLength;
using internal::ValueWords;

constexpr std::string_view kDynamicBootp = "dynamic-bootp";
constexpr std::string_view kTemporary = "temporary";
constexpr unsigned kTemporaryLength = 64;  // of the prefix that a lone temporary address stands for

std::optional<AddressRange> InPrefix(const Address& address, unsigned length, Use use) {
  const AddressRange all(*Prefix::Of(address, length));
  return AddressRange::Of(all.First(), all.Last(), use);
}

/// The range of `range6` whose first word, or prefix, has been taken.
std::optional<AddressRange> TakeRange6(const AddressAndLength& start, ValueWords& words) {
  const bool isTemporary = words.Skip(kTemporary);
  const Use use = isTemporary ? Use::kTemporary : Use::kAny;
  if (start.length) return InPrefix(start.address, *start.length, use);
  if (isTemporary) return InPrefix(start.address, kTemporaryLength, use);
  const std::optional<Address> last = internal::TakeAddress(words);
  return last ? AddressRange::Of(start.address, *last) : std::nullopt;
}

/// The range of `range` whose first address has been taken.
std::optional<AddressRange> TakeRange4(const AddressAndLength& start, Use use, ValueWords& words) {
  if (start.length) return std::nullopt;
  if (words.AtEnd()) return AddressRange::Of(start.address, start.address, use);
  const std::optional<Address> last = internal::TakeAddress(words);
  return last ? AddressRange::Of(start.address, *last, use) : std::nullopt;
}

std::optional<AddressRange> TakeRange(ValueWords& words) {
  const Use use = words.Skip(kDynamicBootp) ? Use::kDynamicBootp : Use::kAny;
  const std::optional<AddressAndLength> start = internal::TakeAddressAndLength(words);
  if (!start) return std::nullopt;
  if (start->address.IsV4()) return TakeRange4(*start, use, words);
  return use == Use::kAny ? TakeRange6(*start, words) : std::nullopt;
}

}  // namespace

std::optional<AddressRange> AddressRange::Of(const Address& one, const Address& other,
                                             Use use) noexcept {
  if (one.IsV4() != other.IsV4()) return std::nullopt;
  AddressRange range(one);
  range.last_ = other;
  range.use_ = use;
  range.isReversed_ = other < one;
  if (range.isReversed_) std::swap(range.first_, range.last_);
  return range;
}

std::optional<AddressRange> AddressRange::Parse(std::string_view value) noexcept {
  ValueWords words(value);
  const std::optional<AddressRange> range = TakeRange(words);
  return words.AtEnd() ? range : std::nullopt;
}

bool AddressRange::Contains(const Address& address) const noexcept {
  return first_ <= address && address <= last_;
}

bool AddressRange::Contains(const AddressRange& other) const noexcept {
  return first_ <= other.first_ && other.last_ <= last_;
}

bool AddressRange::Overlaps(const AddressRange& other) const noexcept {
  return first_ <= other.last_ && other.first_ <= last_;
}

std::uint64_t AddressRange::Count() const noexcept {
  return internal::CountPrefixes(first_, last_, first_.BitCount());
}

std::optional<Prefix> AddressRange::AsPrefix() const noexcept {
  for (unsigned length = 0; length <= first_.BitCount(); ++length) {
    if (first_.WithHostBitsSet(length) != last_) continue;
    const std::optional<Prefix> prefix = Prefix::Of(first_, length);
    if (!prefix->HasHostBits()) return prefix;
  }
  return std::nullopt;
}

std::string AddressRange::Text() const {
  if (use_ == Use::kTemporary) {
    if (const auto prefix = AsPrefix()) return prefix->Text().append(" ").append(kTemporary);
  }
  std::string text;
  if (use_ == Use::kDynamicBootp) text.append(kDynamicBootp).append(" ");
  text += first_.Text();
  if (first_ != last_ || first_.IsV6()) text.append(" ").append(last_.Text());
  return text;
}

int AddressRange::Compare(const AddressRange& other) const noexcept {
  if (const int order = first_.Compare(other.first_)) return order;
  if (const int order = last_.Compare(other.last_)) return order;
  return static_cast<int>(use_) - static_cast<int>(other.use_);
}

std::size_t AddressRange::Hash() const noexcept {
  return (first_.Hash() * 131 + last_.Hash()) * 131 + static_cast<std::size_t>(use_);
}

}  // namespace klepur
