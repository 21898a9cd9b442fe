#include "fuzz/document_outline.h"

#include <algorithm>
#include <cstddef>

#include "fuzz/require.h"

namespace klepur::fuzz {
namespace {

/// The node behind this one and all below it; `depth` is changed to its depth.
Node Behind(Node node, std::size_t& depth) {
  while (node) {
    if (const Node next = node.Next()) return next;
    node = node.Parent();
    --depth;
  }
  return {};
}

template <class Use>
void ForEachNode(const Document& document, const Use& use) {
  std::size_t depth = 0;
  for (Node node = document.Root().FirstChild(); node;) {
    use(node, depth);
    if (const Node child = node.FirstChild()) {
      ++depth;
      node = child;
    } else {
      node = Behind(node, depth);
    }
  }
}

std::string Line(const Node& node) {
  const bool block = node.Is(NodeKind::kBlock);
  return std::to_string(node.Offset()) + " " + std::to_string(static_cast<int>(node.Kind())) + " " +
         (block ? node.Header() + " {" : node.Text()) + "\n";
}

std::string Line(const Finding& finding) {
  return std::to_string(finding.where.line) + ":" + std::to_string(finding.where.column) + " " +
         finding.message + "\n";
}

}  // namespace

std::vector<Node> AllNodes(const Document& document) {
  std::vector<Node> nodes;
  ForEachNode(document, [&](const Node& node, std::size_t) { nodes.push_back(node); });
  return nodes;
}

std::string OutlineOf(const Document& document) {
  std::string outline;
  ForEachNode(document, [&](const Node& node, std::size_t depth) {
    outline += std::string(depth, ' ') + Line(node);
  });
  for (const Finding& finding : document.Findings()) outline += Line(finding);
  return outline;
}

void RequireBlocksFound(const Document& document) {
  for (const Node& node : AllNodes(document)) {
    if (!node.Is(NodeKind::kBlock)) continue;
    const std::vector<Node> found = document.FindAll(node.Header());
    Require(std::count(found.begin(), found.end(), node) == 1, "a block is found by its header");
  }
}

}  // namespace klepur::fuzz
