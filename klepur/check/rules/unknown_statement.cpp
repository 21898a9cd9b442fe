// What begins with a word that the server does not know, and is not near any that it does.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/unknown_word.h>

namespace klepur::internal {

void UnknownStatement(const Item& item, const Facts& /*facts*/, Report& report) {
  if (IsPermission(item) || HasForeignByte(item.first) || !IsRefusedUnknownWord(item)) return;
  if (!NearestKeyword(item.first).empty()) return;
  report.Add({.node = item.id,
              .message = "the server does not know " + Excerpt(item.first),
              .at = item.first});
}

}  // namespace klepur::internal
