// A header without its block: the "{" was forgotten.
#include <klepur/check/rules/rules.h>

#include <klepur/document/structure_words.h>

namespace klepur::internal {

void MissingBlock(const Item& item, const Facts& /*facts*/, Report& report) {
  if (item.kind == NodeKind::kBlock) return;
  const Begins begins = WordOf(NumberOf(item.first)).begins;
  if (begins != Begins::kBlock && begins != Begins::kChain && begins != Begins::kBranch) return;
  if (item.around.scope == kInHost && item.word != nullptr && item.word->name == "group") return;
  report.Add(
      {.node = item.id, .message = "the \"{\" of \"" + std::string(item.first) + "\" is missing"});
}

}  // namespace klepur::internal
