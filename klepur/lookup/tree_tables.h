// Internal: tables that say where the names and lines of a tree stand.
#ifndef KLEPUR_LOOKUP_TREE_TABLES_H
#define KLEPUR_LOOKUP_TREE_TABLES_H

#include <klepur/framework/tree_links.h>
#include <klepur/lookup/known_node.h>
#include <klepur/lookup/node_table.h>

#include <cstddef>
#include <deque>
#include <list>
#include <memory>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// A tree's nodes by name and by line, and the place of each in its child list.
///
/// They are right as long as each change to the tree is entered here. A member that throws
/// std::bad_alloc leaves them of no use.
class TreeTables {
 public:
  /// The tables of the tree below `top`, which has about `count` nodes; null when it is nested so
  /// deeply that walks are better.
  static std::unique_ptr<TreeTables> Of(TreeNode& top, std::size_t count);

  TreeTables() = default;
  TreeTables(const TreeTables&) = delete;
  TreeTables& operator=(const TreeTables&) = delete;

  /// What is known of a node; null when it is in another tree.
  KnownNode* Find(const TreeNode& node) const;

  /// The first node of this name in `start` and below, in the order of TreeNode::FindIf.
  TreeNode* FirstNamed(KnownNode& start, const char* name) const;

  /// The first child that holds exactly this line.
  TreeNode* FirstChildWithLine(KnownNode& parent, const char* line);

  /// A new node has become the last child of `parent`. False when it stands too deep.
  bool Enter(KnownNode& parent, TreeNode& node);

  /// A node and all below it are about to go.
  void Remove(KnownNode& known);

  // The name and lines of a node are about to change, and have changed.
  void RemoveTexts(KnownNode& known);
  void EnterTexts(KnownNode& known);

 private:
  KnownNode& Add(KnownNode* parent, TreeNode& node, std::list<TreeNode*>::iterator place);
  bool AddAll(TreeNode& top);

  template <class Visit>
  void ForEachTable(KnownNode& known, Visit visit);
  static NodeTable* LinesOf(KnownNode& parent, std::string_view keyword);
  NodeTable& MakeLines(KnownNode& parent, std::string_view keyword) const;

  std::deque<KnownNode> known_;   // one for each node of the tree, and those in free_
  std::vector<KnownNode*> free_;  // of nodes that are gone
  NodeTable nodes_;               // by their addresses
  NodeTable names_;
};

}  // namespace klepur::internal

#endif
