// What blocks are called, so that a BLOCK argument finds them again.
#ifndef KLEPUR_TOOL_BLOCK_NAMES_H
#define KLEPUR_TOOL_BLOCK_NAMES_H

#include <klepur/document/document.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace klepur::tool {

/// Between the steps of a path.
constexpr std::string_view kStep = " > ";

/// The name of a block as people say it: of a subnet "10.20.0.0/24", of others Node::Name. Empty if it has none.
std::string NameOf(const Node& block);

/// The names of the blocks of a document, good until it is edited.
class BlockNames {
 public:
  explicit BlockNames(const Document& document) : document_(&document) {}

  /// "host pc-17", "subnet 10.20.0.0/24"; of a block without a name which of its kind it is: "pool 1". The
  /// first such block reads the whole file.
  std::string Step(const Node& block);
  /// The block with those around it: "subnet 10.20.0.0/24 > pool 1"; of the file "global".
  std::string Path(const Node& block);
  /// The path of what is around a node; empty for what stands in no block.
  std::string In(const Node& node);

 private:
  void CountBlocks();

  const Document* document_;
  bool is_counted_ = false;
  std::unordered_map<std::size_t, std::size_t>
      numbers_;  // of blocks without a name, by their offset
};

}  // namespace klepur::tool

#endif
