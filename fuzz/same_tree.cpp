#include "fuzz/same_tree.h"

#include <algorithm>
#include <cstring>

#include "fuzz/require.h"
#include "tests/support/tree_text.h"

namespace klepur::fuzz {
namespace {

using test::ModelLine;
using test::ModelNode;
using TreeNode = Tree<CfSection>::TreeNode;

bool IsSameEntry(const CfSectionEntry* entry, const ModelLine& line) {
  return entry->GetKeyName() == line.text && (entry->GetComment() != nullptr) == line.commented;
}

bool IsSameLine(const ModelLine& one, const ModelLine& other) {
  return one.text == other.text && one.commented == other.commented;
}

}  // namespace

bool IsSame(const TreeNode& node, const ModelNode& model) {
  const auto& lines = node.section.entryList;
  if (node.section.GetName() != model.name) return false;
  if (!std::equal(lines.begin(), lines.end(), model.lines.begin(), model.lines.end(),
                  IsSameEntry)) {
    return false;
  }
  if (node.children == nullptr) return model.children.empty();
  return std::equal(node.children->begin(), node.children->end(), model.children.begin(),
                    model.children.end(), [&node](const TreeNode* child, const auto& expected) {
                      return child->parent == &node && IsSame(*child, *expected);
                    });
}

bool IsSame(const ModelNode& node, const ModelNode& model) {
  return node.name == model.name &&
         std::equal(node.lines.begin(), node.lines.end(), model.lines.begin(), model.lines.end(),
                    IsSameLine) &&
         std::equal(node.children.begin(), node.children.end(), model.children.begin(),
                    model.children.end(), [](const auto& child, const auto& expected) {
                      return IsSame(*child, *expected);
                    });
}

void RequireSameTree(const char* what, const TreeNode& node, const ModelNode& model) {
  if (IsSame(node, model)) return;
  RequireSame(what, ToText(model), test::TreeText(node));
  Fail(std::string("Different: ") + what + ", though both look like\n" + ToText(model));
}

}  // namespace klepur::fuzz
