// Internal: a table from keys to nodes that follows the edits of a document.
#ifndef KLEPUR_DOCUMENT_NODE_INDEX_H
#define KLEPUR_DOCUMENT_NODE_INDEX_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include <klepur/document/changed_nodes.h>
#include <klepur/document/syntax_tree.h>

namespace klepur::internal {

/// Tells which nodes may have a key. What was once entered is never taken out: whoever asks compares each
/// node with what is sought, so that an entry of a node that is gone, or has another key now, is no harm.
class NodeIndex {
 public:
  /// What a node is entered under: any number of hashes of keys.
  using Enter = std::function<void(std::uint64_t hash)>;
  using KeysOf = std::function<void(NodeId, const Enter&)>;

  /// Enters all nodes, or those that changed since the last time. Cost: linear in what is entered.
  void Update(const SyntaxTree& tree, const KeysOf& keys_of);
  /// The nodes that were entered under this hash and perhaps some others, each once, in the order of
  /// their making.
  std::vector<NodeId> Candidates(std::uint64_t hash) const;

  static std::uint64_t HashOf(std::string_view key, std::uint64_t seed = 0);

 private:
  static constexpr std::uint32_t kNoMore = 0xFFFFFFFF;
  /// A node, and where in `more_` the other nodes of its hash begin: blocks without a name are many.
  struct Slot {
    std::uint32_t hash = 0;
    NodeId id = kNoNode;
    std::uint32_t more = kNoMore;
  };
  struct More {
    NodeId id;
    std::uint32_t more;
  };
  /// The slot of a hash, or the free one in which it would be.
  std::size_t SlotOf(std::uint32_t hash) const;
  void Insert(std::uint32_t hash, NodeId id);
  void Grow();

  std::vector<Slot> slots_;
  std::vector<More> more_;
  std::size_t used_ = 0;
  ChangedNodes changed_;
};

}  // namespace klepur::internal

#endif
