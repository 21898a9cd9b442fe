// The model's tree of blocks.
#ifndef KLEPUR_TESTS_RANDOM_MODEL_TREE_H
#define KLEPUR_TESTS_RANDOM_MODEL_TREE_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace klepur::test {

struct ModelLine {
  std::string text;
  bool commented = false;
};

struct ModelNode {
  std::string name;
  std::vector<ModelLine> lines;
  ModelNode* parent = nullptr;
  std::vector<std::unique_ptr<ModelNode>> children;
};

/// Where a node stands: at each level below the topmost node, which child to go to.
using Path = std::vector<std::size_t>;
using MaybePath = std::optional<Path>;

/// "/0/3/1"; "null" for none.
std::string ToText(const MaybePath& path);

/// Adds a block as the last one below `parent`, or the one at `position`.
ModelNode& AddNode(ModelNode& parent, const std::string& name);
ModelNode& AddNode(ModelNode& parent, std::size_t position, std::unique_ptr<ModelNode> node);

/// Takes a block with all that is in it out of its parent.
std::unique_ptr<ModelNode> TakeOut(ModelNode& node);

std::unique_ptr<ModelNode> Copy(const ModelNode& node);

/// Null when there is none.
ModelNode* FirstChild(const ModelNode& node);
ModelNode* NextSibling(const ModelNode& node);

/// Whether `node` is `ancestor` or stands somewhere in it.
bool IsIn(const ModelNode* node, const ModelNode& ancestor);

/// The first node of this name: `start`, then its first child and all that is in it, and so on.
ModelNode* FirstNamed(ModelNode& start, const std::string& name);

/// All nodes from `start` on, in the order in which FirstNamed looks at them.
std::vector<ModelNode*> AllNodes(ModelNode& start);

Path PathOf(const ModelNode& node);
ModelNode& NodeAt(ModelNode& top, const Path& path);

/// The tree below a node, in the form of tests/support/tree_text.h.
std::string ToText(const ModelNode& node, const std::string& indent = "");

}  // namespace klepur::test

#endif
