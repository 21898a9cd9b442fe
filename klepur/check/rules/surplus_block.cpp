// A "{" behind a keyword that has no block.
#include <klepur/check/rules/rules.h>

#include <klepur/document/structure_words.h>

namespace klepur::internal {

void SurplusBlock(const Item& item, const Facts& /*facts*/, Report& report) {
  if (item.kind != NodeKind::kBlock) return;
  const StructureWord& word = WordOf(NumberOf(item.first));
  const bool is_statement = word.begins == Begins::kStatement || word.begins == Begins::kAlone;
  if (word.text.empty() || !is_statement) return;
  report.Add({.node = item.id, .message = "\"" + std::string(item.first) + "\" has no block"});
}

}  // namespace klepur::internal
