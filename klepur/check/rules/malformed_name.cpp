// The names of blocks: which of them have one, and which of these stand between quotes.
#include <klepur/check/rules/rules.h>

#include <klepur/document/words_of_text.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

enum class Quotes { kMust, kMay, kMustNot };

struct Naming {
  std::string_view block;
  Quotes quotes;
  bool may_lack = false;  ///< Whether the block does without a name.
};

constexpr Naming kNamings[] = {
    {"class", Quotes::kMust}, {"host", Quotes::kMustNot},       {"group", Quotes::kMay, true},
    {"key", Quotes::kMay},    {"shared-network", Quotes::kMay}, {"zone", Quotes::kMustNot},
};

std::string_view WithoutQuotes(std::string_view name) {
  name.remove_prefix(1);
  if (!name.empty() && name.back() == '"') name.remove_suffix(1);
  return name;
}

/// Whether a header's words are those of most: one name without quotes, and nothing else.
bool IsPlainName(std::string_view value) {
  std::size_t at = 0;
  while (at != value.size() && value[at] == ' ') ++at;
  const std::size_t begin = at;
  while (at != value.size() && (IsWordByte(value[at]) || value[at] == '.')) ++at;
  const bool named = at != begin;
  while (at != value.size() && value[at] == ' ') ++at;
  return named && at == value.size();
}

const Naming* NamingOf(const Item& item) {
  if (item.word == nullptr) return nullptr;
  const auto* const found =
      std::find_if(std::begin(kNamings), std::end(kNamings),
                   [&](const Naming& naming) { return naming.block == item.word->name; });
  return found == std::end(kNamings) ? nullptr : found;
}

/// Whether a word goes on behind the name, and is no part of it, as what follows a dot that stands alone.
bool HasMore(std::string_view name, std::string_view word) {
  const bool is_joined = name.back() == '.' || (!word.empty() && word.front() == '.');
  return !word.empty() && !is_joined && word.front() != '{';
}

}  // namespace

void MalformedName(const Item& item, const Facts& /*facts*/, Report& report) {
  if (EqualButForCase(item.first, "host") && IsPlainName(item.value)) return;
  const Naming* const naming = NamingOf(item);
  if (naming == nullptr) return;
  const std::string block(naming->block);
  WordsOfText words(item.value);
  const std::string_view name = words.Next();
  if (name.empty()) {
    if (naming->may_lack) return;
    report.Add({.node = item.id, .message = "the " + block + " has no name"});
    return;
  }
  const bool quoted = name.front() == '"';
  if (quoted && naming->quotes == Quotes::kMustNot) {
    report.Add({.node = item.id,
                .message = "the name of a " + block +
                           " stands without quotes: " + Excerpt(WithoutQuotes(name)),
                .at = name});
  } else if (!quoted && naming->quotes == Quotes::kMust) {
    const std::string with_quotes = '"' + std::string(name) + '"';
    report.Add({.node = item.id,
                .message = "the name of a " + block + " stands between quotes: " + with_quotes,
                .at = name,
                .mend = report.Rewrite(item.id, name, with_quotes)});
  } else if (const std::string_view more = words.Next(); HasMore(name, more)) {
    report.Add(
        {.node = item.id,
         .message = "the name of a " + block + " is one word, and " + Excerpt(more) + " is another",
         .at = more});
  }
}

}  // namespace klepur::internal
