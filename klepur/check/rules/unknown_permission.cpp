// allow, deny or ignore of something that cannot be allowed.
#include <klepur/check/rules/rules.h>

#include <klepur/check/near_word.h>
#include <klepur/check/unknown_word.h>
#include <klepur/document/words_of_text.h>
#include <klepur/language/word_index.h>

#include <vector>

namespace klepur::internal {
namespace {

std::vector<std::string_view> Permissions() {
  constexpr std::string_view kAllow = "allow ";
  std::vector<std::string_view> names;
  for (const Word& word : Words()) {
    const std::string_view name = word.name;
    if (name.substr(0, kAllow.size()) != kAllow) continue;
    if (name.find(' ', kAllow.size()) == std::string_view::npos) {
      names.push_back(name.substr(kAllow.size()));
    }
  }
  return names;
}

}  // namespace

void UnknownPermission(const Item& item, const Facts& /*facts*/, Report& report) {
  if (!IsPermission(item) || item.unfinished) return;
  static const std::vector<std::string_view> permissions = Permissions();
  std::string message =
      "nothing that \"" + std::string(item.first) + "\" knows is called " + Excerpt(item.second);
  std::optional<Mend> mend;
  if (const std::string_view meant = NearestOf(permissions, item.second); !meant.empty()) {
    message += "; \"" + std::string(meant) + "\" may be meant";
    mend = report.Rewrite(item.id, item.second, meant);
  }
  report.Add(
      {.node = item.id, .message = std::move(message), .at = item.second, .mend = std::move(mend)});
}

}  // namespace klepur::internal
