// Internal: what the tables of a tree know of one node.
#ifndef KLEPUR_LOOKUP_KNOWN_NODE_H
#define KLEPUR_LOOKUP_KNOWN_NODE_H

#include <klepur/framework/tree_links.h>
#include <klepur/lookup/node_table.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>

namespace klepur::internal {

/// What is known of the children of a node.
struct KnownChildren {
  std::uint64_t nextOrdinal = 0;  // of the next child
  std::size_t walked = 0;         // how many of their lines walks have compared
  std::map<std::string, NodeTable, std::less<>> lines;  // by keyword: those that begin with it
};

/// A node and its place among its siblings.
struct KnownNode {
  TreeNode* node = nullptr;
  KnownNode* parent = nullptr;
  std::list<TreeNode*>::iterator place;     // in the parent's child list
  std::uint64_t ordinal = 0;                // grows along the siblings
  std::size_t depth = 0;                    // how many nodes are above
  std::unique_ptr<KnownChildren> children;  // null when there was none yet
};

}  // namespace klepur::internal

#endif
