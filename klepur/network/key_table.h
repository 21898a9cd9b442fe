// Internal: a table from keys to nodes of a document that corrects itself where it is read.
#ifndef KLEPUR_NETWORK_KEY_TABLE_H
#define KLEPUR_NETWORK_KEY_TABLE_H

#include <klepur/document/syntax_node.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace klepur::internal {

/// Tells which nodes may have a key. Entries become wrong when the document is edited; they are taken out
/// when their key is next looked up.
class KeyTable {
 public:
  /// Cost: independent of how many nodes have the key.
  void Insert(std::uint64_t hash, NodeId id);
  /// How many entries there are, wrong ones and those of one node and key counted each.
  std::size_t Count() const { return entries_.size() - free_count_; }

  /// The nodes of a key, each once, in the order of their making.
  ///
  /// \param is_right  whether a node has the key that is looked up; entries of others are taken out, also
  ///                  when only their hash is the same.
  /// Cost: the number of entries of the key.
  template <class IsRight>
  std::vector<NodeId> Find(std::uint64_t hash, const IsRight& is_right) {
    std::vector<NodeId> found = Entered(hash);
    std::sort(found.begin(), found.end());
    const std::size_t entered = found.size();
    found.erase(std::unique(found.begin(), found.end()), found.end());
    found.erase(
        std::remove_if(found.begin(), found.end(), [&](NodeId id) { return !is_right(id); }),
        found.end());
    if (found.size() != entered) Replace(hash, found);
    return found;
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  struct Entry {
    NodeId id = kNoNode;
    std::uint32_t next = kNone;  // the next entry of the key, or the next free one
  };
  std::vector<NodeId> Entered(std::uint64_t hash) const;
  void Replace(std::uint64_t hash, const std::vector<NodeId>& ids) noexcept;

  std::unordered_map<std::uint64_t, std::uint32_t> first_;
  std::vector<Entry> entries_;
  std::uint32_t first_free_ = kNone;
  std::size_t free_count_ = 0;
};

}  // namespace klepur::internal

#endif
