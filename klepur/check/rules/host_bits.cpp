// The address of a network with bits of a host in it.
#include <klepur/check/rules/rules.h>

#include <klepur/check/subnet_header.h>

namespace klepur::internal {

void HostBits(const Item& item, const Facts& /*facts*/, Report& report) {
  if (const auto text = Subnet6PrefixOf(item)) {
    const auto prefix = Prefix::Parse(*text);
    if (!prefix || !prefix->HasHostBits()) return;
    const std::string network = prefix->WithoutHostBits().Text();
    report.Add(
        {.node = item.id,
         .message = prefix->Text() + " has bits behind its prefix; the network is " + network,
         .at = *text,
         .mend = report.Rewrite(item.id, *text, network)});
    return;
  }
  const auto header = SubnetHeaderOf(item);
  if (!header || !header->address || !header->mask || !HasHostBits(*header->address, *header->mask))
    return;
  std::string message =
      header->address->Text() + " has bits that are zero in the netmask " + header->mask->Text();
  std::optional<Mend> mend;
  if (const auto prefix = Prefix::ParseSubnet(WithoutLeadingBlanks(item.value))) {
    const std::string network = prefix->First().Text();
    message += "; the network is " + network;
    mend = report.Rewrite(item.id, header->address_text, network);
  }
  report.Add({.node = item.id,
              .message = std::move(message),
              .at = header->address_text,
              .mend = std::move(mend)});
}

}  // namespace klepur::internal
