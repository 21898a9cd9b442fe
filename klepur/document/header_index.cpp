#include <klepur/document/header_index.h>

#include <cstdint>
#include <string>

#include <klepur/document/document_state.h>
#include <klepur/document/node_text.h>

namespace klepur::internal {
namespace {

std::uint64_t HashOf(std::string_view key, std::string_view name) {
  return KeyTable::HashOf(name, KeyTable::HashOf(key));
}

}  // namespace

std::vector<NodeId> HeaderIndex::Find(const DocumentState& state, std::string_view key,
                                      std::string_view name) {
  upkeep_.Update(state.tree, table_, [&](NodeId id) {
    if (!state.IsBlock(id)) return;
    const std::string_view header = state.OwnText(id);
    table_.Insert(HashOf(KeyOf(header), NameIn(header)), id);
  });
  const std::uint64_t hash = HashOf(key, name);
  return table_.Find(hash, [&](NodeId id) {
    if (!state.IsBlock(id) || state.tree.IsGone(id)) return KeyTable::Has::kNeither;
    const std::string_view header = state.OwnText(id);
    if (HasKey(header, key) && NameIn(header) == name) return KeyTable::Has::kKey;
    const std::uint64_t other = HashOf(KeyOf(header), NameIn(header));
    return KeyTable::Folded(other) == KeyTable::Folded(hash) ? KeyTable::Has::kHash
                                                             : KeyTable::Has::kNeither;
  });
}

}  // namespace klepur::internal
