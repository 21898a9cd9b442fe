#include <tool/addresses.h>

#include <klepur/network/prefix_range.h>
#include <klepur/network/range.h>

#include <fmt/core.h>

#include <tool/language.h>

namespace klepur::tool {
namespace {

std::string RangeText(const std::string& value) {
  const auto range = AddressRange::Parse(value);
  if (!range) return Plain(value);
  if (range->First() == range->Last()) return range->First().Text();
  return fmt::format("{} - {}", range->First().Text(), range->Last().Text());
}

std::string PrefixRangeText(const std::string& value) {
  const auto range = PrefixRange::Parse(value);
  return range ? range->Text() : Plain(value);
}

}  // namespace

std::vector<std::string> ElementsOf(const Node& statement) {
  const std::string keyword = statement.Keyword();
  if (keyword == "range" || keyword == "range6") return {RangeText(statement.Value())};
  if (keyword == "prefix6") return {PrefixRangeText(statement.Value())};
  return Divided(Plain(statement.Value()), ',');
}

std::vector<Address> FixedAddresses(const Node& host) {
  std::vector<Address> addresses;
  for (const Node& child : host.Children()) {
    const std::string keyword = child.Keyword();
    if (keyword != "fixed-address" && keyword != "fixed-address6") continue;
    for (const std::string& element : ElementsOf(child)) {
      if (const auto address = Address::ParseLenient(element)) addresses.push_back(*address);
    }
  }
  return addresses;
}

}  // namespace klepur::tool
