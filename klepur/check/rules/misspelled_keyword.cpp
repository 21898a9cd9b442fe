// What begins with a word that the server does not know, a letter or two from one that it does.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/unknown_word.h>

#include <klepur/document/structure_words.h>

#include <utility>

namespace klepur::internal {
namespace {

/// Labels are no statements, and a statement cannot become one.
bool IsLabelWord(std::string_view word) {
  return WordOf(NumberOf(word)).begins == Begins::kLabel;
}

}  // namespace

void MisspelledKeyword(const Item& item, const Facts& /*facts*/, Report& report) {
  if (!IsRefusedUnknownWord(item)) return;
  const std::string_view meant = NearestKeyword(item.first);
  if (meant.empty()) return;
  std::optional<Mend> mend;
  if (!IsLabelWord(meant)) mend = report.Rewrite(item.id, item.first, meant);
  report.Add({.node = item.id,
              .message = "\"" + std::string(item.first) + "\" is unknown; \"" + std::string(meant) +
                         "\" may be meant",
              .at = item.first,
              .mend = std::move(mend)});
}

}  // namespace klepur::internal
