// words: the words of the configuration language.
#include <klepur/language/words.h>

#include <algorithm>
#include <string>
#include <vector>

#include <tool/commands.h>
#include <tool/output.h>

namespace klepur::tool {
namespace {

bool IsWanted(const Word& word, const std::vector<std::string>& sought) {
  return sought.empty() ||
         std::any_of(sought.begin(), sought.end(), [&word](const std::string& text) {
           return word.name.find(text) != std::string_view::npos;
         });
}

std::string Places(Scopes scopes) {
  return scopes == kNowhere ? std::string() : ScopesInWords(scopes);
}

}  // namespace

ExitStatus RunWords(const Invocation& invocation) {
  const Output output(invocation);
  Table table = {{"WORD", "KIND", "SERVER", "VALUE", "EXPLANATION"}, {}};
  Records records;
  for (const Word& word : Words()) {
    if (!IsWanted(word, invocation.Arguments("WORD"))) continue;
    const std::string name(word.name);
    const std::string kind(ToText(word.kind));
    const std::string served_by(ToText(word.served_by));
    const std::string value(word.value);
    const std::string explanation(word.explanation);
    table.rows.push_back({{name, kind, served_by, value, explanation}, Style::kPlain});
    Record record;
    record.With("word", name).With("kind", kind).With("server", served_by).With("value", value);
    record.With("places4", Places(word.scopes4)).With("places6", Places(word.scopes6));
    records.push_back(record.With("explanation", explanation));
  }
  const bool is_empty = records.empty();
  if (output.IsJson()) {
    output.Print(Record().With("words", std::move(records)));
  } else {
    output.Print(table);
  }
  if (!is_empty) return ExitStatus::kDone;
  Say("there is no such word");
  return ExitStatus::kNothing;
}

}  // namespace klepur::tool
