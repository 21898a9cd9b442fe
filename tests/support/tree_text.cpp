#include "tests/support/tree_text.h"

namespace klepur::test {
namespace {

void Append(const Tree<CfSection>::TreeNode& node, const std::string& indent, std::string& text) {
  for (const CfSectionEntry* entry : node.section.entryList) {
    text += indent + (entry->GetComment() != nullptr ? "#" : "") + entry->GetKeyName() + "\n";
  }
  if (node.children == nullptr) return;
  for (const Tree<CfSection>::TreeNode* child : *node.children) {
    text += indent + "[" + child->section.GetName() + "]\n";
    Append(*child, indent + "  ", text);
  }
}

}  // namespace

std::string TreeText(const Tree<CfSection>::TreeNode& node) {
  std::string text;
  Append(node, "", text);
  return text;
}

std::string TreeText(const CfSectionHolder& holder) {
  return TreeText(holder.topNode);
}

}  // namespace klepur::test
