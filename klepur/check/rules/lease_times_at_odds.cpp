// Lease times that cannot all hold: the server cuts the default one down, or stretches it.
#include <klepur/check/rules/rules.h>

#include <array>
#include <unordered_map>
#include <vector>

namespace klepur::internal {
namespace {

constexpr std::size_t kSettings = 3;

std::size_t Number(Setting setting) {
  return static_cast<std::size_t>(setting);
}

/// The statements of a block, or in force in it, by setting; null where there is none.
using LeaseTimes = std::array<const SettingFact*, kSettings>;

class LeaseTimesOfBlocks {
 public:
  explicit LeaseTimesOfBlocks(const Facts& facts) : facts_(facts) {
    for (const SettingFact& setting : facts.settings) {
      const auto [block, is_new] = of_block_.try_emplace(setting.block, LeaseTimes{});
      if (is_new) blocks_.push_back(setting.block);
      block->second[Number(setting.setting)] = &setting;
    }
  }

  /// Those that set any, in the order of the text.
  const std::vector<NodeId>& Blocks() const { return blocks_; }

  /// What a block does not set, the blocks around it do.
  LeaseTimes InForce(NodeId block) const {
    LeaseTimes found{};
    for (; block != kNoNode; block = facts_.state.tree[block].parent) {
      const auto own = of_block_.find(block);
      if (own == of_block_.end()) continue;
      for (std::size_t i = 0; i != kSettings; ++i) {
        if (found[i] == nullptr) found[i] = own->second[i];
      }
    }
    return found;
  }

 private:
  const Facts& facts_;
  std::vector<NodeId> blocks_;
  std::unordered_map<NodeId, LeaseTimes> of_block_;
};

}  // namespace

void LeaseTimesAtOdds(const Facts& facts, Report& report) {
  const auto compare = [&](NodeId block, const SettingFact* less, const char* less_name,
                           const SettingFact* more, const char* more_name) {
    if (less == nullptr || more == nullptr || less->seconds <= more->seconds) return;
    const bool tell_less = less->block == block;
    if (!tell_less && more->block != block) return;
    const SettingFact* const told = tell_less ? less : more;
    report.Add({.node = told->statement,
                .message = std::string(less_name) + " " + std::to_string(less->seconds) +
                           " is above " + more_name + " " + std::to_string(more->seconds),
                .other = (tell_less ? more : less)->statement});
  };
  const LeaseTimesOfBlocks blocks(facts);
  for (const NodeId block : blocks.Blocks()) {
    const LeaseTimes in_force = blocks.InForce(block);
    const SettingFact* const usual = in_force[Number(Setting::kDefaultLeaseTime)];
    const SettingFact* const most = in_force[Number(Setting::kMaxLeaseTime)];
    const SettingFact* const least = in_force[Number(Setting::kMinLeaseTime)];
    compare(block, usual, "default-lease-time", most, "max-lease-time");
    compare(block, least, "min-lease-time", usual, "default-lease-time");
    if (usual == nullptr) compare(block, least, "min-lease-time", most, "max-lease-time");
  }
}

}  // namespace klepur::internal
