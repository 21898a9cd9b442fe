#include <klepur/check/subnet_table.h>

#include <algorithm>

namespace klepur::internal {
namespace {

bool StandsBefore(const SubnetFact& left, const SubnetFact& right) {
  const klepur::Address first = left.prefix.First();
  const klepur::Address other = right.prefix.First();
  return first != other ? first < other : left.prefix.Length() < right.prefix.Length();
}

bool IsSame(const Prefix& left, const Prefix& right) {
  return left.WithoutHostBits() == right.WithoutHostBits();
}

}  // namespace

void SubnetTable::Make(const LargeArray<SubnetFact>& subnets) {
  rows_.reserve(subnets.size());
  for (const SubnetFact& subnet : subnets) {
    rows_.push_back({&subnet, subnet.prefix.Last(), kNone});
    in_network_[subnet.Network()].push_back(&subnet);
  }
  std::stable_sort(rows_.begin(), rows_.end(), [](const Row& left, const Row& right) {
    return StandsBefore(*left.subnet, *right.subnet);
  });
  firsts_.reserve(rows_.size());
  for (std::size_t i = 0; i != rows_.size(); ++i) {
    row_of_[rows_[i].subnet->node] = i;
    firsts_.push_back(rows_[i].subnet->prefix.First());
    if (i == 0) continue;
    const Prefix& prefix = rows_[i].subnet->prefix;
    // Of the same subnets all but the first lie in the first, so that no way up is long.
    std::size_t around = i - 1;
    while (around != kNone && !rows_[around].subnet->prefix.Contains(prefix)) {
      around = rows_[around].around;
    }
    if (around != kNone && rows_[around].around != kNone &&
        IsSame(rows_[around].subnet->prefix, rows_[rows_[around].around].subnet->prefix)) {
      around = rows_[around].around;
    }
    rows_[i].around = around;
  }
}

const SubnetFact* SubnetTable::Around(const AddressKey& address) const {
  std::size_t row = firsts_.UpTo(address) - 1;  // kNone when there is none
  while (row != kNone && rows_[row].last < address) row = rows_[row].around;
  return row == kNone ? nullptr : rows_[row].subnet;
}

const SubnetFact* SubnetTable::Around(const SubnetFact& subnet) const {
  const std::size_t around = rows_[row_of_.at(subnet.node)].around;
  return around == kNone ? nullptr : rows_[around].subnet;
}

const SubnetFact* SubnetTable::Of(NodeId block) const {
  const auto row = row_of_.find(block);
  return row == row_of_.end() ? nullptr : rows_[row->second].subnet;
}

const std::vector<const SubnetFact*>& SubnetTable::InNetwork(NodeId network) const {
  static const std::vector<const SubnetFact*> kNoSubnets;
  const auto subnets = in_network_.find(network);
  return subnets == in_network_.end() ? kNoSubnets : subnets->second;
}

}  // namespace klepur::internal
