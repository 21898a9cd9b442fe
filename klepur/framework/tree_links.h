// Internal: steps from one node of the tree to the next, and how nodes are linked in.
#ifndef KLEPUR_FRAMEWORK_TREE_LINKS_H
#define KLEPUR_FRAMEWORK_TREE_LINKS_H

#include <klepur/framework/tree.h>

#include <cstddef>
#include <list>
#include <memory>
#include <string_view>

namespace klepur::internal {

using TreeNode = Tree<CfSection>::TreeNode;

/// The name of the section that every block of a file hangs below.
inline constexpr char kRootName[] = "TREE_ROOT_SECTION";

/// The first child; null when there is none.
TreeNode* FirstChild(const TreeNode& node);

/// The first child whose name holds `part`, among the first 65536; null when none does.
TreeNode* FirstChildHolding(const TreeNode& node, std::string_view part);

/// The first node behind a place in the child list of `parent` whose name holds `part`; null when
/// none does. A null ends the search, and so does a node behind which none can be looked for: one
/// that a caller hung here without setting its parent.
TreeNode* FirstBehind(const TreeNode& parent, std::list<TreeNode*>::iterator place,
                      std::string_view part);

/// The same behind a node's own place. Null too when its parent does not hold it.
/// Cost: linear in the length of the list.
TreeNode* NextSiblingHolding(TreeNode& node, std::string_view part);

/// Whether a section holds exactly this line.
bool HoldsLine(const CfSection& section, const char* line);

/// The first child that holds exactly this line; null when none does. How many lines there were to
/// compare is added to `lines`.
TreeNode* FirstChildWithLine(const TreeNode& node, const char* line, std::size_t& lines);

/// Takes a node out of its parent's child list without deleting it; false when it is not in it.
/// Cost: linear in the length of the list.
bool Unlink(TreeNode& node);

/// Whether `node` is `block` or hangs in a child list below it, however deep; null does not. Only
/// the address of `node` is looked at.
/// Cost: linear in the number of nodes below `block`.
bool Holds(const TreeNode& block, const TreeNode* node);

/// Appends a new node that carries `section` as the last child of `parent`, making the child list
/// when there is none, and returns it. When memory runs out nothing is appended.
TreeNode* AppendChild(TreeNode& parent, CfSection&& section);

/// The same with a node that was built for it.
TreeNode* AppendChild(TreeNode& parent, std::unique_ptr<TreeNode> node);

}  // namespace klepur::internal

#endif
