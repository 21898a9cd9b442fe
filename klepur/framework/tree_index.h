// Internal: finding, adding and removing the blocks of a tree without reading all of them.
#ifndef KLEPUR_FRAMEWORK_TREE_INDEX_H
#define KLEPUR_FRAMEWORK_TREE_INDEX_H

#include <klepur/framework/known_node.h>
#include <klepur/framework/node_table.h>
#include <klepur/framework/section_holder.h>
#include <klepur/framework/tree_links.h>
#include <klepur/framework/tree_state.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <string_view>
#include <vector>

namespace klepur::internal {

/// Answers what a walk over the tree would answer, from tables instead.
///
/// The tables are made when walking has cost as much as making them. They are used only while they
/// are whole: each change to a name, to a line or to which nodes there are is counted (TreeState,
/// EntryChanges), the changes made through this class and Edit are entered in the tables, and any
/// other change makes the tables useless until they are made anew. They are not used either while a
/// node lives that was built with a parent in the tree but stands in no child list, for it may
/// enter one unnoticed.
///
/// A living node that is moved between child lists by hand is not noticed before its section
/// changes.
///
/// Running out of memory for the tables is no failure: the walks remain.
class TreeIndex {
 public:
  /// The index of a holder's tree, made when there is none.
  static TreeIndex& Of(CfSectionHolder& holder);

  explicit TreeIndex(TreeNode& top);
  TreeIndex(const TreeIndex&) = delete;
  TreeIndex& operator=(const TreeIndex&) = delete;
  ~TreeIndex();

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

  /// While it lives, name and lines of a section may be changed and the tables are kept. Does
  /// nothing without an index.
  class Edit {
   public:
    Edit(TreeIndex* index, CfSection& section);
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;
    ~Edit();

   private:
    void LetEntriesCount(bool count) noexcept;

    TreeIndex* index_;
    CfSection& section_;
    bool isKnown_;  // in the tables
  };

 private:
  bool IsReady();
  bool IsWhole() const;
  void Build();
  template <class Change>
  void KeepWhole(Change change) noexcept;

  KnownNode* Find(const CfSection& section) const;
  KnownNode* FindTrusted(TreeNode& node);
  bool IsTrusted(const KnownNode& known) const;
  static bool KnowsChildren(const KnownNode& known);
  KnownNode& Enter(KnownNode* parent, TreeNode& node, std::list<TreeNode*>::iterator place);
  void EnterTexts(KnownNode& known);
  void RemoveTexts(KnownNode& known);
  void RemoveAllWithin(TreeNode& node);

  template <class Visit>
  void ForEachTable(KnownNode& known, Visit visit);
  NodeTable* LinesOf(KnownNode& parent, std::string_view keyword);
  NodeTable* MakeLines(KnownNode& parent, std::string_view keyword);

  TreeNode* WalkForName(TreeNode& start, const char* name);
  TreeNode* WalkForLine(TreeNode& parent, const char* line, std::size_t& compared);

  TreeNode& top_;
  TreeState& state_;
  std::uint64_t changesSeen_ = 0;
  std::uint64_t entryChangesSeen_ = 0;
  std::size_t walked_ = 0;  // nodes looked at by walks since the tables were last useful
  bool made_ = false;
  std::deque<KnownNode> known_;   // one for each node of the tree, and those in free_
  std::vector<KnownNode*> free_;  // of nodes that are gone
  NodeTable names_;
};

}  // namespace klepur::internal

#endif
