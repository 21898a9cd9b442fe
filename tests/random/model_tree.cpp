#include "tests/random/model_tree.h"

#include <algorithm>
#include <utility>

namespace klepur::test {
namespace {

std::size_t IndexOf(const ModelNode& node) {
  const auto& siblings = node.parent->children;
  const auto at = std::find_if(siblings.begin(), siblings.end(),
                               [&](const auto& sibling) { return sibling.get() == &node; });
  return static_cast<std::size_t>(at - siblings.begin());
}

void Collect(ModelNode& node, std::vector<ModelNode*>& nodes) {
  nodes.push_back(&node);
  for (const auto& child : node.children) Collect(*child, nodes);
}

}  // namespace

std::string ToText(const MaybePath& path) {
  if (!path) return "null";
  std::string text = "/";
  for (const std::size_t index : *path) {
    if (text.size() > 1) text += "/";
    text += std::to_string(index);
  }
  return text;
}

ModelNode& AddNode(ModelNode& parent, const std::string& name) {
  auto node = std::make_unique<ModelNode>();
  node->name = name;
  return AddNode(parent, parent.children.size(), std::move(node));
}

ModelNode& AddNode(ModelNode& parent, std::size_t position, std::unique_ptr<ModelNode> node) {
  node->parent = &parent;
  const auto at = parent.children.begin() + static_cast<std::ptrdiff_t>(position);
  return **parent.children.insert(at, std::move(node));
}

std::unique_ptr<ModelNode> TakeOut(ModelNode& node) {
  auto& siblings = node.parent->children;
  const auto at = siblings.begin() + static_cast<std::ptrdiff_t>(IndexOf(node));
  std::unique_ptr<ModelNode> taken = std::move(*at);
  siblings.erase(at);
  taken->parent = nullptr;
  return taken;
}

std::unique_ptr<ModelNode> Copy(const ModelNode& node) {
  auto copy = std::make_unique<ModelNode>();
  copy->name = node.name;
  copy->lines = node.lines;
  for (const auto& child : node.children) AddNode(*copy, copy->children.size(), Copy(*child));
  return copy;
}

ModelNode* FirstChild(const ModelNode& node) {
  return node.children.empty() ? nullptr : node.children.front().get();
}

ModelNode* NextSibling(const ModelNode& node) {
  if (node.parent == nullptr) return nullptr;
  const std::size_t next = IndexOf(node) + 1;
  return next < node.parent->children.size() ? node.parent->children[next].get() : nullptr;
}

bool IsIn(const ModelNode* node, const ModelNode& ancestor) {
  while (node != nullptr && node != &ancestor) node = node->parent;
  return node != nullptr;
}

ModelNode* FirstNamed(ModelNode& start, const std::string& name) {
  if (start.name == name) return &start;
  for (const auto& child : start.children) {
    if (ModelNode* found = FirstNamed(*child, name)) return found;
  }
  return nullptr;
}

std::vector<ModelNode*> AllNodes(ModelNode& start) {
  std::vector<ModelNode*> nodes;
  Collect(start, nodes);
  return nodes;
}

Path PathOf(const ModelNode& node) {
  Path path;
  for (const ModelNode* at = &node; at->parent != nullptr; at = at->parent) {
    path.insert(path.begin(), IndexOf(*at));
  }
  return path;
}

ModelNode& NodeAt(ModelNode& top, const Path& path) {
  ModelNode* node = &top;
  for (const std::size_t index : path) node = node->children.at(index).get();
  return *node;
}

std::string ToText(const ModelNode& node, const std::string& indent) {
  std::string text;
  for (const ModelLine& line : node.lines) {
    text += indent + (line.commented ? "#" : "") + line.text + "\n";
  }
  for (const auto& child : node.children) {
    text += indent + "[" + child->name + "]\n" + ToText(*child, indent + "  ");
  }
  return text;
}

}  // namespace klepur::test
