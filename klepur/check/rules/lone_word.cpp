// A word that the server does not know, and takes for an expression: it does nothing.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/unknown_word.h>
#include <klepur/document/words_of_text.h>

namespace klepur::internal {

void LoneWord(const Item& item, const Facts& /*facts*/, Report& report) {
  if (item.kind == NodeKind::kBlock || item.unfinished || IsPermission(item)) return;
  if (HasForeignByte(item.first) || IsRefusedUnknownWord(item)) return;
  const std::string_view next = FirstWord(item.value);
  if (!next.empty() && next != "=") return;
  std::string message = "the server does not know " + Excerpt(item.first) + " and passes over it";
  std::optional<Mend> mend;
  if (const std::string_view meant = NearestKeyword(item.first); !meant.empty() && next.empty()) {
    message += "; \"" + std::string(meant) + "\" may be meant";
    mend = report.Rewrite(item.id, item.first, meant);
  }
  report.Add(
      {.node = item.id, .message = std::move(message), .at = item.first, .mend = std::move(mend)});
}

}  // namespace klepur::internal
