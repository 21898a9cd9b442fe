// A case of a switch that does not end in a colon.
#include <klepur/check/rules/rules.h>

#include <klepur/text/letters.h>

namespace klepur::internal {

void LabelWithoutColon(const Item& item, const Facts& /*facts*/, Report& report) {
  if (item.around.scope != kInSwitch || !EqualButForCase(item.first, "case")) return;
  report.Add({.node = item.id, .message = "the case does not end in a \":\""});
}

}  // namespace klepur::internal
