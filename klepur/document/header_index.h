// Internal: finding blocks by their headers.
#ifndef KLEPUR_DOCUMENT_HEADER_INDEX_H
#define KLEPUR_DOCUMENT_HEADER_INDEX_H

#include <string_view>
#include <vector>

#include <klepur/document/key_table.h>
#include <klepur/document/upkeep.h>

namespace klepur::internal {

struct DocumentState;

/// The blocks of a document by their keys and names.
class HeaderIndex {
 public:
  /// The blocks with this key and name, in the order of their making. Makes or completes the table first.
  std::vector<NodeId> Find(const DocumentState& state, std::string_view key, std::string_view name);

 private:
  KeyTable table_;
  Upkeep upkeep_;
};

}  // namespace klepur::internal

#endif
