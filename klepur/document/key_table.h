// Internal: a table from keys to nodes of a document that corrects itself where it is read.
#ifndef KLEPUR_DOCUMENT_KEY_TABLE_H
#define KLEPUR_DOCUMENT_KEY_TABLE_H

#include <klepur/document/syntax_node.h>
#include <klepur/text/large_array.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// Tells which nodes may have a key. Entries become wrong when the document is edited; they are taken out
/// when their key is next looked up.
///
/// Slots stand in one block of memory and are probed one after the other. Entries wait until the table is
/// next read and are then put there together: what memory is wanted for many is known, and it is fetched
/// ahead.
class KeyTable {
 public:
  /// What a node that was entered under a hash has by now.
  enum class Has {
    kNeither,
    kHash,  ///< another key of the same hash: the entry is right, and no answer
    kKey,
  };

  static std::uint64_t HashOf(std::string_view key, std::uint64_t seed = 0);

  /// Hashes that differ may be the same to a table: what it takes of them.
  static constexpr std::uint32_t Folded(std::uint64_t hash) {
    return static_cast<std::uint32_t>(hash >> 32) ^ static_cast<std::uint32_t>(hash);
  }

  /// Cost: independent of how many nodes have the key. When memory runs out nothing is entered.
  void Insert(std::uint64_t hash, NodeId id) { waiting_.push_back({Folded(hash), id}); }
  /// How many entries there are, wrong ones and those of one node and key counted each.
  std::size_t Count() const { return count_ + waiting_.size() - settled_; }

  /// The nodes of a key, each once, in the order of their making.
  ///
  /// \param look  what a node has, a Has; entries of nodes that have neither are taken out.
  /// Cost: the number of entries of the key, and of those entered since the last time.
  template <class Look>
  std::vector<NodeId> Find(std::uint64_t hash, const Look& look) {
    Settle();
    std::vector<NodeId> entered = Entered(Folded(hash));
    std::vector<NodeId> found;
    std::size_t kept = 0;
    for (const NodeId id : entered) {
      if (kept != 0 && entered[kept - 1] == id) continue;
      const Has has = look(id);
      if (has == Has::kKey) found.push_back(id);
      if (has != Has::kNeither) entered[kept++] = id;
    }
    if (kept != entered.size()) {
      entered.resize(kept);
      Replace(Folded(hash), entered);
    }
    return found;
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// A node, and where in `more_` the others of its hash begin.
  struct Slot {
    std::uint32_t hash = 0;
    NodeId id = kNoNode;  // none in an empty slot
    std::uint32_t more = kNone;
  };
  struct Waiting {
    std::uint32_t hash;
    NodeId id;
  };
  struct More {
    NodeId id;
    std::uint32_t more;  // the next one of the hash, or the next free one
  };

  std::uint32_t Behind(std::uint32_t slot) const { return (slot + 1) & (slots_.size() - 1); }
  std::uint32_t HomeOf(std::uint32_t hash) const { return hash & (slots_.size() - 1); }
  std::uint32_t SlotOf(std::uint32_t hash) const;
  std::vector<NodeId> Entered(std::uint32_t hash) const;
  void Replace(std::uint32_t hash, const std::vector<NodeId>& ids) noexcept;
  void Empty(std::uint32_t slot) noexcept;
  void Settle();
  void Put(const Waiting& entry);
  void ReserveSlots(std::size_t count);

  LargeArray<Waiting> waiting_;
  std::uint32_t settled_ = 0;  // how many of them, where memory ran out
  LargeArray<Slot> slots_;     // as many as a power of two, or none; at most half of them are taken
  std::size_t taken_ = 0;
  std::vector<More> more_;
  std::uint32_t first_free_ = kNone;  // in `more_`
  std::size_t count_ = 0;             // without those that wait
};

}  // namespace klepur::internal

#endif
