// Tree<CfSection>::TreeNode: the tree of blocks that holds a file.
#ifndef KLEPUR_FRAMEWORK_TREE_H
#define KLEPUR_FRAMEWORK_TREE_H

#include <klepur/export.h>
#include <klepur/framework/section.h>
#include <klepur/memory/made_anywhere.h>

#include <iterator>
#include <list>
#include <memory>
#include <typeinfo>
#include <utility>
#include <vector>

/// A tree whose nodes each carry one `Section`.
///
/// Used as Tree<CfSection>. Every walk goes over the nodes in file order, and none of them,
/// deletion included, needs stack in proportion to how deep the blocks are nested. Only nodes of
/// derived classes that stand in each other are traversed by calls in each other.
///
/// The functions handed to a walk may append nodes: what the walk has not come to yet it comes to
/// later, also behind a node that was the last one. They must not take the node they are called
/// for, or one that it stands in, out of its child list.
template <class Section>
class Tree {
 public:
  /// One block: its section, the block that it stands in, and the blocks that stand in it.
  ///
  /// A node owns its child list and every node in it. It is neither copied nor moved.
  class KLEPUR_EXPORT TreeNode : public klepur::internal::MadeAnywhere {
   public:
    /// A node without children that carries a copy of `payload`.
    /// \param above  the node it will hang under, null for a topmost one. The node does not enter
    ///               that node's child list by itself: append it there.
    TreeNode(TreeNode* above, const Section& payload) : TreeNode(above, Section(payload)) {}

    /// The same, taking over what `payload` holds.
    TreeNode(TreeNode* above, Section&& payload)
        : parent(above), children(nullptr), section(std::move(payload)) {}

    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    /// Deletes every node below this one, deepest first, then the section. Does not unlink this
    /// node from its parent's child list.
    virtual ~TreeNode() { DeleteAllItems(); }

    /// Calls `visit` on this node's section and then on those below it.
    ///
    /// Where `visit` returns false, the nodes below that one are left out; the walk goes on with
    /// the next sibling.
    /// \return false when `visit` refused this node itself, else true.
    virtual bool TraverseDo(bool (*visit)(Section&)) {
      return Walk(
          visit, [](Section&) { return true; },
          [visit](TreeNode& node) { node.TraverseDo(visit); });
    }

    /// Calls `pre` on a section before those below it and `post` after them.
    ///
    /// Where `pre` returns false, neither the nodes below that one nor its `post` are called.
    /// \return false when `pre` refused this node itself, else what `post` returned for it.
    virtual bool TraverseDo(bool (*pre)(Section&), bool (*post)(Section&)) {
      return Walk(pre, post, [pre, post](TreeNode& node) { node.TraverseDo(pre, post); });
    }

    /// The same, with `ctx` handed to both functions as their first argument.
    virtual bool TraverseDo(void* ctx, bool (*pre)(void*, Section&),
                            bool (*post)(void*, Section&)) {
      return Walk([ctx, pre](Section& candidate) { return pre(ctx, candidate); },
                  [ctx, post](Section& candidate) { return post(ctx, candidate); },
                  [ctx, pre, post](TreeNode& node) { node.TraverseDo(ctx, pre, post); });
    }

    /// The first node, this one included, for which `pred(probe, its section)` is true.
    ///
    /// A node comes before its children, and a child's whole subtree before the child's next
    /// sibling.
    /// \return null when there is none.
    /// Cost: one call of `pred` for each node before the one found.
    TreeNode* FindIf(const Section& probe,
                     bool (*pred)(const Section& probe, const Section& candidate));

    /// Deletes every node below this one, deepest first, and the child list; the node and its
    /// section stay.
    /// \return 0.
    int DeleteAllItems() noexcept;

    /// The node that this one hangs under; a node at the top of a file's tree has the holder's
    /// topNode.
    TreeNode* parent;

    /// The nodes below this one in file order. Null until the first one comes: whoever adds it
    /// makes the list. Owned, with the nodes in it. Nodes may be taken out, put in and reordered by
    /// hand; who hangs a node elsewhere sets its `parent` too. A null in the list is passed over by
    /// every walk.
    std::list<TreeNode*>* children;

    /// The name and lines of this block.
    Section section;

   private:
    using Iterator = typename std::list<TreeNode*>::iterator;

    /// A node on the way down, and which of its children the walk is at.
    struct Level {
      explicit Level(TreeNode* node) : owner(node) {}

      /// Goes to the next child, at first to the first one; false when there is none. It is looked
      /// for only now, since others may have been appended.
      bool Step() {
        child = begun ? std::next(child) : owner->children->begin();
        begun = true;
        return child != owner->children->end();
      }

      TreeNode* owner;
      Iterator child;
      bool begun = false;
    };

    template <class Pre, class Post, class Redirect>
    bool Walk(Pre pre, Post post, Redirect redirect);
  };
};

/// The walk behind TraverseDo. A child of a class derived from TreeNode goes to `redirect`, so that
/// its own overrides are called.
template <class Section>
template <class Pre, class Post, class Redirect>
bool Tree<Section>::TreeNode::Walk(Pre pre, Post post, Redirect redirect) {
  if (!pre(section)) return false;
  std::vector<Level> path;
  if (children != nullptr) path.emplace_back(this);
  while (!path.empty()) {
    if (!path.back().Step()) {
      TreeNode* const done = path.back().owner;
      path.pop_back();
      if (done != this) post(done->section);
      continue;
    }
    TreeNode* const child = *path.back().child;
    if (child == nullptr) continue;
    if (typeid(*child) != typeid(TreeNode)) {
      redirect(*child);
    } else if (pre(child->section)) {
      if (child->children != nullptr) {
        path.emplace_back(child);
      } else {
        post(child->section);
      }
    }
  }
  return post(section);
}

template <class Section>
typename Tree<Section>::TreeNode* Tree<Section>::TreeNode::FindIf(
    const Section& probe, bool (*pred)(const Section& probe, const Section& candidate)) {
  std::vector<Level> path;
  TreeNode* node = this;
  while (node == nullptr || !pred(probe, node->section)) {
    if (node != nullptr && node->children != nullptr) path.emplace_back(node);
    while (!path.empty() && !path.back().Step()) path.pop_back();
    if (path.empty()) return nullptr;
    node = *path.back().child;
  }
  return node;
}

template <class Section>
int Tree<Section>::TreeNode::DeleteAllItems() noexcept {
  if (children == nullptr) return 0;
  // A node's children are spliced in before it, so that the first node of the list never has any.
  std::list<TreeNode*>& doomed = *children;
  while (!doomed.empty()) {
    TreeNode* const node = doomed.front();
    if (node == nullptr || node->children == nullptr) {
      delete node;
      doomed.pop_front();
    } else {
      const std::unique_ptr<std::list<TreeNode*>> below(node->children);
      node->children = nullptr;
      doomed.splice(doomed.begin(), *below);
    }
  }
  delete children;
  children = nullptr;
  return 0;
}

extern template class KLEPUR_EXPORT Tree<CfSection>;

#endif
