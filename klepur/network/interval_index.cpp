#include <klepur/network/interval_index.h>

#include <klepur/document/node_text.h>
#include <klepur/network/node_kinds.h>
#include <klepur/network/prefix.h>
#include <klepur/network/range.h>
#include <klepur/text/letters.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool AreOfSameAddresses(const Interval& left, const Interval& right) {
  return left.first == right.first && left.last == right.last;
}

}  // namespace

std::vector<NodeId> IntervalIndex::Around(const DocumentState& state,
                                          const klepur::Address& address) {
  upkeep_.Update(state.tree, map_, [&](NodeId id) {
    if (const std::optional<Interval> interval = read_(state, id)) map_.Insert(*interval);
  });
  std::vector<Interval> intervals;
  map_.AppendContaining(address, intervals);
  std::vector<NodeId> nodes;
  std::vector<NodeId> alike;  // the nodes of the same addresses that were met last
  for (auto at = intervals.begin(); at != intervals.end(); ++at) {
    const bool is_double = at != intervals.begin() && at[-1] == *at;
    if (is_double || state.tree.IsGone(at->value) || read_(state, at->value) != *at) {
      map_.Remove(*at);
    } else {
      alike.push_back(at->value);
    }
    if (at + 1 != intervals.end() && AreOfSameAddresses(*at, at[1])) continue;
    SortByPlace(state, alike);
    nodes.insert(nodes.end(), alike.begin(), alike.end());
    alike.clear();
  }
  return nodes;
}

std::optional<Interval> IntervalOfSubnet(const DocumentState& state, NodeId id) {
  if (KindOf(state, id) != BlockRole::kSubnet) return std::nullopt;
  const std::optional<Prefix> prefix = Prefix::ParseSubnet(NameIn(state.OwnText(id)));
  if (!prefix) return std::nullopt;
  return Interval(prefix->First(), prefix->Last(), id);
}

std::optional<Interval> IntervalOfRange(const DocumentState& state, NodeId id) {
  if (state.tree[id].kind != NodeKind::kStatement) return std::nullopt;
  const std::string_view text = state.OwnText(id);
  const std::string_view keyword = LeadingWord(text);
  if (!EqualButForCase(keyword, "range") && !EqualButForCase(keyword, "range6")) {
    return std::nullopt;
  }
  const std::optional<AddressRange> range = AddressRange::Parse(ValueOf(text));
  if (!range) return std::nullopt;
  return Interval(range->First(), range->Last(), id);
}

}  // namespace klepur::internal
