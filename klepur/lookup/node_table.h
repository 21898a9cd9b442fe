// Internal: a hash table of tree nodes, several of which may have the same key.
#ifndef KLEPUR_LOOKUP_NODE_TABLE_H
#define KLEPUR_LOOKUP_NODE_TABLE_H

#include <algorithm>
#include <cstddef>
#include <set>
#include <unordered_map>
#include <vector>

namespace klepur::internal {

struct KnownNode;

/// Nodes by the hash of a text of theirs. Whoever looks for a text compares what is found.
///
/// Slots stand in one block and are probed one after the other: a lookup in a large table waits for
/// memory once, where one in std::unordered_map waits two or three times.
class NodeTable {
 public:
  /// Makes room for so many nodes at once.
  void Reserve(std::size_t count);

  /// Enters a node; does nothing when it is there with this hash. When memory runs out the table
  /// stays usable.
  void Insert(std::size_t hash, KnownNode* node);

  /// Takes a node out; does nothing when it is not there.
  void Erase(std::size_t hash, KnownNode* node);

  /// The node with a hash that no two nodes share; null when there is none.
  KnownNode* Only(std::size_t hash) const {
    return slots_.empty() ? nullptr : slots_[Find(hash)].node;
  }

  /// The first node with this hash, from `start` on in the order of the file, that `accept` takes;
  /// null when there is none. A node that is the only one with its hash is found wherever it
  /// stands.
  template <class Accept>
  KnownNode* FirstFrom(std::size_t hash, KnownNode* start, Accept accept) const;

 private:
  /// Orders nodes as they stand in the file.
  struct FileOrder {
    bool operator()(const KnownNode* a, const KnownNode* b) const;
  };
  using Same = std::set<KnownNode*, FileOrder>;

  struct Slot {
    std::size_t hash = 0;
    KnownNode* node = nullptr;  // null in an empty slot, kSeveral where `same_` has the nodes
  };

  static KnownNode* const kSeveral;

  std::size_t Find(std::size_t hash) const;
  std::size_t Behind(std::size_t slot) const { return (slot + 1) & (slots_.size() - 1); }
  std::size_t HomeOf(std::size_t hash) const { return hash & (slots_.size() - 1); }
  void Resize(std::size_t size);
  void Empty(std::size_t slot);

  std::vector<Slot> slots_;  // as many as a power of two, at most two thirds of them taken
  std::size_t taken_ = 0;
  std::unordered_map<std::size_t, Same> same_;  // nodes that share a hash: few hashes have any
};

template <class Accept>
KnownNode* NodeTable::FirstFrom(std::size_t hash, KnownNode* start, Accept accept) const {
  if (slots_.empty()) return nullptr;
  KnownNode* const node = slots_[Find(hash)].node;
  if (node != kSeveral) return node != nullptr && accept(*node) ? node : nullptr;
  const Same& nodes = same_.at(hash);
  const auto found = std::find_if(nodes.lower_bound(start), nodes.end(),
                                  [&accept](const KnownNode* known) { return accept(*known); });
  return found == nodes.end() ? nullptr : *found;
}

}  // namespace klepur::internal

#endif
