// A tree as a text that a test can compare whole.
#ifndef KLEPUR_TESTS_SUPPORT_TREE_TEXT_H
#define KLEPUR_TESTS_SUPPORT_TREE_TEXT_H

#include <klepur/framework/section_holder.h>

#include <string>

namespace klepur::test {

/// All that hangs below a node, entries before blocks, two blanks deeper at each level:
///
///     [TREE_ROOT_SECTION]
///       ddns-update-style none;
///       #main office
///       [subnet 10.0.0.0 netmask 255.0.0.0]
///         #range 10.0.0.10 10.0.0.20;
///
/// A block is its name in brackets, a live entry its key, a commented-out one "#" and its key.
std::string TreeText(const Tree<CfSection>::TreeNode& node);

/// All that hangs below the holder's topNode.
std::string TreeText(const CfSectionHolder& holder);

}  // namespace klepur::test

#endif
