// Internal: the children of blocks that hold many, by their keys.
#ifndef KLEPUR_DOCUMENT_CHILD_INDEX_H
#define KLEPUR_DOCUMENT_CHILD_INDEX_H

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <klepur/document/key_table.h>
#include <klepur/document/syntax_tree.h>

namespace klepur::internal {

struct DocumentState;

class ChildIndex {
 public:
  /// From how many children on asking costs less than walking over them.
  static constexpr int kMany = 64;

  /// The statements, blocks and labels of a key that stand right in a block, in the order of their making. Cost: linear
  /// in the children of the block the first time, then in what changed since and in the answer.
  std::vector<NodeId> Find(const DocumentState& state, NodeId block, std::string_view key);

 private:
  void Update(const DocumentState& state);
  void Enter(const DocumentState& state, NodeId id);

  std::unordered_set<NodeId> blocks_;  // whose children are in the table
  KeyTable table_;
  std::size_t generation_ = 0;  // of the tree
  std::size_t seen_ = 0;        // how many of its notes
};

/// What the index of a document finds, asked safely while others read.
std::vector<NodeId> ChildrenWithKey(const DocumentState& state, NodeId block, std::string_view key);

}  // namespace klepur::internal

#endif
