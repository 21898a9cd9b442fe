// A character that is no ASCII outside of texts and comments: a no-break space, a typographic quote.
#include <klepur/check/rules/rules.h>

#include <klepur/check/unknown_word.h>

namespace klepur::internal {

void ForeignCharacter(const Item& item, const Facts& /*facts*/, Report& report) {
  if (!HasForeignByte(item.first)) return;
  report.Add(
      {.node = item.id,
       .message = Excerpt(item.first) + " has a character that stands only in texts and comments",
       .at = item.first});
}

}  // namespace klepur::internal
