// Ranges of addresses and of prefixes.
#include <klepur/check/value_reader.h>

#include <klepur/network/prefix.h>
#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>

namespace klepur::internal {
namespace {

void TakeAll(ValueWords& words) {
  words = ValueWords(words.Rest().substr(words.Rest().size()));
}

}  // namespace

void ReadRange(ValueWords& words, std::string_view type, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const auto range = AddressRange::Parse(value);
  const bool is_six = type == "range6";
  if (range && range->First().IsV6() == is_six) return TakeAll(words);
  problem = {"malformed-range", value,
             Excerpt(value) + (is_six ? " is no range, as 2001:db8::1 2001:db8::9 or 2001:db8::/64"
                                      : " is no range, as 10.0.0.1 10.0.0.9")};
}

void ReadPrefixRange(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  if (PrefixRange::Parse(value)) return TakeAll(words);
  problem = {"malformed-range", value,
             Excerpt(value) + " is no range of prefixes, as 2001:db8:0:100:: 2001:db8:0:f00:: /56"};
}

void ReadPrefix(ValueWords& words, std::string_view /*type*/, ValueProblem& problem) {
  const std::string_view value = words.Rest();
  const auto prefix = Prefix::Parse(value);
  if (prefix && prefix->GetAddress().IsV6()) return TakeAll(words);
  problem = {"malformed-prefix", value, Excerpt(value) + " is no prefix, as 2001:db8:0:100::/56"};
}

}  // namespace klepur::internal
