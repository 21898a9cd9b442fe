// A netmask in which ones stand behind zeros.
#include <klepur/check/rules/rules.h>

#include <klepur/check/subnet_header.h>

namespace klepur::internal {

void NetmaskWithHoles(const Item& item, const Facts& /*facts*/, Report& report) {
  const auto header = SubnetHeaderOf(item);
  if (!header || !header->mask || !HasHoles(*header->mask)) return;
  report.Add(
      {.node = item.id,
       .message = "the netmask " + header->mask->Text() + " has holes: ones stand behind zeros",
       .at = header->mask_text});
}

}  // namespace klepur::internal
