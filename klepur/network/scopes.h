// Internal: the blocks whose statements count for a block.
#ifndef KLEPUR_NETWORK_SCOPES_H
#define KLEPUR_NETWORK_SCOPES_H

#include <klepur/document/document_state.h>

#include <vector>

namespace klepur::internal {

/// Scopes in the order in which they are asked, each once.
class Scopes {
 public:
  /// The block itself and those around it that set something for it, the file last.
  Scopes(const DocumentState& state, NodeId block);

  /// Makes a block and those around it count too, behind all scopes that were there and are not among
  /// them.
  void AddBehind(const DocumentState& state, NodeId block);

  const std::vector<NodeId>& All() const { return scopes_; }

 private:
  std::vector<NodeId> scopes_;
};

}  // namespace klepur::internal

#endif
