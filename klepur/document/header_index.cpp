#include <klepur/document/header_index.h>

#include <algorithm>
#include <string>

#include <klepur/document/document_state.h>
#include <klepur/document/node_text.h>

namespace klepur::internal {
namespace {

std::uint64_t HashOfHeader(std::string_view key, std::string_view name) {
  return NodeIndex::HashOf(name, NodeIndex::HashOf(key));
}

}  // namespace

std::vector<NodeId> HeaderIndex::Find(const DocumentState& state, std::string_view key,
                                      std::string_view name) {
  index_.Update(state.tree, [&state](NodeId id, const NodeIndex::Enter& enter) {
    if (!state.IsBlock(id)) return;
    const std::string_view header = state.OwnText(id);
    enter(HashOfHeader(KeyOf(header), NameIn(header)));
  });
  std::vector<NodeId> found = index_.Candidates(HashOfHeader(key, name));
  const auto differs = [&](NodeId id) {
    if (state.tree.IsGone(id) || !state.IsBlock(id)) return true;
    const std::string_view header = state.OwnText(id);
    return !HasKey(header, key) || NameIn(header) != name;
  };
  found.erase(std::remove_if(found.begin(), found.end(), differs), found.end());
  return found;
}

}  // namespace klepur::internal
