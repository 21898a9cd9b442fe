#include <klepur/framework/tree_links.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <list>
#include <memory>
#include <utility>
#include <vector>

namespace klepur::internal {
namespace {

/// Callers count children with 16 bits, so they never see more of them than this.
constexpr std::size_t kMostChildren = 65536;

bool NameHolds(const TreeNode& node, std::string_view part) {
  return std::string_view(node.section.GetName()).find(part) != std::string_view::npos;
}

bool HasSiblingList(const TreeNode& node) {
  return node.parent != nullptr && node.parent->children != nullptr;
}

/// The node's place in the child list of its parent, which must have one; the end when it is not
/// there.
std::list<TreeNode*>::iterator PlaceAmongSiblings(TreeNode& node) {
  std::list<TreeNode*>& siblings = *node.parent->children;
  return std::find(siblings.begin(), siblings.end(), &node);
}

}  // namespace

TreeNode* FirstChild(const TreeNode& node) {
  return node.children == nullptr || node.children->empty() ? nullptr : node.children->front();
}

TreeNode* FirstChildHolding(const TreeNode& node, std::string_view part) {
  if (node.children == nullptr) return nullptr;
  std::size_t seen = 0;
  for (TreeNode* child : *node.children) {
    if (seen++ == kMostChildren) break;
    if (child != nullptr && NameHolds(*child, part)) return child;
  }
  return nullptr;
}

TreeNode* FirstBehind(const TreeNode& parent, std::list<TreeNode*>::iterator place,
                      std::string_view part) {
  while (++place != parent.children->end() && *place != nullptr) {
    if (NameHolds(**place, part)) return *place;
    if ((*place)->parent != &parent) return nullptr;
  }
  return nullptr;
}

TreeNode* NextSiblingHolding(TreeNode& node, std::string_view part) {
  if (!HasSiblingList(node)) return nullptr;
  const auto place = PlaceAmongSiblings(node);
  return place == node.parent->children->end() ? nullptr : FirstBehind(*node.parent, place, part);
}

bool HoldsLine(const CfSection& section, const char* line) {
  return std::any_of(section.entryList.begin(), section.entryList.end(),
                     [line](const CfSectionEntry* entry) {
                       return entry != nullptr && std::strcmp(entry->GetKeyName(), line) == 0;
                     });
}

TreeNode* FirstChildWithLine(const TreeNode& node, const char* line, std::size_t& lines) {
  if (node.children == nullptr) return nullptr;
  for (TreeNode* child : *node.children) {
    if (child == nullptr) continue;
    lines += child->section.entryList.size();
    if (HoldsLine(child->section, line)) return child;
  }
  return nullptr;
}

bool Unlink(TreeNode& node) {
  if (!HasSiblingList(node)) return false;
  const auto place = PlaceAmongSiblings(node);
  if (place == node.parent->children->end()) return false;
  node.parent->children->erase(place);
  return true;
}

bool Holds(const TreeNode& block, const TreeNode* node) {
  if (&block == node) return true;
  if (block.children == nullptr || node == nullptr) return false;
  std::vector<const TreeNode*> left = {&block};
  while (!left.empty()) {
    const TreeNode* const next = left.back();
    left.pop_back();
    if (next == node) return true;
    if (next == nullptr || next->children == nullptr) continue;
    left.insert(left.end(), next->children->begin(), next->children->end());
  }
  return false;
}

TreeNode* AppendChild(TreeNode& parent, CfSection&& section) {
  return AppendChild(parent, std::make_unique<TreeNode>(&parent, std::move(section)));
}

TreeNode* AppendChild(TreeNode& parent, std::unique_ptr<TreeNode> node) {
  if (parent.children == nullptr) parent.children = new std::list<TreeNode*>;
  parent.children->push_back(node.get());
  return node.release();
}

}  // namespace klepur::internal
