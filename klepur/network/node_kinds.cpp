#include <klepur/network/node_kinds.h>

#include <klepur/document/node_text.h>
#include <klepur/document/structure_words.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace klepur::internal {
namespace {

constexpr std::pair<std::string_view, BlockKind> kBlocks[] = {
    {"failover", BlockKind::kService},
    {"group", BlockKind::kGroup},
    {"host", BlockKind::kHost},
    {"key", BlockKind::kService},
    {"pool", BlockKind::kPool},
    {"pool6", BlockKind::kPool},
    {"shared-network", BlockKind::kSharedNetwork},
    {"subnet", BlockKind::kSubnet},
    {"subnet6", BlockKind::kSubnet},
    {"zone", BlockKind::kService},
};

std::array<BlockKind, 256> KindsByWord() {
  std::array<BlockKind, 256> kinds = {};
  kinds.fill(BlockKind::kOther);
  for (const auto& [word, kind] : kBlocks) kinds[NumberOf(word)] = kind;
  return kinds;
}

}  // namespace

BlockKind KindOf(const DocumentState& state, NodeId id) {
  static const std::array<BlockKind, 256> kinds = KindsByWord();
  return state.IsBlock(id) ? kinds[state.tree[id].word] : BlockKind::kOther;
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
