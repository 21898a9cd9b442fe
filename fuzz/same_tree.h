// The library's tree beside the model's.
#ifndef KLEPUR_FUZZ_SAME_TREE_H
#define KLEPUR_FUZZ_SAME_TREE_H

#include <klepur/framework/section_holder.h>

#include "tests/random/model_tree.h"

namespace klepur::fuzz {

/// Whether names, lines, comment marks, order, nesting and parents are the same from here on down.
bool IsSame(const Tree<CfSection>::TreeNode& node, const test::ModelNode& model);
bool IsSame(const test::ModelNode& node, const test::ModelNode& model);

/// Fails, showing both, when they are not.
void RequireSameTree(const char* what, const Tree<CfSection>::TreeNode& node,
                     const test::ModelNode& model);

}  // namespace klepur::fuzz

#endif
