// Internal: finding, adding and removing the blocks of a tree without reading all of them.
#ifndef KLEPUR_LOOKUP_TREE_INDEX_H
#define KLEPUR_LOOKUP_TREE_INDEX_H

#include <klepur/framework/tree_links.h>
#include <klepur/lookup/tree_tables.h>

#include <cstddef>
#include <memory>
#include <string_view>

namespace klepur::internal {

/// Answers what a walk over the tree would answer, from tables instead.
///
/// The tables are made when walking has cost as much as making them. While there are any, whoever
/// changes the tree does so through this class, or calls Drop before the next question. Where
/// somebody else may change it unasked, only walks are right: WalkFromNowOn.
///
/// Running out of memory for the tables is no failure: the walks remain.
class TreeIndex {
 public:
  /// The index of the tree below `top`, which must live as long.
  explicit TreeIndex(TreeNode& top) : top_(top) {}
  TreeIndex(const TreeIndex&) = delete;
  TreeIndex& operator=(const TreeIndex&) = delete;

  /// The first node of this name in `start` and below, in the order of TreeNode::FindIf; null on a
  /// miss.
  TreeNode* FirstNamed(TreeNode& start, const char* name);

  /// The first child that holds exactly this line; null on a miss.
  TreeNode* FirstChildWithLine(TreeNode& parent, const char* line);

  /// The first of the following siblings whose name holds `part`, up to a null; null when none
  /// does.
  TreeNode* NextSiblingHolding(TreeNode& node, std::string_view part);

  /// AppendChild.
  TreeNode* Append(TreeNode& parent, CfSection&& section);

  /// Unlinks and deletes a node with all below it; false, with nothing changed, when its parent
  /// does not hold it.
  bool Remove(TreeNode& node);

  /// Forgets the tables.
  void Drop() noexcept;

  /// Forgets the tables and makes no new ones.
  void WalkFromNowOn() noexcept;

  /// While it lives, name and lines of a node may be changed, and nothing may be looked up.
  class Edit {
   public:
    Edit(TreeIndex& index, TreeNode& node);
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;
    ~Edit();

   private:
    TreeIndex& index_;
    TreeNode& node_;
  };

 private:
  KnownNode* Find(TreeNode& node);
  KnownNode* FindIfMade(TreeNode& node) const;
  void MakeWhenItPays();
  template <class Work>
  void OrDrop(Work work) noexcept;

  TreeNode& top_;
  std::unique_ptr<TreeTables> tables_;  // null while there are none
  bool onlyWalks_ = false;
  std::size_t walked_ = 0;     // nodes looked at by walks since there were tables
  std::size_t nextCount_ = 1;  // when that many were, the nodes of the tree are counted
};

}  // namespace klepur::internal

#endif
