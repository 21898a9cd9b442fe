// The header of a subnet: its words, its address, its mask or the length of its prefix.
#include <klepur/check/rules/rules.h>

#include <klepur/check/subnet_header.h>

#include <klepur/document/words_of_text.h>

#include <string>

namespace klepur::internal {
namespace {

/// Writes "10.0.0.0 netmask 255.255.255.0" for "10.0.0.0/24".
std::optional<Mend> WithNetmask(const Item& item, const Report& report) {
  const std::string_view text = UpToLastWord(WithoutLeadingBlanks(item.value));
  const auto prefix = Prefix::Parse(text);
  if (!prefix || !prefix->GetAddress().IsV4()) return std::nullopt;
  return report.Rewrite(item.id, text,
                        prefix->First().Text() + " netmask " + prefix->Netmask().Text());
}

}  // namespace

void MalformedSubnet(const Item& item, const Facts& /*facts*/, Report& report) {
  if (const auto prefix = Subnet6PrefixOf(item)) {
    const auto read = Prefix::Parse(*prefix);
    if (read && read->GetAddress().IsV6()) return;
    report.Add({.node = item.id,
                .message = Excerpt(*prefix) + " is no network of IPv6, as 2001:db8::/64",
                .at = *prefix});
    return;
  }
  const auto header = SubnetHeaderOf(item);
  if (!header || (header->is_whole && header->address && header->mask)) return;
  if (Prefix::ParseSubnet(WithoutLeadingBlanks(item.value))) return;
  if (!header->is_whole) {
    report.Add({.node = item.id,
                .message = "the header of a subnet is not \"subnet ADDRESS netmask MASK\"",
                .mend = WithNetmask(item, report)});
  } else if (!header->address) {
    report.Add({.node = item.id,
                .message = Excerpt(header->address_text) + " is no address of IPv4",
                .at = header->address_text});
  } else {
    report.Add({.node = item.id,
                .message = Excerpt(header->mask_text) + " is no netmask",
                .at = header->mask_text});
  }
}

}  // namespace klepur::internal
