#include <klepur/network/node_kinds.h>

#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::pair<std::string_view, BlockRole> kBlocks[] = {
    {"failover", BlockRole::kService},
    {"group", BlockRole::kGroup},
    {"host", BlockRole::kHost},
    {"key", BlockRole::kService},
    {"pool", BlockRole::kPool},
    {"pool6", BlockRole::kPool},
    {"shared-network", BlockRole::kSharedNetwork},
    {"subnet", BlockRole::kSubnet},
    {"subnet6", BlockRole::kSubnet},
    {"zone", BlockRole::kService},
};

std::array<BlockRole, 256> KindsByWord() {
  std::array<BlockRole, 256> kinds = {};
  kinds.fill(BlockRole::kOther);
  for (const auto& [word, kind] : kBlocks) kinds[NumberOf(word)] = kind;
  return kinds;
}

}  // namespace

BlockRole KindOf(const DocumentState& state, NodeId id) {
  static const std::array<BlockRole, 256> kinds = KindsByWord();
  return state.IsBlock(id) ? kinds[state.tree[id].word] : BlockRole::kOther;
}

bool IsLiveStatement(const DocumentState& state, NodeId id) {
  return state.tree[id].kind == NodeKind::kStatement && !state.tree.IsGone(id);
}

std::string_view ValueOf(std::string_view statement) {
  const ValuePlace place = ValueIn(statement);
  return statement.substr(place.begin, place.end - place.begin);
}

void SortByPlace(const DocumentState& state, std::vector<NodeId>& nodes) {
  if (nodes.size() < 2) return;
  state.positions.Update(state.text);
  std::vector<std::pair<std::size_t, NodeId>> places;
  places.reserve(nodes.size());
  for (const NodeId id : nodes) {
    places.emplace_back(state.positions.OffsetOf(state.text, state.Begin(id)), id);
  }
  std::sort(places.begin(), places.end());
  std::transform(places.begin(), places.end(), nodes.begin(),
                 [](const auto& place) { return place.second; });
}

}  // namespace klepur::internal
