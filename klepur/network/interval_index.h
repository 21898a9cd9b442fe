// Internal: finding the subnets and ranges around an address.
#ifndef KLEPUR_NETWORK_INTERVAL_INDEX_H
#define KLEPUR_NETWORK_INTERVAL_INDEX_H

#include <klepur/document/document_state.h>
#include <klepur/document/upkeep.h>
#include <klepur/network/address.h>
#include <klepur/network/interval_map.h>

#include <optional>
#include <vector>

namespace klepur::internal {

/// The nodes of a document that stand for intervals of addresses.
class IntervalIndex {
 public:
  /// The addresses that a node stands for, if it does for any.
  using Read = std::optional<Interval> (*)(const DocumentState& state, NodeId id);

  explicit IntervalIndex(Read read) : read_(read) {}

  /// The nodes around an address, innermost first as IntervalMap has it, of those with the same addresses
  /// the first one of the text first. Makes or completes the table first.
  std::vector<NodeId> Around(const DocumentState& state, const klepur::Address& address);

 private:
  IntervalMap map_;
  Upkeep upkeep_;
  Read read_;
};

/// Of a subnet or subnet6 block; nothing when its header is no network.
std::optional<Interval> IntervalOfSubnet(const DocumentState& state, NodeId id);
/// Of a range or range6 statement; nothing when its value is no range.
std::optional<Interval> IntervalOfRange(const DocumentState& state, NodeId id);

}  // namespace klepur::internal

#endif
