// Internal: what a tree counts so that an index over it knows when it has gone stale.
#ifndef KLEPUR_FRAMEWORK_TREE_STATE_H
#define KLEPUR_FRAMEWORK_TREE_STATE_H

#include <cstddef>
#include <cstdint>

namespace klepur::internal {

/// Shared by the holder of a tree and every node that was built with a parent in that tree; freed
/// with the last of them, so that a node may outlive the holder.
struct TreeState {
  std::uint64_t changes = 0;  // of names, of lines, and of which nodes there are
  std::size_t nodes = 0;      // alive, whether they stand in a child list or not
};

}  // namespace klepur::internal

#endif
