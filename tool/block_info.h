// What a listing says of a block.
#ifndef KLEPUR_TOOL_BLOCK_INFO_H
#define KLEPUR_TOOL_BLOCK_INFO_H

#include <klepur/document/document.h>
#include <klepur/network/address.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <tool/block_names.h>
#include <tool/record.h>

namespace klepur::tool {

struct BlockInfo {
  std::string kind;      ///< "host", "subnet", "pool"
  std::string name;      ///< "pc-17", "10.20.0.0/24", empty
  std::string header;    ///< as it is written, on one line
  std::string identity;  ///< what a host is recognised by: its hardware address or identifier
  std::vector<std::string> addresses;  ///< a host's fixed addresses; ranges of a subnet or pool
  std::string in;                      ///< the path of what is around it
  std::size_t line = 0;
  std::size_t depth = 0;  ///< 0 for what stands in no block
  bool disabled = false;
  std::optional<Address> first_address;  ///< to sort by
  Records statements;                    ///< only where they were asked for

  Record AsRecord() const;
};

/// Whether statements are wanted too, which only JSON shows.
enum class Detail { kValues, kStatements };

/// What is said of one block, or of a statement such as a range, which then has no name.
BlockInfo InfoOf(const Node& block, BlockNames& names, Detail detail);

/// All blocks of a document and those that are commented out, in the order of the text. When kinds are given, of
/// blocks of others no more is told than their kind.
std::vector<BlockInfo> AllBlocks(const Document& document, Detail detail,
                                 const std::vector<std::string>& kinds);

}  // namespace klepur::tool

#endif
