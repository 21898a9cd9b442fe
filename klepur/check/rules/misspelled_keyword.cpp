// What begins with a word that the server does not know, a letter or two from one that it does.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/unknown_word.h>

namespace klepur::internal {

void MisspelledKeyword(const Item& item, const Facts& /*facts*/, Report& report) {
  if (!IsRefusedUnknownWord(item)) return;
  const std::string_view meant = NearestKeyword(item.first);
  if (meant.empty()) return;
  report.Add({.node = item.id,
              .message = "\"" + std::string(item.first) + "\" is unknown; \"" + std::string(meant) +
                         "\" may be meant",
              .at = item.first,
              .mend = report.Rewrite(item.id, item.first, meant)});
}

}  // namespace klepur::internal
