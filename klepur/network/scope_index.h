// Internal: the statements of blocks that many others may stand in.
#ifndef KLEPUR_NETWORK_SCOPE_INDEX_H
#define KLEPUR_NETWORK_SCOPE_INDEX_H

#include <klepur/document/document_state.h>
#include <klepur/document/key_table.h>
#include <klepur/document/upkeep.h>

#include <string_view>
#include <vector>

namespace klepur::internal {

/// Finds statements in the file and in groups, shared networks, subnets and pools without walking over the
/// blocks that stand there too.
class ScopeIndex {
 public:
  /// The statements right in a block that set a parameter, in the order of the text.
  std::vector<NodeId> Of(const DocumentState& state, NodeId block, std::string_view key);
  /// The statements right in a block that set something for what stands in it, in the order of the text.
  std::vector<NodeId> Inherited(const DocumentState& state, NodeId block);

 private:
  void Update(const DocumentState& state);
  template <class IsWanted>
  std::vector<NodeId> Entered(const DocumentState& state, NodeId block, std::string_view key,
                              const IsWanted& is_wanted);

  KeyTable table_;
  Upkeep upkeep_;
};

/// The statements right in a block, in the order of the text. Cost: linear in its children.
std::vector<NodeId> StatementsIn(const DocumentState& state, NodeId block);

}  // namespace klepur::internal

#endif
